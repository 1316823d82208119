#pragma once
// The weather window: the stored report's current conditions or its forecast,
// and an update that runs on a worker thread while the window stays live.

#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string_view>
#include <thread>
#include <vector>

#include <QPixmap>

#include "controls/CDialogFrame.h"
#include "core/Paths.h"
#include "net/WeatherReport.h"
#include "net/WeatherService.h"

class QAction;
class QGridLayout;
class QLabel;
class QScrollArea;
class QStackedWidget;

namespace zonara {

class CWeatherDlg : public CDialogFrame {
    Q_OBJECT
  public:
    // storedLocation names the city of the stored report ("London, United
    // Kingdom"), location the city an update asks for; the status line shows
    // the first until an update stores a report for the second.
    CWeatherDlg(const Paths& paths, const DeviceProfile& profile, const WeatherUnits& units,
                const QString& storedLocation, const QString& location, WeatherUpdater updater,
                QWidget* parent = nullptr);
    // Stops a running update and waits for its thread.
    ~CWeatherDlg() override;

    // The frame's "Update": the update starts when the window first shows.
    void updateWhenShown(bool on) { updateOnShow = on; }
    // "Update Weather": false when an update is running already.
    bool startUpdate();
    bool isRunning() const { return running; }

    bool showsForecast() const;
    const std::optional<WeatherReport>& report() const { return shown; }
    WeatherUnits units() const { return current; }
    // The caller saves the settings when the units changed or an update
    // stored a report for the asked-for city.
    bool unitsChanged() const;
    bool reportStored() const { return stored; }

    // How a failed update is told: the application's title and the error
    // text. A message box unless replaced.
    std::function<void(const QString& title, const QString& text)> tellUser;

    QAction* celsiusAction() const { return celsius; }
    QAction* millibarAction() const { return millibar; }

  protected:
    void onCommand(int commandId) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void buildNowPage(QWidget* page);
    void buildForecastPage(QWidget* page);
    void showPage(bool forecast);
    void setUnits(const WeatherUnits& units);
    void showStoredReport();
    void showReport(const WeatherReport& report);
    void showForecast(const std::vector<WeatherPeriod>& periods);
    QPixmap iconPicture(int index, int size) const;

    // The worker's side, posted to the window's thread.
    void workerStatus(const QString& text);
    void runEnded();
    void stopWorker();
    void applyOutcome(const WeatherOutcome& outcome, bool quiet);

    Paths paths;
    WeatherUnits initialUnits;
    WeatherUnits current;
    QString storedLocation;
    QString location;
    WeatherUpdater updater;
    std::optional<WeatherReport> shown;
    bool updateOnShow = false;
    bool shownOnce = false;
    bool running = false;
    bool stored = false;
    QString statusBeforeRun;

    std::mutex outcomeGuard;
    std::optional<WeatherOutcome> pending; // set by the worker, taken by the window
    std::jthread worker;

    QPixmap backdrop; // the background picture scaled to the window
    QLabel* heading = nullptr;
    QLabel* date = nullptr;
    QStackedWidget* pages = nullptr;
    QLabel* nowIcon = nullptr;
    QLabel* description = nullptr;
    QLabel* temperature = nullptr;
    std::vector<QLabel*> values; // humidity, wind speed, barometer, dew point, wind chill
    QScrollArea* forecastScroll = nullptr;
    QWidget* forecastRows = nullptr;
    QGridLayout* forecastGrid = nullptr;
    QLabel* credit = nullptr;
    QAction* updateItem = nullptr;
    QAction* celsius = nullptr;
    QAction* millibar = nullptr;
};

} // namespace zonara
