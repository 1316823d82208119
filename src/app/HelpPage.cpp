#include "app/HelpPage.h"

#include <array>
#include <cstdio>
#include <system_error>

namespace zonara {

namespace {

struct LanguageGroup {
    std::uint16_t mapped;
    std::array<std::uint16_t, 20> members; // 0 ends the list
};

// clang-format off
constexpr std::array<LanguageGroup, 5> languageGroups = {{
    {1031, {1031, 2055, 3079, 4103, 5127}},              // German
    {1040, {1040, 2064}},                                // Italian
    {2052, {1028, 2052, 3076, 4100, 5124}},              // Chinese
    {3082, {1034, 2058, 3082, 4106, 5130, 6154, 7178, 8202, 9226, 10250, 11274, 12298,
            13322, 14346, 15370, 16394, 17418, 18442, 19466, 20490}}, // Spanish
    {1036, {1036, 2060, 3084, 4108, 5132, 6156}},        // French
}};

struct LocaleLanguage {
    std::string_view name; // language, or language_TERRITORY
    std::uint16_t id;
};

// The first match wins, so territories stand before their language.
constexpr std::array<LocaleLanguage, 25> localeLanguages = {{
    {"de_CH", 2055}, {"de_AT", 3079}, {"de_LU", 4103}, {"de_LI", 5127}, {"de", 1031},
    {"it_CH", 2064}, {"it", 1040},
    {"zh_TW", 1028}, {"zh_HK", 3076}, {"zh_SG", 4100}, {"zh_MO", 5124}, {"zh", 2052},
    {"es_MX", 2058}, {"es_GT", 4106}, {"es_AR", 11274}, {"es_CL", 13322}, {"es_CO", 9226},
    {"es", 3082},
    {"fr_BE", 2060}, {"fr_CA", 3084}, {"fr_CH", 4108}, {"fr_LU", 5132}, {"fr_MC", 6156},
    {"fr", 1036},
    {"en", 1033},
}};
// clang-format on

} // namespace

std::uint16_t mapLanguage(std::uint16_t languageId) {
    for (const LanguageGroup& group : languageGroups) {
        for (const std::uint16_t member : group.members) {
            if (member != 0 && member == languageId) {
                return group.mapped;
            }
        }
    }
    return 1033;
}

std::uint16_t languageIdFromLocale(std::string_view localeName) {
    const std::size_t end = localeName.find_first_of(".@");
    const std::string_view name = localeName.substr(0, end);
    for (const LocaleLanguage& entry : localeLanguages) {
        const bool whole = name == entry.name;
        const bool language = entry.name.size() == 2 && name.size() > 2 &&
                              name.substr(0, 2) == entry.name && name[2] == '_';
        if (whole || language) {
            return entry.id;
        }
    }
    return 1033;
}

std::filesystem::path helpPage(const std::filesystem::path& folder, std::uint16_t languageId) {
    char name[32];
    std::snprintf(name, sizeof name, "help_%.4X.htm", unsigned(mapLanguage(languageId)));
    std::error_code error;
    if (std::filesystem::exists(folder / name, error)) {
        return folder / name;
    }
    return folder / "help.htm";
}

} // namespace zonara
