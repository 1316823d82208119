#include "core/WorldFiles.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <system_error>

#include "core/CFileMap.h"
#include "core/FileTime.h"
#include "core/FileWriter.h"
#include "core/RecordCursor.h"
#include "core/Text.h"

namespace zonara {

namespace {

std::string textField(RecordCursor& cursor) {
    cursor.ReadField();
    std::string_view bytes = cursor.field();
    if (bytes.size() == RecordCursor::maxFieldBytes) {
        bytes = trimIncompleteUtf8Tail(bytes); // the cut may have split a character
    }
    return decodeField(bytes);
}

std::int32_t intField(RecordCursor& cursor) {
    cursor.ReadField();
    return cursor.fieldAsInt();
}

float floatField(RecordCursor& cursor) {
    cursor.ReadField();
    return float(cursor.fieldAsDouble());
}

City readCity(RecordCursor& cursor) {
    City city;
    city.name = textField(cursor);
    city.longitude = floatField(cursor);
    city.latitude = floatField(cursor);
    city.airportCode = textField(cursor);
    city.countryDialCode = textField(cursor);
    city.areaDialCode = textField(cursor);
    city.timeZoneIndex = intField(cursor);
    city.dstRuleIndex = std::int8_t(std::uint8_t(intField(cursor) & 0xFF)); // the low 8 bits
    city.stationCode = textField(cursor);
    city.weatherQuery = textField(cursor);
    return city;
}

template <typename... Values>
void appendFormatted(std::string& out, const char* format, Values... values) {
    const int needed = std::snprintf(nullptr, 0, format, values...);
    if (needed <= 0) {
        return;
    }
    const std::size_t at = out.size();
    out.resize(at + std::size_t(needed) + 1);
    std::snprintf(out.data() + at, std::size_t(needed) + 1, format, values...);
    out.resize(at + std::size_t(needed));
}

void appendWord(std::string& out, std::uint32_t word) {
    for (int shift = 0; shift < 32; shift += 8) {
        out += char(word >> shift & 0xFF);
    }
}

} // namespace

bool loadCountries(const Paths& paths, CountryList& list, bool reload) {
    if (reload) {
        list.clear();
    }
    if (!list.empty()) {
        return true;
    }
    CFileMap map;
    if (!map.Open(paths.dataFile(countryFileName))) {
        return true;
    }
    RecordCursor cursor;
    cursor.Attach(map.data(), map.size());
    while (!cursor.AtEnd()) {
        Country country;
        country.id = intField(cursor);
        country.firstCityOffset = intField(cursor);
        country.name = textField(cursor);
        cursor.SkipLine();
        list.push_back(std::move(country));
    }
    return true;
}

void loadCities(const Paths& paths, Country& country, bool search) {
    if (!country.cities.empty()) {
        return;
    }
    CFileMap map;
    if (!map.Open(paths.dataFile(cityFileName))) {
        return;
    }
    RecordCursor cursor;
    cursor.Attach(map.data(), map.size());
    if (search) {
        bool found = false;
        while (!cursor.AtEnd() && !found) {
            const std::uint32_t lineStart = cursor.position;
            if (intField(cursor) == country.id) {
                cursor.position = lineStart;
                found = true;
            } else {
                cursor.SkipLine();
            }
        }
        if (!found) {
            return;
        }
    } else {
        // A negative offset becomes a huge position and reads nothing.
        cursor.position = std::uint32_t(country.firstCityOffset);
    }
    // Only the first unbroken run of the country's lines is read.
    while (!cursor.AtEnd()) {
        if (intField(cursor) != country.id) {
            break;
        }
        country.cities.push_back(readCity(cursor));
        cursor.SkipLine();
    }
}

bool loadDstRules(const Paths& paths, DstRuleList& list) {
    list = readDstRules(paths.dataFile(daylightFileName));
    return true;
}

DstRuleList readDstRules(const std::filesystem::path& file) {
    DstRuleList list;
    CFileMap map;
    if (!map.Open(file)) {
        return list;
    }
    RecordCursor cursor;
    cursor.Attach(map.data(), map.size());
    while (!cursor.AtEnd()) {
        std::string startText = textField(cursor);
        std::string endText = textField(cursor);
        cursor.SkipLine();
        list.emplace_back(std::move(startText), std::move(endText));
    }
    return list;
}

const Country* countryAt(const CountryList& list, std::size_t i) {
    return i < list.size() ? &list[i] : nullptr;
}

const City* cityAt(const Country& country, std::size_t i) {
    return i < country.cities.size() ? &country.cities[i] : nullptr;
}

Country* findCountryByName(CountryList& list, std::string_view name) {
    for (Country& country : list) {
        if (country.name == name) {
            return &country;
        }
    }
    return nullptr;
}

const Country* findCountryByName(const CountryList& list, std::string_view name) {
    return findCountryByName(const_cast<CountryList&>(list), name);
}

const City* findCityByName(const Country& country, std::string_view name) {
    for (const City& city : country.cities) {
        if (city.name == name) {
            return &city;
        }
    }
    return nullptr;
}

bool dataFilesChanged(const Paths& paths) {
    // A stamp file that is missing or short leaves the words it lacks at zero.
    std::array<std::uint32_t, 4> stored{};
    {
        std::ifstream in(paths.dataFile(stampFileName), std::ios::binary);
        std::array<unsigned char, 16> bytes{};
        in.read(reinterpret_cast<char*>(bytes.data()), bytes.size());
        const auto got = std::size_t(in.gcount());
        for (std::size_t i = 0; i < got; ++i) {
            stored[i / 4] |= std::uint32_t(bytes[i]) << (8 * (i % 4));
        }
    }
    const std::uint64_t storedCity = std::uint64_t(stored[0]) << 32 | stored[1];
    const std::uint64_t storedCountry = std::uint64_t(stored[2]) << 32 | stored[3];
    const std::uint64_t cityTime = fileTimeOf(paths.dataFile(cityFileName)).value_or(0);
    const std::uint64_t countryTime = fileTimeOf(paths.dataFile(countryFileName)).value_or(0);
    return storedCity != cityTime || storedCountry != countryTime;
}

RebuildResult rebuildDataFiles(const Paths& paths, CountryList& list) {
    // The stored offsets are not trusted: every country's cities are found by id.
    loadCountries(paths, list, true);
    for (Country& country : list) {
        loadCities(paths, country, true);
    }

    std::string countryText;
    std::string cityText;
    for (std::size_t p = 0; p < list.size(); ++p) {
        Country& country = list[p];
        country.id = std::int32_t(p);
        country.firstCityOffset = std::int32_t(cityText.size());
        appendFormatted(countryText, "%i\t%i\t%s\r\n", country.id, country.firstCityOffset,
                        country.name.c_str());
        for (const City& c : country.cities) {
            appendFormatted(cityText, "%i\t%s\t%.2f\t%.2f\t%s\t%s\t%s\t%i\t%i\t%s\t%s\r\n",
                            country.id, c.name.c_str(), double(c.longitude), double(c.latitude),
                            c.airportCode.c_str(), c.countryDialCode.c_str(),
                            c.areaDialCode.c_str(), c.timeZoneIndex, int(c.dstRuleIndex),
                            c.stationCode.c_str(), c.weatherQuery.c_str());
        }
    }
    if (!replaceFiles({{paths.dataFile(countryFileName), countryText},
                       {paths.dataFile(cityFileName), cityText}})) {
        return RebuildResult::NotWritten;
    }

    const std::uint64_t cityTime = fileTimeOf(paths.dataFile(cityFileName)).value_or(0);
    const std::uint64_t countryTime = fileTimeOf(paths.dataFile(countryFileName)).value_or(0);
    std::string stamp;
    appendWord(stamp, std::uint32_t(cityTime >> 32)); // the high word comes first
    appendWord(stamp, std::uint32_t(cityTime));
    appendWord(stamp, std::uint32_t(countryTime >> 32));
    appendWord(stamp, std::uint32_t(countryTime));
    return replaceFiles({{paths.dataFile(stampFileName), stamp}}) ? RebuildResult::Done
                                                                  : RebuildResult::StampNotWritten;
}

} // namespace zonara
