#include "net/CurrencyFiles.h"

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "support/TempDir.h"

namespace zonara {
namespace {

using test::readFile;
using test::TempDir;
using test::writeFile;

// Little-endian pieces of the files, built independently of the writer.
std::string u32(std::uint32_t v) {
    return {char(v & 0xFF), char(v >> 8 & 0xFF), char(v >> 16 & 0xFF), char(v >> 24 & 0xFF)};
}

std::string f32(float f) {
    std::uint32_t bits;
    std::memcpy(&bits, &f, 4);
    return u32(bits);
}

// A string as stored: the count without the terminator, the UTF-16LE units, a zero unit.
std::string str(std::u16string_view text) {
    std::string bytes = u32(std::uint32_t(text.size()));
    for (const char16_t unit : text) {
        bytes += char(unit & 0xFF);
        bytes += char(unit >> 8);
    }
    return bytes + std::string(2, '\0');
}

const CurrencyList sampleList = {
    u"3/14/2025 9:05 AM",
    {
        {u"Euro", u"EUR", -1.0f},
        {u"Pa\u2019anga", u"TOP", 2.5461f},
        {u"US Dollar", u"USD", 1.0844f},
    },
};

std::string sampleBytes() {
    return str(u"3/14/2025 9:05 AM") + u32(3) + str(u"Euro") + str(u"EUR") +
           std::string("\x00\x00\x80\xBF", 4) + str(u"Pa\u2019anga") + str(u"TOP") + f32(2.5461f) +
           str(u"US Dollar") + str(u"USD") + f32(1.0844f);
}

TEST(CurrencyFilesTest, ListIsWrittenAndReadByteForByte) {
    TempDir dir;
    const auto file = dir.path() / "currency.dat";
    ASSERT_TRUE(SaveCurrencyList(file, sampleList));
    EXPECT_EQ(readFile(file), sampleBytes());
    EXPECT_EQ(LoadCurrencyList(file), sampleList);
    EXPECT_FALSE(std::filesystem::exists(dir.path() / "currency.dat.new"));

    // A text longer than a reader's buffer is stored cut, so that it reads back whole.
    const std::u16string longName(300, u'x');
    ASSERT_TRUE(SaveCurrencyList(file, {u"", {{longName, u"XXX", 2.0f}}}));
    EXPECT_EQ(readFile(file),
              str(u"") + u32(1) + str(longName.substr(0, 255)) + str(u"XXX") + f32(2.0f));
}

TEST(CurrencyFilesTest, MissingFileIsCreatedEmpty) {
    TempDir dir;
    const auto list = dir.path() / "currency.dat";
    const auto choice = dir.path() / "scurrency.dat";
    EXPECT_EQ(LoadCurrencyList(list), CurrencyList{});
    EXPECT_EQ(LoadCurrencyChoice(choice), CurrencyChoice{});
    for (const auto& file : {list, choice}) {
        ASSERT_TRUE(std::filesystem::exists(file)) << file;
        EXPECT_EQ(std::filesystem::file_size(file), 0u) << file;
    }
    // Without its folder the file cannot be made; the list stays empty.
    EXPECT_EQ(LoadCurrencyList(dir.path() / "none" / "currency.dat"), CurrencyList{});
}

TEST(CurrencyFilesTest, DamagedListsLoadWhatIsWhole) {
    const std::string whole = sampleBytes();
    const std::string header = str(u"3/14/2025 9:05 AM");
    const std::string firstEntry = str(u"Euro") + str(u"EUR") + f32(-1.0f);
    const CurrencyEntry euro{u"Euro", u"EUR", -1.0f};
    struct Case {
        const char* what;
        std::string bytes;
        CurrencyList expected;
    };
    const Case cases[] = {
        {"empty file", "", {}},
        {"last-update count cut", header.substr(0, 3), {}},
        {"last-update text without its terminator", header.substr(0, header.size() - 2), {}},
        {"no count", header, {u"3/14/2025 9:05 AM", {}}},
        {"last entry's code cut",
         whole.substr(0, whole.size() - 14),
         {u"3/14/2025 9:05 AM", {euro, sampleList.entries[1]}}},
        {"more entries counted than held",
         header + u32(5) + firstEntry,
         {u"3/14/2025 9:05 AM", {euro}}},
        {"negative count", header + u32(0xFFFFFFFF) + firstEntry, {u"3/14/2025 9:05 AM", {}}},
        {"string count beyond the file",
         header + u32(1) + u32(0xFFFFFFFF) + "ab",
         {u"3/14/2025 9:05 AM", {}}},
        {"text ends at its first zero unit",
         str(std::u16string(u"ab\0cd", 5)) + u32(1) + firstEntry,
         {u"ab", {euro}}},
        {"count above the buffer: text cut, reading goes on past it",
         str(std::u16string(260, u'y')) + u32(1) + firstEntry,
         {std::u16string(255, u'y'), {euro}}},
    };
    TempDir dir;
    const auto file = dir.path() / "currency.dat";
    for (const Case& c : cases) {
        writeFile(file, c.bytes);
        EXPECT_EQ(LoadCurrencyList(file), c.expected) << c.what;
    }
}

TEST(CurrencyFilesTest, ChoiceFileHoldsTwoStrings) {
    TempDir dir;
    const auto file = dir.path() / "scurrency.dat";
    const CurrencyChoice choice{u"Euro (EUR)", u"Z\u0142oty (PLN)"};
    ASSERT_TRUE(SaveCurrencyChoice(file, choice));
    const std::string bytes = str(u"Euro (EUR)") + str(u"Z\u0142oty (PLN)");
    EXPECT_EQ(readFile(file), bytes);
    EXPECT_EQ(LoadCurrencyChoice(file), choice);

    writeFile(file, bytes.substr(0, bytes.size() - 1));
    EXPECT_EQ(LoadCurrencyChoice(file), (CurrencyChoice{u"Euro (EUR)", u""}));
    writeFile(file, str(u""));
    EXPECT_EQ(LoadCurrencyChoice(file), CurrencyChoice{});
}

} // namespace
} // namespace zonara
