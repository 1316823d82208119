#include "net/WorldCheck.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <system_error>
#include <vector>

#include "core/CFileMap.h"
#include "core/Calendar.h"
#include "core/WorldFiles.h"
#include "core/ZoneTime.h"

namespace zonara {

namespace fs = std::filesystem;

namespace {

constexpr std::array<std::string_view, 7> weekdays = {"Sun", "Mon", "Tue", "Wed",
                                                      "Thu", "Fri", "Sat"};
constexpr std::array<std::string_view, 12> months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                     "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isCount(std::string_view s) {
    if (s.empty() || s.size() > 9) {
        return false;
    }
    for (const char c : s) {
        if (!isDigit(c)) {
            return false;
        }
    }
    return true;
}

// "-12.5", "7", "0.25": what the reader turns into degrees.
bool isDecimal(std::string_view s) {
    if (s.starts_with('-')) {
        s.remove_prefix(1);
    }
    const auto dot = s.find('.');
    const std::string_view whole = s.substr(0, dot);
    const std::string_view part = dot == std::string_view::npos ? "" : s.substr(dot + 1);
    return isCount(whole) && (dot == std::string_view::npos || isCount(part));
}

std::vector<std::string_view> splitFields(std::string_view line) {
    std::vector<std::string_view> fields;
    while (true) {
        const auto tab = line.find('\t');
        fields.push_back(line.substr(0, tab));
        if (tab == std::string_view::npos) {
            return fields;
        }
        line.remove_prefix(tab + 1);
    }
}

using Lines = std::vector<std::vector<std::string_view>>;

// Each line's fields; a missing or empty file has no lines. nullopt when a
// line does not end in CR LF: the readers would lose the line after it.
std::optional<Lines> linesOf(const CFileMap& map) {
    Lines lines;
    std::string_view rest(map.data(), map.size());
    while (!rest.empty()) {
        const auto end = rest.find('\n');
        std::string_view line = rest.substr(0, end);
        if (end != std::string_view::npos) {
            if (!line.ends_with('\r')) {
                return std::nullopt;
            }
            line.remove_suffix(1);
        }
        lines.push_back(splitFields(line));
        rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    }
    return lines;
}

bool goodCountryLine(const std::vector<std::string_view>& f) {
    return f.size() == 3 && isCount(f[0]) && isCount(f[1]) && !f[2].empty();
}

bool goodCityLine(const std::vector<std::string_view>& f) {
    return f.size() == 11 && isCount(f[0]) && !f[1].empty() && isDecimal(f[2]) && isDecimal(f[3]) &&
           isCount(f[7]) && isCount(f[8]);
}

bool nameAt(std::string_view text, std::size_t at, const auto& names) {
    for (const std::string_view name : names) {
        if (text.substr(std::min(at, text.size()), 3) == name) {
            return true;
        }
    }
    return false;
}

bool twoDigitsAt(std::string_view text, std::size_t at, int low, int high) {
    if (at + 2 > text.size() || !isDigit(text[at]) || !isDigit(text[at + 1])) {
        return false;
    }
    const int value = (text[at] - '0') * 10 + (text[at + 1] - '0');
    return value >= low && value <= high;
}

// Links (or, where links are refused, copies) the files under the names the
// world readers open.
class ScratchWorld {
  public:
    ScratchWorld(const WorldFileSet& files, const fs::path& parent)
        : root(parent / "update-check") {
        std::error_code error;
        fs::remove_all(root, error);
        fs::create_directories(root / "Data", error);
        place(files.country, countryFileName);
        place(files.city, cityFileName);
        place(files.daylight, daylightFileName);
    }
    ~ScratchWorld() {
        std::error_code error;
        fs::remove_all(root, error);
    }
    ScratchWorld(const ScratchWorld&) = delete;
    ScratchWorld& operator=(const ScratchWorld&) = delete;

    Paths paths() const { return Paths(root); }

  private:
    void place(const fs::path& from, std::string_view name) const {
        std::error_code error;
        const fs::path to = root / "Data" / name;
        fs::create_hard_link(from, to, error);
        if (error) {
            fs::copy_file(from, to, error);
        }
    }

    fs::path root;
};

} // namespace

bool ruleTextResolves(std::string_view text) {
    std::size_t rest = 2;
    bool weekdayForm = true;
    if (text.starts_with("First")) {
        weekdayForm = nameAt(text, 5, weekdays);
        rest = 8;
    } else if (text.starts_with("Last")) {
        weekdayForm = nameAt(text, 4, weekdays);
        rest = 7;
    } else if (!twoDigitsAt(text, 0, 1, 31)) {
        return false;
    }
    if (!weekdayForm) {
        return false;
    }
    if (rest != 2 && text.substr(rest).starts_with("After")) {
        if (!twoDigitsAt(text, rest + 5, 1, 31)) {
            return false;
        }
        rest += 7;
    }
    if (!nameAt(text, rest, months) || text.size() < rest + 6 ||
        !twoDigitsAt(text, rest + 4, 0, 23)) {
        return false;
    }
    if (text.size() != rest + 6 &&
        (text.size() != rest + 9 || !twoDigitsAt(text, rest + 7, 0, 59))) {
        return false;
    }
    // Resolved in a leap year, so that 29 February stands.
    ZoneTime moment;
    moment.ResolveRule(text, 2028);
    return moment.month >= 1 && moment.month <= 12 && moment.day >= 1 &&
           moment.day <= daysInMonth(moment.month, moment.year);
}

WorldProblem checkWorldFiles(const WorldFileSet& files, const fs::path& scratchParent) {
    CFileMap countryMap;
    countryMap.Open(files.country);
    const auto countryLines = linesOf(countryMap);
    if (countryLines && countryLines->empty()) {
        return WorldProblem::NoCountries;
    }
    if (!countryLines ||
        !std::all_of(countryLines->begin(), countryLines->end(), goodCountryLine)) {
        return WorldProblem::BadCountryLine;
    }
    CFileMap cityMap;
    cityMap.Open(files.city);
    const auto cityLines = linesOf(cityMap);
    if (cityLines && cityLines->empty()) {
        return WorldProblem::NoCities;
    }
    if (!cityLines || !std::all_of(cityLines->begin(), cityLines->end(), goodCityLine)) {
        return WorldProblem::BadCityLine;
    }

    const ScratchWorld world(files, scratchParent);
    CountryList countries;
    loadCountries(world.paths(), countries, true);
    std::set<std::int32_t> ids;
    for (const Country& country : countries) {
        if (!ids.insert(country.id).second) {
            return WorldProblem::RepeatedCountry;
        }
    }
    DstRuleList rules;
    loadDstRules(world.paths(), rules);
    std::size_t reached = 0;
    for (Country& country : countries) {
        loadCities(world.paths(), country, true);
        reached += country.cities.size();
        for (const City& city : country.cities) {
            if (city.dstRuleIndex < 0 || std::size_t(city.dstRuleIndex) > rules.size()) {
                return WorldProblem::UnknownRule;
            }
        }
    }
    if (reached != cityLines->size()) {
        return WorldProblem::CityWithoutCountry;
    }
    for (const DstRule& rule : rules) {
        if (!ruleTextResolves(rule.startText) || !ruleTextResolves(rule.endText)) {
            return WorldProblem::BadRule;
        }
    }
    return WorldProblem::None;
}

} // namespace zonara
