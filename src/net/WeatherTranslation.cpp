#include "net/WeatherTranslation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <vector>

#include <nlohmann/json.hpp>

#include "core/SystemTime.h"
#include "core/Text.h"
#include "net/WeatherFormat.h"
#include "net/WeatherPhysics.h"
#include "net/WeatherSymbols.h"

namespace zonara {

namespace {

using Json = nlohmann::json;

// Day names as the client's short forms know them, Wednesday included.
constexpr std::array<std::string_view, 7> dayNames = {"SUNDAY",   "MONDAY", "TUESDAY", "WEDNESSDAY",
                                                      "THURSDAY", "FRIDAY", "SATURDAY"};
constexpr std::array<std::string_view, 7> weekdayShort = {"Sun", "Mon", "Tue", "Wed",
                                                          "Thu", "Fri", "Sat"};
constexpr std::array<std::string_view, 12> monthShort = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

constexpr std::int64_t hour = 3600;
constexpr std::int64_t day = 24 * hour;
constexpr int forecastDays = 4;

struct Step {
    std::int64_t time = 0; // UTC
    std::optional<double> celsius;
    std::optional<double> humidity;
    std::optional<double> windSpeed; // m/s
    std::optional<double> windFrom;  // degrees
    std::optional<double> pressure;  // hPa at sea level
    std::string symbol1;
    std::string symbol6;
    std::string symbol12;
    std::optional<double> max6;
    std::optional<double> min6;
};

const Json* member(const Json& object, std::string_view key) {
    if (!object.is_object())
        return nullptr;
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &*found;
}

const Json* path(const Json& root, std::initializer_list<std::string_view> keys) {
    const Json* at = &root;
    for (const std::string_view key : keys) {
        at = member(*at, key);
        if (!at)
            return nullptr;
    }
    return at;
}

std::optional<double> number(const Json& root, std::initializer_list<std::string_view> keys) {
    const Json* value = path(root, keys);
    if (!value || !value->is_number())
        return std::nullopt;
    return value->get<double>();
}

std::string text(const Json& root, std::initializer_list<std::string_view> keys) {
    const Json* value = path(root, keys);
    return value && value->is_string() ? value->get<std::string>() : std::string();
}

std::optional<std::int64_t> instant(const std::string& iso) {
    const std::optional<SystemTime> t = parseIsoUtc(iso);
    if (!t)
        return std::nullopt;
    return unixFromSystemTime(*t);
}

std::vector<Step> readSteps(const Json& document) {
    std::vector<Step> steps;
    const Json* series = path(document, {"properties", "timeseries"});
    if (!series || !series->is_array())
        return steps;
    for (const Json& entry : *series) {
        const std::optional<std::int64_t> time = instant(text(entry, {"time"}));
        const Json* data = member(entry, "data");
        if (!time || !data)
            continue;
        Step step;
        step.time = *time;
        const Json* details = path(*data, {"instant", "details"});
        if (details) {
            step.celsius = number(*details, {"air_temperature"});
            step.humidity = number(*details, {"relative_humidity"});
            step.windSpeed = number(*details, {"wind_speed"});
            step.windFrom = number(*details, {"wind_from_direction"});
            step.pressure = number(*details, {"air_pressure_at_sea_level"});
        }
        step.symbol1 = text(*data, {"next_1_hours", "summary", "symbol_code"});
        step.symbol6 = text(*data, {"next_6_hours", "summary", "symbol_code"});
        step.symbol12 = text(*data, {"next_12_hours", "summary", "symbol_code"});
        step.max6 = number(*data, {"next_6_hours", "details", "air_temperature_max"});
        step.min6 = number(*data, {"next_6_hours", "details", "air_temperature_min"});
        steps.push_back(std::move(step));
    }
    std::stable_sort(steps.begin(), steps.end(),
                     [](const Step& a, const Step& b) { return a.time < b.time; });
    return steps;
}

std::int64_t floorDiv(std::int64_t a, std::int64_t b) {
    return a / b - (a % b != 0 && (a < 0) != (b < 0));
}

long wholeFahrenheit(double celsius) {
    return std::lround(celsiusToFahrenheit(celsius));
}

std::string formatted(const char* format, double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, format, value);
    return buffer;
}

void appendEscaped(std::string& out, std::string_view value) {
    for (const char c : value) {
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        default:
            // Control characters have no place in an attribute.
            out += (unsigned char)(c) < 0x20 ? ' ' : c;
        }
    }
}

