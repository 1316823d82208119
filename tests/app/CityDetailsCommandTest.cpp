#include <gtest/gtest.h>

#include <QAction>
#include <QLineEdit>
#include <QTableWidget>

#include "app/frame/CMainFrame.h"
#include "cities/CCityAirport.h"
#include "cities/CCityDetails.h"
#include "controls/CommandIds.h"
#include "core/Text.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {
namespace {

// The ICAO row as the details showed it when the airport list closed.
std::string icaoRow(const CCityDetails& details) {
    const QTableWidget* rows = details.rowList();
    for (int i = 0; i < rows->rowCount(); ++i)
        if (rows->item(i, 0)->text() == "ICAO")
            return rows->item(i, 1)->text().toStdString();
    return "(none)";
}

TEST(CityDetailsCommand, AnAirportPickedFromTheDetailsIsSavedForTheSelectedSlot) {
    struct Row {
        const char* code; // typed into the airport list, then Done
        int selectedSlot;
        const char* icao; // the details' ICAO row afterwards
        bool saved;       // the settings file holds the new code
    };
    const Row rows[] = {
        {"egkk", 0, "EGKK", true},
        {"egss", 2, "EGSS", true},
        {"egs", 1, "EGLC", false}, // Done with a short code picks nothing
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.code);
        test::TempDir dir;
        const Paths paths =
            test::writeWorld(dir.path(), {{"United Kingdom", {test::sampleCity("London")}}});
        test::writeRules(paths);
        Settings start;
        start.selectedSlot = row.selectedSlot;
        ASSERT_TRUE(start.Save(paths.dataFile("settings.dat")));
        CMainFrame frame(paths, ClockSource::fixedAt(*parseIsoUtc("2026-07-01T12:00:00Z")),
                         *deviceProfile(240, 320));
        std::vector<std::string> ran;
        std::string shown;
        frame.services.runDialog = [&](QDialog& dialog) {
            ran.push_back(dialog.metaObject()->className());
            if (auto* details = qobject_cast<CCityDetails*>(&dialog)) {
                details->menuCommand(cmd::Airports)->trigger();
                shown = icaoRow(*details);
                details->runCommand(cmd::Done);
            } else if (auto* airports = qobject_cast<CCityAirport*>(&dialog)) {
                airports->descriptionBox()->setText("Somewhere");
                airports->codeBox()->setText(row.code);
                airports->runCommand(cmd::Done);
            }
            return dialog.result();
        };
        frame.deferredStart();
        frame.onCommand(cmd::CityDetails);

        EXPECT_EQ(ran, (std::vector<std::string>{"zonara::CCityDetails", "zonara::CCityAirport"}));
        EXPECT_EQ(shown, row.icao);
        Settings saved;
        saved.Load(paths.dataFile("settings.dat"));
        for (int slot = 0; slot < 4; ++slot) {
            const bool picked = row.saved && slot == row.selectedSlot;
            EXPECT_EQ(toUtf8(frame.settings().slots[slot].stationCode), picked ? row.icao : "EGLC");
            EXPECT_EQ(toUtf8(saved.slots[slot].stationCode), picked ? row.icao : "EGLC") << slot;
        }
    }
}

} // namespace
} // namespace zonara
