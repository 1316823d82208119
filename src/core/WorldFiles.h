#pragma once
// Loading, looking up and rebuilding the country, city and daylight-saving files.

#include <cstddef>
#include <string_view>

#include "core/Country.h"
#include "core/DstRule.h"
#include "core/Paths.h"

namespace zonara {

// Missing, empty or unreadable files give empty lists; nothing throws.
bool loadCountries(const Paths& paths, CountryList& list, bool reload);
// Fills country.cities if empty: from its recorded offset, or with search
// by scanning the city file from the start for the first line of its id.
void loadCities(const Paths& paths, Country& country, bool search);
bool loadDstRules(const Paths& paths, DstRuleList& list);
// The rules of a daylight-saving file anywhere; none when it does not open.
DstRuleList readDstRules(const std::filesystem::path& file);

const Country* countryAt(const CountryList& list, std::size_t i);
const City* cityAt(const Country& country, std::size_t i);
// Exact, case-sensitive comparison; the first match in list order.
Country* findCountryByName(CountryList& list, std::string_view name);
const Country* findCountryByName(const CountryList& list, std::string_view name);
const City* findCityByName(const Country& country, std::string_view name);

// True when the city or country file's time differs from tstamp.dat.
bool dataFilesChanged(const Paths& paths);

enum class RebuildResult { Done, NotWritten, StampNotWritten };
// Renumbers the countries by position, rewrites both files with exact
// offsets and records their times in tstamp.dat. The list is left loaded.
RebuildResult rebuildDataFiles(const Paths& paths, CountryList& list);

// The file names under Data/.
inline constexpr std::string_view countryFileName = "country40.dat";
inline constexpr std::string_view cityFileName = "city40.dat";
inline constexpr std::string_view daylightFileName = "daylight40.dat";
inline constexpr std::string_view stampFileName = "tstamp.dat";

} // namespace zonara
