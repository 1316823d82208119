#include "cities/NewAirport.h"

#include <algorithm>
#include <array>

namespace zonara {

namespace {

constexpr std::array<char16_t, 21> unicodeSpaces = {
    0x0085, 0x00A0, 0x1680, 0x2000, 0x2001, 0x2002, 0x2003, 0x2004, 0x2005, 0x2006, 0x2007,
    0x2008, 0x2009, 0x200A, 0x2028, 0x2029, 0x202F, 0x205F, 0x3000, 0xFEFF, 0x180E};

bool isSpace(char16_t c) {
    return c == u' ' || (c >= u'\t' && c <= u'\r') ||
           std::find(unicodeSpaces.begin(), unicodeSpaces.end(), c) != unicodeSpaces.end();
}

char16_t upper(char16_t c) {
    if ((c >= u'a' && c <= u'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7)) {
        return char16_t(c - 0x20);
    }
    return c == 0xFF ? char16_t(0x178) : c;
}

} // namespace

std::u16string normalizedCode(std::u16string_view code) {
    while (!code.empty() && isSpace(code.front())) {
        code.remove_prefix(1);
    }
    while (!code.empty() && isSpace(code.back())) {
        code.remove_suffix(1);
    }
    std::u16string out(code);
    std::transform(out.begin(), out.end(), out.begin(), upper);
    return out;
}

NewAirport checkNewAirport(std::u16string_view description, std::u16string_view code) {
    NewAirport result;
    result.entry = {std::u16string(description), normalizedCode(code)};
    if (description.empty()) {
        result.problem = AirportProblem::NoDescription;
    } else if (description.size() > airportTextLimit) {
        result.problem = AirportProblem::DescriptionTooLong;
    } else if (result.entry.code.size() != 4) {
        result.problem = AirportProblem::BadCode;
    }
    return result;
}

std::u16string_view airportHintText(AirportProblem problem) {
    switch (problem) {
    case AirportProblem::NoDescription:
        return u"Please enter a description.";
    case AirportProblem::DescriptionTooLong:
        return u"Please enter a description of at most 255 characters.";
    case AirportProblem::BadCode:
        return u"Please enter a 4 letter ICAO code.";
    case AirportProblem::None:
        break;
    }
    return airportStandingHint;
}

} // namespace zonara
