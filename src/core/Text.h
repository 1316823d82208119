#pragma once
// Text conversions between the data files' 8-bit text, UTF-8 and UTF-16.

#include <string>
#include <string_view>

namespace zonara {

bool isValidUtf8(std::string_view bytes);

// A data-file field as UTF-8: valid UTF-8 stands as it is, anything else is
// read as Windows-1252.
std::string decodeField(std::string_view bytes);

// Drops a UTF-8 sequence left incomplete at the end, as cutting a long field
// can leave; anything else stands.
std::string_view trimIncompleteUtf8Tail(std::string_view bytes);

// Invalid input becomes U+FFFD; nothing throws.
std::u16string toUtf16(std::string_view utf8);
std::string toUtf8(std::u16string_view utf16);

// ASCII-only case folding, enough for names and keywords.
std::string asciiLower(std::string_view s);

} // namespace zonara
