// The shipped world files against an independent source: every city's local
// time as Zonara computes it (zone key, rule, ApplyZone) against the C
// library's local time for the tz zone whose boundary polygon holds the city's
// coordinates (recorded in data/sources/city-zones.tsv when the data are
// generated), at every hour of 2026 and 2027 and a minute either side of every
// transition in those years.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "core/SystemTime.h"
#include "core/WorldFiles.h"
#include "core/ZoneTime.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"
#include "support/TzClock.h"

namespace fs = std::filesystem;

namespace zonara {
namespace {

using test::TzClock;

fs::path sourceData() {
    return test::sourceDir() / "data";
}

// The shipped data files copied into a root of their own, so that nothing
// the program does touches the repository.
struct ShippedRoot {
    test::TempDir dir;
    Paths paths = test::copyShippedWorld(dir.path());
};

using Row = std::vector<std::string>;

// A tab-separated side file under data/sources, without its header line.
std::vector<Row> readTsv(const std::string& name) {
    std::ifstream in(sourceData() / "sources" / name);
    std::vector<Row> rows;
    std::string line;
    std::getline(in, line);
    while (std::getline(in, line)) {
        Row row;
        std::stringstream fields(line);
        std::string field;
        while (std::getline(fields, field, '\t')) {
            row.push_back(field);
        }
        rows.push_back(row);
    }
    return rows;
}

constexpr std::time_t start2026 = 1767225600; // 2026-01-01T00:00:00Z
constexpr std::time_t start2028 = 1830297600; // 2028-01-01T00:00:00Z

// Every hour of 2026 and 2027, then a minute before and after each change of
// the zone's offset in those years.
std::vector<std::time_t> sampleInstants(const TzClock& tz) {
    std::vector<std::time_t> instants;
    for (std::time_t t = start2026; t < start2028; t += 3600) {
        instants.push_back(t);
    }
    for (std::time_t t = start2026 - 43200; t < start2028; t += 43200) {
        if (tz.offset(t) == tz.offset(t + 43200)) {
            continue;
        }
        std::time_t lo = t;
        std::time_t hi = t + 43200;
        while (hi - lo > 1) {
            const std::time_t mid = lo + (hi - lo) / 2;
            (tz.offset(mid) == tz.offset(lo) ? lo : hi) = mid;
        }
        if (hi >= start2026 && hi < start2028) {
            instants.push_back(hi - 60);
            instants.push_back(hi + 60);
        }
    }
    return instants;
}

struct Mismatch {
    int wrong = 0;
    long worstMinutes = 0;
    int samples = 0;
    std::string firstWrong;
};

Mismatch compareWithTzdata(const std::string& zone, int key, int rule, const DstRuleList& rules) {
    const TzClock tz(zone);
    Mismatch result;
    for (const std::time_t t : sampleInstants(tz)) {
        ZoneTime time;
        time.setUtc(systemTimeFromUnix(t));
        time.timeZoneIndex = key;
        time.dstRuleIndex = rule;
        time.ApplyZone(rules);
        const std::int64_t ours = unixFromSystemTime(time.ToSystemTime());
        const std::int64_t theirs = std::int64_t(t) + tz.offset(t);
        // Zonara's clocks show minutes; the seconds of both sides are equal.
        const long error = long(std::llabs(ours - theirs) / 60);
        ++result.samples;
        if (error != 0) {
            if (result.wrong++ == 0) {
                result.firstWrong = std::to_string(t);
            }
            result.worstMinutes = std::max(result.worstMinutes, error);
        }
    }
    return result;
}

class ShippedWorld : public ::testing::Test {
  protected:
    void SetUp() override {
        loadCountries(root.paths, countries, true);
        for (Country& country : countries) {
            loadCities(root.paths, country, false);
        }
        loadDstRules(root.paths, rules);
        for (const Row& row : readTsv("city-zones.tsv")) {
            ASSERT_EQ(row.size(), 6u);
            recorded[{row[0], row[1]}] = Recorded{row[2], row[3], row[4], row[5]};
        }
    }

