#include "cities/CCityDetails.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <gtest/gtest.h>

#include "cities/CCityAirport.h"
#include "cities/CityDetailsRows.h"
#include "controls/CommandIds.h"
#include "controls/SoftKeyBar.h"
#include "core/Text.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

const DstRuleList rules = {{"LastSunMar 01:00", "LastSunOct 00:59"},
                           {"FirstSunOct 02:00", "FirstSunApr 01:59"}};
const SystemTime summer = *parseIsoUtc("2026-07-01T12:00:00Z");

ClockSlot sydney() {
    ClockSlot slot;
    slot.countryName = u"Australia";
    slot.cityName = u"Sydney";
    slot.airportCode = u"SYD";
    slot.dialCode = u"+61 2";
    slot.timeZoneIndex = 255;
    slot.dstRuleIndex = 2;
    slot.longitude = 151.21f;
    slot.latitude = -33.87f;
    slot.stationCode = u"YSSY";
    return slot;
}

ClockSlot withoutRule() {
    ClockSlot slot = sydney();
    slot.cityName = u"Brisbane";
    slot.dstRuleIndex = 0;
    return slot;
}

// "label=value" for each row the list shows.
std::vector<std::string> listed(const CCityDetails& dialog) {
    std::vector<std::string> out;
    const QTableWidget* list = dialog.rowList();
    for (int i = 0; i < list->rowCount(); ++i)
        out.push_back(list->item(i, 0)->text().toStdString() + "=" +
                      list->item(i, 1)->text().toStdString());
    return out;
}

std::string valueOf(const CCityDetails& dialog, const std::string& label) {
    for (const std::string& row : listed(dialog))
        if (row.starts_with(label + "="))
            return row.substr(label.size() + 1);
    return "(none)";
}

TEST(CCityDetails, ShowsTheNameLinesAndEveryRowInOrder) {
    struct Row {
        ClockSlot city;
        const char* names;
        std::vector<std::string> someRows; // in order, among the others
        std::size_t count;
    };
    const Row rows[] = {
        {ClockSlot{},
         "London/United Kingdom",
         {"Airport Code=LHR", "ICAO=EGLC", "Dial Prefix=+44 20", "GMT offset=00:00", "DST=+01",
          "DST Starts=3/29/2026 01:00", "DST Ends=10/25/2026 02:00", "Longitude=-0.06",
          "Latitude=51.51"},
         11},
        // The southern period ends in the following year.
        {sydney(),
         "Sydney/Australia",
         {"GMT offset=+10:00", "DST=00", "DST Starts=10/4/2026 02:00", "DST Ends=4/4/2027 03:00"},
         11},
        {withoutRule(),
         "Brisbane/Australia",
         {"DST=n\\a", "Longitude=151.21", "Latitude=-33.87"},
         9},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.names);
        test::TempDir dir;
        CCityDetails dialog(row.city, summer, rules, dir.path() / "airport.dat",
                            *deviceProfile(240, 320));
        EXPECT_EQ(dialog.windowTitle(), "City Details");
        EXPECT_EQ((dialog.cityLine()->text() + "/" + dialog.countryLine()->text()).toStdString(),
                  row.names);
        const std::vector<std::string> shown = listed(dialog);
        EXPECT_EQ(shown.size(), row.count);
        auto from = shown.begin();
        for (const std::string& wanted : row.someRows) {
            const auto at = std::find(from, shown.end(), wanted);
            EXPECT_NE(at, shown.end()) << wanted;
            from = at == shown.end() ? from : at + 1;
        }
        // Sunrise and sunset close the list as the full clock would show them.
        const CityDetails details = cityDetails(row.city, summer, rules);
        EXPECT_EQ(shown[row.count - 2], "Sunrise=" + details.rows[row.count - 2].value);
        EXPECT_EQ(shown[row.count - 1], "Sunset=" + details.rows[row.count - 1].value);
        EXPECT_EQ(dialog.rowList()->columnCount(), 2);
    }
}

TEST(CCityDetails, UprightScreensGetTheTallArrangementWideOnesTheShort) {
    struct Row {
        int width, height;
        DetailsArrangement arrangement;
        int countryTop, listTop; // at 96 dpi, scaled by the profile's dpi
    };
    const Row rows[] = {
        {176, 220, DetailsArrangement::Tall, 37, 72},
        {240, 320, DetailsArrangement::Tall, 37, 72},
        {480, 640, DetailsArrangement::Tall, 74, 144},
        {220, 176, DetailsArrangement::Short, 27, 52},
        {320, 240, DetailsArrangement::Short, 27, 52},
        {640, 480, DetailsArrangement::Short, 54, 104},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::to_string(row.width) + "x" + std::to_string(row.height));
        const DeviceProfile profile = *deviceProfile(row.width, row.height);
        QWidget window;
        window.resize(profile.width, profile.height);
        test::TempDir dir;
        CCityDetails dialog(ClockSlot{}, summer, rules, dir.path() / "airport.dat", profile,
                            &window);
        dialog.show();
        QApplication::processEvents();
        EXPECT_EQ(dialog.arrangement(), row.arrangement);
        EXPECT_EQ(dialog.countryLine()->y(), row.countryTop);
        const QTableWidget* list = dialog.rowList();
        EXPECT_EQ(list->y(), row.listTop);
        EXPECT_EQ(list->width(), dialog.content()->width() - 1);
        EXPECT_EQ(list->geometry().bottom(), dialog.content()->height() - 1);
        EXPECT_EQ(list->columnWidth(0), list->width() / 2);
        // The name lines are tall enough for their text.
        for (const QLabel* line : {dialog.cityLine(), dialog.countryLine()})
            EXPECT_GE(line->height(), line->fontMetrics().height());
    }
}

