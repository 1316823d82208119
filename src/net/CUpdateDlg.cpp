#include "net/CUpdateDlg.h"

#include <algorithm>
#include <array>

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QProgressBar>

#include "controls/CommandIds.h"
#include "controls/DialogTheme.h"
#include "net/UpdateDlgLayout.h"

namespace zonara {

namespace {

constexpr int blinkMilliseconds = 500;
constexpr int smallestPixels = 8;

QString shown(std::string_view text) {
    return CUpdateDlg::tr(std::string(text).c_str());
}

QRect toQRect(const PixelRect& r) {
    return QRect(r.left, r.top, r.width(), r.height());
}

// Every text the status line can show.
constexpr std::array allStatuses = {
    UpdateStatus::PressUpdate,      UpdateStatus::DialConnection,
    UpdateStatus::UnableToConnect,  UpdateStatus::CheckingForNewData,
    UpdateStatus::NoNewData,        UpdateStatus::ServerError,
    UpdateStatus::DownloadCityData, UpdateStatus::DownloadCountryData,
    UpdateStatus::DownloadDstData,  UpdateStatus::InstallData,
    UpdateStatus::Finished,         UpdateStatus::FailedToGetAllFiles,
};

bool fits(const QFont& font, const QStringList& texts, const QSize& box, bool wrap) {
    const QFontMetrics metrics(font);
    for (const QString& text : texts) {
        const QRect needed =
            wrap ? metrics.boundingRect(QRect(0, 0, box.width(), 1 << 16), Qt::TextWordWrap, text)
                 : metrics.boundingRect(text);
        if (needed.height() > box.height() || (!wrap && needed.width() > box.width()))
            return false;
    }
    return true;
}

// The profile's font, made smaller until every text fits the box: the
// layouts give fixed heights that the high-resolution font does not always fit.
QFont fittedFont(QFont font, const QStringList& texts, const QSize& box, bool wrap) {
    while (font.pixelSize() > smallestPixels && !fits(font, texts, box, wrap))
        font.setPixelSize(font.pixelSize() - 1);
    return font;
}

} // namespace

// Hears the run on the worker thread and hands each report to the dialog's
// thread, in order.
class CUpdateDlg::Sink : public UpdateSink {
  public:
    explicit Sink(CUpdateDlg& dialog) : dialog(dialog) {}

    void status(UpdateStatus text) override {
        post([d = &dialog, text] { d->showStatus(text); });
    }
    void progressRange(std::uint16_t range, std::int32_t) override {
        post([d = &dialog, range] { d->setRange(range); });
    }
    void progressPosition(std::int32_t bytes) override {
        post([d = &dialog, bytes] { d->setPosition(bytes); });
    }
    void runEnded(UpdateOutcome outcome) override {
        // Known at once, so a dialog closed before this reaches it still tells.
        if (outcome == UpdateOutcome::Finished)
            dialog.installed.store(true);
        post([d = &dialog] { d->runEnded(); });
    }

  private:
    template <typename Call> void post(Call call) {
        QMetaObject::invokeMethod(&dialog, std::move(call), Qt::QueuedConnection);
    }
    CUpdateDlg& dialog;
};

QPixmap CUpdateDlg::iconPicture(bool on) {
    const DialogTheme& theme = dialogTheme();
    QPixmap picture(14, 14);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(on ? theme.accent.lighter(120) : theme.fieldBorder, 1));
    painter.setBrush(on ? theme.accent : theme.field);
    painter.drawEllipse(QRectF(0.5, 0.5, 13, 13));
    // A downward arrow: data coming in.
    QPainterPath arrow;
    arrow.moveTo(5.5, 3);
    arrow.lineTo(8.5, 3);
    arrow.lineTo(8.5, 7);
    arrow.lineTo(10.5, 7);
    arrow.lineTo(7, 11);
    arrow.lineTo(3.5, 7);
    arrow.lineTo(5.5, 7);
    arrow.closeSubpath();
    painter.setPen(Qt::NoPen);
    painter.setBrush(on ? theme.backgroundBottom : theme.dimText);
    painter.drawPath(arrow);
    return picture;
}

