#include <gtest/gtest.h>

#include "core/Country.h"
#include "core/Settings.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {

using test::readFile;
using test::writeFile;

namespace {

std::string utf16Field(const std::u16string& s) {
    std::string bytes;
    const auto n = std::uint32_t(s.size());
    for (int i = 0; i < 4; ++i) {
        bytes += char(n >> (8 * i) & 0xFF);
    }
    for (const char16_t u : s) {
        bytes += char(u & 0xFF);
        bytes += char(u >> 8);
    }
    return bytes;
}

Settings changedSettings() {
    Settings s;
    s.slots[2].cityName = u"S\u00E3o Paulo";
    s.slots[2].timeZoneIndex = 65;
    s.slots[2].dstRuleIndex = 0;
    s.slots[2].longitude = -46.63f;
    s.slots[3].countryName = u"";
    s.skinFile = u"night.xml";
    s.selectedSlot = 3;
    s.use24Hour = 1;
    s.currentView = 2;
    s.useCelsius = 0;
    s.useMillibar = 0;
    s.weatherQuery = u"Z%C3%BCrich%2C+CH";
    s.weatherCity = u"Z\u00FCrich";
    s.weatherCountry = u"Switzerland";
    return s;
}

} // namespace

// The defaults (London in every slot, Celsius, mbar, 12-hour, the full clock)
// are pinned byte for byte by the file they write.
TEST(Settings, WritesTheExactFileLayoutAndReadsItBack) {
    test::TempDir dir;
    const auto file = dir.path() / "settings.dat";
    ASSERT_TRUE(Settings().Save(file));
    const std::string bytes = readFile(file);

    std::string expected;
    for (int i = 0; i < 4; ++i) {
        expected += utf16Field(u"United Kingdom") + utf16Field(u"London") + utf16Field(u"LHR") +
                    utf16Field(u"+44 20");
        expected += std::string("\x55\0\0\0\x01\0\0\0", 8);
        const float lon = -0.06f, lat = 51.51f;
        expected.append(reinterpret_cast<const char*>(&lon), 4);
        expected.append(reinterpret_cast<const char*>(&lat), 4);
        expected += utf16Field(u"EGLC") + utf16Field(u"London%2C+GB");
    }
    expected += utf16Field(u"default.xml") + std::string("\0\0\0\0", 4) +
                std::string("\0\0\x01\x01", 4) + std::string(12, '\0');
    EXPECT_EQ(bytes, expected);
    EXPECT_EQ(bytes.substr(0, 4), std::string("\x0E\0\0\0", 4));

    const Settings changed = changedSettings();
    ASSERT_TRUE(changed.Save(file));
    Settings back;
    ASSERT_TRUE(back.Load(file));
    EXPECT_EQ(back, changed);
    EXPECT_FALSE(Settings().Load(dir.path() / "missing.dat"));
}

TEST(Settings, ATruncatedFileKeepsNumbersAndEmptiesStrings) {
    test::TempDir dir;
    const auto file = dir.path() / "settings.dat";
    ASSERT_TRUE(changedSettings().Save(file));
    const std::string whole = readFile(file);
    // Every cut reads without fault; check a few by hand.
    for (std::size_t cut = 0; cut < whole.size(); ++cut) {
        writeFile(file, whole.substr(0, cut));
        Settings s;
        s.Load(file);
    }

    writeFile(file, whole.substr(0, 4 + 28 + 4 + 12)); // slot 0's country and city only
    Settings s;
    s.Load(file);
    EXPECT_EQ(s.slots[0].countryName, u"United Kingdom");
    EXPECT_EQ(s.slots[0].cityName, u"London");
    EXPECT_EQ(s.slots[0].airportCode, u"");  // strings past the end are empty
    EXPECT_EQ(s.slots[0].timeZoneIndex, 85); // numbers keep their defaults
    EXPECT_EQ(s.slots[3].cityName, u"");
    EXPECT_EQ(s.skinFile, u"");
    EXPECT_EQ(s.useCelsius, 1);

    // A number cut after two of its bytes takes them into its low bytes.
    const std::size_t zoneAt = 4 + 28 + 4 + 12 + 4 + 6 + 4 + 12;
    ASSERT_EQ(whole[zoneAt], 0x55);
    std::string partial = whole.substr(0, zoneAt) + std::string("\x07\x01", 2);
    writeFile(file, partial);
    Settings p;
    p.slots[0].timeZoneIndex = 0x7F000000;
    p.Load(file);
    EXPECT_EQ(p.slots[0].timeZoneIndex, 0x7F000107);

    // An oversized file reads its fields and ignores the rest.
    writeFile(file, whole + std::string(1000, '\x33'));
    Settings big;
    big.Load(file);
    EXPECT_EQ(big, changedSettings());
}

TEST(Settings, ALongStringKeeps255UnitsAndStaysInStep) {
    test::TempDir dir;
    const auto file = dir.path() / "settings.dat";
    Settings s;
    s.slots[0].countryName = std::u16string(300, u'x');
    s.slots[0].cityName = u"Paris";
    ASSERT_TRUE(s.Save(file));
    Settings back;
    back.Load(file);
    EXPECT_EQ(back.slots[0].countryName, std::u16string(255, u'x'));
    EXPECT_EQ(back.slots[0].cityName, u"Paris");
    EXPECT_EQ(back.slots[3], s.slots[3]);

    // A NUL ends a string's text; the reader still moves past all its units.
    s.slots[0].countryName = std::u16string(u"ab\0cd", 5);
    ASSERT_TRUE(s.Save(file));
    back.Load(file);
    EXPECT_EQ(back.slots[0].countryName, u"ab");
    EXPECT_EQ(back.slots[0].cityName, u"Paris");
}

TEST(Settings, SaveThatCannotWriteLeavesTheOldFile) {
    test::TempDir dir;
    const auto file = dir.path() / "settings.dat";
    ASSERT_TRUE(Settings().Save(file));
    const std::string before = readFile(file);
    std::filesystem::create_directories(dir.path() / "settings.dat.new" / "x");
    EXPECT_FALSE(changedSettings().Save(file));
    EXPECT_EQ(readFile(file), before);
    EXPECT_FALSE(Settings().Save(dir.path() / "no" / "such" / "folder" / "settings.dat"));
}

TEST(ClockSlot, AssignCopiesTheCityAndFormsTheDialCode) {
    Country country;
    country.name = "Brazil";
    City city = test::sampleCity("S\xC3\xA3o Paulo", 65, 0);
    city.countryDialCode = "55";
    city.areaDialCode = "11";
    city.longitude = -46.63f;
    ClockSlot slot;
    slot.Assign(country, city);
    EXPECT_EQ(slot.countryName, u"Brazil");
    EXPECT_EQ(slot.cityName, u"S\u00E3o Paulo");
    EXPECT_EQ(slot.dialCode, u"+55 11");
    EXPECT_EQ(slot.timeZoneIndex, 65);
    EXPECT_EQ(slot.dstRuleIndex, 0);
    EXPECT_FLOAT_EQ(slot.longitude, -46.63f);
    EXPECT_EQ(slot.weatherQuery, u"S\u00E3o Paulo%2C+GB");

    city.areaDialCode = "";
    city.dstRuleIndex = -56; // a rule number above 127 as read from the file
    slot.Assign(country, city);
    EXPECT_EQ(slot.dialCode, u"+55 ");
    EXPECT_EQ(slot.dstRuleIndex, -56);
}

} // namespace zonara
