#include "net/CurrencyDocuments.h"

#include <string>

#include "core/Text.h"
#include "net/CurrencyConversion.h"

namespace zonara {

std::vector<CurrencyEntry> readRates(const CXMLParser& rates) {
    std::vector<CurrencyEntry> entries;
    std::string code;
    std::string rate;
    for (const pugi::xpath_node& node : rates.selectNodes(ratesNodePath)) {
        rates.GetValueAt(node.node(), "@currency", code);
        rates.GetValueAt(node.node(), "@rate", rate);
        entries.push_back({u"", toUtf16(code), readCurrencyNumber(rate)});
    }
    return entries;
}

void nameFromCodeList(const CXMLParser& codeList, std::vector<CurrencyEntry>& entries) {
    std::string code;
    std::string name;
    for (const pugi::xpath_node& node : codeList.selectNodes(codeListNodePath)) {
        codeList.GetValueAt(node.node(), "CurrencyCoded", code);
        codeList.GetValueAt(node.node(), "CurrencyName", name);
        const std::string key = asciiLower(code);
        for (CurrencyEntry& entry : entries) {
            if (asciiLower(toUtf8(entry.code)) == key) {
                entry.name = toUtf16(name);
            }
        }
    }
}

} // namespace zonara
