#pragma once
// Writes small world file sets for tests and benchmarks.

#include <string>
#include <vector>

#include "core/City.h"
#include "core/Paths.h"

namespace zonara::test {

struct FixtureCity {
    int countryId;
    City city;
};

// One city line in the files' writer format, with CR LF.
std::string cityLine(int countryId, const City& city);
// A city with every field set from its name; London-like zone and rule.
City sampleCity(const std::string& name, int timeZoneIndex = 85, int dstRuleIndex = 1);

// Sample cities with these names, in order.
std::vector<City> sampleCities(const std::vector<std::string>& names);

// Writes country40.dat (ids in order, exact offsets) and city40.dat under
// root/Data for the countries and their cities, each country's cities in one
// run; returns the paths.
Paths writeWorld(const std::filesystem::path& root,
                 const std::vector<std::pair<std::string, std::vector<City>>>& countries);

// The rules used by most tests: rule 1 the United Kingdom's, rule 2 a southern one.
void writeRules(const Paths& paths);

} // namespace zonara::test
