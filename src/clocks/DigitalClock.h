#pragma once
// The seven-segment clock's layout: digit boxes, segment polygons, colon dots, the AM/PM pair.

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "controls/ColorRef.h"
#include "controls/PixelSurface.h"
#include "clocks/SkinValue.h"

namespace zonara {

class CXMLParser;

namespace digitalFlags {
inline constexpr std::uint32_t showSeconds = 1;       // six digits and a second colon
inline constexpr std::uint32_t showAmPm = 2;          // the AM/PM pair at the right edge
inline constexpr std::uint32_t noBackgroundErase = 4; // the owner's background shows through
inline constexpr std::uint32_t never12Hour = 8;       // hours shown as given (the stopwatch)
} // namespace digitalFlags

enum class Segment { Top, UpperLeft, LowerLeft, Bottom, LowerRight, UpperRight, Middle };

// Segments in drawing order.
inline constexpr std::array<Segment, 7> segmentOrder{
    Segment::Top,        Segment::UpperLeft,  Segment::LowerLeft, Segment::Bottom,
    Segment::LowerRight, Segment::UpperRight, Segment::Middle};

constexpr std::uint8_t segmentBit(Segment s) {
    return std::uint8_t(1u << unsigned(s));
}

// Lit segments of the digits 0 to 9.
inline constexpr std::array<std::uint8_t, 10> digitSegments = [] {
    using enum Segment;
    constexpr auto bits = [](std::initializer_list<Segment> lit) {
        std::uint8_t mask = 0;
        for (Segment s : lit)
            mask |= segmentBit(s);
        return mask;
    };
    return std::array<std::uint8_t, 10>{
        bits({Top, UpperLeft, LowerLeft, Bottom, LowerRight, UpperRight}),
        bits({UpperRight, LowerRight}),
        bits({Top, UpperRight, Middle, LowerLeft, Bottom}),
        bits({Top, UpperRight, Middle, LowerRight, Bottom}),
        bits({UpperLeft, UpperRight, Middle, LowerRight}),
        bits({Top, UpperLeft, Middle, LowerRight, Bottom}),
        bits({Top, UpperLeft, LowerLeft, Bottom, LowerRight, Middle}),
        bits({Top, UpperRight, LowerRight}),
        bits({Top, UpperLeft, LowerLeft, Bottom, LowerRight, UpperRight, Middle}),
        bits({Top, UpperLeft, Bottom, LowerRight, UpperRight, Middle}),
    };
}();

constexpr bool isHorizontal(Segment s) {
    return s == Segment::Top || s == Segment::Bottom || s == Segment::Middle;
}

// The hour as shown: unless `never12Hour` or the 24-hour setting, hours
// outside 1..12 move to the 12-hour dial (0 shows 12, 13..23 show 1..11).
int displayHour(int hour, std::uint32_t flags, bool use24Hour);

// The six digit boxes of a client area W x H: the row always takes room for
// six digits, so hiding the seconds leaves the first four where they were.
std::array<PixelRect, 6> digitBoxes(int width, int height);

// The rectangle of one segment inside a digit box.
PixelRect segmentRect(const PixelRect& box, Segment segment);

// The six-point polygon, pointed at both ends, that fills a segment rectangle.
std::array<PixelPoint, 6> segmentPolygon(const PixelRect& rect, bool horizontal);

struct SegmentShape {
    int digit = 0; // position in the row, 0..5
    Segment segment = Segment::Top;
    PixelRect rect;
    std::array<PixelPoint, 6> points;
    bool lit = false;
};

// A colon dot, drawn as the ellipse over the square of `radius` around `centre`
// and always lit.
struct ColonDot {
    PixelPoint centre;
    int radius = 0;
    PixelRect bounds() const {
        return {centre.x - radius, centre.y - radius, centre.x + radius, centre.y + radius};
    }
};

struct AmPmText {
    PixelRect rect;
    std::string text;
    bool lit = false;
};

// Everything one paint draws, in drawing order within each list.
struct DigitalClockFace {
    std::vector<SegmentShape> segments;
    std::vector<ColonDot> dots;
    std::vector<AmPmText> texts;
};

// The face for a client area W x H showing the given time. A digit value
// outside 0..9 (a field above 99) draws no segments at all.
DigitalClockFace layoutDigitalClock(int width, int height, int hour, int minute, int second,
                                    std::uint32_t flags, bool use24Hour);

struct DigitalClockColours {
    ColorRef fillOn = 0;
    ColorRef fillOff = 0;
    ColorRef borderOn = 0;
    ColorRef borderOff = 0;
    ColorRef backFill = 0;
    friend bool operator==(const DigitalClockColours&, const DigitalClockColours&) = default;
};

class DigitalClock {
  public:
    // Reads the "dig_clock" keys under prefix in their fixed order: "@state"
    // (anything but "show" ends the reading and gives false), "@rect" into
    // rect, then the five colours. A key that is missing, empty or fails keeps
    // what was held before.
    bool readScheme(const CXMLParser& parser, std::string_view prefix, SkinRect& rect);

    void setColours(const DigitalClockColours& value) { colourSet = value; }
    const DigitalClockColours& colours() const { return colourSet; }
    void setTime(int hourValue, int minuteValue, int secondValue);
    void setFlags(std::uint32_t value) { flagBits = value; }
    std::uint32_t flags() const { return flagBits; }
    void setUse24Hour(bool value) { twentyFourHour = value; }
    bool use24Hour() const { return twentyFourHour; }

    int hour() const { return hourValue; }
    int minute() const { return minuteValue; }
    int second() const { return secondValue; }
    bool erasesBackground() const { return (flagBits & digitalFlags::noBackgroundErase) == 0; }

    DigitalClockFace face(int width, int height) const {
        return layoutDigitalClock(width, height, hourValue, minuteValue, secondValue, flagBits,
                                  twentyFourHour);
    }

  private:
    DigitalClockColours colourSet;
    int hourValue = 0;
    int minuteValue = 0;
    int secondValue = 0;
    std::uint32_t flagBits = digitalFlags::showSeconds | digitalFlags::showAmPm;
    bool twentyFourHour = false;
};

} // namespace zonara
