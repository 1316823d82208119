#pragma once
// Reads the euro reference rates and the currency code list into currency entries.

#include <string_view>
#include <vector>

#include "clocks/CXMLParser.h"
#include "net/CurrencyEntry.h"

namespace zonara {

inline constexpr std::string_view ratesNodePath = "gesmes:Envelope/Cube/Cube/Cube";
inline constexpr std::string_view codeListNodePath = "CurrencyCodeList/Currency";

// One entry per rates node, in document order, with the code and the rate as
// published and no name. A rate text that is not a number gives 0. As with
// every lookup, a missing attribute repeats the previous node's value.
std::vector<CurrencyEntry> readRates(const CXMLParser& rates);

// Every entry whose code equals a code-list node's code, ignoring case, takes
// that node's name; a later node with the same code wins.
void nameFromCodeList(const CXMLParser& codeList, std::vector<CurrencyEntry>& entries);

} // namespace zonara
