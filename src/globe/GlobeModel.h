#pragma once
// The globe view without its window: which pictures a screen uses, where the map and the
// strip go, scrolling and centring, the markers, the keys and when to shade again.

#include <cstdint>
#include <string_view>
#include <vector>

#include "controls/ColorRef.h"
#include "controls/PixelSurface.h"
#include "core/DeviceProfile.h"
#include "globe/ClockFaces.h"

namespace zonara {

struct ClockSlot;
struct Settings;

inline constexpr std::string_view calculatingDayNightText = "Calculating day/night";
inline constexpr ColorRef busyTextColour = rgb(255, 255, 255);
// Marker pixels of this colour are left out, except on the selected city's marker.
inline constexpr ColorRef markerKeyColour = rgb(255, 165, 30);
inline constexpr std::string_view markerFile = "marker.bmp";
inline constexpr int globeTimerId = 1;
inline constexpr int globeTimerPeriodMs = 1000;
inline constexpr std::uint32_t reshadeIntervalMs = 300000;
inline constexpr int stripControlId = 6000;
inline constexpr int globeFontPoints = 9;

// The day and night pictures a screen uses, and their nominal size.
struct MapPair {
    std::string_view dayFile;
    std::string_view nightFile;
    int width = 0;
    int height = 0;
    friend bool operator==(const MapPair&, const MapPair&) = default;
};

// The large pair on a high-resolution screen without the second display, else the small.
MapPair mapPairFor(const DeviceProfile& profile);

// The strip's face and size value: by the second display flag, then a square screen
// (width equal to height), then any other, each at high or low resolution.
ClockFace stripClockFaceFor(const DeviceProfile& profile);

// The strip below the map: its rectangle in the view, the small clock's layout mode
// (0 on a portrait screen, 3 on a square or landscape one or with the second display) and
// the mode the globe keeps for it (1 and 4; 0 before the first layout).
struct StripLayout {
    PixelRect rect;
    int stripMode = 0;
    int layoutMode = 0;
    friend bool operator==(const StripLayout&, const StripLayout&) = default;
};

// menuBarHeight is whatever of the client height a menu bar takes (none here: the
// soft-key bar lies outside the views).
StripLayout stripLayoutFor(int clientWidth, int clientHeight, int menuBarHeight, int mapHeight,
                           bool secondDisplay);

// The font pair's pixel height: 9 points at the screen's dots per inch, truncated.
int globeFontPixels(int dpi);

// Windows key codes, which the widget maps its keys to.
enum GlobeKey : int {
    KeyLeft = 37,
    KeyUp = 38,
    KeyRight = 39,
    KeyDown = 40,
    KeyTwo = 50,
    KeyThree = 51,
};

enum class KeyOutcome {
    Ignored,
    Scrolled,       // repaint
    SlotChanged,    // bind the new slot, refresh the clock, repaint (already centred)
    PassedToParent, // hand the key to the frame unchanged, nothing else
};

enum class RefreshKind {
    Clock, // only the strip's clock
    Full,  // reload the day picture, shade it, repaint, then the clock
};

// One piece of the map copied into the view: columns sourceX .. sourceX + width - 1,
// all rows, to x = destX, y = 0.
struct MapPiece {
    int sourceX = 0;
    int width = 0;
    int destX = 0;
    friend bool operator==(const MapPiece&, const MapPiece&) = default;
};

struct MarkerPlacement {
    PixelPoint centre;
    PixelPoint topLeft;
    bool opaque = false; // the selected slot's
    friend bool operator==(const MarkerPlacement&, const MarkerPlacement&) = default;
};

// A city's spot on the map: x = trunc((longitude + 180) * W/360), y = trunc((90 - latitude)
// * H/180), in single precision with 1/360 and 1/180 rounded to single precision.
int mapColumnOf(float longitude, int mapWidth);
int mapRowOf(float latitude, int mapHeight);

class GlobeModel {
  public:
    // The map's size comes from the day picture as loaded; a missing one gives 0 x 0.
    GlobeModel(int clientWidth, int mapWidth, int mapHeight);

    // The settings record stays the caller's; Up and Down change its selected slot.
    void attach(Settings& settings);
    void setMapSize(int width, int height);
    void setClientWidth(int width) { clientWidth = width; }

    // Showing: back to the left edge, busy until the first paint, and the shading clock
    // starts now. The caller loads the pictures and starts the one-second timer.
    void show(std::uint32_t nowMs);
    // Starting the timer again also counts as a shading.
    void restartTimer(std::uint32_t nowMs) { lastShade = nowMs; }
    // One tick of the one-second timer. Full once more than five minutes have passed
    // since the last shading (32-bit milliseconds, which wrap after 49.7 days).
    RefreshKind tick(std::uint32_t nowMs);

    // Whether this paint shows the busy text; the first paint after showing clears it.
    bool takeBusy();
    bool busy() const { return busyFlag; }

    void centreOnSelected();
    KeyOutcome key(int keyCode);

    // What to copy from the map for the current scroll position.
    std::vector<MapPiece> mapPieces() const;
    // The four slots' markers in drawing order, for a marker picture of that size; none
    // before a record is attached.
    std::vector<MarkerPlacement> markers(int markerWidth, int markerHeight) const;

    int scrollOffset() const { return scroll; }
    void setScrollOffset(int offset) { scroll = offset; }
    std::uint32_t lastShadeTick() const { return lastShade; }
    int mapWidth() const { return width; }
    int mapHeight() const { return height; }
    int selectedSlot() const;
    // The selected slot's city; nothing before a record is attached.
    const ClockSlot* selectedCity() const;

  private:
    Settings* settings = nullptr;
    int clientWidth;
    int width;
    int height;
    int scroll = 0;
    std::uint32_t lastShade = 0;
    bool busyFlag = true;
};

} // namespace zonara
