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
#include <QMouseEvent>
#include <gtest/gtest.h>

#include "controls/CKeypad.h"
#include "controls/CommandIds.h"
#include "controls/SoftKeyBar.h"

namespace zonara {
namespace {

QPoint centre(const PixelRect& r) {
    return {(r.left + r.right) / 2, (r.top + r.bottom) / 2};
}

void mouse(CKeypad& pad, QEvent::Type type, QPoint at) {
    QMouseEvent event(type, QPointF(at), pad.mapToGlobal(QPointF(at)), Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&pad, &event);
}

// Clicks the pad's keys named by their faces, blank-separated ("1 2 CON").
void press(CMetricCalc2& dialog, const std::string& faces) {
    std::istringstream words(faces);
    std::string face;
    while (words >> face) {
        // The conversion key is the converter's, not the calculator's.
        const auto index = face == "CON" ? keypadKey::convert : calculatorKeyByName(face);
        ASSERT_TRUE(index) << face;
        const QPoint at = centre(dialog.keypad()->layout().keys[std::size_t(*index)]);
        mouse(*dialog.keypad(), QEvent::MouseButtonPress, at);
        mouse(*dialog.keypad(), QEvent::MouseButtonRelease, at);
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
        {Length, 3, 2, "1 CON", "0.02539998628401", "0.0254000 (m)"},
        {Angle, 1, 2, "1 8 0 CON", "180", "180 grads"},
        {Angle, 2, 1, "4 5 CON", "0", "0 (deg)"},
        // A pair that cannot convert: "n\a" until the next key, which goes on
        // from the number that was there.
        {Weight, 0, 2, "5 CON", "n\\a", ""},
        {Weight, 3, 5, "5 CON + 1 =", "6", ""},
        {Volume, 1, 2, "7 CON «", "0", ""},
        // Without both units chosen the key does nothing.
        {Distance, none, 1, "7 CON", "7", ""},
        {Distance, 0, none, "7 CON", "7", ""},
        // The converted number is the calculator's to go on with; the status
        // line clears with the next key.
        {Speed, 0, 1, "1 2 CON + 1 =", "44.2", ""},
        {Pressure, 4, 0, "2 x 3 = CON", "41.34096", "41.3409600 (kPa)"},
        {Area, 1, 4, "MC 1 M+ C MR CON", "2.46914", "2.4691400 acres"},
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
    UnitTables tables;
    for (int i = 0; i < unitCategoryCount; ++i) {
        EXPECT_EQ(items[i]->text().toStdString(), unitCategoryNames[std::size_t(i)]);
        EXPECT_EQ(dialog.menuCommand(cmd::MetricCategory + i), items[i]);
    }
    // It opens on the first category with neither unit chosen.
    EXPECT_EQ(dialog.categoryItems()->checkedAction(), items[0]);
    EXPECT_EQ(dialog.categoryLabel()->text(), QStringLiteral("Distance"));
    EXPECT_EQ(dialog.fromList()->currentIndex(), -1);

    // A category with units chosen and a number converted; then another one.
    chooseCategory(dialog, UnitCategory::Weight);
    dialog.fromList()->setCurrentIndex(1);
    dialog.toList()->setCurrentIndex(0);
    press(dialog, "3 CON");
    EXPECT_EQ(shown(dialog), "3000");
    for (const UnitCategory category : {UnitCategory::Torque, UnitCategory::Volume}) {
        chooseCategory(dialog, category);
        const CTable& table = tables.table(category);
        EXPECT_EQ(dialog.categoryLabel()->text().toStdString(), categoryName(category));
        EXPECT_EQ(dialog.categoryItems()->checkedAction(), items[int(category)]);
        for (QComboBox* list : {dialog.fromList(), dialog.toList()}) {
            ASSERT_EQ(list->count(), table.UnitCount());
            for (int unit = 0; unit < table.UnitCount(); ++unit)
                EXPECT_EQ(list->itemText(unit).toStdString(), table.UnitName(unit));
            EXPECT_EQ(list->currentIndex(), -1);
        }
        // The number stays; with the lists empty CON leaves it alone.
        press(dialog, "CON");
        EXPECT_EQ(shown(dialog), "3000");
    }
    // Volume's units convert after the switch, with Volume's factors.
    dialog.fromList()->setCurrentIndex(0);
    dialog.toList()->setCurrentIndex(1);
    press(dialog, "CON");
    EXPECT_EQ(shown(dialog), "3000000");
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

bool inside(const QRect& outer, const QRect& inner) {
    return outer.contains(inner.topLeft()) && outer.contains(inner.bottomRight());
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
        for (const QRect& r : {pad, label, from, to})
            EXPECT_TRUE(inside(area, r))
                << r.x() << "," << r.y() << " " << r.width() << "x" << r.height();
        const std::vector<QRect> parts = {pad, label, from, to};
        for (std::size_t i = 0; i < parts.size(); ++i)
            for (std::size_t j = i + 1; j < parts.size(); ++j)
                EXPECT_FALSE(parts[i].intersects(parts[j])) << i << " " << j;
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
