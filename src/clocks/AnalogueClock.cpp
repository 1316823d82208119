#include "clocks/AnalogueClock.h"

#include <cstdlib>
#include <string>
#include <utility>

#include "clocks/CXMLParser.h"

namespace zonara {

namespace {

constexpr double inverse255 = 0.00392156862745098;

bool validIndex(int index) {
    return index >= 0 && index < int(handTable.size());
}

PixelPoint tipOffset(int index, int length) {
    const HandDirection d = handTable[std::size_t(index)];
    return {d.dx * length / 7000, d.dy * length / 7000};
}

std::uint8_t blendComponent(std::uint8_t background, std::uint8_t line, unsigned k) {
    const int p = background;
    const int l = line;
    const double mixed = p > l ? double((p - l) * int(k)) * inverse255 + l
                               : double((l - p) * int(k)) * inverse255 + p;
    return std::uint8_t(unsigned(mixed) & 0xFF);
}

// Blends one pixel: `weight` applies when the line is darker than the pixel
// under it, its inverse when the line is lighter.
void blendAt(PixelSurface& surface, int x, int y, ColorRef colour, double lineGrey,
             unsigned weight) {
    if (!surface.writable(x, y))
        return;
    const ColorRef under = surface.getPixel(x, y);
    const unsigned k = lineGrey < greyValue(under) ? weight : weight ^ 255u;
    surface.setPixel(x, y, blendPixel(under, colour, k));
}

} // namespace

int sizeClassFor(int radius) {
    if (radius > 100)
        return 3;
    if (radius > 50)
        return 2;
    return 1;
}

int clampHandScale(std::string_view value) {
    const int v = parseNumber(value);
    if (v < 0)
        return 1;
    if (v > 200)
        return 200;
    return v;
}

std::vector<LineSegment> handFan(PixelPoint centre, int radius, int sizeClass, int index,
                                 int lengthScale) {
    std::vector<LineSegment> lines;
    if (!validIndex(index))
        return lines;
    const int length = radius * lengthScale / 100;
    const PixelPoint offset = tipOffset(index, length);
    const PixelPoint tip{centre.x + offset.x, centre.y + offset.y};
    const bool vertical = spreadsVertically(index);
    for (int o = -sizeClass; o <= sizeClass; ++o) {
        const PixelPoint base =
            vertical ? PixelPoint{centre.x, centre.y + o} : PixelPoint{centre.x + o, centre.y};
        lines.push_back({base, tip});
    }
    return lines;
}

std::vector<LineSegment> secondHand(PixelPoint centre, int radius, int index) {
    if (!validIndex(index))
        return {};
    const PixelPoint hand = tipOffset(index, radius * 75 / 100);
    const PixelPoint tail = tipOffset(index, radius * 20 / 100);
    return {{centre, {centre.x + hand.x, centre.y + hand.y}},
            {centre, {centre.x - tail.x, centre.y - tail.y}}};
}

double greyValue(ColorRef colour) {
    return 0.299 * redOf(colour) + 0.587 * greenOf(colour) + 0.114 * blueOf(colour);
}

ColorRef blendPixel(ColorRef background, ColorRef line, unsigned k) {
    return rgb(blendComponent(redOf(background), redOf(line), k),
               blendComponent(greenOf(background), greenOf(line), k),
               blendComponent(blueOf(background), blueOf(line), k));
}

void drawAntiAliasedLine(PixelSurface& surface, PixelPoint from, PixelPoint to, ColorRef colour) {
    if (from.y > to.y)
        std::swap(from, to);
    surface.setPixel(from.x, from.y, colour);

    const int dx = std::abs(to.x - from.x);
    const int xdir = to.x >= from.x ? 1 : -1;
    const int dy = to.y - from.y;
    int x = from.x;
    int y = from.y;

    if (dy == 0) {
        for (int i = 0; i < dx; ++i) {
            x += xdir;
            surface.setPixel(x, y, colour);
        }
        return;
    }
    if (dx == 0 || dx == dy) {
        for (int i = 0; i < dy; ++i) {
            x += dx == 0 ? 0 : xdir;
            ++y;
            surface.setPixel(x, y, colour);
        }
        return;
    }

    const double lineGrey = greyValue(colour);
    std::uint16_t accumulator = 0;
    if (dy <= dx) {
        if (dx == 1) {
            surface.setPixel(to.x, to.y, colour);
            return;
        }
        const auto adjust = std::uint16_t((unsigned(dy) << 16) / unsigned(dx));
        for (int i = 0; i < dx - 1; ++i) {
            const std::uint16_t old = accumulator;
            accumulator = std::uint16_t(accumulator + adjust);
            if (accumulator <= old)
                ++y;
            x += xdir;
            const unsigned weight = accumulator >> 8;
            blendAt(surface, x, y, colour, lineGrey, weight);
            blendAt(surface, x, y + 1, colour, lineGrey, weight ^ 255u);
        }
    } else {
        const auto adjust = std::uint16_t((unsigned(dx) << 16) / unsigned(dy));
        for (int i = 0; i < dy - 1; ++i) {
            const std::uint16_t old = accumulator;
            accumulator = std::uint16_t(accumulator + adjust);
            if (accumulator <= old)
                x += xdir;
            ++y;
            const unsigned weight = accumulator >> 8;
            blendAt(surface, x, y, colour, lineGrey, weight);
            blendAt(surface, x + xdir, y, colour, lineGrey, weight ^ 255u);
        }
    }
    surface.setPixel(to.x, to.y, colour);
}

bool AnalogueClock::readScheme(const CXMLParser& parser, std::string_view prefix, SkinRect& rect) {
    const std::string base = std::string(prefix) + "/clock";
    // Each key gets its own output; only a value actually present is applied.
    const auto read = [&](std::string_view key, auto&& apply) {
        std::string value;
        if (parser.GetValue(base + std::string(key), value) == CXMLParser::Result::Value)
            apply(std::string_view(value));
    };

    std::string state;
    if (found(parser.GetValue(base + "/@state", state)) && !isShown(state))
        return false;

    read("/@rect", [&](std::string_view v) { parseRect(v, rect); });
    read("/@hand-center", [&](std::string_view v) { parsePair(v, centreX, centreY); });
    read("/@radius", [&](std::string_view v) { setRadius(parseNumber(v)); });
    read("/hourhand/@lengthscale", [&](std::string_view v) { hourLength = clampHandScale(v); });
    read("/hourhand/@widthscale", [&](std::string_view v) { hourWidth = clampHandScale(v); });
    read("/hourhand/@fill-color", [&](std::string_view v) { hourFill = parseColor(v); });
    read("/hourhand/@outline-color", [&](std::string_view v) { hourOutline = parseColor(v); });
    read("/minutehand/@lengthscale", [&](std::string_view v) { minuteLength = clampHandScale(v); });
    read("/minutehand/@widthscale", [&](std::string_view v) { minuteWidth = clampHandScale(v); });
    read("/minutehand/@fill-color", [&](std::string_view v) { minuteFill = parseColor(v); });
    read("/minutehand/@outline-color", [&](std::string_view v) { minuteOutline = parseColor(v); });
    read("/secondhand/@outline-color", [&](std::string_view v) { secondOutline = parseColor(v); });
    return true;
}

void AnalogueClock::setRadius(int value) {
    radiusValue = value;
    sizeClassValue = sizeClassFor(value);
}

void AnalogueClock::setCentre(int x, int y) {
    centreX = x;
    centreY = y;
}

void AnalogueClock::setTime(int hour, int minute, int second) {
    hourValue = hour;
    minuteValue = minute;
    secondValue = second;
}

void AnalogueClock::applyClientSize(int width, int height) {
    if (radiusValue == -1)
        setRadius(height / 2);
    if (centreY == -1)
        centreY = height / 2;
    if (centreX == -1)
        centreX = width / 2;
}

std::vector<HandStroke> AnalogueClock::hands() const {
    const PixelPoint c = centre();
    std::vector<HandStroke> strokes;
    strokes.push_back(
        {handFan(c, radiusValue, sizeClassValue, minuteValue, minuteLength), minuteOutline});
    strokes.push_back(
        {handFan(c, radiusValue, sizeClassValue, hourHandIndex(hourValue, minuteValue), hourLength),
         hourOutline});
    if (!hideSecondsHand)
        strokes.push_back({secondHand(c, radiusValue, secondValue), secondOutline});
    return strokes;
}

void AnalogueClock::drawHands(PixelSurface& surface) const {
    for (const HandStroke& stroke : hands())
        for (const LineSegment& line : stroke.lines)
            drawAntiAliasedLine(surface, line.from, line.to, stroke.colour);
}

} // namespace zonara
