#include "net/CCurrencyCalc2Dlg.h"

#include <condition_variable>
#include <filesystem>
#include <functional>
#include <mutex>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

#include <QComboBox>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QThread>
#include <gtest/gtest.h>

#include "CurrencyTestDocuments.h"
#include "controls/CKeypad.h"
#include "controls/CommandIds.h"
#include "controls/KeypadKeyIndex.h"
#include "controls/SoftKeyBar.h"
#include "net/CurrencyFiles.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

using test::TempDir;
using test::writeFile;

const CurrencyList stored = {u"3/14/2025 9:05 AM",
                             {
                                 {u"Euro", u"EUR", -1.0f},
                                 {u"Pound Sterling", u"GBP", 0.8358f},
                                 {u"US Dollar", u"USD", 1.5f},
                                 {u"Yen", u"JPY", 160.5f},
                             }};

const std::string ratesXml = test::ratesDocument("\t\t\t<Cube currency='USD' rate='1.25'/>\n"
                                                 "\t\t\t<Cube currency='CHF' rate='0.96'/>\n");

const std::string codesXml = test::codeListDocument({{"USD", "US Dollar"}, {"CHF", "Swiss Franc"}});

// Runs the event loop until `done` holds, within a bounded number of rounds.
bool waitFor(const std::function<bool()>& done) {
    for (int round = 0; round < 2000 && !done(); ++round) {
        QCoreApplication::processEvents();
        QThread::msleep(5);
    }
    QCoreApplication::processEvents();
    return done();
}

// A root folder, and a downloader whose documents and blocking the test chooses.
class DialogRig {
  public:
    DialogRig() { std::filesystem::create_directories(dir.path() / "Data"); }

    Paths paths() const { return Paths(dir.path()); }
    std::filesystem::path file(const char* name) const { return dir.path() / "Data" / name; }

    CurrencyRefreshSetup refresh() {
        CurrencyRefreshSetup setup;
        setup.sources = {"http://codes.test/list.xml", "http://rates.test/daily.xml", ""};
        setup.clock = ClockSource::fixedAt(*parseIsoUtc("2025-03-17T16:20:00Z"));
        setup.utcOffsetMinutes = [](const SystemTime&) { return 0; };
        setup.ensureConnection = [](std::stop_token) { return true; };
        setup.download = [this](const std::string& url, const std::filesystem::path& to,
                                std::stop_token stop) -> std::string {
            std::unique_lock lock(mutex);
            ++downloads;
            changed.notify_all();
            if (block) {
                // Held until the dialog asks the refresh to stop.
                changed.wait(lock, stop, [] { return false; });
                return "ABORTED";
            }
            if (fail) {
                return "HTTP_STATUS_NOT_FOUND";
            }
            writeFile(to, url.find("rates") != std::string::npos ? ratesXml : codesXml);
            return {};
        };
        return setup;
    }

    int downloadsSoFar() {
        std::lock_guard lock(mutex);
        return downloads;
    }

    TempDir dir;
    bool block = false;
    bool fail = false;

  private:
    std::mutex mutex;
    std::condition_variable_any changed;
    int downloads = 0;
};

// Presses a key of the pad with the mouse, as the user does.
void click(CKeypad& pad, int key) {
    const PixelRect r = pad.layout().keys[std::size_t(key)];
    const QPointF at((r.left + r.right) / 2.0, (r.top + r.bottom) / 2.0);
    QMouseEvent down(QEvent::MouseButtonPress, at, at, Qt::LeftButton, Qt::LeftButton,
                     Qt::NoModifier);
    QMouseEvent up(QEvent::MouseButtonRelease, at, at, Qt::LeftButton, Qt::NoButton,
                   Qt::NoModifier);
    QCoreApplication::sendEvent(&pad, &down);
    QCoreApplication::sendEvent(&pad, &up);
}

QStringList items(const QComboBox& box) {
    QStringList texts;
    for (int i = 0; i < box.count(); ++i) {
        texts << box.itemText(i);
    }
    return texts;
}

