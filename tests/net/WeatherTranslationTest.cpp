#include "net/WeatherTranslation.h"

#include <cmath>

#include <gtest/gtest.h>

#include "WeatherMetJson.h"
#include "clocks/CXMLParser.h"
#include "core/SystemTime.h"
#include "net/WeatherPhysics.h"
#include "net/WeatherReport.h"
#include "net/WeatherSymbols.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

std::int64_t at(const char* iso) {
    return unixFromSystemTime(parseIsoUtc(iso).value());
}

WeatherPlace london(std::string heading = "London, United Kingdom") {
    WeatherPlace place;
    place.heading = std::move(heading);
    place.latitude = 51.51;
    place.longitude = -0.13;
    place.utcOffsetMinutes = [](std::int64_t) { return 60; };
    return place;
}

// The report read back as the client reads it, in °F and inches.
WeatherReport readBack(const std::string& xml) {
    test::TempDir dir;
    test::writeFile(dir.path() / "weather.xml", xml);
    return loadWeatherReport(dir.path() / "weather.xml", {false, false}).value_or(WeatherReport{});
}

TEST(WeatherPhysics, DewPointWindChillAndUnitsAgainstWorkedValues) {
    // Dew points from psychrometric tables, to a tenth of a degree.
    for (const auto& [celsius, humidity, dew] : {std::tuple{20.0, 50.0, 9.3},
                                                 {30.0, 80.0, 26.2},
                                                 {25.0, 60.0, 16.7},
                                                 {10.0, 40.0, -3.0},
                                                 {0.0, 100.0, 0.0},
                                                 {-10.0, 70.0, -14.4}})
        EXPECT_NEAR(dewPointCelsius(celsius, humidity), dew, 0.05) << celsius << " " << humidity;
    // The published wind chill chart (°F, mph); no chill above 50 °F or at 3 mph.
    for (const auto& [f, mph, chill] : {std::tuple{0.0, 15.0, -19L},
                                        {30.0, 10.0, 21L},
                                        {-10.0, 20.0, -35L},
                                        {40.0, 5.0, 36L},
                                        {-45.0, 60.0, -98L},
                                        {35.0, 60.0, 17L},
                                        {50.0, 10.0, 46L},
                                        {51.0, 10.0, 51L},
                                        {20.0, 3.0, 20L}})
        EXPECT_EQ(std::lround(windChillFahrenheit(f, mph)), chill) << f << " " << mph;
    EXPECT_NEAR(celsiusToFahrenheit(-40.0), -40.0, 1e-9);
    EXPECT_NEAR(celsiusToFahrenheit(37.0), 98.6, 1e-9);
    EXPECT_NEAR(metresPerSecondToMph(6.7056), 15.0, 1e-6);
    EXPECT_NEAR(hectopascalToInchesOfMercury(1013.25), 29.92, 0.005);
    for (const auto& [degrees, point] : {std::pair{0.0, "N"},
                                         {11.24, "N"},
                                         {11.25, "NNE"},
                                         {225.0, "SW"},
                                         {348.74, "NNW"},
                                         {348.75, "N"},
                                         {360.0, "N"},
                                         {-90.0, "W"},
                                         {725.0, "N"}})
        EXPECT_EQ(compassPoint(degrees), point) << degrees;
}

