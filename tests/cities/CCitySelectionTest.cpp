#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <gtest/gtest.h>

#include "cities/CCitySelection.h"
#include "controls/SoftKeyBar.h"
#include "core/Text.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {
namespace {

using test::sampleCity;

void press(QWidget* target, int key, const QString& text = {}) {
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(target, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(target, &up);
}

void type(QWidget* target, const QString& text) {
    for (const QChar c : text)
        press(target, c.toUpper().unicode(), QString(c));
}

QStringList rows(const QListWidget* list) {
    QStringList texts;
    for (int i = 0; i < list->count(); ++i)
        texts << list->item(i)->text();
    return texts;
}

// "Country/City" as the two lists show it, or as the dialog returned it.
std::string picked(const QDialog& dialog) {
    QStringList parts;
    for (const char* name : {"countries", "cities"}) {
        const auto* list = dialog.findChild<QListWidget*>(name);
        parts << (list && list->currentItem() ? list->currentItem()->text() : QString());
    }
    return parts.join('/').toStdString();
}

std::string chosen(const CCitySelection& dialog) {
    const auto& c = dialog.chosen();
    return c ? c->country.name + "/" + c->city.name : std::string();
}

class CCitySelectionTest : public ::testing::Test {
  protected:
    CCitySelectionTest()
        : catalog(test::writeWorld(
              dir.path(), {{"Australia", {sampleCity("Melbourne"), sampleCity("Sydney")}},
                           {"Brazil", {sampleCity("São Paulo"), sampleCity("Rio de Janeiro")}},
                           {"Canada", {sampleCity("Sydney"), sampleCity("Toronto")}},
                           {"Switzerland", {sampleCity("Zürich"), sampleCity("Geneva")}},
                           {"United Kingdom", {sampleCity("York"), sampleCity("London")}}})) {}

    template <typename T> T* child(const QDialog& dialog, const char* name) {
        T* found = dialog.findChild<T*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    ClockSlot slotAt(const char* country, const char* city) {
        ClockSlot slot;
        slot.countryName = toUtf16(country);
        slot.cityName = toUtf16(city);
        return slot;
    }

    test::TempDir dir;
    CityCatalog catalog;
};

TEST_F(CCitySelectionTest, StartsAtTheSlotsCityOrTheNearestThingLeft) {
    struct Case {
        const char *country, *city; // the slot's
        const char* at;             // where the lists start
    };
    // A city that is gone leaves its country's first city; a country that is
    // gone, the first country's. An untouched slot is London.
    const Case cases[] = {{"Canada", "Toronto", "Canada/Toronto"},
                          {"Switzerland", "Basel", "Switzerland/Zürich"},
                          {nullptr, nullptr, "United Kingdom/London"},
                          {"Atlantis", "Poseidonia", "Australia/Melbourne"}};
    for (const Case& c : cases) {
        CCitySelection dialog(catalog, 2, c.country ? slotAt(c.country, c.city) : ClockSlot{},
                              *deviceProfile(240, 320));
        EXPECT_EQ(picked(dialog), c.at);
    }
}

TEST_F(CCitySelectionTest, DoneReturnsTheCityPickedInTheLists) {
    CCitySelection dialog(catalog, 2, slotAt("Canada", "Toronto"), *deviceProfile(240, 320));
    EXPECT_TRUE(dialog.isModal());
    EXPECT_NE(dialog.windowTitle().indexOf("Clock 3"), -1) << dialog.windowTitle().toStdString();
    EXPECT_EQ(child<QLabel>(dialog, "title")->text(), dialog.windowTitle());
    auto* cities = child<QListWidget>(dialog, "cities");
    EXPECT_EQ(rows(cities), (QStringList{"Sydney", "Toronto"}));

    // The city list follows the country.
    child<QListWidget>(dialog, "countries")->setCurrentRow(1);
    EXPECT_EQ(rows(cities), (QStringList{"São Paulo", "Rio de Janeiro"}));
    EXPECT_EQ(picked(dialog), "Brazil/São Paulo");
    cities->setCurrentRow(1);
    child<QPushButton>(dialog, "done")->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(chosen(dialog), "Brazil/Rio de Janeiro");
    EXPECT_EQ(dialog.chosen()->country.id, 1);
    EXPECT_TRUE(dialog.chosen()->country.cities.empty());
}

TEST_F(CCitySelectionTest, TypedSearchPicksAHitAndEnterIsDone) {
    CCitySelection dialog(catalog, 1, ClockSlot{}, *deviceProfile(240, 320));
    dialog.show();
    auto* search = child<QLineEdit>(dialog, "search");
    auto* hits = child<QListWidget>(dialog, "hits");
    type(search, "Syd");
    EXPECT_TRUE(hits->isVisible());
    EXPECT_EQ(rows(hits), (QStringList{"Sydney, Australia", "Sydney, Canada"}));
    EXPECT_EQ(picked(dialog), "Australia/Sydney"); // the first hit is picked at once
    // The arrow keys walk the hits while typing goes on in the search field.
    press(search, Qt::Key_Down);
    EXPECT_EQ(picked(dialog), "Canada/Sydney");
    // Without a hit, one line that cannot be picked; the lists keep the last pick.
    type(search, "x");
    ASSERT_EQ(hits->count(), 1);
    EXPECT_EQ(hits->item(0)->flags(), Qt::NoItemFlags);
    EXPECT_EQ(picked(dialog), "Canada/Sydney");
    search->clear();
    EXPECT_FALSE(hits->isVisible());

    press(search, Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(chosen(dialog), "Canada/Sydney");
}

TEST_F(CCitySelectionTest, CancelAndEscapeChooseNothing) {
    for (const bool byKey : {false, true}) {
        CCitySelection dialog(catalog, 0, ClockSlot{}, *deviceProfile(240, 320));
        dialog.show();
        auto* search = child<QLineEdit>(dialog, "search");
        type(search, "syd");
        if (byKey) {
            press(search, Qt::Key_Escape);
        } else {
            // The menu holds Cancel alone.
            const QMenu* menu = dialog.softKeys()->menu();
            ASSERT_EQ(menu ? menu->actions().size() : 0, 1);
            EXPECT_EQ(menu->actions().front()->text(), "Cancel");
            menu->actions().front()->trigger();
        }
        EXPECT_EQ(dialog.result(), QDialog::Rejected) << byKey;
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_EQ(chosen(dialog), "");
    }
}

TEST_F(CCitySelectionTest, CoversItsParentWithTheSoftKeyBarAtTheBottom) {
    QWidget frame;
    frame.setGeometry(40, 30, 240, 320);
    frame.show();
    CCitySelection dialog(catalog, 0, ClockSlot{}, *deviceProfile(240, 320), &frame);
    dialog.show();
    EXPECT_EQ(dialog.geometry(), frame.geometry());

    EXPECT_TRUE(child<QPushButton>(dialog, "done")->isDefault());
    // The soft-key bar spans the bottom edge below the lists.
    const QWidget* bar = child<QWidget>(dialog, "softKeyBar");
    EXPECT_EQ(bar->geometry(), QRect(0, dialog.height() - bar->height(), 240, bar->height()));
    EXPECT_GT(bar->geometry().top(), child<QListWidget>(dialog, "cities")->geometry().bottom());
}

} // namespace
} // namespace zonara
