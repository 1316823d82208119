#include "tools/CMetricCalc2.h"

#include <sstream>
#include <string>
#include <vector>

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <gtest/gtest.h>

#include "controls/CKeypad.h"
#include "controls/CommandIds.h"
#include "controls/SoftKeyBar.h"

namespace zonara {
namespace {

// Presses the pad's keys named by their faces, blank-separated ("1 2 CON"),
// as the pad sends them.
void press(CMetricCalc2& dialog, const std::string& faces) {
    std::istringstream words(faces);
    for (std::string face; words >> face;) {
        const auto index = face == "CON" ? keypadKey::convert : calculatorKeyByName(face);
        ASSERT_TRUE(index) << face;
        Q_EMIT dialog.keypad()->command(keypadCommandBase + *index);
    }
}

void chooseCategory(CMetricCalc2& dialog, UnitCategory category) {
    dialog.menuCommand(cmd::MetricCategory + int(category))->trigger();
}

// What the display line shows, without its trailing blank.
std::string shown(const CMetricCalc2& dialog) {
    QString text = dialog.keypad()->displayText();
    EXPECT_TRUE(text.endsWith(QLatin1Char(' ')));
    text.chop(1);
    return text.toStdString();
}

TEST(CMetricCalc2, KeysAndConversionsShowOnTheDisplayAndTheStatusLine) {
    enum : int { none = -1 };
    struct Case {
        UnitCategory category;
        int from, to;
        const char* keys;
        const char* display;
        const char* status;
    };
    using enum UnitCategory;
    const Case cases[] = {
        {Temperature, 2, 1, "2 1 2 CON", "100.00000762939453", "100.0000076 (°C)"},
        // "n\a" until the next key, which goes on from the number that was there.
        {Weight, 0, 2, "5 CON", "n\\a", ""},
        {Weight, 3, 5, "5 CON + 1 =", "6", ""},
        // Without both units chosen the key does nothing.
        {Distance, none, 1, "7 CON", "7", ""},
        // The converted number is the calculator's; the status line clears
        // with the next key.
        {Speed, 0, 1, "1 2 CON + 1 =", "44.2", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(categoryName(c.category)) + ": " + c.keys);
        CMetricCalc2 dialog(*deviceProfile(240, 320));
        chooseCategory(dialog, c.category);
        dialog.fromList()->setCurrentIndex(c.from);
        dialog.toList()->setCurrentIndex(c.to);
        press(dialog, c.keys);
        EXPECT_EQ(shown(dialog), c.display);
        EXPECT_EQ(dialog.status().toStdString(), c.status);
    }
}

TEST(CMetricCalc2, CategoriesAreARadioGroupThatRefillsTheLists) {
    CMetricCalc2 dialog(*deviceProfile(480, 640));
    const QList<QAction*> items = dialog.categoryItems()->actions();
    ASSERT_EQ(items.size(), unitCategoryCount);
    for (int i = 0; i < unitCategoryCount; ++i) {
        EXPECT_EQ(items[i]->text().toStdString(), unitCategoryNames[std::size_t(i)]);
        EXPECT_EQ(dialog.menuCommand(cmd::MetricCategory + i), items[i]);
    }
    // It opens on the first category with neither unit chosen.
    EXPECT_EQ(dialog.categoryItems()->checkedAction(), items[0]);
    EXPECT_EQ(dialog.categoryLabel()->text(), QStringLiteral("Distance"));
    EXPECT_EQ(dialog.fromList()->currentIndex(), -1);

    // Another category refills both lists with nothing chosen; the number stays.
    chooseCategory(dialog, UnitCategory::Weight);
    dialog.fromList()->setCurrentIndex(1);
    dialog.toList()->setCurrentIndex(0);
    press(dialog, "3 CON");
    chooseCategory(dialog, UnitCategory::Volume);
    const UnitTables tables;
    const CTable& volume = tables.table(UnitCategory::Volume);
    EXPECT_EQ(dialog.categoryLabel()->text(), QStringLiteral("Volume"));
    EXPECT_EQ(dialog.categoryItems()->checkedAction(), items[int(UnitCategory::Volume)]);
    for (QComboBox* list : {dialog.fromList(), dialog.toList()}) {
        ASSERT_EQ(list->count(), volume.UnitCount());
        EXPECT_EQ(list->itemText(6).toStdString(), volume.UnitName(6));
        EXPECT_EQ(list->currentIndex(), -1);
    }
    press(dialog, "CON");
    EXPECT_EQ(shown(dialog), "3000");
    // Its units convert with its own factors.
    dialog.fromList()->setCurrentIndex(0);
    dialog.toList()->setCurrentIndex(1);
    press(dialog, "CON");
    EXPECT_EQ(dialog.status(), QStringLiteral("3000000 (cc)"));
}

void typeKey(QWidget* target, int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent down(QEvent::KeyPress, code, modifiers);
    QApplication::sendEvent(target, &down);
    QKeyEvent up(QEvent::KeyRelease, code, modifiers);
    QApplication::sendEvent(target, &up);
}

TEST(CMetricCalc2, TypedKeysReachThePadWhereverTheyLand) {
    CMetricCalc2 dialog(*deviceProfile(320, 240));
    dialog.show();
    chooseCategory(dialog, UnitCategory::Distance);
    dialog.fromList()->setCurrentIndex(0);
    // Keys sent to a unit list are the pad's, not a search in the list: the
    // list keeps its choice and the sum is typed.
    typeKey(dialog.fromList(), Qt::Key_1);
    typeKey(dialog.fromList(), Qt::Key_2);
    typeKey(dialog.toList(), Qt::Key_8, Qt::ShiftModifier);
    typeKey(&dialog, Qt::Key_3);
    typeKey(&dialog, Qt::Key_Equal);
    EXPECT_EQ(shown(dialog), "36");
    EXPECT_EQ(dialog.fromList()->currentIndex(), 0);
    // Enter neither closes the converter nor counts as a key.
    typeKey(&dialog, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(shown(dialog), "36");
    // Arrows still move through a list.
    typeKey(dialog.fromList(), Qt::Key_Down);
    EXPECT_EQ(dialog.fromList()->currentIndex(), 1);
}

TEST(CMetricCalc2, EveryScreenHoldsTheListsAndThePadWithoutOverlap) {
    for (const auto& [w, h] :
         {std::pair{176, 220}, {240, 320}, {480, 640}, {220, 176}, {320, 240}, {640, 480}}) {
        SCOPED_TRACE(std::to_string(w) + "x" + std::to_string(h));
        CMetricCalc2 dialog(*deviceProfile(w, h));
        dialog.show();
        // Nothing pushes the dialog beyond the screen.
        EXPECT_EQ(dialog.size(), QSize(w, h + dialog.softKeys()->height()));
        const QRect area = dialog.content()->rect();
        const auto inArea = [&](const QWidget* widget) {
            return QRect(widget->mapTo(dialog.content(), QPoint(0, 0)), widget->size());
        };
        const QRect pad = inArea(dialog.keypad());
        const QRect label = inArea(dialog.categoryLabel());
        const QRect from = inArea(dialog.fromList());
        const QRect to = inArea(dialog.toList());
        EXPECT_EQ(pad.size(),
                  QSize(dialog.keypad()->layout().width, dialog.keypad()->layout().height));
        const std::vector<QRect> parts = {pad, label, from, to};
        for (std::size_t i = 0; i < parts.size(); ++i) {
            EXPECT_TRUE(area.contains(parts[i])) << i;
            for (std::size_t j = i + 1; j < parts.size(); ++j)
                EXPECT_FALSE(parts[i].intersects(parts[j])) << i << " " << j;
        }
        // The unit lists are tall enough for their text and wide enough for
        // more than a few letters.
        const int line = dialog.fromList()->fontMetrics().height();
        EXPECT_GE(from.height(), line);
        EXPECT_GE(from.width(), 4 * line);
        // Every category's name fits its label whole.
        const QFontMetrics title = dialog.categoryLabel()->fontMetrics();
        EXPECT_GE(label.height(), title.height());
        for (const std::string_view name : unitCategoryNames)
            EXPECT_LE(
                title.horizontalAdvance(QString::fromUtf8(name.data(), qsizetype(name.size()))),
                label.width())
                << name;
    }
}

} // namespace
} // namespace zonara