TEST(WeatherSymbols, ProviderSymbolsBecomeTableNamesByDayAndNight) {
    struct Row {
        const char* symbol;
        bool night;
        std::optional<double> celsius;
        std::optional<double> wind;
        const char* icon;
    };
    const Row rows[] = {
        {"clearsky_day", false, 20.0, 2.0, "sunny.gif"},
        {"clearsky_night", true, 20.0, 2.0, "sunnyn.gif"},
        {"clearsky_polartwilight", false, {}, {}, "sunny.gif"},
        {"fair_day", false, {}, {}, "fair.gif"},
        {"fair_night", true, {}, {}, "sunnyn.gif"},
        {"partlycloudy_day", false, {}, {}, "pcloudy.gif"},
        {"partlycloudy_night", true, {}, {}, "pcloudyn.gif"},
        {"cloudy", false, {}, {}, "cloudy.gif"},
        {"cloudy", true, {}, {}, "mcloudyn.gif"},
        {"fog", true, {}, {}, "fog.gif"},
        {"lightrainshowers_day", false, {}, {}, "pcloudyr.gif"},
        {"lightrainshowers_night", true, {}, {}, "pcloudynr.gif"},
        {"rainshowers_day", false, {}, {}, "mcloudyr.gif"},
        {"rainshowers_night", true, {}, {}, "mcloudynr.gif"},
        {"heavyrainshowers_night", true, {}, {}, "showers.gif"},
        {"rainshowersandthunder_day", false, {}, {}, "chancetstorm.gif"},
        {"heavysnowshowersandthunder_night", true, {}, {}, "chancetstormn.gif"},
        {"lightssleetshowersandthunder_night", true, {}, {}, "chancetstormn.gif"},
        {"sleetshowers_day", false, {}, {}, "rainandsnow.gif"},
        {"lightsnowshowers_day", false, {}, {}, "pcloudys.gif"},
        {"lightsnowshowers_night", true, {}, {}, "pcloudyns.gif"},
        {"snowshowers_day", false, {}, {}, "mcloudys.gif"},
        {"snowshowers_night", true, {}, {}, "mcloudyns.gif"},
        {"heavysnowshowers_day", false, {}, {}, "snowshowers.gif"},
        {"lightrain", false, 5.0, {}, "drizzle.gif"},
        {"rain", true, 5.0, {}, "rain.gif"},
        {"heavyrain", false, {}, {}, "rain.gif"},
        {"rainandthunder", false, {}, {}, "tstorm.gif"},
        {"heavysleetandthunder", true, {}, {}, "tstormn.gif"},
        {"sleet", false, {}, {}, "sleet.gif"},
        {"lightsnow", false, {}, {}, "flurries.gif"},
        {"snow", true, {}, {}, "snow.gif"},
        {"heavysnow", false, -5.0, 10.0, "snow.gif"},
        {"snowandthunder", false, {}, {}, "wswatch.gif"},
        {"heavysnowandthunder", false, {}, {}, "wswarning.gif"},
        // The day or night comes from the caller, not the suffix.
        {"partlycloudy_night", false, {}, {}, "pcloudy.gif"},
        // Rain at or below freezing; snow in a gale; a dry sky in a near gale.
        {"lightrain", false, 0.0, {}, "fdrizzle.gif"},
        {"rain", false, -0.5, {}, "freezingrain.gif"},
        {"heavyrain", true, -3.0, {}, "freezingrain.gif"},
        {"rainshowers_day", false, -3.0, {}, "mcloudyr.gif"},
        {"heavysnow", false, -5.0, 15.6, "blizzard.gif"},
        {"snow", true, -5.0, 20.0, "blizzard.gif"},
        {"lightsnow", false, -5.0, 20.0, "flurries.gif"},
        {"fair_day", false, 10.0, 13.9, "wind.gif"},
        {"cloudy", true, 10.0, 13.8, "mcloudyn.gif"},
        {"rain", false, 10.0, 20.0, "rain.gif"},
        // Unknown to the table.
        {"hail", false, {}, {}, "na.gif"},
        {"", false, {}, {}, "na.gif"},
    };
    for (const Row& row : rows) {
        SymbolContext context;
        context.night = row.night;
        context.celsius = row.celsius;
        context.windMetresPerSecond = row.wind;
        EXPECT_EQ(metSymbolIcon(row.symbol, context), row.icon) << row.symbol;
    }
    for (const auto& [symbol, fallback, night] : {std::tuple{"fair_night", false, true},
                                                  {"fair_day", true, false},
                                                  {"fair_polartwilight", true, false},
                                                  {"rain", true, true},
                                                  {"rain", false, false}})
        EXPECT_EQ(metSymbolIsNight(symbol, fallback), night) << symbol;
}

TEST(WeatherTranslation, ALondonForecastMakesTheWorkedReport) {
    const auto xml = translateMetForecast(test::londonJson(), london(), at("2024-06-03T10:00:00Z"));
    ASSERT_TRUE(xml.has_value());
    EXPECT_NE(xml->find("<root>"), std::string::npos);
    EXPECT_LT(xml->size(), weatherReportLimit);
    const WeatherReport report = readBack(*xml);
    EXPECT_EQ(report.heading, "London, United Kingdom");
    EXPECT_EQ(report.date, "Mon 3 Jun 2024 10:31"); // updated 09:31:12Z, shown at UTC+1
    EXPECT_EQ(report.icon, 19);                     // pcloudy.gif
    EXPECT_EQ(report.temperature, "59 °F");         // 15 °C
    EXPECT_EQ(report.humidity, "72%");
    EXPECT_EQ(report.windSpeed, "SW 9 mph"); // 4 m/s from 225°
    EXPECT_EQ(report.barometer, "29.92 in"); // 1013.25 hPa
    EXPECT_EQ(report.dewPoint, "50 °F");     // 9.99 °C
    EXPECT_EQ(report.windChill, "59 °F");    // no chill above 50 °F
    EXPECT_EQ(report.credit, std::string(weatherCredit));
    // Highs from the day (06 to 18 local), lows from the night, including the
    // six-hour extremes of the later steps; the step past Thursday night is unused.
    const std::vector<WeatherPeriod> periods = {
        {"MON", 6, "68 °F", "", "Day : High(68 °F)  Low()"},          // 20 °C
        {"MON NIGHT", 34, "", "41 °F", "Day : High()  Low(41 °F)"},   // 5
        {"TUES", 23, "70 °F", "", "Day : High(70 °F)  Low()"},        // 21
        {"TUES NIGHT", 21, "", "43 °F", "Day : High()  Low(43 °F)"},  // 6
        {"WED", 35, "72 °F", "", "Day : High(72 °F)  Low()"},         // 22
        {"WED NIGHT", 36, "", "37 °F", "Day : High()  Low(37 °F)"},   // 3
        {"THURS", 19, "73 °F", "", "Day : High(73 °F)  Low()"},       // 23
        {"THURS NIGHT", 15, "", "36 °F", "Day : High()  Low(36 °F)"}, // 2
    };
    EXPECT_EQ(report.forecast, periods);
    // The day names are the ones the short forms know, and the values raw °F.
    EXPECT_NE(
        xml->find(R"(<item day="WEDNESSDAY NIGHT" icon="tstormn.gif" dayh="-1000" dayl="37"/>)"),
        std::string::npos);
}

