#pragma once
// The user's airport list and its file Data/airport.dat.

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zonara {

struct AirportEntry {
    std::u16string description;
    std::u16string code; // four letters when added through the list's own checks

    friend bool operator==(const AirportEntry&, const AirportEntry&) = default;
};

// What opening the file found.
enum class AirportFileState {
    Whole,     // read as it was written (an empty file, as a first load leaves it, too)
    Created,   // missing, and created empty
    Damaged,   // only the entries before the first broken one were taken
    Unreadable // neither opened nor created: no entries
};

// Strings in the file hold at most this many UTF-16 units.
inline constexpr std::size_t airportTextLimit = 255;

inline constexpr std::string_view airportFileName = "airport.dat";

class AirportList {
  public:
    const std::vector<AirportEntry>& entries() const { return list; }
    std::size_t size() const { return list.size(); }

    // Replaces the entries with the file's, in file order. A missing file is
    // created empty.
    AirportFileState load(const std::filesystem::path& file);
    // Writes every entry through a temporary file and a rename; false when
    // the file could not be written (the old one then stays as it was).
    bool save(const std::filesystem::path& file) const;

    // Inserts before the first entry whose description is greater by code
    // point (at the end if none) and returns the entry's index.
    std::size_t insertSorted(AirportEntry entry);
    // False for an index past the end.
    bool erase(std::size_t index);

    // The file's bytes: a 32-bit count, then each entry's description and
    // code, each a 32-bit length and that many UTF-16LE units plus a 0 unit.
    std::string encode() const;
    // Takes entries while they are whole and valid: a count of 0 or less
    // means none; a length outside [0, 255], a string that runs past the end
    // or lacks its 0 unit ends the list. A 0 unit inside a string ends its
    // text. Never reads past `bytes`. True when the bytes are exactly what
    // encode() gives for what was taken, or empty.
    bool decode(std::string_view bytes);

  private:
    std::vector<AirportEntry> list;
};

// "%s (%s)": the description, then the code in brackets.
std::u16string comboLine(const AirportEntry& entry);

// Compares by Unicode code point (surrogate pairs taken as one), case-sensitive.
int compareCodePoints(std::u16string_view a, std::u16string_view b);

} // namespace zonara