    std::size_t cityCount() const {
        std::size_t n = 0;
        for (const Country& country : countries) {
            n += country.cities.size();
        }
        return n;
    }

    // What the generator recorded for a city: its coordinates as shipped, the
    // zone of the polygon that holds them and the zone its clocks show.
    struct Recorded {
        std::string latitude;
        std::string longitude;
        std::string polygonZone;
        std::string shownZone;
    };

    ShippedRoot root;
    CountryList countries;
    DstRuleList rules;
    std::map<std::pair<std::string, std::string>, Recorded> recorded;
};

// A coordinate as the city file writes it.
std::string twoDecimals(float value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", double(value));
    return std::string(text) == "-0.00" ? "0.00" : text;
}

TEST_F(ShippedWorld, CoversTheWorldWithEveryFieldFilled) {
    EXPECT_GE(countries.size(), 230u);
    EXPECT_GE(cityCount(), 2500u);
    EXPECT_EQ(cityCount(), recorded.size()) << "every city has its polygon zone recorded";
    EXPECT_LE(rules.size(), 127u) << "rule numbers are kept in 8 bits";

    std::set<std::string> polygonZones;
    for (std::size_t i = 0; i < countries.size(); ++i) {
        const Country& country = countries[i];
        EXPECT_EQ(country.id, int(i)) << country.name;
        EXPECT_FALSE(country.cities.empty()) << country.name << " has no cities at its offset";
        std::set<std::string> names;
        for (const City& city : country.cities) {
            EXPECT_TRUE(names.insert(city.name).second)
                << country.name << " lists two cities named " << city.name;
            const std::string where = country.name + " / " + city.name;
            EXPECT_EQ(city.airportCode.size(), 3u) << where;
            EXPECT_EQ(city.stationCode.size(), 4u) << where;
            EXPECT_FALSE(city.countryDialCode.empty()) << where;
            EXPECT_EQ(city.countryDialCode.find_first_not_of("0123456789"), std::string::npos)
                << where;
            EXPECT_EQ(city.areaDialCode.find_first_not_of("0123456789"), std::string::npos)
                << where;
            EXPECT_GE(city.dstRuleIndex, 0) << where;
            EXPECT_LE(std::size_t(city.dstRuleIndex), rules.size()) << where;
            ASSERT_GE(city.weatherQuery.size(), 7u) << where;
            const std::string tail = city.weatherQuery.substr(city.weatherQuery.size() - 6);
            EXPECT_EQ(tail.substr(0, 4), "%2C+") << where;
            EXPECT_EQ(city.weatherQuery.find_first_of(" ,\t"), std::string::npos) << where;
            const auto found = recorded.find({country.name, city.name});
            ASSERT_NE(found, recorded.end()) << where;
            // The polygon zone was looked up at the coordinates the file carries.
            EXPECT_EQ(found->second.latitude, twoDecimals(city.latitude)) << where;
            EXPECT_EQ(found->second.longitude, twoDecimals(city.longitude)) << where;
            polygonZones.insert(found->second.polygonZone);
        }
    }

    // Every zone of tzdata's zone1970.tab holds a shipped city.
    std::ifstream table("/usr/share/zoneinfo/zone1970.tab");
    ASSERT_TRUE(table.good());
    std::string line;
    while (std::getline(table, line)) {
        if (line.empty() || line[0] == '#') {
            continue;
        }
        std::stringstream fields(line);
        std::string codes, place, zone;
        std::getline(fields, codes, '\t');
        std::getline(fields, place, '\t');
        std::getline(fields, zone, '\t');
        EXPECT_TRUE(polygonZones.count(zone)) << zone;
    }

    const Country* kingdom = findCountryByName(countries, "United Kingdom");
    ASSERT_NE(kingdom, nullptr);
    const City* london = findCityByName(*kingdom, "London");
    ASSERT_NE(london, nullptr);
    EXPECT_EQ(london->airportCode, "LHR");
    EXPECT_EQ(london->countryDialCode, "44");
    EXPECT_EQ(london->areaDialCode, "20");
    EXPECT_EQ(london->timeZoneIndex, 85);
    EXPECT_EQ(london->dstRuleIndex, 1);
    EXPECT_EQ(london->stationCode, "EGLC");
    EXPECT_EQ(london->weatherQuery, "London%2C+GB");
    ASSERT_FALSE(rules.empty());
    EXPECT_EQ(rules[0].startText, "LastSunMar 01:00");
    EXPECT_EQ(rules[0].endText, "LastSunOct 00:59");
}

TEST_F(ShippedWorld, FirstStartRebuildChangesNothing) {
    const std::string countryBefore = test::readFile(root.paths.dataFile(countryFileName));
    const std::string cityBefore = test::readFile(root.paths.dataFile(cityFileName));
    ASSERT_TRUE(dataFilesChanged(root.paths)) << "no tstamp.dat yet";
    CountryList list;
    ASSERT_EQ(rebuildDataFiles(root.paths, list), RebuildResult::Done);
    EXPECT_TRUE(test::readFile(root.paths.dataFile(countryFileName)) == countryBefore);
    EXPECT_TRUE(test::readFile(root.paths.dataFile(cityFileName)) == cityBefore);
    EXPECT_FALSE(dataFilesChanged(root.paths));
}

TEST_F(ShippedWorld, EveryCityKeepsItsPolygonZoneTimeExceptTheListedDeviations) {
    std::map<std::pair<std::string, std::string>, std::pair<int, long>> listed;
    for (const Row& row : readTsv("deviations.tsv")) {
        ASSERT_EQ(row.size(), 9u);
        EXPECT_FALSE(row[8].empty()) << row[1] << " deviates without a reason";
        listed[{row[0], row[1]}] = {std::stoi(row[6]), std::stol(row[7])};
    }

    // Cities that share zone, key and rule share the outcome.
    std::map<std::tuple<std::string, int, int>, Mismatch> outcomes;
    long samples = 0;
    long wrongSamples = 0;
    std::size_t deviating = 0;
    for (const Country& country : countries) {
        for (const City& city : country.cities) {
            const std::string& zone = recorded[{country.name, city.name}].polygonZone;
            const auto triple = std::make_tuple(zone, city.timeZoneIndex, int(city.dstRuleIndex));
            auto found = outcomes.find(triple);
            if (found == outcomes.end()) {
                found = outcomes
                            .emplace(triple, compareWithTzdata(zone, city.timeZoneIndex,
                                                               city.dstRuleIndex, rules))
                            .first;
            }
            const Mismatch& m = found->second;
            samples += m.samples;
            wrongSamples += m.wrong;
            const std::string where = country.name + " / " + city.name + " (" + zone + ")";
            const auto entry = listed.find({country.name, city.name});
            if (entry == listed.end()) {
                EXPECT_EQ(m.wrong, 0) << where << " first differs at " << m.firstWrong
                                      << ", by up to " << m.worstMinutes << " min";
            } else {
                ++deviating;
                EXPECT_EQ(m.wrong, entry->second.first) << where;
                EXPECT_EQ(m.worstMinutes, entry->second.second) << where;
            }
        }
    }
    EXPECT_EQ(deviating, listed.size()) << "every listed deviation is a shipped city";
    const double rate = 100.0 * double(samples - wrongSamples) / double(samples);
    RecordProperty("samples", std::to_string(samples));
    RecordProperty("matching", std::to_string(samples - wrongSamples));
    std::printf("polygon zone match: %ld of %ld city-instants (%.4f %%), %zu deviating cities, "
                "%zu zone/key/rule triples\n",
                samples - wrongSamples, samples, rate, deviating, outcomes.size());
}

} // namespace
} // namespace zonara
