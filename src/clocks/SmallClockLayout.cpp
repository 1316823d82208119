#include "clocks/SmallClockLayout.h"

#include <algorithm>
#include <array>

namespace zonara {

namespace {

enum Line { NameLine, TimeLine, DateLine, DifferenceLine };

// Which lines are shown when only `count` fit, in the order they are shown.
std::array<bool, 4> linesShown(int count) {
    // Most wanted first: name, time, difference, date.
    constexpr std::array<Line, 4> priority{NameLine, TimeLine, DifferenceLine, DateLine};
    std::array<bool, 4> shown{};
    for (int i = 0; i < std::clamp(count, 0, 4); ++i) {
        shown[priority[std::size_t(i)]] = true;
    }
    return shown;
}

PixelRect& lineRect(SmallClockLayout& layout, Line line) {
    switch (line) {
    case NameLine:
        return layout.name;
    case TimeLine:
        return layout.time;
    case DateLine:
        return layout.date;
    default:
        return layout.difference;
    }
}

// A text line from left to right at y; the time line begins with the cue.
void placeLine(SmallClockLayout& layout, Line line, int left, int right, int y, int lineHeight,
               int gap) {
    if (line == TimeLine) {
        layout.cue = {left, y, left + lineHeight, y + lineHeight};
        left += lineHeight + gap;
    }
    lineRect(layout, line) = {left, y, std::max(left, right), y + lineHeight};
}

void placeFace(SmallClockLayout& layout, int left, int top, int side, int faceSize, int sizeValue) {
    layout.face = {left, top, left + side, top + side};
    layout.centre = {left + side / 2, top + side / 2};
    layout.radius = faceSize > 0 ? sizeValue * side / faceSize : 0;
}

// Lines stacked from the top of the block, vertically centred in [top, bottom).
void stackLines(SmallClockLayout& layout, int left, int right, int top, int bottom, int lineHeight,
                int gap, bool centreBlock) {
    const int fit = lineHeight > 0 ? std::max(0, (bottom - top) / lineHeight) : 0;
    const std::array<bool, 4> shown = linesShown(fit);
    const int count = int(std::count(shown.begin(), shown.end(), true));
    int y = centreBlock ? top + (bottom - top - count * lineHeight) / 2 : top;
    for (int line = NameLine; line <= DifferenceLine; ++line) {
        if (shown[std::size_t(line)]) {
            placeLine(layout, Line(line), left, right, y, lineHeight, gap);
            y += lineHeight;
        }
    }
}

} // namespace

SmallClockLayout layoutSmallClock(const PixelRect& area, int faceSize, int sizeValue, int mode,
                                  int lineHeight) {
    SmallClockLayout layout;
    const int gap = std::max(2, lineHeight / 4);
    const int innerHeight = std::max(0, area.height() - 2 * gap);
    const int innerWidth = std::max(0, area.width() - 2 * gap);

    if (mode == FaceAbove) {
        const int side = std::clamp(std::min({faceSize, innerWidth, innerHeight - 2 * lineHeight}),
                                    0, std::max(0, faceSize));
        placeFace(layout, area.left + (area.width() - side) / 2, area.top + gap, side, faceSize,
                  sizeValue);
        const int textTop = side > 0 ? layout.face.bottom + gap : area.top + gap;
        stackLines(layout, area.left + gap, area.right - gap, textTop, area.bottom - gap,
                   lineHeight, gap, false);
        layout.centred = true;
        return layout;
    }

    // The face beside the text takes at most half the width.
    const int side =
        std::clamp(std::min({faceSize, innerHeight, area.width() / 2}), 0, std::max(0, faceSize));
    placeFace(layout, area.left + gap, area.top + (area.height() - side) / 2, side, faceSize,
              sizeValue);
    const int textLeft = side > 0 ? layout.face.right + 2 * gap : area.left + gap;
    const int textRight = area.right - gap;

    if (mode != FaceBesideWide) {
        stackLines(layout, textLeft, textRight, area.top + gap, area.bottom - gap, lineHeight, gap,
                   true);
        return layout;
    }

    const int rows = lineHeight > 0 ? std::clamp(innerHeight / lineHeight, 0, 2) : 0;
    const int middle = textLeft + (textRight - textLeft) / 2;
    int y = area.top + (area.height() - rows * lineHeight) / 2;
    if (rows == 1) {
        placeLine(layout, NameLine, textLeft, middle - gap, y, lineHeight, gap);
        placeLine(layout, TimeLine, middle, textRight, y, lineHeight, gap);
    } else if (rows == 2) {
        placeLine(layout, NameLine, textLeft, middle - gap, y, lineHeight, gap);
        placeLine(layout, DateLine, middle, textRight, y, lineHeight, gap);
        y += lineHeight;
        placeLine(layout, TimeLine, textLeft, middle - gap, y, lineHeight, gap);
        placeLine(layout, DifferenceLine, middle, textRight, y, lineHeight, gap);
    }
    return layout;
}

} // namespace zonara
