#pragma once
// The airport dialog without its widgets: its list, combo box, edit boxes, hint line and focus.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "cities/AirportList.h"
#include "cities/NewAirport.h"

namespace zonara {

// The commands that end the dialog, and so its result.
inline constexpr std::int32_t airportDoneCommand = 32796;
inline constexpr std::int32_t airportCancelCommand = 32797;

enum class AirportFocus { Combo, Description, Code }; // an edit box gets its text selected

struct AirportDialogEnd {
    std::int32_t result = airportCancelCommand;
    std::u16string description; // the edit boxes as they were
    std::u16string code;
    bool saved = false; // the list was modified and written
};

class AirportDialogState {
  public:
    // Loads the file; the first entry, if any, is selected and shown.
    explicit AirportDialogState(std::filesystem::path file);

    AirportFileState fileState() const { return loaded; }
    const AirportList& list() const { return airports; }
    std::vector<std::u16string> comboLines() const;
    std::optional<std::size_t> selection() const { return selected; }
    const std::u16string& description() const { return descriptionBox; }
    const std::u16string& code() const { return codeBox; }
    const std::u16string& hint() const { return hintLine; }
    AirportFocus focus() const { return focused; }
    bool modified() const { return changed; }

    // The user picks a combo line (an index past the end is ignored) or types.
    void select(std::size_t line);
    void setDescription(std::u16string text) { descriptionBox = std::move(text); }
    void setCode(std::u16string text) { codeBox = std::move(text); }

    // "Add": checks the boxes and inserts in description order; on a problem
    // the hint line says it and the box at fault gets the focus.
    AirportProblem add();
    // "Delete": removes the selected line and selects the one before it; with
    // the first line gone nothing is selected and both boxes are emptied.
    void remove();
    // "Done" and "Cancel": both save a modified list. Done ends with
    // airportDoneCommand when the boxes hold a description and a 4-unit code.
    AirportDialogEnd done();
    AirportDialogEnd cancel();

  private:
    void show(std::size_t line);
    AirportDialogEnd end(std::int32_t result);

    std::filesystem::path file;
    AirportList airports;
    AirportFileState loaded;
    std::optional<std::size_t> selected;
    std::u16string descriptionBox;
    std::u16string codeBox;
    std::u16string hintLine{airportStandingHint};
    AirportFocus focused = AirportFocus::Combo;
    bool changed = false;
};

} // namespace zonara
