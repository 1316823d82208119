#include "cities/NameDistance.h"

#include <algorithm>
#include <vector>

namespace zonara {

NameDistance nameDistance(std::u16string_view typed, std::u16string_view name) {
    const std::size_t rows = typed.size() + 1;
    const std::size_t columns = name.size() + 1;
    // d[i][j]: edits from the first i typed units to the first j units of the name.
    std::vector<std::size_t> d(rows * columns);
    const auto at = [&](std::size_t i, std::size_t j) -> std::size_t& {
        return d[i * columns + j];
    };
    for (std::size_t i = 0; i < rows; ++i) {
        at(i, 0) = i;
    }
    for (std::size_t j = 0; j < columns; ++j) {
        at(0, j) = j;
    }
    for (std::size_t i = 1; i < rows; ++i) {
        for (std::size_t j = 1; j < columns; ++j) {
            const std::size_t change = typed[i - 1] == name[j - 1] ? 0 : 1;
            std::size_t best =
                std::min({at(i - 1, j) + 1, at(i, j - 1) + 1, at(i - 1, j - 1) + change});
            if (i > 1 && j > 1 && typed[i - 1] == name[j - 2] && typed[i - 2] == name[j - 1]) {
                best = std::min(best, at(i - 2, j - 2) + 1);
            }
            at(i, j) = best;
        }
    }
    NameDistance distance;
    distance.whole = at(rows - 1, columns - 1);
    distance.toPrefix = distance.whole;
    for (std::size_t j = 0; j < columns; ++j) {
        distance.toPrefix = std::min(distance.toPrefix, at(rows - 1, j));
    }
    return distance;
}

} // namespace zonara
