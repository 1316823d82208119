#include "net/CurrencyFiles.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <optional>
#include <system_error>

#include "core/FileWriter.h"

namespace zonara {

namespace {

// Reads fields in file order; a field that the bytes do not hold whole gives
// nothing, and every later read gives nothing too.
class CurrencyReader {
  public:
    explicit CurrencyReader(std::string bytes) : bytes(std::move(bytes)) {}

    template <typename T> std::optional<T> number() {
        if (bytes.size() - at < sizeof(T)) {
            at = bytes.size();
            return std::nullopt;
        }
        T value;
        std::memcpy(&value, bytes.data() + at, sizeof(T)); // little-endian, as the file
        at += sizeof(T);
        return value;
    }

    std::optional<std::u16string> string() {
        const std::optional<std::uint32_t> count = number<std::uint32_t>();
        if (!count) {
            return std::nullopt;
        }
        // The units and the terminating unit; 64-bit so that a huge count
        // cannot wrap around.
        const std::uint64_t size = (std::uint64_t(*count) + 1) * 2;
        if (bytes.size() - at < size) {
            at = bytes.size();
            return std::nullopt;
        }
        std::u16string text;
        const std::size_t kept = std::min<std::size_t>(*count, maxCurrencyStringUnits);
        for (std::size_t i = 0; i < kept; ++i) {
            const auto unit = char16_t(std::uint8_t(bytes[at + 2 * i]) |
                                       std::uint8_t(bytes[at + 2 * i + 1]) << 8);
            if (unit == 0) {
                break; // the text ends at its first zero unit
            }
            text += unit;
        }
        at += std::size_t(size);
        return text;
    }

  private:
    std::string bytes;
    std::size_t at = 0;
};

class CurrencyWriter {
  public:
    template <typename T> void number(T value) {
        char raw[sizeof(T)];
        std::memcpy(raw, &value, sizeof(T));
        bytes.append(raw, sizeof(T));
    }

    // Longer texts are cut, so that every reader's buffer holds them.
    void string(std::u16string_view text) {
        text = text.substr(0, maxCurrencyStringUnits);
        number(std::uint32_t(text.size()));
        for (const char16_t unit : text) {
            bytes += char(unit & 0xFF);
            bytes += char(unit >> 8);
        }
        bytes.append(2, '\0');
    }

    std::string bytes;
};

// The whole file; a missing one is created empty first. Nothing when it
// cannot be read or created.
std::optional<std::string> readOrCreate(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::exists(file, error) && !error) {
        if (!replaceFiles({{file, std::string_view()}})) {
            return std::nullopt;
        }
        return std::string();
    }
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        return std::nullopt;
    }
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

} // namespace

CurrencyList LoadCurrencyList(const std::filesystem::path& file) {
    CurrencyList list;
    std::optional<std::string> bytes = readOrCreate(file);
    if (!bytes) {
        return list;
    }
    CurrencyReader reader(std::move(*bytes));
    const std::optional<std::u16string> lastUpdate = reader.string();
    if (!lastUpdate) {
        return list;
    }
    list.lastUpdate = *lastUpdate;
    const std::int32_t count = reader.number<std::int32_t>().value_or(0);
    for (std::int32_t i = 0; i < count; ++i) {
        std::optional<std::u16string> name = reader.string();
        std::optional<std::u16string> code = reader.string();
        const std::optional<float> rate = reader.number<float>();
        if (!name || !code || !rate) {
            break;
        }
        list.entries.push_back({std::move(*name), std::move(*code), *rate});
    }
    return list;
}

bool SaveCurrencyList(const std::filesystem::path& file, const CurrencyList& list) {
    CurrencyWriter writer;
    writer.string(list.lastUpdate);
    writer.number(std::int32_t(list.entries.size()));
    for (const CurrencyEntry& entry : list.entries) {
        writer.string(entry.name);
        writer.string(entry.code);
        writer.number(entry.rate);
    }
    return replaceFiles({{file, writer.bytes}});
}

CurrencyChoice LoadCurrencyChoice(const std::filesystem::path& file) {
    CurrencyChoice choice;
    std::optional<std::string> bytes = readOrCreate(file);
    if (!bytes) {
        return choice;
    }
    CurrencyReader reader(std::move(*bytes));
    choice.from = reader.string().value_or(u"");
    choice.to = reader.string().value_or(u"");
    return choice;
}

bool SaveCurrencyChoice(const std::filesystem::path& file, const CurrencyChoice& choice) {
    CurrencyWriter writer;
    writer.string(choice.from);
    writer.string(choice.to);
    return replaceFiles({{file, writer.bytes}});
}

} // namespace zonara
