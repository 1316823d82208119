#include "core/Text.h"

#include <array>
#include <cstdint>

namespace zonara {

namespace {

// Windows-1252 0x80..0x9F; 0 marks the five undefined bytes, read as U+FFFD.
constexpr std::array<char16_t, 32> cp1252High = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

void appendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += char(c);
    } else if (c < 0x800) {
        out += char(0xC0 | c >> 6);
        out += char(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += char(0xE0 | c >> 12);
        out += char(0x80 | (c >> 6 & 0x3F));
        out += char(0x80 | (c & 0x3F));
    } else {
        out += char(0xF0 | c >> 18);
        out += char(0x80 | (c >> 12 & 0x3F));
        out += char(0x80 | (c >> 6 & 0x3F));
        out += char(0x80 | (c & 0x3F));
    }
}

// Decodes one UTF-8 sequence at `i`; the length is 0 when it is not valid
// (overlong forms, surrogates and values above U+10FFFF included).
struct Decoded {
    char32_t code;
    std::size_t length;
};

Decoded decodeAt(std::string_view s, std::size_t i) {
    const auto b0 = std::uint8_t(s[i]);
    if (b0 < 0x80) {
        return {b0, 1};
    }
    std::size_t need = 0;
    char32_t code = 0;
    char32_t minimum = 0;
    if ((b0 & 0xE0) == 0xC0) {
        need = 1, code = b0 & 0x1F, minimum = 0x80;
    } else if ((b0 & 0xF0) == 0xE0) {
        need = 2, code = b0 & 0x0F, minimum = 0x800;
    } else if ((b0 & 0xF8) == 0xF0) {
        need = 3, code = b0 & 0x07, minimum = 0x10000;
    } else {
        return {0, 0};
    }
    if (i + need >= s.size()) {
        return {0, 0};
    }
    for (std::size_t k = 1; k <= need; ++k) {
        const auto b = std::uint8_t(s[i + k]);
        if ((b & 0xC0) != 0x80) {
            return {0, 0};
        }
        code = code << 6 | (b & 0x3F);
    }
    if (code < minimum || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) {
        return {0, 0};
    }
    return {code, need + 1};
}

} // namespace

bool isValidUtf8(std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size();) {
        const Decoded d = decodeAt(bytes, i);
        if (d.length == 0) {
            return false;
        }
        i += d.length;
    }
    return true;
}

std::string_view trimIncompleteUtf8Tail(std::string_view bytes) {
    // Look back at most three bytes for the lead byte of the last sequence.
    for (std::size_t back = 1; back <= 3 && back <= bytes.size(); ++back) {
        const auto b = std::uint8_t(bytes[bytes.size() - back]);
        if ((b & 0xC0) == 0x80) {
            continue;
        }
        const std::size_t need = (b & 0xE0) == 0xC0   ? 2
                                 : (b & 0xF0) == 0xE0 ? 3
                                 : (b & 0xF8) == 0xF0 ? 4
                                                      : 1;
        return need > back ? bytes.substr(0, bytes.size() - back) : bytes;
    }
    return bytes;
}

std::string decodeField(std::string_view bytes) {
    if (isValidUtf8(bytes)) {
        return std::string(bytes);
    }
    std::string out;
    out.reserve(bytes.size() * 2);
    for (const char ch : bytes) {
        const auto b = std::uint8_t(ch);
        if (b < 0x80) {
            out += ch;
        } else if (b < 0xA0) {
            const char16_t mapped = cp1252High[b - 0x80];
            appendUtf8(out, mapped != 0 ? mapped : 0xFFFD);
        } else {
            appendUtf8(out, b); // Latin-1 and Windows-1252 agree from 0xA0 on
        }
    }
    return out;
}

std::u16string toUtf16(std::string_view utf8) {
    std::u16string out;
    out.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        const Decoded d = decodeAt(utf8, i);
        char32_t c = d.code;
        if (d.length == 0) {
            c = 0xFFFD;
            i += 1;
        } else {
            i += d.length;
        }
        if (c >= 0x10000) {
            c -= 0x10000;
            out += char16_t(0xD800 + (c >> 10));
            out += char16_t(0xDC00 + (c & 0x3FF));
        } else {
            out += char16_t(c);
        }
    }
    return out;
}

std::string toUtf8(std::u16string_view utf16) {
    std::string out;
    out.reserve(utf16.size());
    for (std::size_t i = 0; i < utf16.size(); ++i) {
        char32_t c = utf16[i];
        if (c >= 0xD800 && c <= 0xDBFF && i + 1 < utf16.size() && utf16[i + 1] >= 0xDC00 &&
            utf16[i + 1] <= 0xDFFF) {
            c = 0x10000 + ((c - 0xD800) << 10) + (utf16[i + 1] - 0xDC00);
            ++i;
        } else if (c >= 0xD800 && c <= 0xDFFF) {
            c = 0xFFFD; // a lone surrogate
        }
        appendUtf8(out, c);
    }
    return out;
}

std::string asciiLower(std::string_view s) {
    std::string out(s);
    for (char& c : out) {
        if (c >= 'A' && c <= 'Z') {
            c = char(c - 'A' + 'a');
        }
    }
    return out;
}

} // namespace zonara
