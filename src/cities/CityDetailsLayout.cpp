#include "cities/CityDetailsLayout.h"

#include <algorithm>

namespace zonara {

DetailsArrangement detailsArrangement(int width, int height) {
    return width > height ? DetailsArrangement::Short : DetailsArrangement::Tall;
}

DetailsGeometry detailsGeometry(DetailsArrangement arrangement, int width, int height, int dpi) {
    // Below 96 dpi the 96-dpi positions stand: the name lines need them.
    const auto scaled = [dpi](int pixels) { return pixels * std::max(dpi, 96) / 96; };
    const int step = scaled(arrangement == DetailsArrangement::Tall ? 35 : 25);
    const int margin = scaled(2);
    const int lineRight = std::max(margin, width - margin);

    DetailsGeometry g;
    g.cityLine = {margin, margin, lineRight, margin + step};
    g.countryLine = {margin, margin + step, lineRight, margin + 2 * step};
    const int listTop = std::min(height, margin + 2 * step);
    g.list = {0, listTop, std::max(0, width - 1), std::max(listTop, height)};
    g.labelColumn = g.list.width() / 2;
    return g;
}

} // namespace zonara
