#include "cities/AirportList.h"

#include <cstdint>
#include <fstream>
#include <iterator>
#include <optional>
#include <system_error>

#include "core/FileWriter.h"

namespace zonara {

namespace {

void appendInt32(std::string& out, std::int32_t value) {
    const auto bits = std::uint32_t(value);
    for (int i = 0; i < 4; ++i) {
        out += char(bits >> (8 * i) & 0xFF);
    }
}

void appendString(std::string& out, std::u16string_view text) {
    appendInt32(out, std::int32_t(text.size()));
    for (const char16_t unit : text) {
        out += char(unit & 0xFF);
        out += char(unit >> 8);
    }
    out += '\0';
    out += '\0';
}

// Reads forward through the bytes; every read checks what is left first.
class Reader {
  public:
    explicit Reader(std::string_view bytes) : bytes(bytes) {}

    std::optional<std::int32_t> int32() {
        if (bytes.size() - at < 4) {
            return std::nullopt;
        }
        std::uint32_t bits = 0;
        for (int i = 0; i < 4; ++i) {
            bits |= std::uint32_t(std::uint8_t(bytes[at + std::size_t(i)])) << (8 * i);
        }
        at += 4;
        return std::int32_t(bits);
    }

    std::optional<char16_t> unit() {
        if (bytes.size() - at < 2) {
            return std::nullopt;
        }
        const auto low = std::uint8_t(bytes[at]);
        const auto high = std::uint8_t(bytes[at + 1]);
        at += 2;
        return char16_t(low | high << 8);
    }

    std::optional<std::u16string> string() {
        const auto length = int32();
        if (!length || *length < 0 || std::size_t(*length) > airportTextLimit ||
            (bytes.size() - at) / 2 < std::size_t(*length) + 1) {
            return std::nullopt;
        }
        std::u16string text;
        bool ended = false;
        for (std::int32_t i = 0; i < *length; ++i) {
            const char16_t c = *unit();
            ended = ended || c == 0;
            if (!ended) {
                text += c;
            }
        }
        if (*unit() != 0) {
            return std::nullopt;
        }
        return text;
    }

  private:
    std::string_view bytes;
    std::size_t at = 0;
};

char32_t codePointAt(std::u16string_view s, std::size_t& i) {
    const char16_t c = s[i++];
    if (c >= 0xD800 && c <= 0xDBFF && i < s.size() && s[i] >= 0xDC00 && s[i] <= 0xDFFF) {
        return 0x10000 + (char32_t(c - 0xD800) << 10) + (s[i++] - 0xDC00);
    }
    return c;
}

} // namespace

AirportFileState AirportList::load(const std::filesystem::path& file) {
    list.clear();
    std::error_code error;
    if (!std::filesystem::exists(file, error)) {
        return !error && replaceFiles({{file, ""}}) ? AirportFileState::Created
                                                    : AirportFileState::Unreadable;
    }
    std::ifstream in(file, std::ios::binary);
    if (!std::filesystem::is_regular_file(file, error) || !in) {
        return AirportFileState::Unreadable;
    }
    const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (in.bad()) {
        return AirportFileState::Unreadable;
    }
    return decode(bytes) ? AirportFileState::Whole : AirportFileState::Damaged;
}

bool AirportList::save(const std::filesystem::path& file) const {
    return replaceFiles({{file, encode()}});
}

std::string AirportList::encode() const {
    std::string out;
    appendInt32(out, std::int32_t(list.size()));
    for (const AirportEntry& entry : list) {
        appendString(out, entry.description);
        appendString(out, entry.code);
    }
    return out;
}

bool AirportList::decode(std::string_view bytes) {
    list.clear();
    Reader reader(bytes);
    const std::int32_t count = reader.int32().value_or(0);
    for (std::int32_t i = 0; i < count; ++i) {
        auto description = reader.string();
        auto code = description ? reader.string() : std::nullopt;
        if (!code) {
            break;
        }
        list.push_back({std::move(*description), std::move(*code)});
    }
    return bytes.empty() || encode() == bytes;
}

std::size_t AirportList::insertSorted(AirportEntry entry) {
    auto at = list.begin();
    while (at != list.end() && compareCodePoints(at->description, entry.description) <= 0) {
        ++at;
    }
    const auto inserted = list.insert(at, std::move(entry));
    return std::size_t(inserted - list.begin());
}

bool AirportList::erase(std::size_t index) {
    if (index >= list.size()) {
        return false;
    }
    list.erase(list.begin() + std::ptrdiff_t(index));
    return true;
}

std::u16string comboLine(const AirportEntry& entry) {
    return entry.description + u" (" + entry.code + u")";
}

int compareCodePoints(std::u16string_view a, std::u16string_view b) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        const char32_t x = codePointAt(a, i);
        const char32_t y = codePointAt(b, j);
        if (x != y) {
            return x < y ? -1 : 1;
        }
    }
    if (i < a.size()) {
        return 1;
    }
    return j < b.size() ? -1 : 0;
}

} // namespace zonara
