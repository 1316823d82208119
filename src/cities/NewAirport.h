#pragma once
// The checks an airport passes before it joins the list, and their messages.

#include <string>
#include <string_view>

#include "cities/AirportList.h"

namespace zonara {

enum class AirportProblem {
    None,
    NoDescription,      // "Please enter a description."
    DescriptionTooLong, // only from the command line: the dialog's box holds 255
    BadCode,            // "Please enter a 4 letter ICAO code."
};

struct NewAirport {
    AirportProblem problem = AirportProblem::None;
    AirportEntry entry; // the description as given, the code trimmed and upper-cased
};

// An empty description is refused (a blank one is not); the code must be four
// units long once trimmed.
NewAirport checkNewAirport(std::u16string_view description, std::u16string_view code);

// White space trimmed from both ends, ASCII and Latin-1 letters upper-cased.
std::u16string normalizedCode(std::u16string_view code);

// The hint line's text: the standing hint for None, else the problem's message.
std::u16string_view airportHintText(AirportProblem problem);

inline constexpr std::u16string_view airportStandingHint =
    u"To enter a new airport, enter description and a 4 letter ICAO code and select add from "
    u"menu.";

} // namespace zonara
