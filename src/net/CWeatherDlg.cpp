#include "net/CWeatherDlg.h"

#include <QAction>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "controls/CommandIds.h"
#include "controls/DialogTheme.h"
#include "controls/SoftKeyBar.h"
#include "net/WeatherBackground.h"
#include "net/WeatherIcons.h"
#include "net/WeatherTexts.h"

namespace zonara {

namespace {

QString translated(std::string_view text) {
    return QObject::tr(std::string(text).c_str());
}

// The dark, see-through panel that keeps text readable over the sky picture.
QFrame* panel(QWidget* parent, int dpi) {
    auto* frame = new QFrame(parent);
    frame->setObjectName(QStringLiteral("weatherPanel"));
    const QColor fill = dialogTheme().backgroundBottom;
    frame->setStyleSheet(QStringLiteral("QFrame#weatherPanel { background: rgba(%1, %2, %3, 170);"
                                        " border-radius: %4px; }")
                             .arg(fill.red())
                             .arg(fill.green())
                             .arg(fill.blue())
                             .arg(4 * dpi / 96));
    return frame;
}

// The panels' style sheets keep the dialog's font from reaching their
// labels, so each label gets its font here.
QLabel* label(QWidget* parent, const char* name, const QFont& font, const QString& text = {}) {
    auto* made = new QLabel(text, parent);
    made->setObjectName(QString::fromLatin1(name));
    made->setFont(font);
    return made;
}

bool narrow(const DeviceProfile& profile) {
    return std::min(profile.width, profile.height) < 200;
}

// Sizes at 96 dpi; the smallest screen gets a little less.
int scaled(const DeviceProfile& profile, int size) {
    const int dpiSize = size * std::max(profile.dpi, 96) / 96;
    return narrow(profile) ? dpiSize * 5 / 6 : dpiSize;
}

} // namespace

CWeatherDlg::CWeatherDlg(const Paths& paths, const DeviceProfile& profile,
                         const WeatherUnits& units, const QString& storedLocation,
                         const QString& location, WeatherUpdater updater, QWidget* parent)
    : CDialogFrame(profile, tr("Weather"), parent), paths(paths), initialUnits(units),
      current(units), storedLocation(storedLocation), location(location),
      updater(std::move(updater)) {
    tellUser = [this](const QString& title, const QString& text) {
        QMessageBox box(QMessageBox::Information, title, text, QMessageBox::Ok, this);
        box.setWindowFlag(Qt::WindowStaysOnTopHint);
        box.exec();
    };

    const int margin = scaled(profile, 5);
    auto* layout = new QVBoxLayout(content());
    layout->setContentsMargins(margin, margin, margin, margin / 2);
    layout->setSpacing(margin);

    QFrame* top = panel(this, profile.dpi);
    auto* topLayout = new QVBoxLayout(top);
    topLayout->setContentsMargins(margin, margin / 2, margin, margin / 2);
    topLayout->setSpacing(0);
    heading = label(top, "heading", themeFont(profile.dpi, 9, true));
    heading->setProperty("role", QStringLiteral("title"));
    heading->setWordWrap(true);
    date = label(top, "date", themeFont(profile.dpi, 8));
    date->setProperty("role", QStringLiteral("status"));
    topLayout->addWidget(heading);
    topLayout->addWidget(date);
    layout->addWidget(top);

    pages = new QStackedWidget(this);
    auto* nowPage = new QWidget(pages);
    auto* forecastPage = new QWidget(pages);
    buildNowPage(nowPage);
    buildForecastPage(forecastPage);
    pages->addWidget(nowPage);
    pages->addWidget(forecastPage);
    layout->addWidget(pages, 1);

    // The data source's credit, on both pages as its licence asks.
    QFrame* bottom = panel(this, profile.dpi);
    auto* bottomLayout = new QVBoxLayout(bottom);
    bottomLayout->setContentsMargins(margin, margin / 3, margin, margin / 3);
    credit = label(bottom, "credit", themeFont(profile.dpi, 7));
    credit->setProperty("role", QStringLiteral("status"));
    credit->setWordWrap(true);
    credit->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    bottomLayout->addWidget(credit);
    layout->addWidget(bottom);

    addMenuCommand(translated(weather_text::showNow), cmd::ShowNow);
    addMenuCommand(translated(weather_text::showForecast), cmd::ShowForecast);
    updateItem = addMenuCommand(translated(weather_text::updateWeather), cmd::UpdateWeather);
    addMenuSeparator();
    celsius = addMenuCommand(tr("Use Celsius"), cmd::UseCelsius);
    millibar = addMenuCommand(tr("Use Millibar"), cmd::UseMillibar);
    for (QAction* item : {celsius, millibar})
        item->setCheckable(true);
    celsius->setChecked(units.celsius);
    millibar->setChecked(units.millibar);
    addMenuSeparator();
    addMenuCommand(tr("Done"), cmd::Done);

    setStatus(storedLocation);
    showPage(false);
    showStoredReport();
}

CWeatherDlg::~CWeatherDlg() {
    stopWorker();
}

void CWeatherDlg::buildNowPage(QWidget* page) {
    const DeviceProfile& screen = profile();
    const int margin = scaled(screen, 5);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(margin);

    QFrame* conditions = panel(page, screen.dpi);
    auto* row = new QHBoxLayout(conditions);
    row->setContentsMargins(margin, margin / 2, margin, margin / 2);
    row->setSpacing(margin);
    const QFont font = themeFont(screen.dpi);
    nowIcon = label(conditions, "nowIcon", font);
    const int icon = scaled(screen, 48);
    nowIcon->setFixedSize(icon, icon);
    nowIcon->setAlignment(Qt::AlignCenter);
    temperature = label(conditions, "temperature", themeFont(screen.dpi, 16, true));
    temperature->setStyleSheet(
        QStringLiteral("QLabel { color: %1; }").arg(dialogTheme().accent.name()));
    description = label(conditions, "description", font);
    description->setWordWrap(true);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addWidget(temperature);
    texts->addWidget(description);
    row->addWidget(nowIcon, 0, Qt::AlignVCenter);
    row->addLayout(texts, 1);
    layout->addWidget(conditions);

    QFrame* table = panel(page, screen.dpi);
    auto* grid = new QGridLayout(table);
    grid->setContentsMargins(margin, margin / 2, margin, margin / 2);
    grid->setHorizontalSpacing(margin * 2);
    grid->setVerticalSpacing(std::max(1, margin / 3));
    const std::string_view labels[] = {weather_text::humidity, weather_text::windSpeed,
                                       weather_text::barometer, weather_text::dewPoint,
                                       weather_text::windChill};
    const char* names[] = {"humidity", "windSpeed", "barometer", "dewPoint", "windChill"};
    for (int i = 0; i < 5; ++i) {
        QLabel* name = label(table, "label", font, translated(labels[i]));
        name->setProperty("role", QStringLiteral("status"));
        QLabel* value = label(table, names[i], font);
        value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(name, i, 0);
        grid->addWidget(value, i, 1);
        values.push_back(value);
    }
    grid->setColumnStretch(1, 1);
    layout->addWidget(table);
    layout->addStretch(1);
}

void CWeatherDlg::buildForecastPage(QWidget* page) {
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    QFrame* frame = panel(page, profile().dpi);
    auto* frameLayout = new QVBoxLayout(frame);
    frameLayout->setContentsMargins(0, 0, 0, 0);
    forecastScroll = new QScrollArea(frame);
    forecastScroll->setObjectName(QStringLiteral("forecast"));
    forecastScroll->setWidgetResizable(true);
    forecastScroll->setFrameShape(QFrame::NoFrame);
    forecastScroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    forecastScroll->setFocusPolicy(Qt::StrongFocus);
    const DialogTheme& theme = dialogTheme();
    forecastScroll->setStyleSheet(
        QStringLiteral("QScrollArea, QScrollArea > QWidget > QWidget { background: transparent; }"
                       "QScrollBar:vertical { background: transparent; width: %1px; margin: 0; }"
                       "QScrollBar::handle:vertical { background: %2; border-radius: %3px;"
                       " min-height: %4px; }"
                       "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
                       "QScrollBar::add-page, QScrollBar::sub-page { background: none; }")
            .arg(scaled(profile(), 6))
            .arg(theme.fieldBorder.name())
            .arg(scaled(profile(), 3))
            .arg(scaled(profile(), 20)));
    forecastRows = new QWidget(forecastScroll);
    forecastGrid = new QGridLayout(forecastRows);
    const int margin = scaled(profile(), 5);
    forecastGrid->setContentsMargins(margin, margin / 2, margin, margin / 2);
    forecastGrid->setHorizontalSpacing(margin);
    forecastGrid->setVerticalSpacing(0);
    forecastScroll->setWidget(forecastRows);
    frameLayout->addWidget(forecastScroll);
    layout->addWidget(frame);
}

bool CWeatherDlg::showsForecast() const {
    return pages->currentIndex() == 1;
}

void CWeatherDlg::showPage(bool forecast) {
    pages->setCurrentIndex(forecast ? 1 : 0);
    // The up and down keys scroll a forecast longer than the window.
    if (forecast)
        forecastScroll->setFocus();
    // The left key offers the other page.
    if (forecast)
        setLeftKey(translated(weather_text::showNow), cmd::ShowNow);
    else
        setLeftKey(translated(weather_text::showForecast), cmd::ShowForecast);
}

bool CWeatherDlg::unitsChanged() const {
    return current.celsius != initialUnits.celsius || current.millibar != initialUnits.millibar;
}

void CWeatherDlg::setUnits(const WeatherUnits& units) {
    current = units;
    celsius->setChecked(units.celsius);
    millibar->setChecked(units.millibar);
    showStoredReport();
}

void CWeatherDlg::showStoredReport() {
    if (std::optional<WeatherReport> report =
            loadWeatherReport(paths.dataFile(weatherFileName), current))
        showReport(*report);
}

void CWeatherDlg::showReport(const WeatherReport& report) {
    // A field the report lacks keeps what the window showed there before.
    const auto put = [](QLabel* target, const std::optional<std::string>& text) {
        if (text)
            target->setText(QString::fromStdString(*text));
    };
    put(heading, report.heading);
    put(date, report.date);
    if (report.icon) {
        nowIcon->setPixmap(iconPicture(*report.icon, nowIcon->width()));
        description->setText(translated(weatherIconDescription(*report.icon)));
    }
    put(temperature, report.temperature);
    put(values[0], report.humidity);
    put(values[1], report.windSpeed);
    put(values[2], report.barometer);
    put(values[3], report.dewPoint);
    put(values[4], report.windChill);
    put(credit, report.credit);
    showForecast(report.forecast);
    shown = report;
    content()->updateGeometry();
    QWidget::update();
}

void CWeatherDlg::showForecast(const std::vector<WeatherPeriod>& periods) {
    while (QLayoutItem* item = forecastGrid->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    for (int row = 0; row < forecastGrid->rowCount(); ++row)
        forecastGrid->setRowStretch(row, 0);
    const DeviceProfile& screen = profile();
    const int icon = scaled(screen, 26);
    const QFont nameFont = themeFont(screen.dpi, 9, true);
    const QFont lineFont = themeFont(screen.dpi, narrow(screen) ? 8 : 9);
    int row = 0;
    for (const WeatherPeriod& period : periods) {
        QLabel* picture = label(forecastRows, "periodIcon", nameFont);
        picture->setFixedSize(icon, icon);
        picture->setPixmap(iconPicture(period.icon, icon));
        picture->setToolTip(translated(weatherIconDescription(period.icon)));
        QLabel* name =
            label(forecastRows, "periodName", nameFont, QString::fromStdString(period.name));
        name->setProperty("role", QStringLiteral("title"));
        QLabel* line =
            label(forecastRows, "periodLine", lineFont, QString::fromStdString(period.line));
        if (narrow(screen)) {
            // Too narrow for the line beside the picture: it goes below both.
            forecastGrid->addWidget(picture, row, 0);
            forecastGrid->addWidget(name, row, 1);
            forecastGrid->addWidget(line, row + 1, 0, 1, 2);
        } else {
            forecastGrid->addWidget(picture, row, 0, 2, 1, Qt::AlignVCenter);
            forecastGrid->addWidget(name, row, 1);
            forecastGrid->addWidget(line, row + 1, 1);
        }
        row += 2;
    }
    forecastGrid->setRowStretch(row, 1);
    forecastGrid->setColumnStretch(1, 1);
}

QPixmap CWeatherDlg::iconPicture(int index, int size) const {
    const QPixmap picture(
        QString::fromStdString(paths.graphicsFile(weatherIconFile(index)).string()));
    if (picture.isNull())
        return {};
    return picture.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

bool CWeatherDlg::startUpdate() {
    if (running || !updater)
        return false;
    running = true;
    stored = false;
    statusBeforeRun = status();
    updateItem->setEnabled(false);
    setBusy(true);
    setStatus(translated(weather_text::dialConnection));
    const WeatherUnits units = current;
    worker = std::jthread([this, units](std::stop_token stop) {
        const auto report = [this](std::string_view text) {
            const QString shownText = translated(text);
            QMetaObject::invokeMethod(
                this, [this, shownText] { workerStatus(shownText); }, Qt::QueuedConnection);
        };
        WeatherOutcome outcome = updater(units, report, stop);
        {
            const std::lock_guard lock(outcomeGuard);
            pending = std::move(outcome);
        }
        QMetaObject::invokeMethod(
            this, [this] { runEnded(); }, Qt::QueuedConnection);
    });
    return true;
}

void CWeatherDlg::workerStatus(const QString& text) {
    if (running)
        setStatus(text);
}

void CWeatherDlg::runEnded() {
    std::optional<WeatherOutcome> outcome;
    {
        const std::lock_guard lock(outcomeGuard);
        outcome.swap(pending);
    }
    if (!outcome)
        return; // taken already when the window was closed during the run
    if (worker.joinable())
        worker.join();
    applyOutcome(*outcome, false);
}

void CWeatherDlg::applyOutcome(const WeatherOutcome& outcome, bool quiet) {
    running = false;
    setBusy(false);
    updateItem->setEnabled(true);
    if (outcome.kind == WeatherOutcome::Kind::Stored) {
        stored = true;
        storedLocation = location;
        setStatus(location);
    } else {
        if (outcome.kind == WeatherOutcome::Kind::Failed && !quiet)
            tellUser(QStringLiteral("Zonara"), translated(outcome.error));
        setStatus(statusBeforeRun);
    }
    if (!quiet)
        showStoredReport();
}

void CWeatherDlg::stopWorker() {
    if (!worker.joinable())
        return;
    worker.request_stop();
    worker.join();
    std::optional<WeatherOutcome> outcome;
    {
        const std::lock_guard lock(outcomeGuard);
        outcome.swap(pending);
    }
    // A run that stored its report before the stop keeps it: the caller
    // saves the location it is for.
    if (outcome)
        applyOutcome(*outcome, true);
}

void CWeatherDlg::onCommand(int commandId) {
    switch (commandId) {
    case cmd::ShowNow:
        showPage(false);
        return;
    case cmd::ShowForecast:
        showPage(true);
        return;
    case cmd::UpdateWeather:
        startUpdate();
        return;
    case cmd::UseCelsius:
        setUnits({!current.celsius, current.millibar});
        return;
    case cmd::UseMillibar:
        setUnits({current.celsius, !current.millibar});
        return;
    case cmd::Done:
    case cmd::Cancel:
    case cmd::PlatformCancel:
        stopWorker();
        break;
    default:
        break;
    }
    CDialogFrame::onCommand(commandId);
}

void CWeatherDlg::showEvent(QShowEvent* event) {
    CDialogFrame::showEvent(event);
    if (!shownOnce) {
        shownOnce = true;
        if (updateOnShow)
            startUpdate();
    }
}

void CWeatherDlg::resizeEvent(QResizeEvent* event) {
    CDialogFrame::resizeEvent(event);
    const QImage picture(QString::fromStdString(
        paths.graphicsFile(weatherBackgroundFile(profile().width, profile().height)).string()));
    if (picture.isNull() || width() <= 0 || height() <= 0) {
        backdrop = {};
        return;
    }
    const PictureCrop crop = coverCrop(picture.width(), picture.height(), width(), height());
    backdrop =
        QPixmap::fromImage(picture.copy(crop.x, crop.y, crop.width, crop.height)
                               .scaled(size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

void CWeatherDlg::paintEvent(QPaintEvent* event) {
    if (backdrop.isNull()) {
        CDialogFrame::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, backdrop);
    // The status line sits on the picture's ground; a dark band keeps it readable.
    const int top = content()->geometry().bottom() + 1;
    const int bottom = softKeys()->geometry().top();
    if (bottom > top) {
        QColor band = dialogTheme().backgroundBottom;
        band.setAlpha(190);
        painter.fillRect(QRect(0, top, width(), bottom - top), band);
    }
}

} // namespace zonara
