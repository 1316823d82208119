#pragma once
// Which help page to open for the user-interface language.

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace zonara {

// The six languages the program has pages for: German, Italian, Chinese
// (traditional deliberately shown the simplified page), Spanish, French and,
// for any other language, English.
std::uint16_t mapLanguage(std::uint16_t languageId);

// A POSIX locale name such as "de_CH.UTF-8" as a Windows language identifier,
// for the languages the mapping knows; 1033 (English) otherwise.
std::uint16_t languageIdFromLocale(std::string_view localeName);

// "help_0407.htm" beside the program when it exists, else "help.htm".
std::filesystem::path helpPage(const std::filesystem::path& folder, std::uint16_t languageId);

} // namespace zonara
