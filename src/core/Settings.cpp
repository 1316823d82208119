#include "core/Settings.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>

#include "core/FileWriter.h"

namespace zonara {

namespace {

// A string holds at most this many code units after reading; longer ones are
// cut, and the reader still moves past all of their units.
constexpr std::size_t maxStringUnits = 255;

// Reads fields in file order. Past the end, a number keeps its value (a
// partly present number takes the bytes there are into its low bytes) and a
// string's count reads as 0, so the string becomes empty.
class SettingsReader {
  public:
    explicit SettingsReader(std::string bytes) : bytes(std::move(bytes)) {}

    template <typename T> void number(T& field) {
        const std::size_t n = take(sizeof(T));
        unsigned char raw[sizeof(T)];
        std::memcpy(raw, &field, sizeof(T));
        std::memcpy(raw, bytes.data() + at - n, n); // little-endian: low bytes first
        std::memcpy(&field, raw, sizeof(T));
    }

    void string(std::u16string& field) {
        std::uint32_t count = 0;
        number(count);
        field.clear();
        const std::size_t available = take(std::size_t(count) * 2);
        const char* units = bytes.data() + at - available;
        const std::size_t kept = std::min(available / 2, maxStringUnits);
        for (std::size_t i = 0; i < kept; ++i) {
            const auto unit =
                char16_t(std::uint8_t(units[2 * i]) | std::uint8_t(units[2 * i + 1]) << 8);
            if (unit == 0) {
                break; // the text ends at its first NUL
            }
            field += unit;
        }
    }

  private:
    // Moves past up to n bytes; returns how many there were.
    std::size_t take(std::size_t n) {
        const std::size_t got = std::min(n, bytes.size() - at);
        at += got;
        return got;
    }

    std::string bytes;
    std::size_t at = 0;
};

class SettingsWriter {
  public:
    template <typename T> void number(T field) {
        char raw[sizeof(T)];
        std::memcpy(raw, &field, sizeof(T));
        bytes.append(raw, sizeof(T));
    }

    void string(const std::u16string& field) {
        number(std::uint32_t(field.size()));
        for (const char16_t unit : field) {
            bytes += char(unit & 0xFF);
            bytes += char(unit >> 8);
        }
    }

    std::string bytes;
};

// One field order for reading and writing.
template <typename Io, typename S> void transfer(Io& io, S& settings) {
    for (auto& slot : settings.slots) {
        io.string(slot.countryName);
        io.string(slot.cityName);
        io.string(slot.airportCode);
        io.string(slot.dialCode);
        io.number(slot.timeZoneIndex);
        io.number(slot.dstRuleIndex);
        io.number(slot.longitude);
        io.number(slot.latitude);
        io.string(slot.stationCode);
        io.string(slot.weatherQuery);
    }
    io.string(settings.skinFile);
    io.number(settings.selectedSlot);
    io.number(settings.use24Hour);
    io.number(settings.currentView);
    io.number(settings.useCelsius);
    io.number(settings.useMillibar);
    // Query, city, country: not the order of a slot's fields.
    io.string(settings.weatherQuery);
    io.string(settings.weatherCity);
    io.string(settings.weatherCountry);
}

} // namespace

bool Settings::Load(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) {
        return false;
    }
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        return false;
    }
    SettingsReader reader{std::string(std::istreambuf_iterator<char>(in), {})};
    transfer(reader, *this);
    return true;
}

bool Settings::Save(const std::filesystem::path& file) const {
    SettingsWriter writer;
    transfer(writer, *this);
    return replaceFiles({{file, writer.bytes}});
}

} // namespace zonara
