#include "cities/CCityAirport.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <gtest/gtest.h>

#include "controls/CommandIds.h"
#include "controls/SoftKeyBar.h"
#include "core/Text.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

void press(QWidget* target, int key, const QString& text = {}) {
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(target, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(target, &up);
}

// Replaces a box's text the way a user does: select all, then type.
void typeInto(QLineEdit* box, const QString& text) {
    box->selectAll();
    press(box, Qt::Key_Backspace);
    for (const QChar c : text)
        press(box, c.toUpper().unicode(), QString(c));
}

// A list file with the entries in the order given, sorted or not.
void writeList(const std::filesystem::path& file, const std::vector<AirportEntry>& entries) {
    std::string bytes(4, '\0');
    bytes[0] = char(entries.size());
    for (const AirportEntry& entry : entries) {
        AirportList one;
        one.insertSorted(entry);
        bytes += one.encode().substr(4);
    }
    test::writeFile(file, bytes);
}

// The combo box with its current line starred, the boxes, the widget with
// the focus and, when it is not the standing one, the hint line.
std::string shown(const CCityAirport& dialog) {
    std::string out = "[";
    const QComboBox* combo = dialog.airportBox();
    for (int i = 0; i < combo->count(); ++i) {
        out += i == 0 ? "" : ", ";
        out += i == combo->currentIndex() ? "*" : "";
        out += combo->itemText(i).toStdString();
    }
    out += "] " + dialog.descriptionBox()->text().toStdString() + "/" +
           dialog.codeBox()->text().toStdString() + " " +
           (dialog.focusWidget() ? dialog.focusWidget()->objectName().toStdString() : "-");
    if (dialog.hintLine()->text() != QString::fromStdU16String(std::u16string(airportStandingHint)))
        out += " \"" + dialog.hintLine()->text().toStdString() + "\"";
    return out;
}

std::string savedLines(const std::filesystem::path& file) {
    AirportList list;
    list.load(file);
    std::string out;
    for (const AirportEntry& e : list.entries())
        out += (out.empty() ? "" : ", ") + toUtf8(comboLine(e));
    return out;
}

const std::vector<AirportEntry> three = {
    {u"Gatwick", u"EGKK"}, {u"Heathrow", u"EGLL"}, {u"City", u"EGLC"}};
const std::string threeLines = "Gatwick (EGKK), Heathrow (EGLL), City (EGLC)";

// Steps, one character each: 't' types the next description and code,
// '0'..'9' pick a combo line, 'a' Add and 'x' Delete from the menu, 'D' the
// Done key, 'C' Cancel from the menu, 'E' the Escape key.
TEST(CCityAirport, SoftKeysAndMenuWorkTheListAndEndWithTheCommand) {
    struct Row {
        std::vector<AirportEntry> file;
        const char* steps;
        std::vector<std::pair<QString, QString>> typed;
        const char* shows;
        int result; // 0: still open
        std::string saved;
    };
    // clang-format off
    const Row rows[] = {
        // A trailing blank goes, the code is stored upper case.
        {{}, "taD", {{"b", "eglc "}}, "[*b (EGLC)] b/EGLC airports", cmd::Done, "b (EGLC)"},
        // An unsorted list: in before the first greater description, wherever it is.
        {three, "taC", {{"Guernsey", "egjb"}}, "[Gatwick (EGKK), *Guernsey (EGJB), Heathrow (EGLL), City (EGLC)] Guernsey/EGJB airports", cmd::Cancel, "Gatwick (EGKK), Guernsey (EGJB), Heathrow (EGLL), City (EGLC)"},
        {three, "ta", {{"Biggin Hill", "EGKB"}}, "[*Biggin Hill (EGKB), Gatwick (EGKK), Heathrow (EGLL), City (EGLC)] Biggin Hill/EGKB airports", 0, threeLines},
        // Deleting the first of three leaves no line selected and the boxes empty.
        {three, "xC", {}, "[Heathrow (EGLL), City (EGLC)] / airports", cmd::Cancel, "Heathrow (EGLL), City (EGLC)"},
        {three, "2x", {}, "[Gatwick (EGKK), *Heathrow (EGLL)] Heathrow/EGLL airports", 0, threeLines},
        // Done with a 3-letter code ends as Cancel does, and still saves.
        {three, "xtD", {{"Stansted", "EGS"}}, "[Heathrow (EGLL), City (EGLC)] Stansted/EGS airports", cmd::Cancel, "Heathrow (EGLL), City (EGLC)"},
        // Escape saves a changed list too.
        {three, "1xE", {}, "[*Gatwick (EGKK), City (EGLC)] Gatwick/EGKK airports", cmd::Cancel, "Gatwick (EGKK), City (EGLC)"},
        // Picking a line fills the boxes; Done with them needs no change to the list.
        {three, "2D", {}, "[Gatwick (EGKK), Heathrow (EGLL), *City (EGLC)] City/EGLC airports", cmd::Done, threeLines},
        // The code box holds four characters; Done takes the boxes as typed.
        {three, "tD", {{"Luton", "eggwx"}}, "[*Gatwick (EGKK), Heathrow (EGLL), City (EGLC)] Luton/eggw airports", cmd::Done, threeLines},
        // Refusals say why in the hint line and hand the box at fault the focus.
        {three, "ta", {{"", "EGSS"}}, "[*Gatwick (EGKK), Heathrow (EGLL), City (EGLC)] /EGSS description \"Please enter a description.\"", 0, threeLines},
        {{}, "ta", {{"Stansted", " egs"}}, "[] Stansted/ egs code \"Please enter a 4 letter ICAO code.\"", 0, ""},
        {{}, "tata", {{"Stansted", "egs"}, {"Stansted", "egss"}}, "[*Stansted (EGSS)] Stansted/EGSS airports", 0, ""},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.steps);
        test::TempDir dir;
        const auto file = dir.path() / "airport.dat";
        writeList(file, row.file);
        const std::string before = test::readFile(file);
        CCityAirport dialog(file, *deviceProfile(240, 320));
        dialog.show();
        auto typed = row.typed.begin();
        for (const char* step = row.steps; *step != 0; ++step) {
            switch (*step) {
            case 't':
                typeInto(dialog.descriptionBox(), typed->first);
                typeInto(dialog.codeBox(), typed->second);
                ++typed;
                break;
            case 'a':
                dialog.menuCommand(cmd::AirportAdd)->trigger();
                break;
            case 'x':
                dialog.menuCommand(cmd::AirportDelete)->trigger();
                break;
            case 'D':
                dialog.softKeys()->leftButton()->click();
                break;
            case 'C':
                dialog.menuCommand(cmd::Cancel)->trigger();
                break;
            case 'E':
                press(&dialog, Qt::Key_Escape);
                break;
            default:
                dialog.airportBox()->setCurrentIndex(*step - '0');
            }
        }
        EXPECT_EQ(shown(dialog), row.shows);
        EXPECT_EQ(dialog.isVisible(), row.result == 0);
        if (row.result != 0) {
            EXPECT_EQ(dialog.result(), row.result);
            EXPECT_EQ(dialog.ending().result, row.result);
            EXPECT_EQ(dialog.ending().code, dialog.codeBox()->text().toStdU16String());
        }
        EXPECT_EQ(savedLines(file), row.saved);
        // A list that did not change is not written again.
        if (!dialog.state().modified()) {
            EXPECT_EQ(test::readFile(file), before);
        }
    }
}

