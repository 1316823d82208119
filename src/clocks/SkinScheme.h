#pragma once
// Reads a skin scheme's background, 13 text fields and moon phase for the full clock.

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "controls/ColorRef.h"
#include "clocks/SkinValue.h"

namespace zonara {

class CXMLParser;

// The text fields in the order the full clock keeps and draws them; a
// field's index is its slot.
inline constexpr std::array<std::string_view, 13> textFieldNames = {
    "country",        "city",     "time",      "date",
    "airportcode",    "dialcode", "GMToffset", "timezonedescription",
    "daylightSaving", "sunrise",  "sunset",    "ampm",
    "inettime"};
inline constexpr std::size_t textFieldCount = textFieldNames.size();

inline constexpr std::string_view schemePrefix = "scheme/mainclock";

// One text field of the full clock. Colour, rectangle, font and style are
// whatever the scheme gives; a fresh record holds zero for them.
struct TextField {
    bool shown = false;
    ColorRef colour = 0;
    SkinRect rect;
    std::string text = "test";
    std::int32_t align = 0;      // 0 left, 1 centre, 2 right
    std::int32_t fontSize = 0;   // points
    std::int32_t fontWeight = 0; // 500 or 700 once read
    bool shortStyle = false;
    bool dirty = true; // the text changed since it was last drawn

    friend bool operator==(const TextField&, const TextField&) = default;
};

// The moon-phase picture strip. Outlives a change of skin: what a scheme does
// not set keeps the value the previous one left.
struct MoonPhaseLayout {
    // The keys were read: the scheme shows the moon phase, or (no document at
    // all) its state could not be looked up.
    bool read = false;
    // "@img" was looked up without error: the strip is to be loaded from
    // Graphics/ + image (a missing key leaves image empty, so nothing loads).
    bool loadImage = false;
    std::string image;
    SkinRect rect; // only left and top place the picture
    SkinSize size; // one phase inside the strip

    friend bool operator==(const MoonPhaseLayout&, const MoonPhaseLayout&) = default;
};

struct SkinScheme {
    // The background picture's name under Graphics/. A scheme without one
    // keeps the previous skin's name.
    std::string background;
    // The background lookup did not fail: the picture is to be (re)loaded.
    bool loadBackground = false;
    std::array<TextField, textFieldCount> fields;
    MoonPhaseLayout moonPhase;

    friend bool operator==(const SkinScheme&, const SkinScheme&) = default;
};

// Reads the background, the text fields and the moon phase from a loaded
// scheme, starting from the state the previous skin left. The text fields
// start afresh, but each attribute is read into one string shared by all of
// them, so a field without an attribute repeats the previous field's value.
SkinScheme readSkinScheme(const CXMLParser& parser, const SkinScheme& previous);

// Create, Load, readSkinScheme, Close. A file that is missing or does not
// parse reads as an empty document: nothing matches and nothing is shown.
SkinScheme loadSkinScheme(const std::filesystem::path& file, const SkinScheme& previous);

} // namespace zonara
