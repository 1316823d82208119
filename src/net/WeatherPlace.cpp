#include "net/WeatherPlace.h"

#include <map>

#include "core/CFileMap.h"
#include "core/RecordCursor.h"
#include "core/SystemTime.h"
#include "core/Text.h"
#include "core/WorldFiles.h"
#include "core/ZoneTime.h"

namespace zonara {

namespace {

int hexValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

std::string field(RecordCursor& cursor) {
    cursor.ReadField();
    return decodeField(cursor.field());
}

// The country names of the country file by id.
std::map<std::int32_t, std::string> countryNames(const std::filesystem::path& file) {
    std::map<std::int32_t, std::string> names;
    CFileMap map;
    if (!map.Open(file))
        return names;
    RecordCursor cursor;
    cursor.Attach(map.data(), map.size());
    while (!cursor.AtEnd()) {
        cursor.ReadField();
        const std::int32_t id = cursor.fieldAsInt();
        cursor.ReadField(); // the offset of its first city
        names.emplace(id, field(cursor));
        cursor.SkipLine();
    }
    return names;
}

struct CityLine {
    std::int32_t countryId = 0;
    std::string name;
    double longitude = 0;
    double latitude = 0;
    std::int32_t timeZoneIndex = 0;
    std::int32_t dstRuleIndex = 0;
    std::string weatherQuery;
};

// One line of the city file: country id, name, longitude, latitude, airport,
// two dialling codes, time zone, rule, station, weather query.
CityLine readCityLine(RecordCursor& cursor) {
    CityLine city;
    cursor.ReadField();
    city.countryId = cursor.fieldAsInt();
    city.name = field(cursor);
    cursor.ReadField();
    city.longitude = cursor.fieldAsDouble();
    cursor.ReadField();
    city.latitude = cursor.fieldAsDouble();
    for (int skip = 0; skip < 3; ++skip)
        cursor.ReadField();
    cursor.ReadField();
    city.timeZoneIndex = cursor.fieldAsInt();
    cursor.ReadField();
    city.dstRuleIndex = cursor.fieldAsInt() & 0xFF;
    cursor.ReadField(); // station
    city.weatherQuery = field(cursor);
    cursor.SkipLine();
    return city;
}

std::string comparable(std::string_view key) {
    return asciiLower(decodeQueryText(key));
}

} // namespace

std::function<std::int32_t(std::int64_t)> zoneOffset(std::int32_t timeZoneIndex,
                                                     std::int32_t dstRuleIndex, DstRuleList rules) {
    return [timeZoneIndex, dstRuleIndex, rules = std::move(rules)](std::int64_t utc) {
        ZoneTime zone;
        zone.timeZoneIndex = timeZoneIndex;
        zone.dstRuleIndex = dstRuleIndex;
        zone.setUtc(systemTimeFromUnix(utc));
        zone.ApplyZone(rules);
        // The local fields read back as if they were UTC give the offset.
        return std::int32_t((unixFromSystemTime(zone.ToSystemTime()) - utc) / 60);
    };
}

std::string decodeQueryText(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '+') {
            out += ' ';
        } else if (c == '%' && i + 2 < text.size() && hexValue(text[i + 1]) >= 0 &&
                   hexValue(text[i + 2]) >= 0) {
            out += char(hexValue(text[i + 1]) * 16 + hexValue(text[i + 2]));
            i += 2;
        } else {
            out += c;
        }
    }
    return out;
}

std::optional<std::string> queryParameter(std::string_view query, std::string_view name) {
    std::size_t at = 0;
    while (at <= query.size()) {
        const std::size_t amp = query.find('&', at);
        const std::size_t end = amp == std::string_view::npos ? query.size() : amp;
        const std::string_view pair = query.substr(at, end - at);
        const std::size_t equals = pair.find('=');
        if (pair.substr(0, equals) == name)
            return std::string(equals == std::string_view::npos ? std::string_view()
                                                                : pair.substr(equals + 1));
        if (amp == std::string_view::npos)
            break;
        at = amp + 1;
    }
    return std::nullopt;
}

std::optional<WeatherPlace> findWeatherPlace(const std::filesystem::path& worldFolder,
                                             std::string_view queryKey) {
    const std::string wanted = comparable(queryKey);
    if (wanted.empty())
        return std::nullopt;
    CFileMap map;
    if (!map.Open(worldFolder / cityFileName))
        return std::nullopt;
    RecordCursor cursor;
    cursor.Attach(map.data(), map.size());
    while (!cursor.AtEnd()) {
        const CityLine city = readCityLine(cursor);
        if (comparable(city.weatherQuery) != wanted)
            continue;
        const auto countries = countryNames(worldFolder / countryFileName);
        WeatherPlace place;
        place.heading = city.name;
        if (const auto country = countries.find(city.countryId); country != countries.end())
            place.heading += ", " + country->second;
        place.latitude = city.latitude;
        place.longitude = city.longitude;
        place.utcOffsetMinutes = zoneOffset(city.timeZoneIndex, city.dstRuleIndex,
                                            readDstRules(worldFolder / daylightFileName));
        return place;
    }
    return std::nullopt;
}

} // namespace zonara