TEST(CCityAirport, WritesTheFileByteForByteAndCreatesAMissingOne) {
    test::TempDir dir;
    const auto file = dir.path() / "airport.dat";
    {
        CCityAirport dialog(file, *deviceProfile(176, 220));
        EXPECT_EQ(test::readFile(file), "") << "opening creates the file empty";
        EXPECT_TRUE(std::filesystem::exists(file));
        typeInto(dialog.descriptionBox(), "b");
        typeInto(dialog.codeBox(), "eglc ");
        dialog.menuCommand(cmd::AirportAdd)->trigger();
        dialog.runCommand(cmd::Done);
    }
    using namespace std::string_literals;
    EXPECT_EQ(test::readFile(file), "\x01\0\0\0"s
                                    "\x01\0\0\0b\0\0\0"s
                                    "\x04\0\0\0E\0G\0L\0C\0\0\0"s);
}

TEST(CCityAirport, EditBoxesSelectAllTheirTextOnFocusAndKeepTheirLimits) {
    test::TempDir dir;
    const auto file = dir.path() / "airport.dat";
    writeList(file, three);
    CCityAirport dialog(file, *deviceProfile(480, 640));
    dialog.show();
    EXPECT_EQ(dialog.windowTitle(), "Airport");
    EXPECT_EQ(dialog.focusWidget(), dialog.airportBox());
    EXPECT_EQ(dialog.descriptionBox()->maxLength(), 255);
    EXPECT_EQ(dialog.codeBox()->maxLength(), 4);
    for (QLineEdit* box : {dialog.descriptionBox(), dialog.codeBox()}) {
        for (const Qt::FocusReason reason : {Qt::MouseFocusReason, Qt::TabFocusReason}) {
            box->deselect();
            QFocusEvent in(QEvent::FocusIn, reason);
            QApplication::sendEvent(box, &in);
            QApplication::processEvents();
            EXPECT_EQ(box->selectedText(), box->text()) << box->objectName().toStdString();
        }
    }
    // The menu holds Add, Delete, a separator and Cancel; Done is the left key.
    QStringList items;
    for (const QAction* item : dialog.softKeys()->menu()->actions())
        items << (item->isSeparator() ? "-" : item->text());
    EXPECT_EQ(items, (QStringList{"Add", "Delete", "-", "Cancel"}));
    EXPECT_EQ(dialog.softKeys()->leftButton()->text(), "Done");
    EXPECT_EQ(dialog.leftKeyCommand(), cmd::Done);
}

} // namespace
} // namespace zonara
