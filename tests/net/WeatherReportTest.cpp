#include "net/WeatherReport.h"

#include <gtest/gtest.h>

#include "net/WeatherFormat.h"
#include "net/WeatherIcons.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

TEST(WeatherIcons, EveryIndexHasItsNameAndDescriptionAndCaseDoesNotMatter) {
    struct Row {
        const char* name;
        int index;
        const char* description;
    };
    // Written out by hand: the indices are not alphabetical around 14 to 17
    // and 21 to 25, and the index also picks the picture.
    const Row rows[] = {
        {"blizzard.gif", 0, "Blizzard"},
        {"blowingsnow.gif", 1, "Blowing Snow"},
        {"chancetstorm.gif", 2, "Chance of a thunder storm"},
        {"chancetstormn.gif", 3, "Chance of a thunder storm"},
        {"cloudy.gif", 4, "Cloudy"},
        {"drizzle.gif", 5, "Drizzle"},
        {"fair.gif", 6, "Fair"},
        {"fdrizzle.gif", 7, "Freezing drizzel"},
        {"flurries.gif", 8, "Snow flurries"},
        {"fog.gif", 9, "Fog"},
        {"freezingrain.gif", 10, "Freezing rain"},
        {"hazy.gif", 11, "Hazy"},
        {"mcloudy.gif", 12, "Mostly cloudy"},
        {"mcloudyn.gif", 13, "Mostly cloudy"},
        {"mcloudynr.gif", 14, "Mostly cloudy, some rain"},
        {"mcloudyns.gif", 15, "Most cloudy, some snow"},
        {"mcloudyr.gif", 16, "Mostly cloudy, some rain"},
        {"mcloudys.gif", 17, "Most cloudy, some snow"},
        {"pcloudy.gif", 19, "Partly cloudy"},
        {"pcloudyn.gif", 20, "Partly cloudy"},
        {"pcloudynr.gif", 21, "Partly cloudy, some rain"},
        {"pcloudyns.gif", 22, "Partly cloudy, some snow"},
        {"pcloudyr.gif", 23, "Partly cloudy, some rain"},
        {"pcloudyrn.gif", 24, "Partly cloudy, some rain"},
        {"pcloudys.gif", 25, "Partly cloudy, some snow"},
        {"rain.gif", 26, "Rain"},
        {"rainandsnow.gif", 27, "Rain and Snow"},
        {"showers.gif", 28, "Showers"},
        {"sleet.gif", 29, "Sleet"},
        {"smoke.gif", 30, "Smoke"},
        {"snow.gif", 31, "Snow"},
        {"snowshowers.gif", 32, "Snow Showers"},
        {"sunny.gif", 33, "Sunny"},
        {"sunnyn.gif", 34, "Clear"},
        {"tstorm.gif", 35, "Thunder Storm"},
        {"tstormn.gif", 36, "Thunder Storm"},
        {"wind.gif", 37, "Windy"},
        {"wswarning.gif", 38, "Winter storm warning"},
        {"wswatch.gif", 39, "Winter storm watch"},
        // Anything else is "Not Known".
        {"na.gif", 18, "Not Known"},
        {"sunny", 18, "Not Known"},
        {"sunny.gif ", 18, "Not Known"},
        {"", 18, "Not Known"},
        // Case-blind.
        {"SUNNY.GIF", 33, "Sunny"},
        {"McLoudyNs.Gif", 15, "Most cloudy, some snow"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(weatherIconIndex(row.name), row.index) << row.name;
        EXPECT_EQ(weatherIconDescription(weatherIconIndex(row.name)), row.description) << row.name;
    }
    // The pictures: the table's names, and one for "Not Known" and out-of-range indices.
    for (const auto& [index, file] : {std::pair{16, "mcloudyr.gif"},
                                      {24, "pcloudyrn.gif"},
                                      {18, "na.gif"},
                                      {-1, "na.gif"},
                                      {40, "na.gif"}})
        EXPECT_EQ(weatherIconFile(index), file) << index;
}

TEST(WeatherFormat, PeriodWordsBecomeTheirShortForms) {
    const std::pair<const char*, const char*> rows[] = {
        {"EVENING", "EVE"},
        {"MORNING", "MORN"},
        {"AFTERNOON", "NOON"},
        {"OVERNIGHT", "NIGHT"},
        {"NIGHT", "NIGHT"},
        {"MONDAY", "MON"},
        {"TUESDAY", "TUES"},
        {"WEDNESSDAY", "WED"},
        {"THURSDAY", "THURS"},
        {"FRIDAY", "FRI"},
        {"SATURDAY", "SAT"},
        {"SUNDAY", "SUN"},
        {"Saturday night", "SAT NIGHT"},
        {"MONDAY NIGHT", "MON NIGHT"},
        {"FRIDAY AFTERNOON", "FRI NOON"},
        // The correct spelling gets no short form; unknown words stay.
        {"WEDNESDAY", "WEDNESDAY"},
        {"WEDNESDAY NIGHT", "WEDNESDAY NIGHT"},
        {"TONIGHT", "TONIGHT"},
        {"THIS EVENING", "THIS EVE"},
        // Words are cut at blanks only, and the blanks stay as they are.
        {"SUNDAY  NIGHT", "SUN  NIGHT"},
        {" MONDAY", " MON"},
        {"MONDAY,NIGHT", "MONDAY,NIGHT"},
        {"", ""},
    };
    for (const auto& [name, expected] : rows)
        EXPECT_EQ(shortenPeriodName(name), expected) << name;
}

TEST(WeatherFormat, TemperaturesInCelsiusTruncateTowardZero) {
    const WeatherUnits celsius{true, true};
    const WeatherUnits fahrenheit{false, true};
    const std::pair<int, const char*> rows[] = {
        {0, "-17 °C"},                                    // -17.8
        {41, "5 °C"},      {32, "0 °C"},    {33, "0 °C"}, // 0.56
        {31, "0 °C"},                                     // -0.56 truncates up, not down
        {23, "-5 °C"},     {22, "-5 °C"},                 // -5.56
        {-40, "-40 °C"},   {212, "100 °C"}, {49, "9 °C"}, // 9.44
        {-459, "-272 °C"},
    };
    for (const auto& [f, text] : rows)
        EXPECT_EQ(formatTemperature(f, celsius), text) << f;
    EXPECT_EQ(formatTemperature(0, fahrenheit), "0 °F");
    EXPECT_EQ(formatTemperature(-12, fahrenheit), "-12 °F");
    // The "none" value hides only forecast highs and lows.
    EXPECT_EQ(formatForecastTemperature(-1000, celsius), "");
    EXPECT_EQ(formatForecastTemperature(-1000, fahrenheit), "");
    EXPECT_EQ(formatForecastTemperature(-999, fahrenheit), "-999 °F");
    EXPECT_EQ(formatTemperature(-1000, fahrenheit), "-1000 °F");
    EXPECT_EQ(formatForecastLine("68 °F", ""), "Day : High(68 °F)  Low()");
}

constexpr const char* fullReport = R"(<?xml version="1.0"?>
<root>
<city hdate="London, United Kingdom" date="Mon 3 Jun 2024 11:00"/>
<now icon="PCLOUDY.GIF" temp="59" humd="72%" winds="SW 9 mph" barom="29.92 in"
     baromb="1013 mb" dewp="50" wind="41"/>
<forcast>
<item day="MONDAY" icon="sunny.gif" dayh="68" dayl="-1000"/>
<item day="MONDAY NIGHT" icon="sunnyn.gif" dayh="-1000" dayl="45"/>
<item day="WEDNESDAY" icon="hail.gif" dayh="0" dayl="-1000"/>
</forcast>
<credit text="Data from somewhere"/>
</root>
)";

