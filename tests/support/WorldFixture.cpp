#include "support/WorldFixture.h"

#include <cstdio>

#include "support/TempDir.h"

namespace zonara::test {

std::string cityLine(int countryId, const City& c) {
    char numbers[64];
    std::snprintf(numbers, sizeof numbers, "%.2f\t%.2f", double(c.longitude), double(c.latitude));
    return std::to_string(countryId) + "\t" + c.name + "\t" + numbers + "\t" + c.airportCode +
           "\t" + c.countryDialCode + "\t" + c.areaDialCode + "\t" +
           std::to_string(c.timeZoneIndex) + "\t" + std::to_string(int(c.dstRuleIndex)) + "\t" +
           c.stationCode + "\t" + c.weatherQuery + "\r\n";
}

City sampleCity(const std::string& name, int timeZoneIndex, int dstRuleIndex) {
    City c;
    c.name = name;
    c.longitude = -0.06f;
    c.latitude = 51.51f;
    c.airportCode = "LHR";
    c.countryDialCode = "44";
    c.areaDialCode = "20";
    c.timeZoneIndex = timeZoneIndex;
    c.dstRuleIndex = std::int8_t(dstRuleIndex);
    c.stationCode = "EGLC";
    c.weatherQuery = name + "%2C+GB";
    return c;
}

std::vector<City> sampleCities(const std::vector<std::string>& names) {
    std::vector<City> cities;
    for (const std::string& name : names) {
        cities.push_back(sampleCity(name));
    }
    return cities;
}

Paths writeWorld(const std::filesystem::path& root,
                 const std::vector<std::pair<std::string, std::vector<City>>>& countries) {
    std::string countryText;
    std::string cityText;
    for (std::size_t id = 0; id < countries.size(); ++id) {
        countryText += std::to_string(id) + "\t" + std::to_string(cityText.size()) + "\t" +
                       countries[id].first + "\r\n";
        for (const City& city : countries[id].second) {
            cityText += cityLine(int(id), city);
        }
    }
    const Paths paths(root);
    writeFile(paths.dataFile("country40.dat"), countryText);
    writeFile(paths.dataFile("city40.dat"), cityText);
    return paths;
}

void writeRules(const Paths& paths) {
    writeFile(paths.dataFile("daylight40.dat"), "LastSunMar 01:00\tLastSunOct 00:59\r\n"
                                                "FirstSunOct 02:00\tFirstSunApr 01:59\r\n");
}

} // namespace zonara::test
