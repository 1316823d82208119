#include "clocks/DigitalClock.h"

#include <string>

#include "clocks/CXMLParser.h"

namespace zonara {

int displayHour(int hour, std::uint32_t flags, bool use24Hour) {
    if ((flags & digitalFlags::never12Hour) != 0 || use24Hour)
        return hour;
    if (hour >= 1 && hour <= 12)
        return hour;
    return hour == 0 ? 12 : hour - 12;
}

std::array<PixelRect, 6> digitBoxes(int width, int height) {
    const int colonGap = width * 7 / 100;
    const int spacing = width * 2 / 100;
    const int digitWidth = width * 12 / 100;
    const int top = height * 2 / 100;
    const int bottom = height - height * 2 / 100;

    std::array<PixelRect, 6> boxes;
    int x = spacing;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        boxes[i] = {x, top, x + digitWidth, bottom};
        // Digits 2, 4 and 6 follow a spacing; digits 3 and 5 follow a colon gap.
        x += digitWidth + (i % 2 == 0 ? spacing : colonGap);
    }
    return boxes;
}

PixelRect segmentRect(const PixelRect& box, Segment segment) {
    const int l = box.left;
    const int t = box.top;
    const int r = box.right;
    const int b = box.bottom;
    const int q = (r - l) >> 2;
    const int hh = (b - t) >> 1;
    const int hq = q >> 1;
    switch (segment) {
    case Segment::Top:
        return {l + hq + 2, t, r - hq - 2, t + q};
    case Segment::UpperLeft:
        return {l, t + hq, l + q, t + hh};
    case Segment::LowerLeft:
        return {l, b - hh, l + q, b - hq};
    case Segment::Bottom:
        return {l + hq + 2, b - q, r - hq - 2, b};
    case Segment::LowerRight:
        return {r - q, t + hh, r, b - hq};
    case Segment::UpperRight:
        return {r - q, t + hq, r, t + hh};
    case Segment::Middle:
        return {l + hq + 2, t + hh - hq, r - hq - 2, t + hh + hq};
    }
    return {};
}

std::array<PixelPoint, 6> segmentPolygon(const PixelRect& rect, bool horizontal) {
    const int x0 = rect.left;
    const int y0 = rect.top;
    const int x1 = rect.right;
    const int y1 = rect.bottom;
    if (horizontal) {
        const int half = (y1 - y0) >> 1;
        return {{{x0, y0 + half},
                 {x0 + half, y0},
                 {x1 - half, y0},
                 {x1, y0 + half},
                 {x1 - half, y1},
                 {x0 + half, y1}}};
    }
    const int half = (x1 - x0) >> 1;
    return {{{x0 + half, y0},
             {x1, y0 + half},
             {x1, y1 - half},
             {x0 + half, y1},
             {x0, y1 - half},
             {x0, y0 + half}}};
}

DigitalClockFace layoutDigitalClock(int width, int height, int hour, int minute, int second,
                                    std::uint32_t flags, bool use24Hour) {
    DigitalClockFace face;
    const int h = displayHour(hour, flags, use24Hour);
    const std::array<int, 6> digits{h / 10,      h % 10,      minute / 10,
                                    minute % 10, second / 10, second % 10};
    const bool withSeconds = (flags & digitalFlags::showSeconds) != 0;
    const int digitCount = withSeconds ? 6 : 4;
    const std::array<PixelRect, 6> boxes = digitBoxes(width, height);

    for (int i = 0; i < digitCount; ++i) {
        const int value = digits[std::size_t(i)];
        if (value < 0 || value > 9)
            continue;
        const std::uint8_t lit = digitSegments[std::size_t(value)];
        for (Segment segment : segmentOrder) {
            const PixelRect rect = segmentRect(boxes[std::size_t(i)], segment);
            face.segments.push_back({i, segment, rect, segmentPolygon(rect, isHorizontal(segment)),
                                     (lit & segmentBit(segment)) != 0});
        }
    }

    const int colonGap = width * 7 / 100;
    const int radius = colonGap / 4;
    const int eighth = height >> 3;
    const auto addColon = [&](int centreX) {
        face.dots.push_back({{centreX, 3 * eighth}, radius});
        face.dots.push_back({{centreX, 6 * eighth}, radius});
    };
    addColon(boxes[1].right + colonGap / 2);
    if (withSeconds)
        addColon(boxes[3].right + colonGap / 2);

    if ((flags & digitalFlags::showAmPm) != 0) {
        // The test is on the hour as given, before any 12-hour conversion.
        const bool morning = hour < 12;
        face.texts.push_back({{width - 12, 2, width, height}, "AM", morning});
        face.texts.push_back({{width - 12, 12, width, height}, "PM", !morning});
    }
    return face;
}

bool DigitalClock::readScheme(const CXMLParser& parser, std::string_view prefix, SkinRect& rect) {
    const std::string base = std::string(prefix) + "/dig_clock";
    std::string state;
    if (found(parser.GetValue(base + "/@state", state)) && !isShown(state))
        return false;

    const auto read = [&](std::string_view key, auto&& apply) {
        std::string value;
        if (parser.GetValue(base + std::string(key), value) == CXMLParser::Result::Value)
            apply(std::string_view(value));
    };
    read("/@rect", [&](std::string_view v) { parseRect(v, rect); });
    read("/@fillOn", [&](std::string_view v) { colourSet.fillOn = parseColor(v); });
    read("/@fillOff", [&](std::string_view v) { colourSet.fillOff = parseColor(v); });
    read("/@borderOn", [&](std::string_view v) { colourSet.borderOn = parseColor(v); });
    read("/@borderOff", [&](std::string_view v) { colourSet.borderOff = parseColor(v); });
    read("/@backFill", [&](std::string_view v) { colourSet.backFill = parseColor(v); });
    return true;
}

void DigitalClock::setTime(int hour, int minute, int second) {
    hourValue = hour;
    minuteValue = minute;
    secondValue = second;
}

} // namespace zonara
