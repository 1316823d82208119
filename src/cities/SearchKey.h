#pragma once
// City names folded for searching, so "sao" finds "São Paulo".

#include <string>
#include <string_view>

namespace zonara {

// Lower-cases ASCII, maps accented Latin letters to their base letters
// ("Zürich" -> "zurich", "Łódź" -> "lodz", "Hồ" -> "ho"), spells out the
// ligatures ("æ" -> "ae", "ß" -> "ss") and drops combining marks. Punctuation
// does not count: apostrophes go ("N'Djamena" -> "ndjamena"), and any run of
// blanks, dashes and other ASCII punctuation is one space inside the key and
// nothing at its ends ("Port-au-Prince" -> "port au prince", " St. John's " ->
// "st johns"). Other characters stand as they are. UTF-8 in and out; a text of
// blanks and punctuation only gives an empty key.
std::string searchKey(std::string_view utf8);

} // namespace zonara
