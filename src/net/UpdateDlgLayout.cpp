#include "net/UpdateDlgLayout.h"

namespace zonara {

namespace {

// The tops and heights of one layout; every control starts at the margin.
struct Rows {
    int descriptionTop, descriptionHeight;
    int progressTop, progressHeight;
    int iconTop;
    int statusTop, statusHeight;
};

constexpr Rows portrait{20, 60, 90, 20, 140, 140, 20};
constexpr Rows portraitSecond{5, 40, 65, 20, 105, 105, 20};
constexpr Rows landscape{10, 60, 70, 20, 110, 110, 20};
constexpr Rows highPortrait{30, 80, 120, 40, 218, 210, 40};
constexpr Rows highLandscape{10, 80, 100, 40, 198, 190, 30};

constexpr int iconSize = 14;
// The status text sits right of the icon and keeps the full width, so it
// reaches past the right margin by as much.
constexpr int statusIndent = 20;

PixelRect box(int x, int y, int width, int height) {
    return {x, y, x + width, y + height};
}

UpdateDlgRects place(const Rows& rows, int width, int margin) {
    const int inner = width - 2 * margin;
    return {box(margin, rows.descriptionTop, inner, rows.descriptionHeight),
            box(margin, rows.progressTop, inner, rows.progressHeight),
            box(margin, rows.iconTop, iconSize, iconSize),
            box(margin + statusIndent, rows.statusTop, inner, rows.statusHeight)};
}

} // namespace

std::optional<UpdateDlgRects> updateDlgLayout(int clientWidth, int screenWidth, int screenHeight,
                                              bool highResolution, bool secondFlag) {
    const int margin = clientWidth / 10;
    if (screenHeight > screenWidth) {
        if (highResolution)
            return place(secondFlag ? portrait : highPortrait, clientWidth, margin);
        return place(secondFlag ? portraitSecond : portrait, clientWidth, margin);
    }
    if (highResolution) {
        // With the second flag the high-resolution layout falls back to the
        // normal one, margin included.
        return secondFlag ? place(landscape, clientWidth, margin)
                          : place(highLandscape, clientWidth, clientWidth / 6);
    }
    if (secondFlag)
        return std::nullopt;
    return place(landscape, clientWidth, margin);
}

} // namespace zonara
