#include "core/DstRule.h"

#include <array>

namespace zonara {

namespace {

constexpr std::array<std::string_view, 7> weekdayNames = {"Sun", "Mon", "Tue", "Wed",
                                                          "Thu", "Fri", "Sat"};
constexpr std::array<std::string_view, 12> monthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

// Text past the end reads as nothing, so a short rule cannot read out of bounds.
std::string_view piece(std::string_view text, std::size_t at, std::size_t length) {
    return at < text.size() ? text.substr(at, length) : std::string_view();
}

// At most two characters; a non-digit ends the number.
std::int32_t twoDigits(std::string_view text, std::size_t at) {
    std::int32_t value = 0;
    for (const char c : piece(text, at, 2)) {
        if (c < '0' || c > '9') {
            break;
        }
        value = value * 10 + (c - '0');
    }
    return value;
}

// Anything that is not a weekday's three letters counts as Sunday.
std::int32_t weekdayAt(std::string_view text, std::size_t at) {
    const std::string_view name = piece(text, at, 3);
    for (std::size_t i = 0; i < weekdayNames.size(); ++i) {
        if (name == weekdayNames[i]) {
            return std::int32_t(i);
        }
    }
    return 0;
}

// 0 for anything that is not a month's three letters.
std::int32_t monthAt(std::string_view text, std::size_t at) {
    const std::string_view name = piece(text, at, 3);
    for (std::size_t i = 0; i < monthNames.size(); ++i) {
        if (name == monthNames[i]) {
            return std::int32_t(i + 1);
        }
    }
    return 0;
}

} // namespace

RuleMoment readRuleText(std::string_view text) {
    using Form = RuleMoment::Form;
    RuleMoment moment;
    std::size_t rest = 2;
    if (piece(text, 0, 5) == "First") {
        moment.form = Form::First;
        moment.weekday = weekdayAt(text, 5);
        rest = 8;
    } else if (piece(text, 0, 4) == "Last") {
        moment.form = Form::Last;
        moment.weekday = weekdayAt(text, 4);
        rest = 7;
    } else {
        moment.day = twoDigits(text, 0);
    }
    // Only "Afte" is compared: the rest of the word is not looked at.
    if (moment.form != Form::Fixed && piece(text, rest, 4) == "Afte") {
        moment.after = true;
        moment.day = twoDigits(text, rest + 5);
        rest += 7;
    }
    moment.month = monthAt(text, rest);
    moment.hour = twoDigits(text, rest + 4);
    moment.minute = text.size() > rest + 6 ? twoDigits(text, rest + 7) : 0;
    return moment;
}

DstRule::DstRule(std::string startText, std::string endText)
    : startText(std::move(startText)), endText(std::move(endText)),
      start(readRuleText(this->startText)), end(readRuleText(this->endText)) {}

} // namespace zonara
