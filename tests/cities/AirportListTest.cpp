#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cities/AirportList.h"
#include "cities/NewAirport.h"
#include "core/Text.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

using Entries = std::vector<AirportEntry>;

// Hand-built pieces of the file, independent of the list's own writer.
std::string le32(std::int32_t n) {
    const auto bits = std::uint32_t(n);
    return {char(bits & 0xFF), char(bits >> 8 & 0xFF), char(bits >> 16 & 0xFF),
            char(bits >> 24 & 0xFF)};
}

std::string units(std::u16string_view text) {
    std::string bytes;
    for (const char16_t u : text) {
        bytes += char(u & 0xFF);
        bytes += char(u >> 8);
    }
    return bytes;
}

// A length and the text with its 0 unit.
std::string field(std::u16string_view text) {
    return le32(std::int32_t(text.size())) + units(text) + std::string(2, '\0');
}

std::string describe(const Entries& entries) {
    std::string out;
    for (const AirportEntry& e : entries) {
        out += '[';
        out += toUtf8(e.description);
        out += '|';
        out += toUtf8(e.code);
        out += ']';
    }
    return out;
}

} // namespace

void PrintTo(const AirportEntry& entry, std::ostream* os) {
    *os << describe({entry});
}

namespace {

TEST(AirportFile, WritesTheExactBytesAndReadsThemBack) {
    constexpr char literalBytes[] = "\x02\x00\x00\x00" // two entries
                                    "\x06\x00\x00\x00" // length 6
                                    "Z\x00\xFC\x00r\x00i\x00"
                                    "c\x00h\x00\x00\x00"
                                    "\x00\x00\x00\x00\x00\x00" // an empty code
                                    "\x01\x00\x00\x00"         // length 1
                                    "b\x00\x00\x00"            // "b" and 0
                                    "\x04\x00\x00\x00"         // length 4
                                    "E\x00G\x00L\x00"
                                    "C\x00\x00\x00";
    const std::string literal(literalBytes, sizeof literalBytes - 1);
    struct Row {
        const char* what;
        Entries entries;
        std::string bytes;
    };
    // clang-format off
    const Row rows[] = {
        {"no entries", {}, std::string(4, '\0')},
        {"literal", {{u"Z\u00FCrich", u""}, {u"b", u"EGLC"}}, literal},
        {"surrogate pair kept as two units", {{u"Tokyo \U0001F5FC", u"RJTT"}}, le32(1) + field(u"Tokyo \U0001F5FC") + field(u"RJTT")},
        {"longest text", {{std::u16string(255, u'x'), u"KJFK"}}, le32(1) + field(std::u16string(255, u'x')) + field(u"KJFK")},
    };
    // clang-format on
    test::TempDir dir;
    const auto file = dir.path() / "airport.dat";
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        AirportList list;
        for (const AirportEntry& e : row.entries) {
            list.insertSorted(e);
        }
        ASSERT_TRUE(list.save(file));
        EXPECT_EQ(test::readFile(file), row.bytes);
        AirportList back;
        EXPECT_EQ(back.load(file), AirportFileState::Whole);
        EXPECT_EQ(back.entries(), row.entries);
    }
    EXPECT_FALSE(std::filesystem::exists(dir.path() / "airport.dat.new"));
}

TEST(AirportFile, MissingIsCreatedEmptyAndUnwritableStaysUnread) {
    test::TempDir dir;
    const auto file = dir.path() / "airport.dat";
    AirportList list;
    EXPECT_EQ(list.load(file), AirportFileState::Created);
    EXPECT_TRUE(std::filesystem::exists(file));
    EXPECT_EQ(test::readFile(file), "");
    EXPECT_EQ(list.load(file), AirportFileState::Whole);

    // A folder in the file's place, and a file in a folder that is not there.
    std::filesystem::create_directory(dir.path() / "folder.dat");
    EXPECT_EQ(list.load(dir.path() / "folder.dat"), AirportFileState::Unreadable);
    EXPECT_EQ(list.load(dir.path() / "none" / "airport.dat"), AirportFileState::Unreadable);
    EXPECT_EQ(list.size(), 0u);
    list.insertSorted({u"a", u"AAAA"});
    EXPECT_FALSE(list.save(dir.path() / "none" / "airport.dat"));
}

