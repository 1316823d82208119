#include "net/WeatherReport.h"

#include "clocks/CXMLParser.h"
#include "clocks/SkinValue.h"
#include "net/WeatherIcons.h"
#include "net/WeatherTexts.h"

namespace zonara {

namespace {

// A lookup that found a value: a missing path (or an empty value) is skipped.
std::optional<std::string> textAt(const CXMLParser& parser, std::string_view path) {
    std::string value;
    if (parser.GetValue(path, value) == CXMLParser::Result::Value)
        return value;
    return std::nullopt;
}

std::optional<std::string> temperatureAt(const CXMLParser& parser, std::string_view path,
                                         const WeatherUnits& units) {
    const std::optional<std::string> text = textAt(parser, path);
    if (!text)
        return std::nullopt;
    return formatTemperature(parseNumber(*text), units);
}

// The attributes of the forecast items are read into one string per attribute
// that lives across the items, so an item that lacks one repeats the value of
// the item before it; before the first value it is empty, and an empty high or
// low is not shown.
struct ItemStrings {
    std::string day;
    std::string icon;
    std::string high;
    std::string low;
};

std::string forecastTemperature(const std::string& text, const WeatherUnits& units) {
    if (text.empty())
        return {};
    return formatForecastTemperature(parseNumber(text), units);
}

WeatherPeriod readPeriod(const CXMLParser& parser, const pugi::xml_node& item, ItemStrings& strings,
                         const WeatherUnits& units) {
    parser.GetValueAt(item, "@day", strings.day);
    parser.GetValueAt(item, "@icon", strings.icon);
    parser.GetValueAt(item, "@dayh", strings.high);
    parser.GetValueAt(item, "@dayl", strings.low);
    WeatherPeriod period;
    period.name = shortenPeriodName(strings.day);
    period.icon = weatherIconIndex(strings.icon);
    period.high = forecastTemperature(strings.high, units);
    period.low = forecastTemperature(strings.low, units);
    period.line = formatForecastLine(period.high, period.low);
    return period;
}

void addRow(std::vector<WeatherRow>& rows, std::string_view label,
            const std::optional<std::string>& value) {
    if (value)
        rows.push_back({std::string(label), *value});
}

} // namespace

WeatherReport readWeatherReport(const CXMLParser& parser, const WeatherUnits& units) {
    WeatherReport report;
    report.heading = textAt(parser, "root/city/@hdate");
    report.date = textAt(parser, "root/city/@date");
    if (const auto icon = textAt(parser, "root/now/@icon"))
        report.icon = weatherIconIndex(*icon);
    report.temperature = temperatureAt(parser, "root/now/@temp", units);
    report.humidity = textAt(parser, "root/now/@humd");
    report.windSpeed = textAt(parser, "root/now/@winds");
    // Both readings are looked up in this order; the choice shows one.
    const std::optional<std::string> inches = textAt(parser, "root/now/@barom");
    const std::optional<std::string> millibars = textAt(parser, "root/now/@baromb");
    report.barometer = units.millibar ? millibars : inches;
    report.dewPoint = temperatureAt(parser, "root/now/@dewp", units);
    report.windChill = temperatureAt(parser, "root/now/@wind", units);
    ItemStrings strings;
    for (const pugi::xpath_node& item : parser.selectNodes("root/forcast/item"))
        report.forecast.push_back(readPeriod(parser, item.node(), strings, units));
    report.credit = textAt(parser, "root/credit/@text");
    return report;
}

std::optional<WeatherReport> loadWeatherReport(const std::filesystem::path& file,
                                               const WeatherUnits& units) {
    CXMLParser parser;
    parser.Create();
    if (parser.Load(file) == CXMLParser::Result::Error)
        return std::nullopt;
    return readWeatherReport(parser, units);
}

std::vector<WeatherRow> weatherNowRows(const WeatherReport& report) {
    std::vector<WeatherRow> rows;
    addRow(rows, "City", report.heading);
    addRow(rows, "Date", report.date);
    if (report.icon)
        rows.push_back({"Conditions", std::string(weatherIconDescription(*report.icon))});
    addRow(rows, weather_text::temperature, report.temperature);
    addRow(rows, weather_text::humidity, report.humidity);
    addRow(rows, weather_text::windSpeed, report.windSpeed);
    addRow(rows, weather_text::barometer, report.barometer);
    addRow(rows, weather_text::dewPoint, report.dewPoint);
    addRow(rows, weather_text::windChill, report.windChill);
    addRow(rows, "Source", report.credit);
    return rows;
}

} // namespace zonara