void appendAttribute(std::string& out, std::string_view name, std::string_view value) {
    out += ' ';
    out += name;
    out += "=\"";
    appendEscaped(out, value);
    out += '"';
}

class Translator {
  public:
    Translator(std::vector<Step> steps, const WeatherPlace& place, std::int64_t now)
        : steps(std::move(steps)), place(place), now(now) {}

    std::string cityLine(std::string_view heading, std::int64_t updated) const {
        std::string out = "<city";
        appendAttribute(out, "hdate", heading);
        appendAttribute(out, "date", dateText(updated));
        out += "/>\n";
        return out;
    }

    std::string nowLine() const {
        const Step& step = currentStep();
        std::string out = "<now";
        const std::string symbol = firstOf(step.symbol1, step.symbol6, step.symbol12);
        const std::int64_t local = localTime(step.time);
        const std::int64_t hourOfDay = floorDiv(local, hour) - floorDiv(local, day) * 24;
        SymbolContext context;
        context.night = metSymbolIsNight(symbol, hourOfDay < 6 || hourOfDay >= 18);
        context.celsius = step.celsius;
        context.windMetresPerSecond = step.windSpeed;
        appendAttribute(out, "icon", metSymbolIcon(symbol, context));
        if (step.celsius)
            appendAttribute(out, "temp", std::to_string(wholeFahrenheit(*step.celsius)));
        if (step.humidity)
            appendAttribute(out, "humd", formatted("%.0f%%", *step.humidity));
        if (step.windSpeed)
            appendAttribute(out, "winds", windText(*step.windSpeed, step.windFrom));
        if (step.pressure) {
            appendAttribute(out, "barom",
                            formatted("%.2f in", hectopascalToInchesOfMercury(*step.pressure)));
            appendAttribute(out, "baromb", formatted("%.0f mb", *step.pressure));
        }
        if (step.celsius && step.humidity && *step.humidity > 0) {
            const double dew = dewPointCelsius(*step.celsius, *step.humidity);
            appendAttribute(out, "dewp", std::to_string(wholeFahrenheit(dew)));
        }
        if (step.celsius) {
            const double mph = metresPerSecondToMph(step.windSpeed.value_or(0.0));
            const double chill = windChillFahrenheit(celsiusToFahrenheit(*step.celsius), mph);
            appendAttribute(out, "wind", std::to_string(std::lround(chill)));
        }
        out += "/>\n";
        return out;
    }

    // The items of the day and night periods from today's local date on.
    std::vector<std::string> periodItems() const {
        std::vector<std::string> items;
        const std::int64_t today = floorDiv(localTime(now), day);
        for (std::int64_t d = today; d < today + forecastDays; ++d) {
            for (const bool night : {false, true}) {
                const std::int64_t start = d * day + (night ? 18 : 6) * hour;
                if (start + 12 * hour <= localTime(now))
                    continue;
                if (auto item = periodItem(d, start, night))
                    items.push_back(std::move(*item));
            }
        }
        return items;
    }

  private:
    std::vector<Step> steps;
    const WeatherPlace& place;
    std::int64_t now;

    static std::string firstOf(const std::string& a, const std::string& b, const std::string& c) {
        return !a.empty() ? a : !b.empty() ? b : c;
    }

    std::int64_t localTime(std::int64_t utc) const {
        const std::int32_t offset = place.utcOffsetMinutes ? place.utcOffsetMinutes(utc) : 0;
        return utc + std::int64_t(offset) * 60;
    }

    // The latest step not after the moment, else the first.
    const Step& currentStep() const {
        const Step* chosen = &steps.front();
        for (const Step& step : steps) {
            if (step.time <= now)
                chosen = &step;
        }
        return *chosen;
    }

    std::string dateText(std::int64_t utc) const {
        const SystemTime t = systemTimeFromUnix(localTime(utc));
        char buffer[64];
        std::snprintf(buffer, sizeof buffer, "%s %d %s %d %02d:%02d",
                      weekdayShort[std::size_t(t.dayOfWeek)].data(), t.day,
                      monthShort[std::size_t(t.month - 1)].data(), t.year, t.hour, t.minute);
        return buffer;
    }

