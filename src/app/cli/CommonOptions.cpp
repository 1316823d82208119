#include "app/cli/CommonOptions.h"

namespace zonara {

std::optional<std::string> takeCountry(Args& args) {
    return args.option("--country");
}

Expected<SystemTime> takeDate(Args& args, const ClockSource& clock) {
    const std::optional<std::string> text = args.option("--date");
    if (!text) {
        return clock.utcNow();
    }
    if (const auto date = parseIsoDate(*text)) {
        return *date;
    }
    return fail("--date wants a date as YYYY-MM-DD, not '" + *text + "'");
}

Expected<std::size_t> slotNumber(const std::string& word) {
    if (word.size() == 1 && word[0] >= '0' && word[0] <= '3') {
        return std::size_t(word[0] - '0');
    }
    return fail("a clock slot is 0, 1, 2 or 3, not '" + word + "'");
}

std::size_t selectedSlot(const Settings& settings) {
    const bool inRange =
        settings.selectedSlot >= 0 && std::size_t(settings.selectedSlot) < settings.slots.size();
    return inRange ? std::size_t(settings.selectedSlot) : 0;
}

Expected<std::size_t> takeSlot(Args& args, const Settings& settings) {
    const std::optional<std::string> text = args.option("--slot");
    if (!text) {
        return selectedSlot(settings);
    }
    const Expected<std::size_t> slot = slotNumber(*text);
    if (!slot) {
        return fail("--slot: " + slot.error().message);
    }
    return slot;
}

Expected<std::filesystem::path> takeOut(Args& args) {
    const std::optional<std::string> file = args.option("--out");
    if (!file || file->empty()) {
        return fail("--out FILE is required");
    }
    return std::filesystem::path(*file);
}

Outcome expectNoWords(Args& args, std::string_view hint) {
    const auto words = args.words();
    if (!words) {
        return words.error();
    }
    if (!words->empty()) {
        return fail("unexpected '" + words->front() + "'" + (hint.empty() ? "" : "; ") +
                    std::string(hint));
    }
    return {};
}

std::string joinedWords(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : " ") + word;
    }
    return text;
}

} // namespace zonara
