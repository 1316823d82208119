#pragma once
// What the subcommands share: preparing the world files and finding a city by
// the words a user typed.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/CommandLine.h"
#include "core/Country.h"
#include "core/DstRule.h"
#include "core/Settings.h"

namespace zonara {

// For commands that take no positional words: reports a leftover word (with
// the hint, if any) or a bad option on ctx.err; true when there was none.
bool expectNoMoreArgs(CommandContext& ctx, Args& args, std::string_view command,
                      std::string_view hint = {});

// The settings and the daylight-saving rules, after the rebuild check: what
// every command that shows a local time needs.
struct ClockSetup {
    Settings settings;
    DstRuleList rules;
};
ClockSetup loadClockSetup(CommandContext& ctx);

// Runs the rebuild check before the world files are read, telling stderr
// while a rebuild runs. False (with a message on stderr) when the rebuilt files
// could not be written; the files stay readable as they were.
bool prepareWorld(CommandContext& ctx);

struct CityMatch {
    const Country* country = nullptr;
    const City* city = nullptr;
};

// Finds CITY, in COUNTRY when one is named, else in every country (first in
// file order). On no match prints an error to ctx.err that suggests up to five
// names that match without regard to case, and returns nothing. The countries
// loaded stay in `countries` so the pointers remain valid.
std::optional<CityMatch> findCity(CommandContext& ctx, CountryList& countries,
                                  const std::string& cityName,
                                  const std::optional<std::string>& countryName);
// The same for a country alone.
const Country* findCountry(CommandContext& ctx, CountryList& countries,
                           const std::string& countryName);

// A coordinate as the world files write it: two decimal places.
std::string twoDecimals(float value);

// Prints rows as tab-separated lines, or as an aligned table with a header.
class TablePrinter {
  public:
    explicit TablePrinter(std::vector<std::string> header) : header(std::move(header)) {}
    void add(std::vector<std::string> row) { rows.push_back(std::move(row)); }
    void print(std::ostream& out, bool tsv) const;

  private:
    std::vector<std::string> header;
    std::vector<std::vector<std::string>> rows;
};

} // namespace zonara
