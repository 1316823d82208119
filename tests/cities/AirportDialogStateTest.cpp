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

enum class Op { Type, Select, Add, Delete, Done, Cancel };

struct Step {
    Op op;
    std::u16string description = {};
    std::u16string code = {};
    std::size_t line = 0;
};

Step type(std::u16string description, std::u16string code) {
    return {Op::Type, std::move(description), std::move(code)};
}
Step select(std::size_t line) {
    return {Op::Select, {}, {}, line};
}
const Step add{Op::Add};
const Step erase{Op::Delete};
const Step done{Op::Done};
const Step cancel{Op::Cancel};

std::string fileFor(const std::vector<AirportEntry>& entries) {
    std::string bytes;
    // Built by hand so the file keeps the order given, sorted or not.
    const auto le32 = [](std::size_t n) {
        return std::string{char(n & 0xFF), char(n >> 8 & 0xFF), 0, 0};
    };
    const auto field = [&](std::u16string_view text) {
        std::string out = le32(text.size());
        for (const char16_t u : text) {
            out += char(u & 0xFF);
            out += char(u >> 8);
        }
        out.append(2, '\0');
        return out;
    };
    bytes = le32(entries.size());
    for (const AirportEntry& e : entries) {
        bytes += field(e.description);
        bytes += field(e.code);
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

Lines fileLines(const std::filesystem::path& file) {
    AirportList list;
    list.load(file);
    Lines out;
    for (const AirportEntry& e : list.entries()) {
        out.push_back(toUtf8(comboLine(e)));
    }
    return out;
}

const std::vector<AirportEntry> three = {
    {u"Gatwick", u"EGKK"}, {u"Heathrow", u"EGLL"}, {u"City", u"EGLC"}};

// Each row opens the dialog on a file, takes the user's steps and checks what
// the dialog then shows, how it ended and what the file holds.
TEST(AirportDialog, FollowsTheUsersStepsToTheEnd) {
    struct Row {
        const char* what;
        std::vector<AirportEntry> file;
        std::vector<Step> steps;
        Lines lines;
        std::optional<std::size_t> selection;
        std::string description;
        std::string code;
        std::string hint;
        AirportFocus focus;
        std::optional<std::int32_t> result; // when the steps end the dialog
        Lines saved;                        // the file afterwards
    };
    const std::string standing = toUtf8(airportStandingHint);
    const Lines threeLines = {"Gatwick (EGKK)", "Heathrow (EGLL)", "City (EGLC)"};
    const Row rows[] = {
        {"code with a trailing blank is stored upper case",
         {},
         {type(u"b", u"eglc "), add, done},
         {"b (EGLC)"},
         0,
         "b",
         "EGLC",
         standing,
         AirportFocus::Combo,
         airportDoneCommand,
         {"b (EGLC)"}},
        {"unsorted file: before the first greater description",
         three,
         {type(u"Biggin Hill", u"EGKB"), add, cancel},
         {"Biggin Hill (EGKB)", "Gatwick (EGKK)", "Heathrow (EGLL)", "City (EGLC)"},
         0,
         "Biggin Hill",
         "EGKB",
         standing,
         AirportFocus::Combo,
         airportCancelCommand,
         {"Biggin Hill (EGKB)", "Gatwick (EGKK)", "Heathrow (EGLL)", "City (EGLC)"}},
        {"unsorted file: past the smaller ones",
         three,
         {type(u"Guernsey", u"EGJB"), add},
         {"Gatwick (EGKK)", "Guernsey (EGJB)", "Heathrow (EGLL)", "City (EGLC)"},
         1,
         "Guernsey",
         "EGJB",
         standing,
         AirportFocus::Combo,
         std::nullopt,
         threeLines},
        {"unsorted file: a smaller one after the greater ones does not count",
         three,
         {type(u"Luton", u"EGGW"), add},
         {"Gatwick (EGKK)", "Heathrow (EGLL)", "City (EGLC)", "Luton (EGGW)"},
         3,
         "Luton",
         "EGGW",
         standing,
         AirportFocus::Combo,
         std::nullopt,
         threeLines},
        {"deleting the first of three leaves nothing selected",
         three,
         {erase, done},
         {"Heathrow (EGLL)", "City (EGLC)"},
         std::nullopt,
         "",
         "",
         standing,
         AirportFocus::Combo,
         airportCancelCommand,
         {"Heathrow (EGLL)", "City (EGLC)"}},
        {"done with a 3-letter code ends as cancel but saves",
         three,
         {erase, type(u"Stansted", u"EGS"), done},
         {"Heathrow (EGLL)", "City (EGLC)"},
         std::nullopt,
         "Stansted",
         "EGS",
         standing,
         AirportFocus::Combo,
         airportCancelCommand,
         {"Heathrow (EGLL)", "City (EGLC)"}},
        {"deleting a later line shows the one before",
         three,
         {select(2), erase},
         {"Gatwick (EGKK)", "Heathrow (EGLL)"},
         1,
         "Heathrow",
         "EGLL",
         standing,
         AirportFocus::Combo,
         std::nullopt,
         threeLines},
        {"delete with nothing selected does nothing",
         three,
         {erase, erase, cancel},
         {"Heathrow (EGLL)", "City (EGLC)"},
         std::nullopt,
         "",
         "",
         standing,
         AirportFocus::Combo,
         airportCancelCommand,
         {"Heathrow (EGLL)", "City (EGLC)"}},
        {"the last line deleted",
         {{u"City", u"EGLC"}},
         {erase, done},
         {},
         std::nullopt,
         "",
         "",
         standing,
         AirportFocus::Combo,
         airportCancelCommand,
         {}},
        {"no description",
         three,
         {type(u"", u"EGSS"), add},
         threeLines,
         0,
         "",
         "EGSS",
         "Please enter a description.",
         AirportFocus::Description,
         std::nullopt,
         threeLines},
        {"a bad code, then a good one restores the hint",
         {},
         {type(u"Stansted", u"EGS"), add, type(u"Stansted", u"egss"), add},
         {"Stansted (EGSS)"},
         0,
         "Stansted",
         "EGSS",
         standing,
         AirportFocus::Combo,
         std::nullopt,
         {}},
        {"a bad code keeps the list; done takes the boxes as they stand",
         three,
         {select(1), type(u"Stansted", u" eg "), add, done},
         threeLines,
         1,
         "Stansted",
         " eg ",
         "Please enter a 4 letter ICAO code.",
         AirportFocus::Code,
         airportDoneCommand,
         threeLines},
        {"duplicates are accepted",
         three,
         {select(0), add, add, done},
         {"Gatwick (EGKK)", "Gatwick (EGKK)", "Gatwick (EGKK)", "Heathrow (EGLL)", "City (EGLC)"},
         2,
         "Gatwick",
         "EGKK",
         standing,
         AirportFocus::Combo,
         airportDoneCommand,
         {"Gatwick (EGKK)", "Gatwick (EGKK)", "Gatwick (EGKK)", "Heathrow (EGLL)", "City (EGLC)"}},
        {"selecting shows a line; a line past the end is ignored",
         three,
         {select(1), select(7), done},
         threeLines,
         1,
         "Heathrow",
         "EGLL",
         standing,
         AirportFocus::Combo,
         airportDoneCommand,
         threeLines},
        {"done with a typed entry that is not in the list",
         three,
         {type(u"Farnborough", u"EGLF"), done},
         threeLines,
         0,
         "Farnborough",
         "EGLF",
         standing,
         AirportFocus::Combo,
         airportDoneCommand,
         threeLines},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        test::TempDir dir;
        const auto file = dir.path() / "airport.dat";
        test::writeFile(file, fileFor(row.file));
        AirportDialogState dialog(file);
        std::optional<AirportDialogEnd> ending;
        for (const Step& step : row.steps) {
            switch (step.op) {
            case Op::Type:
                dialog.setDescription(step.description);
                dialog.setCode(step.code);
                break;
            case Op::Select:
                dialog.select(step.line);
                break;
            case Op::Add:
                dialog.add();
                break;
            case Op::Delete:
                dialog.remove();
                break;
            case Op::Done:
                ending = dialog.done();
                break;
            case Op::Cancel:
                ending = dialog.cancel();
                break;
            }
        }
        EXPECT_EQ(linesOf(dialog.comboLines()), row.lines);
        EXPECT_EQ(dialog.selection(), row.selection);
        EXPECT_EQ(toUtf8(dialog.description()), row.description);
        EXPECT_EQ(toUtf8(dialog.code()), row.code);
        EXPECT_EQ(toUtf8(dialog.hint()), row.hint);
        EXPECT_EQ(dialog.focus(), row.focus);
        EXPECT_EQ(ending ? std::optional(ending->result) : std::nullopt, row.result);
        if (ending) {
            EXPECT_EQ(toUtf8(ending->description), row.description);
            EXPECT_EQ(toUtf8(ending->code), row.code);
            EXPECT_EQ(ending->saved, dialog.modified());
        }
        EXPECT_EQ(fileLines(file), row.saved);
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