TEST(WeatherTranslation, TheMomentChoosesConditionsAndDropsPeriodsThatAreOver) {
    // 21:00 local Monday: Monday's day is over; the conditions are those of
    // the latest step not after the moment.
    auto steps = test::londonSteps();
    steps[10].celsius = -5.0;     // 20:00Z
    steps[10].windSpeed = 6.7056; // 15 mph
    steps[10].humidity = 0.0;     // no dew point from this
    steps[10].pressure.reset();
    const auto xml = translateMetForecast(test::metJson(steps, "2024-06-03T09:31:12Z"), london(),
                                          at("2024-06-03T20:30:00Z"));
    ASSERT_TRUE(xml.has_value());
    const WeatherReport report = readBack(*xml);
    EXPECT_EQ(report.icon, 20); // partlycloudy_night: pcloudyn.gif
    EXPECT_EQ(report.temperature, "23 °F");
    EXPECT_EQ(report.windChill, "10 °F"); // 23 °F in 15 mph
    EXPECT_EQ(report.windSpeed, "S 15 mph");
    EXPECT_EQ(report.humidity, "0%");
    EXPECT_EQ(report.dewPoint, std::nullopt);
    EXPECT_EQ(report.barometer, std::nullopt);
    ASSERT_EQ(report.forecast.size(), 7u);
    EXPECT_EQ(report.forecast.front().name, "MON NIGHT");
    EXPECT_EQ(report.forecast.back().name, "THURS NIGHT");

    // Before the first step, the first step's conditions stand; calm air.
    steps = test::londonSteps();
    steps[0].windSpeed = 0.2;
    const auto early =
        translateMetForecast(test::metJson(steps, "x"), london(), at("2024-06-03T04:00:00Z"));
    ASSERT_TRUE(early.has_value());
    const WeatherReport first = readBack(*early);
    EXPECT_EQ(first.temperature, "59 °F");
    EXPECT_EQ(first.windSpeed, "Calm");
    // An update time that does not read gives the moment itself.
    EXPECT_EQ(first.date, "Mon 3 Jun 2024 05:00");
}

TEST(WeatherTranslation, ReportsStayUnderTheLimitAndNonForecastsGiveNone) {
    const std::int64_t now = at("2024-06-03T10:00:00Z");
    const std::string json = test::londonJson();
    // A long heading first costs forecast periods, then its own tail; escapes
    // count at their written length.
    for (const std::size_t length : {3300u, 3800u, 5000u}) {
        const std::string heading = "A&B " + std::string(length, 'x') + " \xC3\xA9";
        const auto xml = translateMetForecast(json, london(heading), now);
        ASSERT_TRUE(xml.has_value()) << length;
        EXPECT_LT(xml->size(), weatherReportLimit) << length;
        const WeatherReport report = readBack(*xml);
        ASSERT_TRUE(report.heading.has_value()) << length;
        EXPECT_EQ(heading.compare(0, report.heading->size(), *report.heading), 0) << length;
        EXPECT_EQ(report.temperature, "59 °F") << length;
        if (length == 3300) {
            EXPECT_EQ(*report.heading, heading);
            EXPECT_GT(report.forecast.size(), 0u);
            EXPECT_LT(report.forecast.size(), 8u);
        }
    }
    for (const char* notForecast :
         {"", "{", "[]", "{\"properties\":{}}", "{\"properties\":{\"timeseries\":[]}}",
          "{\"properties\":{\"timeseries\":[{\"time\":\"yesterday\",\"data\":{}}]}}"})
        EXPECT_FALSE(translateMetForecast(notForecast, london(), now).has_value()) << notForecast;
    // A step with no values at all still makes a report, with the unknown picture.
    const auto bare = translateMetForecast(
        R"({"properties":{"timeseries":[{"time":"2024-06-03T10:00:00Z","data":{}}]}})", london(),
        now);
    ASSERT_TRUE(bare.has_value());
    const WeatherReport report = readBack(*bare);
    EXPECT_EQ(report.icon, 18);
    EXPECT_EQ(report.temperature, std::nullopt);
    EXPECT_TRUE(report.forecast.empty());
}

} // namespace
} // namespace zonara