CUpdateDlg::CUpdateDlg(const Paths& paths, const Config& config, const DeviceProfile& profile,
                       QWidget* parent)
    : CDialogFrame(profile, tr("Update Data"), parent), description(new QLabel(content())),
      progress(new QProgressBar(content())), icon(new QLabel(content())),
      status(new QLabel(content())), sink(std::make_unique<Sink>(*this)), worker(paths, config) {
    setLeftKey(tr("Done"), cmd::Done);
    addMenuCommand(tr("Update"), cmd::Update);

    description->setObjectName(QStringLiteral("description"));
    description->setWordWrap(true);
    description->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    description->setText(
        tr("Updates the internal data files with the latest data from the server."));
    progress->setObjectName(QStringLiteral("progress"));
    progress->setTextVisible(false); // the range may have wrapped: a percentage could lie
    progress->setRange(0, 100);
    progress->setValue(0);
    icon->setObjectName(QStringLiteral("statusIcon"));
    icon->setFixedSize(14, 14);
    status->setObjectName(QStringLiteral("statusText"));
    status->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    showStatus(UpdateStatus::PressUpdate);
    showIcon(false);

    blink.setInterval(blinkMilliseconds);
    connect(&blink, &QTimer::timeout, this, [this] { showIcon(!lit); });
    content()->installEventFilter(this);
    layOut();
}

CUpdateDlg::~CUpdateDlg() {
    worker.cancel();
}

QString CUpdateDlg::statusText() const {
    return status->text();
}

QString CUpdateDlg::descriptionText() const {
    return description->text();
}

void CUpdateDlg::onCommand(int commandId) {
    if (commandId == cmd::Update) {
        startRun();
        return;
    }
    if (commandId == cmd::Done || commandId == cmd::Cancel || commandId == cmd::PlatformCancel)
        cancelRun();
    CDialogFrame::onCommand(commandId);
}

bool CUpdateDlg::eventFilter(QObject* watched, QEvent* event) {
    if (watched == content() && event->type() == QEvent::Resize)
        layOut();
    return CDialogFrame::eventFilter(watched, event);
}

void CUpdateDlg::layOut() {
    const DeviceProfile& screen = profile();
    auto rects = updateDlgLayout(content()->width(), screen.width, screen.height,
                                 screen.highResolution, screen.secondDisplay);
    // Where the controls "stay where they are", they stay where the same
    // screen without the flag puts them.
    if (!rects)
        rects = updateDlgLayout(content()->width(), screen.width, screen.height,
                                screen.highResolution, false);
    description->setGeometry(toQRect(rects->description));
    description->setFont(
        fittedFont(themeFont(screen.dpi), {description->text()}, description->size(), true));
    progress->setGeometry(toQRect(rects->progress));
    icon->setGeometry(toQRect(rects->icon));
    status->setGeometry(toQRect(rects->status));
    fitStatus();
}

void CUpdateDlg::fitStatus() {
    // Sized for the longest text, so that it does not change from step to step.
    QStringList texts;
    for (const UpdateStatus text : allStatuses)
        texts.append(shown(zonara::statusText(text)));
    status->setFont(fittedFont(themeFont(profile().dpi), texts, status->size(), false));
}

void CUpdateDlg::startRun() {
    // Ignored while a run goes on.
    if (!worker.start(*sink))
        return;
    runOnScreen = true;
    showIcon(true);
    blink.start();
}

void CUpdateDlg::cancelRun() {
    if (!worker.running())
        return;
    worker.cancel(); // aborts the transfer, ends the worker, removes the temporary files
    blink.stop();
    showIcon(false);
    runOnScreen = false;
}

void CUpdateDlg::showStatus(UpdateStatus text) {
    status->setText(shown(zonara::statusText(text)));
}

void CUpdateDlg::setRange(std::uint16_t range) {
    shownRange = range;
    // A range of 0 draws an empty bar, as a bar whose both ends meet would.
    progress->setRange(0, std::max<int>(1, range));
    progress->setValue(0);
}

void CUpdateDlg::setPosition(std::int32_t bytes) {
    // Positions past the end stay at the end, as when the range wrapped.
    progress->setValue(std::clamp<std::int32_t>(bytes, 0, shownRange));
}

void CUpdateDlg::runEnded() {
    if (worker.running())
        return; // a new run began before this end arrived
    blink.stop();
    showIcon(false);
    runOnScreen = false;
}

void CUpdateDlg::showIcon(bool on) {
    lit = on;
    icon->setPixmap(iconPicture(on));
}

} // namespace zonara
