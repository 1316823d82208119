#pragma once
// The analogue clock's hands: direction table, hand geometry, the anti-aliased line and the skin
// keys.

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "controls/ColorRef.h"
#include "controls/PixelSurface.h"
#include "clocks/SkinValue.h"

namespace zonara {

class CXMLParser;

struct HandDirection {
    std::int16_t dx;
    std::int16_t dy;
};

// One entry per minute mark: 8000·sin(6i°), −8000·cos(6i°) with y growing
// downwards, as the clock has always stored them (the 7999 and 3999 entries
// are rounding leftovers that stay).
inline constexpr std::array<HandDirection, 60> handTable{{
    {0, -7999},     {836, -7956},   {1663, -7825},  {2472, -7608},  {3253, -7308},  {3999, -6928},
    {4702, -6472},  {5353, -5945},  {5945, -5353},  {6472, -4702},  {6928, -4000},  {7308, -3253},
    {7608, -2472},  {7825, -1663},  {7956, -836},   {8000, 0},      {7956, 836},    {7825, 1663},
    {7608, 2472},   {7308, 3253},   {6928, 4000},   {6472, 4702},   {5945, 5353},   {5353, 5945},
    {4702, 6472},   {3999, 6928},   {3253, 7308},   {2472, 7608},   {1663, 7825},   {836, 7956},
    {0, 7999},      {-836, 7956},   {-1663, 7825},  {-2472, 7608},  {-3253, 7308},  {-4000, 6928},
    {-4702, 6472},  {-5353, 5945},  {-5945, 5353},  {-6472, 4702},  {-6928, 3999},  {-7308, 3253},
    {-7608, 2472},  {-7825, 1663},  {-7956, 836},   {-7999, 0},     {-7956, -836},  {-7825, -1663},
    {-7608, -2472}, {-7308, -3253}, {-6928, -4000}, {-6472, -4702}, {-5945, -5353}, {-5353, -5945},
    {-4702, -6472}, {-3999, -6928}, {-3253, -7308}, {-2472, -7608}, {-1663, -7825}, {-836, -7956},
}};

struct LineSegment {
    PixelPoint from;
    PixelPoint to;
    friend bool operator==(const LineSegment&, const LineSegment&) = default;
};

// Half-width of the hour and minute hands at their base: above 100 gives 3,
// above 50 gives 2, else 1.
int sizeClassFor(int radius);

// A hand length or width scale from the skin: negative gives 1, above 200
// gives 200, 0 stays 0.
int clampHandScale(std::string_view value);

// The hour hand's table index: five marks per hour plus one per 12 minutes.
constexpr int hourHandIndex(int hour, int minute) {
    return hour * 5 + minute / 12;
}

// Whether a hand at this index lies nearer the horizontal, so its fan spreads
// vertically at the base.
constexpr bool spreadsVertically(int index) {
    return (index >= 10 && index <= 20) || (index >= 40 && index <= 50);
}

// The fan of 2·sizeClass + 1 lines of an hour or minute hand, in drawing
// order. The length is radius·lengthScale/100, and the tip lies at the table
// entry times length/7000: a hand reaches 8/7 of its nominal length, a quirk
// the skins are drawn for. An index outside 0..59 gives no lines.
std::vector<LineSegment> handFan(PixelPoint centre, int radius, int sizeClass, int index,
                                 int lengthScale);

// The second hand (75 % of the radius) and its tail (20 %, pointing the other
// way), in drawing order. An index outside 0..59 gives no lines.
std::vector<LineSegment> secondHand(PixelPoint centre, int radius, int index);

// 0.299 R + 0.587 G + 0.114 B.
double greyValue(ColorRef colour);

// Mixes line colour and background per component; the weight k (0..255) is
// that of the lighter of the two components, not of the line.
ColorRef blendPixel(ColorRef background, ColorRef line, unsigned k);

// Wu's line with a 16-bit error accumulator, blended into what the surface
// already holds. The two pixels that straddle the ideal line take inverted
// weights when the line is lighter than the pixel under it, so dark hands on
// light faces and light hands on dark faces both come out smooth.
void drawAntiAliasedLine(PixelSurface& surface, PixelPoint from, PixelPoint to, ColorRef colour);

struct HandStroke {
    std::vector<LineSegment> lines;
    ColorRef colour;
};

class AnalogueClock {
  public:
    AnalogueClock() = default;

    // Reads the "clock" keys under prefix in their fixed order. False, having
    // read nothing more, when "@state" is found and is not "show". A key that
    // is missing or empty keeps the value held before, so a skin without
    // "@radius" and "@hand-center" gets the ones the window size gives.
    bool readScheme(const CXMLParser& parser, std::string_view prefix, SkinRect& rect);

    void setRadius(int value);
    void setCentre(int x, int y);
    // Hour on the 12-hour dial (0..11), minute and second (0..59).
    void setTime(int hourValue, int minuteValue, int secondValue);
    void setHideSeconds(bool hide) { hideSecondsHand = hide; }
    // What is not set by the skin follows from the client size: radius and
    // centreY H/2, centreX W/2.
    void applyClientSize(int width, int height);

    void setHourColour(ColorRef colour) { hourOutline = colour; }
    void setMinuteColour(ColorRef colour) { minuteOutline = colour; }
    void setSecondColour(ColorRef colour) { secondOutline = colour; }

    // Minute hand, hour hand, then (unless hidden) the second hand and tail.
    std::vector<HandStroke> hands() const;
    void drawHands(PixelSurface& surface) const;

    int radius() const { return radiusValue; }
    int sizeClass() const { return sizeClassValue; }
    PixelPoint centre() const { return {centreX, centreY}; }
    int hour() const { return hourValue; }
    int minute() const { return minuteValue; }
    int second() const { return secondValue; }
    bool hideSeconds() const { return hideSecondsHand; }
    int hourLengthScale() const { return hourLength; }
    int minuteLengthScale() const { return minuteLength; }
    int hourWidthScale() const { return hourWidth; }
    int minuteWidthScale() const { return minuteWidth; }
    ColorRef hourColour() const { return hourOutline; }
    ColorRef minuteColour() const { return minuteOutline; }
    ColorRef secondColour() const { return secondOutline; }
    ColorRef hourFillColour() const { return hourFill; }
    ColorRef minuteFillColour() const { return minuteFill; }

  private:
    ColorRef minuteOutline = rgb(255, 255, 255);
    ColorRef hourOutline = rgb(255, 255, 255);
    ColorRef secondOutline = rgb(255, 0, 0);
    // Read from the skin and kept, but the hands are drawn from their outline
    // colours alone.
    ColorRef minuteFill = rgb(255, 255, 255);
    ColorRef hourFill = rgb(255, 255, 255);
    int centreX = -1;
    int centreY = -1;
    int radiusValue = -1;
    int sizeClassValue = 1;
    int hourValue = 0;
    int minuteValue = 0;
    int secondValue = 0;
    // Kept from the skin; the hand width comes from the size class instead.
    int hourWidth = 8;
    int minuteWidth = 5;
    int hourLength = 50;
    int minuteLength = 72;
    bool hideSecondsHand = false;
};

} // namespace zonara
