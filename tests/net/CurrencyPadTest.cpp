#include "net/CurrencyPad.h"

#include <filesystem>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "controls/KeypadKeyIndex.h"
#include "net/CurrencyFiles.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

const CurrencyList rates = {u"3/14/2025 9:05 AM",
                            {
                                {u"Euro", u"EUR", -1.0f},
                                {u"US Dollar", u"USD", 1.5f},
                                {u"Yen", u"JPY", 160.5f},
                            }};

// Presses keys named by their faces, blank-separated; "CON" converts.
void press(CurrencyPad& pad, const CurrencyConverter& converter, const std::string& keys) {
    std::istringstream words(keys);
    std::string word;
    while (words >> word) {
        const std::optional<int> key =
            word == "CON" ? std::optional<int>(keypadKey::convert) : calculatorKeyByName(word);
        ASSERT_TRUE(key.has_value()) << word;
        pad.pressKey(*key, converter);
    }
}

TEST(CurrencyPadTest, ConvertReplacesTheAmountAndTheNextKeysCarryOn) {
    struct Case {
        const char* keys;
        int from;
        int to;
        const char* display;
    };
    const Case cases[] = {
        {"1 0 0 CON", 0, 1, "150.0000"},
        {"1 0 0 CON", 1, 0, "66.6667"},
        {"1 0 0 CON CON", 0, 1, "225.0000"}, // the shown result is the next amount
        {"1 0 0 CON 5", 0, 1, "5"},          // a digit starts a new amount
        {"1 0 0 CON . 5", 0, 1, "0.5"},
        {"1 0 0 CON x 2 =", 0, 1, "300"}, // operators work on the result
        {"1 0 0 CON «", 0, 1, "150.000"}, // and so does the backspace
        {"2 + 1 0 0 CON =", 0, 1, "150"}, // a pending sum is dropped with the old amount
        {"1 . 5 CON", 2, 2, "1.5000"},
        {"1 0 0 CON", -1, 1, "100"}, // no pair chosen: nothing happens
    };
    for (const Case& c : cases) {
        test::TempDir dir;
        std::filesystem::create_directories(dir.path() / "Data");
        ASSERT_TRUE(SaveCurrencyList(dir.path() / "Data" / "currency.dat", rates));
        CurrencyConverter converter{Paths(dir.path())};
        converter.open();
        converter.selectFrom(c.from);
        converter.selectTo(c.to);
        CurrencyPad pad;
        press(pad, converter, c.keys);
        EXPECT_EQ(pad.displayText(), c.display) << c.keys << " from " << c.from << " to " << c.to;
    }
}

} // namespace
} // namespace zonara