TEST(CCurrencyCalc2DlgTest, ConvertsWithTheChosenPairAndKeepsItForTheNextTime) {
    DialogRig rig;
    ASSERT_TRUE(SaveCurrencyList(rig.file("currency.dat"), stored));
    const DeviceProfile screen = *deviceProfile(240, 320);
    {
        CCurrencyCalc2Dlg dialog(rig.paths(), screen, rig.refresh());
        dialog.show();
        EXPECT_EQ(items(*dialog.fromList()), QStringList({"Euro (EUR)", "Pound Sterling (GBP)",
                                                          "US Dollar (USD)", "Yen (JPY)"}));
        EXPECT_EQ(dialog.status(), "Last Update : 3/14/2025 9:05 AM");
        // Nothing kept yet: from the euro to the dollar.
        EXPECT_EQ(dialog.fromList()->currentIndex(), 0);
        EXPECT_EQ(dialog.toList()->currentIndex(), 2);

        dialog.fromList()->setCurrentIndex(2);
        dialog.toList()->setCurrentIndex(0);
        for (const int key : {1, 0, 0, keypadKey::convert}) {
            click(*dialog.keypad(), key);
        }
        EXPECT_EQ(dialog.keypad()->displayText(), "66.6667 ");
        dialog.toList()->setCurrentIndex(3);
        click(*dialog.keypad(), 2);
        click(*dialog.keypad(), keypadKey::convert);
        EXPECT_EQ(dialog.keypad()->displayText(), "214.0000 ");
        dialog.runCommand(cmd::Done);
        EXPECT_EQ(dialog.result(), QDialog::Accepted);
    }
    EXPECT_EQ(LoadCurrencyChoice(rig.file("scurrency.dat")),
              (CurrencyChoice{u"US Dollar (USD)", u"Yen (JPY)"}));

    CCurrencyCalc2Dlg again(rig.paths(), screen, rig.refresh());
    EXPECT_EQ(again.fromList()->currentText(), "US Dollar (USD)");
    EXPECT_EQ(again.toList()->currentText(), "Yen (JPY)");
    EXPECT_EQ(again.keypad()->displayText(), "0 ");
}

TEST(CCurrencyCalc2DlgTest, EveryWayOutKeepsThePair) {
    struct Case {
        int command;
        int result;
    };
    const Case cases[] = {
        {cmd::Done, QDialog::Accepted},
        {cmd::Cancel, QDialog::Rejected},
        {cmd::PlatformCancel, QDialog::Rejected},
    };
    for (const Case& c : cases) {
        DialogRig rig;
        ASSERT_TRUE(SaveCurrencyList(rig.file("currency.dat"), stored));
        CCurrencyCalc2Dlg dialog(rig.paths(), *deviceProfile(176, 220), rig.refresh());
        dialog.show();
        dialog.toList()->setCurrentIndex(1);
        dialog.runCommand(c.command);
        EXPECT_EQ(dialog.result(), c.result) << c.command;
        EXPECT_FALSE(dialog.isVisible()) << c.command;
        EXPECT_EQ(LoadCurrencyChoice(rig.file("scurrency.dat")).to, u"Pound Sterling (GBP)")
            << c.command;
    }
}

TEST(CCurrencyCalc2DlgTest, FirstStartSaysHowToGetRatesAndUpdateBringsThem) {
    DialogRig rig;
    CCurrencyCalc2Dlg dialog(rig.paths(), *deviceProfile(240, 320), rig.refresh());
    dialog.show();
    EXPECT_EQ(dialog.fromList()->count(), 0);
    EXPECT_FALSE(dialog.fromList()->isEnabled());
    EXPECT_EQ(dialog.status(), "No rates yet: choose Update in the Menu.");
    click(*dialog.keypad(), 5);
    click(*dialog.keypad(), keypadKey::convert);
    EXPECT_EQ(dialog.keypad()->displayText(), "5 ");

    ASSERT_NE(dialog.menuCommand(cmd::Update), nullptr);
    dialog.menuCommand(cmd::Update)->trigger();
    EXPECT_TRUE(dialog.isBusy());
    ASSERT_TRUE(waitFor([&] { return !dialog.refreshing(); }));
    EXPECT_FALSE(dialog.isBusy());
    EXPECT_EQ(dialog.status(), "Last Update : 3/17/2025 4:20 PM");
    EXPECT_EQ(items(*dialog.toList()),
              QStringList({"Euro (EUR)", "Swiss Franc (CHF)", "US Dollar (USD)"}));
    EXPECT_TRUE(dialog.toList()->isEnabled());
    EXPECT_EQ(dialog.fromList()->currentText(), "Euro (EUR)");
    EXPECT_EQ(dialog.toList()->currentText(), "US Dollar (USD)");
    click(*dialog.keypad(), keypadKey::convert);
    EXPECT_EQ(dialog.keypad()->displayText(), "6.2500 ");
    EXPECT_EQ(LoadCurrencyList(rig.file("currency.dat")).entries.size(), 3u);
}

