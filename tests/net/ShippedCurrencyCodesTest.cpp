#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "clocks/CXMLParser.h"
#include "core/Text.h"
#include "net/CurrencyDocuments.h"
#include "support/ShippedFiles.h"

namespace zonara {
namespace {

// The code list the update host serves must name every currency of the
// central bank's daily file, or the converter shows bare codes.
TEST(ShippedCurrencyCodesTest, NamesEveryCurrencyOfTheDailyRates) {
    const char* daily[] = {"USD", "JPY", "BGN", "CZK", "DKK", "GBP", "HUF", "PLN", "RON", "SEK",
                           "CHF", "ISK", "NOK", "TRY", "AUD", "BRL", "CAD", "CNY", "HKD", "IDR",
                           "ILS", "INR", "KRW", "MXN", "MYR", "NZD", "PHP", "SGD", "THB", "ZAR"};
    std::vector<CurrencyEntry> entries;
    for (const char* code : daily) {
        entries.push_back({u"", toUtf16(code), 1.0f});
    }
    CXMLParser codeList;
    codeList.Create();
    ASSERT_EQ(codeList.Load(test::sourceDir() / "data/sources/CurrencyCodeList.xml"),
              CXMLParser::Result::Value);
    nameFromCodeList(codeList, entries);
    for (const CurrencyEntry& entry : entries) {
        EXPECT_FALSE(entry.name.empty()) << toUtf8(entry.code);
    }
    EXPECT_EQ(toUtf8(entries[0].name), "US Dollar");
    EXPECT_EQ(toUtf8(entries[5].name), "Pound Sterling");
}

} // namespace
} // namespace zonara
