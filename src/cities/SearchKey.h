#pragma once
// City names folded for searching, so "sao" finds "São Paulo".

#include <string>
#include <string_view>

namespace zonara {

// Lower-cases ASCII, maps accented Latin letters to their base letters
// ("Zürich" -> "zurich", "Łódź" -> "lodz", "Hồ" -> "ho"), spells out the
// ligatures ("æ" -> "ae", "ß" -> "ss"), drops combining marks and makes typographic
// apostrophes plain. Other characters stand as they are. UTF-8 in and out.
std::string searchKey(std::string_view utf8);

} // namespace zonara
