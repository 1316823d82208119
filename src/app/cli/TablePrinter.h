#pragma once
// Command output: rows as tab-separated lines for scripts, or as an aligned
// table with a header for people.

#include <iosfwd>
#include <string>
#include <vector>

namespace zonara {

class TablePrinter {
  public:
    explicit TablePrinter(std::vector<std::string> header) : header(std::move(header)) {}
    void add(std::vector<std::string> row) { rows.push_back(std::move(row)); }
    void print(std::ostream& out, bool tsv) const;

  private:
    std::vector<std::string> header;
    std::vector<std::vector<std::string>> rows;
};

// Cell texts shared by the commands' tables.
// A coordinate as the world files write it: two decimal places.
std::string twoDecimals(float value);
// YYYY-MM-DD and HH:MM:SS, as scripts read them.
std::string isoDate(int year, int month, int day);
std::string isoTime(int hour, int minute, int second);

} // namespace zonara
