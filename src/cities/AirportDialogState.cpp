#include "cities/AirportDialogState.h"

namespace zonara {

AirportDialogState::AirportDialogState(std::filesystem::path file) : file(std::move(file)) {
    loaded = airports.load(this->file);
    if (airports.size() > 0) {
        show(0);
    }
}

std::vector<std::u16string> AirportDialogState::comboLines() const {
    std::vector<std::u16string> lines;
    lines.reserve(airports.size());
    for (const AirportEntry& entry : airports.entries()) {
        lines.push_back(comboLine(entry));
    }
    return lines;
}

void AirportDialogState::show(std::size_t line) {
    selected = line;
    descriptionBox = airports.entries()[line].description;
    codeBox = airports.entries()[line].code;
}

void AirportDialogState::select(std::size_t line) {
    if (line < airports.size()) {
        show(line);
    }
}

AirportProblem AirportDialogState::add() {
    NewAirport airport = checkNewAirport(descriptionBox, codeBox);
    hintLine = airportHintText(airport.problem);
    switch (airport.problem) {
    case AirportProblem::None:
        break;
    case AirportProblem::BadCode:
        focused = AirportFocus::Code;
        return airport.problem;
    case AirportProblem::NoDescription:
    case AirportProblem::DescriptionTooLong:
        focused = AirportFocus::Description;
        return airport.problem;
    }
    changed = true;
    codeBox = airport.entry.code;
    selected = airports.insertSorted(std::move(airport.entry));
    focused = AirportFocus::Combo;
    return AirportProblem::None;
}

void AirportDialogState::remove() {
    if (!selected || !airports.erase(*selected)) {
        return;
    }
    changed = true;
    if (*selected == 0) {
        selected.reset();
        descriptionBox.clear();
        codeBox.clear();
    } else {
        show(*selected - 1);
    }
}

AirportDialogEnd AirportDialogState::end(std::int32_t result) {
    AirportDialogEnd ending;
    ending.result = result;
    ending.description = descriptionBox;
    ending.code = codeBox;
    ending.saved = changed && airports.save(file);
    return ending;
}

AirportDialogEnd AirportDialogState::done() {
    const bool valid = !descriptionBox.empty() && codeBox.size() == 4;
    return end(valid ? airportDoneCommand : airportCancelCommand);
}

AirportDialogEnd AirportDialogState::cancel() {
    return end(airportCancelCommand);
}

} // namespace zonara
