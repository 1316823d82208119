#pragma once
// How far a typed name is from a known one, in letters wrong, missing, extra or swapped.

#include <cstddef>
#include <string_view>

namespace zonara {

struct NameDistance {
    std::size_t whole = 0;    // edits that turn the typed text into the name
    std::size_t toPrefix = 0; // edits that turn it into the closest beginning of the name
};

// The restricted Damerau-Levenshtein distance (optimal string alignment): a
// letter changed, left out, added, or two neighbours swapped each count one.
// Counts UTF-16 units, so an accent-free search key costs one per letter.
NameDistance nameDistance(std::u16string_view typed, std::u16string_view name);

} // namespace zonara
