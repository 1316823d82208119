#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "cities/AirportChoice.h"
#include "cities/AirportDialogState.h"
#include "core/Text.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

using Lines = std::vector<std::string>;

std::string fileFor(const std::vector<AirportEntry>& entries) {
    // Built by hand so the file keeps the order given, sorted or not.
    const auto le32 = [](std::size_t n) {
        return std::string{char(n & 0xFF), char(n >> 8 & 0xFF), 0, 0};
    };
    std::string bytes = le32(entries.size());
    for (const AirportEntry& e : entries) {
        for (const std::u16string& text : {e.description, e.code}) {
            bytes += le32(text.size());
            for (const char16_t u : text) {
                bytes += char(u & 0xFF);
                bytes += char(u >> 8);
            }
            bytes.append(2, '\0');
        }
    }
    return bytes;
}

Lines linesOf(const std::vector<std::u16string>& lines) {
    Lines out;
    for (const auto& line : lines) {
        out.push_back(toUtf8(line));
    }
    return out;
}

std::string join(const Lines& lines) {
    std::string out;
    for (const auto& line : lines) {
        out += out.empty() ? "" : ", ";
        out += line;
    }
    return out;
}

// What the dialog shows, one line: the combo lines with the selected one
// starred, the two boxes, the focus and any hint but the standing one.
std::string shown(const AirportDialogState& dialog) {
    Lines lines = linesOf(dialog.comboLines());
    if (dialog.selection()) {
        std::string starred = "*";
        starred += lines[*dialog.selection()];
        lines[*dialog.selection()] = std::move(starred);
    }
    static constexpr const char* focus[] = {"combo", "description", "code"};
    std::string out = "[";
    out += join(lines);
    out += "] ";
    out += toUtf8(dialog.description());
    out += '/';
    out += toUtf8(dialog.code());
    out += ' ';
    out += focus[int(dialog.focus())];
    if (dialog.hint() != airportStandingHint) {
        out += " \"";
        out += toUtf8(dialog.hint());
        out += '"';
    }
    return out;
}

std::string savedLines(const std::filesystem::path& file) {
    AirportList list;
    list.load(file);
    Lines out;
    for (const AirportEntry& e : list.entries()) {
        out.push_back(toUtf8(comboLine(e)));
    }
    return join(out);
}

// The user's steps, one character each, with the boxes' texts filled in from
// the row: 'd' types the next description and code pair, '0'..'9' select a
// line, 'a' Add, 'x' Delete, 'D' Done, 'C' Cancel.
TEST(AirportDialog, FollowsTheUsersStepsToTheEnd) {
    const std::vector<AirportEntry> three = {
        {u"Gatwick", u"EGKK"}, {u"Heathrow", u"EGLL"}, {u"City", u"EGLC"}};
    const std::string gatwickHeathrowCity = "Gatwick (EGKK), Heathrow (EGLL), City (EGLC)";
    struct Row {
        std::vector<AirportEntry> file;
        const char* steps;
        std::vector<AirportEntry> typed;
        const char* shows;
        std::int32_t result; // 0: the steps do not end the dialog
        std::string saved;   // the file afterwards
    };
    // clang-format off
    const Row rows[] = {
        // A trailing blank is trimmed away and the code stored upper case.
        {{}, "daD", {{u"b", u"eglc "}}, "[*b (EGLC)] b/EGLC combo", airportDoneCommand, "b (EGLC)"},
        // Unsorted: before the first greater description, wherever it is.
        {three, "daC", {{u"Biggin Hill", u"EGKB"}}, "[*Biggin Hill (EGKB), Gatwick (EGKK), Heathrow (EGLL), City (EGLC)] Biggin Hill/EGKB combo", airportCancelCommand, "Biggin Hill (EGKB), " + gatwickHeathrowCity},
        {three, "da", {{u"Guernsey", u"EGJB"}}, "[Gatwick (EGKK), *Guernsey (EGJB), Heathrow (EGLL), City (EGLC)] Guernsey/EGJB combo", 0, gatwickHeathrowCity},
        {three, "da", {{u"Luton", u"EGGW"}}, "[Gatwick (EGKK), Heathrow (EGLL), City (EGLC), *Luton (EGGW)] Luton/EGGW combo", 0, gatwickHeathrowCity},
        // Deleting the first line leaves nothing selected and empty boxes.
        {three, "xD", {}, "[Heathrow (EGLL), City (EGLC)] / combo", airportCancelCommand, "Heathrow (EGLL), City (EGLC)"},
        {three, "xxC", {}, "[Heathrow (EGLL), City (EGLC)] / combo", airportCancelCommand, "Heathrow (EGLL), City (EGLC)"},
        {three, "2x", {}, "[Gatwick (EGKK), *Heathrow (EGLL)] Heathrow/EGLL combo", 0, gatwickHeathrowCity},
        {{{u"City", u"EGLC"}}, "xD", {}, "[] / combo", airportCancelCommand, ""},
        // Done with a 3-letter code ends as Cancel does, and still saves.
        {three, "xdD", {{u"Stansted", u"EGS"}}, "[Heathrow (EGLL), City (EGLC)] Stansted/EGS combo", airportCancelCommand, "Heathrow (EGLL), City (EGLC)"},
        // Done takes the boxes as they stand, whether listed or not.
        {three, "1dadD", {{u"Stansted", u" eg "}, {u"Farnborough", u"EGLF"}}, "[Gatwick (EGKK), *Heathrow (EGLL), City (EGLC)] Farnborough/EGLF code \"Please enter a 4 letter ICAO code.\"", airportDoneCommand, gatwickHeathrowCity},
        {three, "da", {{u"", u"EGSS"}}, "[*Gatwick (EGKK), Heathrow (EGLL), City (EGLC)] /EGSS description \"Please enter a description.\"", 0, gatwickHeathrowCity},
        // A good Add after a bad one brings the standing hint back.
        {{}, "dada", {{u"Stansted", u"EGS"}, {u"Stansted", u"egss"}}, "[*Stansted (EGSS)] Stansted/EGSS combo", 0, ""},
        {three, "0aaD", {}, "[Gatwick (EGKK), Gatwick (EGKK), *Gatwick (EGKK), Heathrow (EGLL), City (EGLC)] Gatwick/EGKK combo", airportDoneCommand, "Gatwick (EGKK), Gatwick (EGKK), " + gatwickHeathrowCity},
        // A line past the end is not selected.
        {three, "17C", {}, "[Gatwick (EGKK), *Heathrow (EGLL), City (EGLC)] Heathrow/EGLL combo", airportCancelCommand, gatwickHeathrowCity},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.steps);
        test::TempDir dir;
        const auto file = dir.path() / "airport.dat";
        test::writeFile(file, fileFor(row.file));
        AirportDialogState dialog(file);
        std::optional<AirportDialogEnd> ending;
        auto typed = row.typed.begin();
        for (const char* step = row.steps; *step != 0; ++step) {
            if (*step == 'd') {
                dialog.setDescription(typed->description);
                dialog.setCode(typed->code);
                ++typed;
            } else if (*step >= '0' && *step <= '9') {
                dialog.select(std::size_t(*step - '0'));
            } else if (*step == 'a') {
                dialog.add();
            } else if (*step == 'x') {
                dialog.remove();
            } else {
                ending = *step == 'D' ? dialog.done() : dialog.cancel();
            }
        }
        EXPECT_EQ(shown(dialog), row.shows);
        EXPECT_EQ(ending ? ending->result : 0, row.result);
        if (ending) {
            EXPECT_EQ(ending->description, dialog.description());
            EXPECT_EQ(ending->code, dialog.code());
            EXPECT_EQ(ending->saved, dialog.modified());
        }
        EXPECT_EQ(savedLines(file), row.saved);
    }
}