WeatherReport loaded(const char* xml, const WeatherUnits& units) {
    test::TempDir dir;
    test::writeFile(dir.path() / "weather.xml", xml);
    const auto report = loadWeatherReport(dir.path() / "weather.xml", units);
    EXPECT_TRUE(report.has_value());
    return report.value_or(WeatherReport{});
}

TEST(WeatherReportReading, AFullReportInBothUnitsAndBothBarometers) {
    const WeatherReport metric = loaded(fullReport, {true, true});
    EXPECT_EQ(metric.heading, "London, United Kingdom");
    EXPECT_EQ(metric.date, "Mon 3 Jun 2024 11:00");
    EXPECT_EQ(metric.icon, 19);
    EXPECT_EQ(metric.temperature, "15 °C");
    EXPECT_EQ(metric.humidity, "72%");
    EXPECT_EQ(metric.windSpeed, "SW 9 mph");
    EXPECT_EQ(metric.barometer, "1013 mb");
    EXPECT_EQ(metric.dewPoint, "10 °C");
    EXPECT_EQ(metric.windChill, "5 °C");
    EXPECT_EQ(metric.credit, "Data from somewhere");
    const std::vector<WeatherPeriod> periods = {
        {"MON", 33, "20 °C", "", "Day : High(20 °C)  Low()"},
        {"MON NIGHT", 34, "", "7 °C", "Day : High()  Low(7 °C)"},
        {"WEDNESDAY", 18, "-17 °C", "", "Day : High(-17 °C)  Low()"},
    };
    EXPECT_EQ(metric.forecast, periods);

    const WeatherReport imperial = loaded(fullReport, {false, false});
    EXPECT_EQ(imperial.temperature, "59 °F");
    EXPECT_EQ(imperial.barometer, "29.92 in");
    EXPECT_EQ(imperial.forecast.at(0).line, "Day : High(68 °F)  Low()");
    EXPECT_EQ(imperial.forecast.at(2).high, "0 °F");

    const std::vector<WeatherRow> rows = {
        {"City", "London, United Kingdom"},
        {"Date", "Mon 3 Jun 2024 11:00"},
        {"Conditions", "Partly cloudy"},
        {"Temp.", "59 °F"},
        {"Humidity", "72%"},
        {"Wind Speed", "SW 9 mph"},
        {"Barometer", "29.92 in"},
        {"Dew Point", "50 °F"},
        {"Wind Chill", "41 °F"},
        {"Source", "Data from somewhere"},
    };
    EXPECT_EQ(weatherNowRows(imperial), rows);
}