TEST(CCityDetails, AirportsChosenFromTheMenuBecomeTheCitysIcaoCode) {
    struct Row {
        const char* what;
        QString description, code; // typed into the boxes; empty: left as opened
        int command;               // the key that ends the airport list
        bool chosen;
        const char* icao;
        std::string saved; // the airport file afterwards
    };
    const Row rows[] = {
        {"added", "Farnborough", "eglf", cmd::AirportAdd, true, "EGLF", "Farnborough (EGLF)"},
        {"typed only", "Northolt", "egwu", cmd::Done, true, "EGWU", ""},
        {"cancelled", "Northolt", "egwu", cmd::Cancel, false, "EGLC", ""},
        {"short code", "Northolt", "egw", cmd::Done, false, "EGLC", ""},
        {"empty list", "", "", cmd::Done, false, "EGLC", ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        test::TempDir dir;
        const auto file = dir.path() / "airport.dat";
        int opened = 0;
        const DialogRunner runner = [&](QDialog& dialog) {
            auto* airports = qobject_cast<CCityAirport*>(&dialog);
            if (airports == nullptr)
                return int(QDialog::Rejected);
            ++opened;
            airports->descriptionBox()->setText(row.description);
            airports->codeBox()->setText(row.code);
            if (row.command == cmd::AirportAdd) {
                airports->menuCommand(cmd::AirportAdd)->trigger();
                airports->softKeys()->leftButton()->click();
            } else {
                airports->runCommand(row.command);
            }
            return airports->result();
        };
        CCityDetails dialog(ClockSlot{}, summer, rules, file, *deviceProfile(240, 320), nullptr,
                            runner);
        dialog.menuCommand(cmd::Airports)->trigger();
        EXPECT_EQ(opened, 1);
        EXPECT_EQ(dialog.airportChosen(), row.chosen);
        EXPECT_EQ(valueOf(dialog, "ICAO"), row.icao);
        EXPECT_EQ(toUtf8(dialog.city().stationCode), row.icao);
        // The rest of the city stays as it was.
        ClockSlot rest = dialog.city();
        rest.stationCode = u"EGLC";
        EXPECT_EQ(rest, ClockSlot{});
        AirportList list;
        list.load(file);
        std::string lines;
        for (const AirportEntry& e : list.entries())
            lines += toUtf8(comboLine(e));
        EXPECT_EQ(lines, row.saved);
    }
}

TEST(CityDetailsLayout, PlacesTheLinesAndTheListByArrangementAndDpi) {
    struct Row {
        DetailsArrangement arrangement;
        int width, height, dpi;
        DetailsGeometry expected;
    };
    using enum DetailsArrangement;
    // clang-format off
    // Rectangles as left, top, right, bottom (exclusive).
    const Row rows[] = {
        {Tall, 240, 300, 96, {{2, 2, 238, 37}, {2, 37, 238, 72}, {0, 72, 239, 300}, 119}},
        {Short, 320, 200, 96, {{2, 2, 318, 27}, {2, 27, 318, 52}, {0, 52, 319, 200}, 159}},
        {Tall, 480, 600, 192, {{4, 4, 476, 74}, {4, 74, 476, 144}, {0, 144, 479, 600}, 239}},
        // An area too low for the list gives it no height rather than a negative one.
        {Short, 100, 40, 96, {{2, 2, 98, 27}, {2, 27, 98, 52}, {0, 40, 99, 40}, 49}},
        {Tall, 0, 0, 96, {{2, 2, 2, 37}, {2, 37, 2, 72}, {0, 0, 0, 0}, 0}},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(std::to_string(row.width) + "x" + std::to_string(row.height));
        const DetailsGeometry g = detailsGeometry(row.arrangement, row.width, row.height, row.dpi);
        EXPECT_EQ(g.cityLine, row.expected.cityLine);
        EXPECT_EQ(g.countryLine, row.expected.countryLine);
        EXPECT_EQ(g.list, row.expected.list);
        EXPECT_EQ(g.labelColumn, row.expected.labelColumn);
    }
    EXPECT_EQ(detailsArrangement(240, 320), Tall);
    EXPECT_EQ(detailsArrangement(240, 240), Tall);
    EXPECT_EQ(detailsArrangement(320, 240), Short);
}

} // namespace
} // namespace zonara
