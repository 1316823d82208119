#include "clocks/SkinValue.h"

#include <cctype>
#include <cstdint>
#include <limits>
#include <string>

#include "core/Text.h"

namespace zonara {

namespace {

constexpr std::int64_t int32Max = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t int32Min = std::numeric_limits<std::int32_t>::min();

template <class Char> bool isBlank(Char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

// The magnitude grows no further once it is out of range, so long digit runs
// cannot overflow; the sign is applied and the result clamped at the end.
template <class Char> std::int32_t decimalAt(std::basic_string_view<Char> text, std::size_t& pos) {
    bool negative = false;
    if (pos < text.size() && (text[pos] == '+' || text[pos] == '-'))
        negative = text[pos++] == '-';
    std::int64_t magnitude = 0;
    for (; pos < text.size() && text[pos] >= '0' && text[pos] <= '9'; ++pos) {
        if (magnitude <= int32Max + 1)
            magnitude = magnitude * 10 + (text[pos] - '0');
    }
    const std::int64_t value = negative ? -magnitude : magnitude;
    return std::int32_t(value > int32Max ? int32Max : value < int32Min ? int32Min : value);
}

template <class Char> std::int32_t wtol(std::basic_string_view<Char> text) {
    std::size_t pos = 0;
    while (pos < text.size() && isBlank(text[pos]))
        ++pos;
    return decimalAt(text, pos);
}

// The scheme's hexadecimal rule: at most four characters; anything from "*"
// to "?" counts as its low four bits (so the digits are themselves, and the
// punctuation in that range still gives a value), letters a-f and A-F as their
// low four bits plus 9; the first other character ends the number.
std::uint32_t oddHex(std::u16string_view digits) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < digits.size() && i < 4; ++i) {
        const char16_t c = digits[i];
        std::uint32_t digit;
        if (c >= u'*' && c <= u'?')
            digit = c & 0xF;
        else if ((c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F'))
            digit = (c & 0xF) + 9;
        else
            break;
        value = value * 16 + digit;
    }
    return value;
}

// A substring by position and length that is empty or short past the end.
std::u16string_view mid(std::u16string_view text, std::size_t start, std::size_t count) {
    if (start >= text.size())
        return {};
    return text.substr(start, count);
}

// Reads one "%i" conversion at pos; false when no digits were found.
bool scanInteger(std::string_view text, std::size_t& pos, std::int32_t& out) {
    while (pos < text.size() && isBlank(text[pos]))
        ++pos;
    std::size_t at = pos;
    bool negative = false;
    if (at < text.size() && (text[at] == '+' || text[at] == '-'))
        negative = text[at++] == '-';
    int base = 10;
    if (at < text.size() && text[at] == '0') {
        base = 8;
        const bool hexPrefix = at + 2 < text.size() &&
                               (text[at + 1] == 'x' || text[at + 1] == 'X') &&
                               std::isxdigit(static_cast<unsigned char>(text[at + 2]));
        if (hexPrefix) {
            base = 16;
            at += 2;
        }
    }
    const auto digitOf = [base](char c) -> int {
        int d = 99;
        if (c >= '0' && c <= '9')
            d = c - '0';
        else if (c >= 'a' && c <= 'f')
            d = c - 'a' + 10;
        else if (c >= 'A' && c <= 'F')
            d = c - 'A' + 10;
        return d < base ? d : -1;
    };
    std::int64_t magnitude = 0;
    std::size_t digits = 0;
    for (; at < text.size(); ++at, ++digits) {
        const int d = digitOf(text[at]);
        if (d < 0)
            break;
        if (magnitude <= int32Max + 1)
            magnitude = magnitude * base + d;
    }
    if (digits == 0)
        return false;
    const std::int64_t value = negative ? -magnitude : magnitude;
    out = std::int32_t(value > int32Max ? int32Max : value < int32Min ? int32Min : value);
    pos = at;
    return true;
}

} // namespace

std::int32_t parseNumber(std::string_view text) {
    return wtol(text);
}

ColorRef parseColor(std::string_view text) {
    const std::u16string units = toUtf16(text);
    const std::u16string_view view = units;
    const std::uint32_t red = oddHex(mid(view, 1, 2));
    const std::uint32_t green = oddHex(mid(view, 3, 2));
    const std::uint32_t blue = oddHex(mid(view, 5, 2));
    return rgb(std::uint8_t(red), std::uint8_t(green), std::uint8_t(blue));
}

void parseRect(std::string_view text, SkinRect& rect) {
    // The value is split in a buffer of 256 UTF-16 units, so only the first
    // 255 take part.
    std::u16string units = toUtf16(text);
    if (units.size() > 255)
        units.resize(255);
    std::int32_t* const members[] = {&rect.left, &rect.top, &rect.right, &rect.bottom};
    std::u16string_view rest = units;
    for (std::int32_t* member : members) {
        const std::size_t comma = rest.find(u',');
        *member = wtol(rest.substr(0, comma));
        if (comma == std::u16string_view::npos)
            break;
        rest.remove_prefix(comma + 1);
    }
}

int parsePair(std::string_view text, std::int32_t& first, std::int32_t& second) {
    std::size_t pos = 0;
    if (!scanInteger(text, pos, first))
        return 0;
    if (pos >= text.size() || text[pos] != ',')
        return 1;
    ++pos;
    return scanInteger(text, pos, second) ? 2 : 1;
}

bool isKeyword(std::string_view text, std::string_view keyword) {
    return asciiLower(text) == asciiLower(keyword);
}

} // namespace zonara