    static std::string windText(double metresPerSecond, std::optional<double> from) {
        const long mph = std::lround(metresPerSecondToMph(metresPerSecond));
        if (mph < 1)
            return "Calm";
        std::string out;
        if (from) {
            out += compassPoint(*from);
            out += ' ';
        }
        return out + std::to_string(mph) + " mph";
    }

    std::optional<std::string> periodItem(std::int64_t localDay, std::int64_t start,
                                          bool night) const {
        const std::int64_t end = start + 12 * hour;
        std::optional<double> extreme;
        const Step* iconStep = nullptr;
        int iconRank = 0; // 3 for a 12-hour summary, 2 for 6 hours, 1 for one hour
        const auto take = [&](std::optional<double> value) {
            if (value)
                extreme = !extreme ? *value
                          : night  ? std::min(*extreme, *value)
                                   : std::max(*extreme, *value);
        };
        for (const Step& step : steps) {
            const std::int64_t local = localTime(step.time);
            if (local < start || local >= end || step.time < now - hour)
                continue;
            take(step.celsius);
            take(night ? step.min6 : step.max6);
            const int rank = !step.symbol12.empty()  ? 3
                             : !step.symbol6.empty() ? 2
                             : !step.symbol1.empty() ? 1
                                                     : 0;
            if (rank > iconRank) {
                iconRank = rank;
                iconStep = &step;
            }
        }
        if (!iconStep && !extreme)
            return std::nullopt;
        SymbolContext context;
        context.night = night;
        std::string symbol;
        if (iconStep) {
            symbol = firstOf(iconStep->symbol12, iconStep->symbol6, iconStep->symbol1);
            context.celsius = iconStep->celsius;
        }
        const long none = noWeatherTemperature;
        const long value = extreme ? wholeFahrenheit(*extreme) : none;
        // 1970-01-01 was a Thursday.
        std::string name(dayNames[std::size_t((localDay % 7 + 7 + 4) % 7)]);
        if (night)
            name += " NIGHT";
        std::string out = "<item";
        appendAttribute(out, "day", name);
        appendAttribute(out, "icon", metSymbolIcon(symbol, context));
        appendAttribute(out, "dayh", std::to_string(night ? none : value));
        appendAttribute(out, "dayl", std::to_string(night ? value : none));
        out += "/>\n";
        return out;
    }
};

std::string assemble(const std::string& city, const std::string& nowLine,
                     const std::vector<std::string>& items, std::size_t itemCount) {
    std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<root>\n";
    out += city;
    out += nowLine;
    out += "<forcast>\n";
    for (std::size_t i = 0; i < itemCount; ++i)
        out += items[i];
    out += "</forcast>\n<credit";
    appendAttribute(out, "text", weatherCredit);
    appendAttribute(out, "href", "https://api.met.no/");
    out += "/>\n</root>\n";
    return out;
}

} // namespace

std::optional<std::string> translateMetForecast(std::string_view json, const WeatherPlace& place,
                                                std::int64_t nowUtc) {
    const Json document = Json::parse(json, nullptr, false);
    if (document.is_discarded())
        return std::nullopt;
    std::vector<Step> steps = readSteps(document);
    if (steps.empty())
        return std::nullopt;
    const std::int64_t updated =
        instant(text(document, {"properties", "meta", "updated_at"})).value_or(nowUtc);
    const Translator translator(std::move(steps), place, nowUtc);
    const std::string nowLine = translator.nowLine();
    const std::vector<std::string> items = translator.periodItems();
    std::string heading = place.heading;
    std::string city = translator.cityLine(heading, updated);
    std::size_t count = items.size();
    std::string report = assemble(city, nowLine, items, count);
    while (report.size() >= weatherReportLimit && count > 0)
        report = assemble(city, nowLine, items, --count);
    // Only an absurdly long heading is left to cut. A round cuts the excess in
    // raw bytes, which may be less than enough where escapes were cut too.
    while (report.size() >= weatherReportLimit && !heading.empty()) {
        const std::size_t excess = report.size() - weatherReportLimit + 1;
        const std::size_t cut = std::min(heading.size(), excess);
        heading = std::string(
            trimIncompleteUtf8Tail(std::string_view(heading).substr(0, heading.size() - cut)));
        city = translator.cityLine(heading, updated);
        report = assemble(city, nowLine, items, count);
    }
    return report;
}

} // namespace zonara