TEST(CCurrencyCalc2DlgTest, FailedUpdateSaysSoAndKeepsTheList) {
    DialogRig rig;
    rig.fail = true;
    ASSERT_TRUE(SaveCurrencyList(rig.file("currency.dat"), stored));
    CCurrencyCalc2Dlg dialog(rig.paths(), *deviceProfile(480, 640), rig.refresh());
    dialog.toList()->setCurrentIndex(3);
    dialog.runCommand(cmd::Update);
    ASSERT_TRUE(waitFor([&] { return !dialog.refreshing(); }));
    EXPECT_FALSE(dialog.isBusy());
    EXPECT_EQ(dialog.status(), "Download Failed");
    EXPECT_EQ(dialog.toList()->count(), 4);
    EXPECT_EQ(dialog.toList()->currentText(), "Yen (JPY)");
    EXPECT_EQ(LoadCurrencyList(rig.file("currency.dat")), stored);
}

TEST(CCurrencyCalc2DlgTest, DoneStopsARunningUpdate) {
    DialogRig rig;
    rig.block = true;
    ASSERT_TRUE(SaveCurrencyList(rig.file("currency.dat"), stored));
    CCurrencyCalc2Dlg dialog(rig.paths(), *deviceProfile(320, 240), rig.refresh());
    dialog.show();
    dialog.runCommand(cmd::Update);
    ASSERT_TRUE(waitFor([&] { return rig.downloadsSoFar() == 1; }));
    EXPECT_EQ(dialog.status(), "Download Currency Code");
    // A second Update while one runs starts nothing.
    dialog.runCommand(cmd::Update);
    EXPECT_TRUE(dialog.refreshing());

    dialog.runCommand(cmd::Done);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_FALSE(dialog.refreshing());
    EXPECT_FALSE(dialog.isBusy());
    QCoreApplication::processEvents();
    EXPECT_EQ(rig.downloadsSoFar(), 1);
    EXPECT_EQ(LoadCurrencyList(rig.file("currency.dat")), stored);
    EXPECT_FALSE(std::filesystem::exists(rig.file("ZNCurrCode.xml")));
    EXPECT_TRUE(std::filesystem::exists(rig.file("scurrency.dat")));
}

TEST(CCurrencyCalc2DlgTest, FitsEveryScreen) {
    for (const auto& [width, height] :
         {std::pair{176, 220}, {220, 176}, {240, 320}, {320, 240}, {480, 640}, {640, 480}}) {
        for (const bool withRates : {false, true}) {
            SCOPED_TRACE(std::to_string(width) + "x" + std::to_string(height) +
                         (withRates ? " with rates" : " without"));
            DialogRig rig;
            if (withRates) {
                ASSERT_TRUE(SaveCurrencyList(rig.file("currency.dat"), stored));
            }
            const DeviceProfile screen = *deviceProfile(width, height);
            CCurrencyCalc2Dlg dialog(rig.paths(), screen, rig.refresh());
            dialog.show();
            QCoreApplication::processEvents();
            // The profile's screen with the soft-key bar below it, and no more.
            EXPECT_EQ(dialog.size(), QSize(width, height + dialog.softKeys()->height()));
            const QRect area(QPoint(0, 0), QSize(width, height));
            for (QWidget* part :
                 {static_cast<QWidget*>(dialog.keypad()), static_cast<QWidget*>(dialog.fromList()),
                  static_cast<QWidget*>(dialog.toList()), dialog.findChild<QWidget*>("status")}) {
                const QRect placed(part->mapTo(&dialog, QPoint(0, 0)), part->size());
                EXPECT_TRUE(area.contains(placed)) << part->objectName().toStdString();
            }
            EXPECT_EQ(dialog.keypad()->size(),
                      QSize(dialog.keypad()->layout().width, dialog.keypad()->layout().height));
            const QRect pad(dialog.keypad()->mapTo(&dialog, QPoint(0, 0)), dialog.keypad()->size());
            const QRect to(dialog.toList()->mapTo(&dialog, QPoint(0, 0)), dialog.toList()->size());
            EXPECT_FALSE(pad.intersects(to));
        }
    }
}

} // namespace
} // namespace zonara