TEST(WeatherReportReading, MissingFieldsAreSkippedAndItemsRepeatWhatTheyLack) {
    // The "now" fields each missing or empty; items lacking attributes take
    // the previous item's values; the first item has nothing to take.
    const WeatherReport report = loaded(R"(<root>
<city date="today"/>
<now temp="-4" humd="" baromb="1020 mb" wind="x"/>
<forcast>
<item dayh="50"/>
<item day="TUESDAY" icon="rain.gif" dayl="30"/>
<item day="FRIDAY NIGHT"/>
<item dayh="-1000" dayl="-1000"/>
</forcast>
</root>)",
                                        {true, false});
    EXPECT_EQ(report.heading, std::nullopt);
    EXPECT_EQ(report.date, "today");
    EXPECT_EQ(report.icon, std::nullopt);
    EXPECT_EQ(report.temperature, "-20 °C"); // -36 * 5 / 9
    EXPECT_EQ(report.humidity, std::nullopt);
    EXPECT_EQ(report.windSpeed, std::nullopt);
    EXPECT_EQ(report.barometer, std::nullopt); // inches chosen, only millibars sent
    EXPECT_EQ(report.dewPoint, std::nullopt);
    EXPECT_EQ(report.windChill, "-17 °C"); // "x" reads as 0
    EXPECT_EQ(report.credit, std::nullopt);
    const std::vector<WeatherPeriod> periods = {
        {"", 18, "10 °C", "", "Day : High(10 °C)  Low()"},
        {"TUES", 26, "10 °C", "-1 °C", "Day : High(10 °C)  Low(-1 °C)"},
        {"FRI NIGHT", 26, "10 °C", "-1 °C", "Day : High(10 °C)  Low(-1 °C)"},
        {"FRI NIGHT", 26, "", "", "Day : High()  Low()"},
    };
    EXPECT_EQ(report.forecast, periods);
    const std::vector<WeatherRow> rows = {
        {"Date", "today"}, {"Temp.", "-20 °C"}, {"Wind Chill", "-17 °C"}};
    EXPECT_EQ(weatherNowRows(report), rows);
}

TEST(WeatherReportReading, NoFileOrNoXmlIsNoReportAndOtherXmlIsAnEmptyOne) {
    test::TempDir dir;
    EXPECT_FALSE(loadWeatherReport(dir.path() / "weather.xml", {}).has_value());
    test::writeFile(dir.path() / "broken.xml", "<root><now temp=\"50\"></root");
    EXPECT_FALSE(loadWeatherReport(dir.path() / "broken.xml", {}).has_value());
    test::writeFile(dir.path() / "other.xml", "<html><body>Not found</body></html>");
    EXPECT_EQ(loadWeatherReport(dir.path() / "other.xml", {}), WeatherReport{});
}

} // namespace
} // namespace zonara
