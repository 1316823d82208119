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
    for (const QChar c : text) {
        press(target, c.toUpper().unicode(), QString(c));
    }
}

QStringList rows(const QListWidget* list) {
    QStringList texts;
    for (int i = 0; i < list->count(); ++i) {
        texts << list->item(i)->text();
    }
    return texts;
}

QString current(const QListWidget* list) {
    return list->currentItem() != nullptr ? list->currentItem()->text() : QString();
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

TEST_F(CCitySelectionTest, StartsAtTheSlotsCityAndDoneReturnsIt) {
    CCitySelection dialog(catalog, 2, slotAt("Canada", "Toronto"));
    EXPECT_TRUE(dialog.isModal());
    EXPECT_NE(dialog.windowTitle().indexOf("Clock 3"), -1) << dialog.windowTitle().toStdString();
    EXPECT_EQ(child<QLabel>(dialog, "title")->text(), dialog.windowTitle());

    auto* countries = child<QListWidget>(dialog, "countries");
    auto* cities = child<QListWidget>(dialog, "cities");
    EXPECT_EQ(rows(countries).size(), 5);
    EXPECT_EQ(current(countries), "Canada");
    EXPECT_EQ(rows(cities), (QStringList{"Sydney", "Toronto"}));
    EXPECT_EQ(current(cities), "Toronto");
    EXPECT_FALSE(child<QListWidget>(dialog, "hits")->isVisibleTo(&dialog));

    child<QPushButton>(dialog, "done")->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    ASSERT_TRUE(dialog.chosen().has_value());
    EXPECT_EQ(dialog.chosen()->country.name, "Canada");
    EXPECT_EQ(dialog.chosen()->country.id, 2);
    EXPECT_TRUE(dialog.chosen()->country.cities.empty());
    EXPECT_EQ(dialog.chosen()->city.name, "Toronto");
}

TEST_F(CCitySelectionTest, TheCityListFollowsTheCountry) {
    CCitySelection dialog(catalog, 0, ClockSlot{});
    auto* cities = child<QListWidget>(dialog, "cities");
    child<QListWidget>(dialog, "countries")->setCurrentRow(1);
    EXPECT_EQ(rows(cities), (QStringList{"São Paulo", "Rio de Janeiro"}));
    EXPECT_EQ(current(cities), "São Paulo");
    cities->setCurrentRow(1);
    child<QPushButton>(dialog, "done")->click();
    ASSERT_TRUE(dialog.chosen().has_value());
    EXPECT_EQ(dialog.chosen()->country.name, "Brazil");
    EXPECT_EQ(dialog.chosen()->city.name, "Rio de Janeiro");
}

TEST_F(CCitySelectionTest, StartsAtTheCountryOrTheFirstCountryWhenTheSlotsCityIsGone) {
    CCitySelection cityGone(catalog, 0, slotAt("Switzerland", "Basel"));
    EXPECT_EQ(current(child<QListWidget>(cityGone, "countries")), "Switzerland");
    EXPECT_EQ(current(child<QListWidget>(cityGone, "cities")), "Zürich");

    CCitySelection defaultSlot(catalog, 0, ClockSlot{}); // London, United Kingdom
    EXPECT_EQ(current(child<QListWidget>(defaultSlot, "countries")), "United Kingdom");
    EXPECT_EQ(current(child<QListWidget>(defaultSlot, "cities")), "London");
    CCitySelection nowhere(catalog, 0, slotAt("Atlantis", "Poseidonia"));
    EXPECT_EQ(current(child<QListWidget>(nowhere, "countries")), "Australia");
    EXPECT_EQ(current(child<QListWidget>(nowhere, "cities")), "Melbourne");
}

TEST_F(CCitySelectionTest, TypedSearchPicksAHitAndEnterIsDone) {
    CCitySelection dialog(catalog, 1, ClockSlot{});
    dialog.show();
    auto* search = child<QLineEdit>(dialog, "search");
    auto* hits = child<QListWidget>(dialog, "hits");
    auto* countries = child<QListWidget>(dialog, "countries");
    auto* cities = child<QListWidget>(dialog, "cities");

    type(search, "Syd");
    EXPECT_EQ(search->text(), "Syd");
    EXPECT_TRUE(hits->isVisible());
    EXPECT_EQ(rows(hits), (QStringList{"Sydney, Australia", "Sydney, Canada"}));
    // The first hit is picked at once: the lists follow it.
    EXPECT_EQ(current(countries), "Australia");
    EXPECT_EQ(current(cities), "Sydney");

    // The arrow keys walk the hits while typing goes on in the search field.
    press(search, Qt::Key_Down);
    EXPECT_EQ(hits->currentRow(), 1);
    EXPECT_EQ(current(countries), "Canada");
    EXPECT_EQ(current(cities), "Sydney");

    press(search, Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_FALSE(dialog.isVisible());
    ASSERT_TRUE(dialog.chosen().has_value());
    EXPECT_EQ(dialog.chosen()->country.name, "Canada");
    EXPECT_EQ(dialog.chosen()->city.name, "Sydney");
}

TEST_F(CCitySelectionTest, WithoutAHitTheListsKeepTheLastPick) {
    CCitySelection dialog(catalog, 0, ClockSlot{});
    dialog.show();
    auto* search = child<QLineEdit>(dialog, "search");
    auto* hits = child<QListWidget>(dialog, "hits");
    type(search, "zurich");
    EXPECT_EQ(rows(hits), (QStringList{"Zürich, Switzerland"}));

    // One line that cannot be picked.
    search->clear();
    EXPECT_FALSE(hits->isVisible());
    type(search, "xyz");
    ASSERT_EQ(hits->count(), 1);
    EXPECT_EQ(hits->item(0)->flags(), Qt::NoItemFlags);
    EXPECT_EQ(current(child<QListWidget>(dialog, "cities")), "Zürich");
}

TEST_F(CCitySelectionTest, CancelAndEscapeChooseNothing) {
    CCitySelection fromMenu(catalog, 0, ClockSlot{});
    fromMenu.show();
    type(child<QLineEdit>(fromMenu, "search"), "syd");
    QMenu* menu = child<QPushButton>(fromMenu, "menu")->menu();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 1);
    EXPECT_EQ(menu->actions().front()->text(), "Cancel");
    menu->actions().front()->trigger();
    EXPECT_EQ(fromMenu.result(), QDialog::Rejected);
    EXPECT_FALSE(fromMenu.isVisible());
    EXPECT_FALSE(fromMenu.chosen().has_value());

    CCitySelection byKey(catalog, 0, ClockSlot{});
    byKey.show();
    auto* search = child<QLineEdit>(byKey, "search");
    type(search, "tor");
    press(search, Qt::Key_Escape);
    EXPECT_FALSE(byKey.isVisible());
    EXPECT_EQ(byKey.result(), QDialog::Rejected);
    EXPECT_FALSE(byKey.chosen().has_value());
}

TEST_F(CCitySelectionTest, CoversItsParentWithTheSoftKeyBarAtTheBottom) {
    QWidget frame;
    frame.setGeometry(40, 30, 240, 320);
    frame.show();
    CCitySelection dialog(catalog, 0, ClockSlot{}, &frame);
    dialog.show();
    EXPECT_EQ(dialog.geometry(), frame.geometry());

    auto* done = child<QPushButton>(dialog, "done");
    auto* menu = child<QPushButton>(dialog, "menu");
    EXPECT_TRUE(done->isDefault());
    EXPECT_EQ(done->text(), "Done");
    EXPECT_EQ(menu->text(), "Menu");
    // The bar spans the bottom edge below everything else: Done on its left,
    // Menu on its right.
    const QWidget* bar = child<QWidget>(dialog, "softKeyBar");
    EXPECT_EQ(bar->geometry().bottom(), dialog.height() - 1);
    EXPECT_EQ(bar->width(), dialog.width());
    EXPECT_GT(bar->geometry().top(), child<QListWidget>(dialog, "cities")->geometry().bottom());
    EXPECT_LT(done->geometry().right(), bar->width() / 2);
    EXPECT_GT(menu->geometry().left(), bar->width() / 2);
}

} // namespace
} // namespace zonara