// Whatever the bytes, the list takes the whole and valid entries before the
// first damage, and saving then writes a file that reads back whole.
TEST(AirportFile, DamagedFilesKeepTheirWholeLeadingEntries) {
    const std::string london = field(u"London City") + field(u"EGLC");
    const std::string zurich = field(u"Z\u00FCrich") + field(u"LSZH");
    const std::string x256 = units(std::u16string(256, u'x')) + std::string(2, '\0');
    const std::string lo = "[London City|EGLC]";
    constexpr auto whole = AirportFileState::Whole;
    constexpr auto damaged = AirportFileState::Damaged;
    struct Row {
        const char* what;
        std::string bytes;
        std::string expected;
        AirportFileState state;
    };
    // clang-format off
    const Row rows[] = {
        {"empty file", "", "", whole},
        {"count cut short", std::string("\x01\x00", 2), "", damaged},
        {"count 0", le32(0), "", whole},
        {"count 0 with entries after it", le32(0) + london, "", damaged},
        {"negative count", le32(-1) + london, "", damaged},
        {"huge count", le32(0x7FFFFFFF) + london, lo, damaged},
        {"count beyond the entries", le32(3) + london + zurich, lo + "[Z\u00FCrich|LSZH]", damaged},
        {"count below the entries", le32(1) + london + zurich, lo, damaged},
        {"second description cut in its text", le32(2) + london + zurich.substr(0, 9), lo, damaged},
        {"code missing", le32(2) + london + field(u"Z\u00FCrich"), lo, damaged},
        {"length cut short", le32(2) + london + std::string("\x05\x00", 2), lo, damaged},
        {"length beyond 255", le32(1) + le32(256) + x256 + field(u"KJFK"), "", damaged},
        {"negative length", le32(1) + le32(-2) + london, "", damaged},
        {"length far past the end", le32(2) + london + le32(200) + units(u"abc"), lo, damaged},
        {"no 0 unit after the text", le32(2) + london + le32(2) + units(u"abc") + field(u"ABCD"), lo, damaged},
        {"odd byte at the end", le32(1) + london + "\x07", lo, damaged},
        {"odd byte count inside a code", le32(1) + field(u"London City") + le32(4) + "E\0G", "", damaged},
        {"0 unit inside a text ends it", le32(1) + le32(5) + units(std::u16string(u"ab\0cd", 5)) + std::string(2, '\0') + field(u"EGLC"), "[ab|EGLC]", damaged},
        {"codes of any length are kept", le32(2) + field(u"Heathrow") + field(u"LHR") + london, "[Heathrow|LHR]" + lo, whole},
    };
    // clang-format on
    test::TempDir dir;
    const auto file = dir.path() / "airport.dat";
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        test::writeFile(file, row.bytes);
        AirportList list;
        EXPECT_EQ(list.load(file), row.state);
        EXPECT_EQ(describe(list.entries()), row.expected);

        ASSERT_TRUE(list.save(file));
        AirportList again;
        EXPECT_EQ(again.load(file), AirportFileState::Whole);
        EXPECT_EQ(again.entries(), list.entries());
    }
}

TEST(AirportList, InsertsBeforeTheFirstGreaterDescriptionByCodePoint) {
    struct Row {
        std::vector<std::u16string> before;
        std::u16string added;
        std::size_t index;
    };
    const Row rows[] = {
        {{}, u"b", 0},
        {{u"a", u"c"}, u"b", 1},
        {{u"a", u"b"}, u"b", 2}, // after an equal one
        {{u"c", u"a"}, u"b", 0}, // unsorted: before the first greater
        {{u"a", u"c", u"a"}, u"b", 1},
        {{u"B", u"a"}, u"b", 2}, // case-sensitive: "B" < "a" < "b"
        {{u"ab"}, u"a", 0},      // a prefix is smaller
        {{u"\u00E9"}, u"z", 0},  // é is above every ASCII letter
        // A character beyond U+FFFF comes after U+FF21 by code point, though its
        // first UTF-16 unit (U+D83D) is smaller.
        {{u"\U0001F5FC"}, u"\uFF21", 0},
        {{u"\uFF21"}, u"\U0001F5FC", 1},
    };
    for (const Row& row : rows) {
        AirportList list;
        std::string bytes = le32(std::int32_t(row.before.size()));
        for (const auto& d : row.before) {
            bytes += field(d) + field(u"XXXX");
        }
        ASSERT_TRUE(list.decode(bytes));
        SCOPED_TRACE(toUtf8(row.added));
        EXPECT_EQ(list.insertSorted({row.added, u"NEWW"}), row.index);
        EXPECT_EQ(list.entries()[row.index].code, u"NEWW");
        EXPECT_EQ(list.size(), row.before.size() + 1);
    }
}

TEST(NewAirport, ChecksTheDescriptionThenTheTrimmedUpperCaseCode) {
    struct Row {
        std::u16string description;
        std::u16string code;
        AirportProblem problem;
        std::u16string storedCode;
    };
    // clang-format off
    const Row rows[] = {
        {u"b", u"eglc ", AirportProblem::None, u"EGLC"},
        {u"b", u"\t eGlC\u00A0\u3000", AirportProblem::None, u"EGLC"},
        {u"b", u"\u00E9\u00FFab", AirportProblem::None, u"\u00C9\u0178AB"},
        {u" ", u"EGLC", AirportProblem::None, u"EGLC"}, // a blank description is one
        {u"", u"EGLC", AirportProblem::NoDescription, u"EGLC"},
        {u"", u"x", AirportProblem::NoDescription, u"X"}, // the description is checked first
        {u"b", u"EGL", AirportProblem::BadCode, u"EGL"},
        {u"b", u"EG LC", AirportProblem::BadCode, u"EG LC"},
        {u"b", u" EGLCX", AirportProblem::BadCode, u"EGLCX"},
        {u"b", u"    ", AirportProblem::BadCode, u""},
        {std::u16string(255, u'd'), u"EGLC", AirportProblem::None, u"EGLC"},
        {std::u16string(256, u'd'), u"EGLC", AirportProblem::DescriptionTooLong, u"EGLC"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(toUtf8(row.description) + "/" + toUtf8(row.code));
        const NewAirport airport = checkNewAirport(row.description, row.code);
        EXPECT_EQ(airport.problem, row.problem);
        EXPECT_EQ(airport.entry.code, row.storedCode);
        EXPECT_EQ(airport.entry.description, row.description);
    }
    EXPECT_EQ(airportHintText(AirportProblem::NoDescription), u"Please enter a description.");
    EXPECT_EQ(airportHintText(AirportProblem::BadCode), u"Please enter a 4 letter ICAO code.");
    EXPECT_EQ(comboLine({u"London City", u"EGLC"}), u"London City (EGLC)");
}

} // namespace
} // namespace zonara