TEST(AirportDialog, OpensOnWhateverTheFileHolds) {
    test::TempDir dir;
    const auto file = dir.path() / "airport.dat";
    {
        AirportDialogState dialog(file);
        EXPECT_EQ(dialog.fileState(), AirportFileState::Created);
        EXPECT_EQ(dialog.selection(), std::nullopt);
        EXPECT_EQ(dialog.description(), u"");
        EXPECT_EQ(dialog.hint(), airportStandingHint);
        EXPECT_EQ(dialog.done().result, airportCancelCommand);
        EXPECT_EQ(test::readFile(file), "") << "an unchanged list is not written";
    }
    // A damaged file opens with its whole entries and stays as it is until the
    // list changes.
    const std::string damaged = fileFor({{u"City", u"EGLC"}}) + "\x09";
    test::writeFile(file, damaged);
    {
        AirportDialogState dialog(file);
        EXPECT_EQ(dialog.fileState(), AirportFileState::Damaged);
        EXPECT_EQ(linesOf(dialog.comboLines()), Lines{"City (EGLC)"});
        EXPECT_EQ(dialog.code(), u"EGLC");
        dialog.cancel();
        EXPECT_EQ(test::readFile(file), damaged);
        dialog.remove();
        EXPECT_TRUE(dialog.cancel().saved);
        EXPECT_EQ(test::readFile(file), std::string(4, '\0'));
    }
}

TEST(AirportDialog, OnlyADoneWithAFourLetterCodeChangesTheSlot) {
    struct Row {
        std::int32_t result;
        std::u16string code;
        std::u16string stationCode;
    };
    const Row rows[] = {
        {airportDoneCommand, u"EGKK", u"EGKK"},
        {airportDoneCommand, u"egkk", u"EGKK"},
        {airportDoneCommand, u" eg ", u"EGLC"},
        {airportCancelCommand, u"EGKK", u"EGLC"},
    };
    for (const Row& row : rows) {
        ClockSlot slot;
        AirportDialogEnd ending;
        ending.result = row.result;
        ending.description = u"Gatwick";
        ending.code = row.code;
        EXPECT_EQ(keepChosenAirport(slot, ending), row.stationCode != u"EGLC");
        EXPECT_EQ(slot.stationCode, row.stationCode);
        EXPECT_EQ(slot.airportCode, u"LHR");
    }
}

} // namespace
} // namespace zonara
