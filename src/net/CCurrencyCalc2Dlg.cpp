#include "net/CCurrencyCalc2Dlg.h"

#include <QComboBox>
#include <algorithm>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QVBoxLayout>

#include "controls/CKeypad.h"
#include "controls/CommandIds.h"
#include "controls/DialogTheme.h"
#include "controls/KeypadKeyIndex.h"
#include "core/Text.h"

namespace zonara {

namespace {

QString qText(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
}

QComboBox* makeList(QWidget* parent, const char* name, int popupWidth) {
    auto* box = new QComboBox(parent);
    box->setObjectName(QString::fromLatin1(name));
    // Long names are cut in the narrow box; its popup may use the whole window.
    box->setMinimumWidth(popupWidth / 4);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    box->view()->setMinimumWidth(popupWidth);
    box->setPlaceholderText(QObject::tr("No currencies"));
    return box;
}

} // namespace

CCurrencyCalc2Dlg::CCurrencyCalc2Dlg(const Paths& paths, const DeviceProfile& profile,
                                     CurrencyRefreshSetup refresh, QWidget* parent)
    : CDialogFrame(profile, tr("Currency Conversion"), parent), model(paths),
      refreshSetup(std::move(refresh)) {
    refreshSetup.paths = paths;
    model.open();
    buildWidgets();
    fillLists();
    setStatus(qText(model.statusLine()));
    pad->setFocus();
}

CCurrencyCalc2Dlg::~CCurrencyCalc2Dlg() {
    // The worker's callbacks name this dialog: it ends before the widgets go.
    worker.stop();
}

void CCurrencyCalc2Dlg::buildWidgets() {
    const DeviceProfile& screen = profile();
    const bool landscape = screen.width > screen.height;
    const int dpi = screen.dpi;

    fromBox = makeList(this, "from", screen.width * 9 / 10);
    toBox = makeList(this, "to", screen.width * 9 / 10);
    // Slim boxes: the pad, both lists and a two-line status fit the smallest screen.
    // The boxes name their font size: a box with a style sheet of its own
    // would not take the dialog's.
    const QString slim = QStringLiteral("QComboBox { padding: %1px %2px; font-size: %3px; }"
                                        "QComboBox QAbstractItemView { font-size: %3px; }")
                             .arg(std::max(1, dpi / 96))
                             .arg(std::max(2, 3 * dpi / 96))
                             .arg(themeFont(dpi).pixelSize());
    fromBox->setStyleSheet(slim);
    toBox->setStyleSheet(slim);
    auto* fromLabel = new QLabel(tr("From"), this);
    auto* toLabel = new QLabel(tr("To"), this);

    pad = new CKeypad(this);
    pad->setProfile(screen);
    // The pad fills its gaps with its window colour: the bar's, not the platform's grey.
    QPalette padColours = pad->palette();
    padColours.setColor(QPalette::Window, dialogTheme().bar);
    pad->setPalette(padColours);
    connect(pad, &CKeypad::keyPressed, this, &CCurrencyCalc2Dlg::pressKey);

    setLeftKey(tr("Done"), cmd::Done);
    addMenuCommand(tr("Update"), cmd::Update);

    const int gap = std::max(2, 2 * dpi / 96);
    auto* lists = new QGridLayout;
    lists->setContentsMargins(0, 0, 0, 0);
    lists->setSpacing(gap);
    if (landscape) {
        // A column beside the pad: each label over its list.
        lists->addWidget(fromLabel, 0, 0);
        lists->addWidget(fromBox, 1, 0);
        lists->addWidget(toLabel, 2, 0);
        lists->addWidget(toBox, 3, 0);
        lists->setRowStretch(4, 1);
    } else {
        lists->addWidget(fromLabel, 0, 0);
        lists->addWidget(fromBox, 0, 1);
        lists->addWidget(toLabel, 1, 0);
        lists->addWidget(toBox, 1, 1);
        lists->setColumnStretch(1, 1);
    }

    // The pad takes the whole width of a portrait screen but for what is left.
    const int side = landscape ? gap : std::clamp((screen.width - pad->width()) / 2, 0, gap);
    QBoxLayout* content = landscape ? static_cast<QBoxLayout*>(new QHBoxLayout(this->content()))
                                    : new QVBoxLayout(this->content());
    content->setContentsMargins(side, gap, side, gap);
    content->setSpacing(gap);
    content->addLayout(lists, 1);
    content->addWidget(pad, 0, landscape ? Qt::AlignTop : Qt::AlignHCenter);
    if (!landscape) {
        content->addStretch(1);
    }

    const auto choose = [this](bool isFrom, int row) {
        if (isFrom) {
            model.selectFrom(row);
        } else {
            model.selectTo(row);
        }
    };
    connect(fromBox, &QComboBox::currentIndexChanged, this,
            [choose](int row) { choose(true, row); });
    connect(toBox, &QComboBox::currentIndexChanged, this,
            [choose](int row) { choose(false, row); });
}

void CCurrencyCalc2Dlg::fillLists() {
    // Filling fires the selection signals: block them, then show the model's pair.
    const QSignalBlocker blockFrom(fromBox);
    const QSignalBlocker blockTo(toBox);
    fromBox->clear();
    toBox->clear();
    for (const std::u16string& item : model.itemTexts()) {
        const QString text = QString::fromStdU16String(item);
        fromBox->addItem(text);
        toBox->addItem(text);
    }
    fromBox->setCurrentIndex(model.fromIndex());
    toBox->setCurrentIndex(model.toIndex());
    fromBox->setEnabled(model.hasCurrencies());
    toBox->setEnabled(model.hasCurrencies());
}

void CCurrencyCalc2Dlg::pressKey(int index) {
    amount.pressKey(index, model);
    pad->setDisplayText(qText(amount.displayText()));
}

void CCurrencyCalc2Dlg::startRefresh() {
    if (refreshing()) {
        return;
    }
    CurrencyRefreshSetup setup = refreshSetup;
    // Both callbacks run on the worker; what they show is handed to this
    // dialog's thread, and dropped there if the dialog is gone by then.
    setup.showStatus = [this](CurrencyStatus, const std::string& text) {
        QMetaObject::invokeMethod(
            this, [this, line = qText(text)] { setStatus(line); }, Qt::QueuedConnection);
    };
    const auto done = [this](const CurrencyRefreshOutcome& outcome) {
        QMetaObject::invokeMethod(
            this, [this, outcome] { showOutcome(outcome); }, Qt::QueuedConnection);
    };
    waitingForOutcome = true;
    if (!worker.start(std::move(setup), done)) {
        waitingForOutcome = false;
        return;
    }
    setBusy(true);
}

void CCurrencyCalc2Dlg::showOutcome(const CurrencyRefreshOutcome& outcome) {
    waitingForOutcome = false;
    setBusy(false);
    if (outcome.result != CurrencyRefreshResult::Updated) {
        // The failure's text stays in the status line; the list is as it was.
        return;
    }
    model.applyRefresh(outcome.list);
    fillLists();
    setStatus(qText(model.statusLine()));
}

void CCurrencyCalc2Dlg::finish(int commandId) {
    // A running refresh is stopped and waited for; what it wrote is whole.
    worker.stop();
    waitingForOutcome = false;
    setBusy(false);
    model.close();
    CDialogFrame::onCommand(commandId);
}

void CCurrencyCalc2Dlg::onCommand(int commandId) {
    switch (commandId) {
    case cmd::Update:
        startRefresh();
        break;
    case cmd::Done:
    case cmd::Cancel:
    case cmd::PlatformCancel:
        finish(commandId);
        break;
    default:
        CDialogFrame::onCommand(commandId);
        break;
    }
}

void CCurrencyCalc2Dlg::keyPressEvent(QKeyEvent* event) {
    // Keys the lists leave alone reach the pad, wherever the focus is.
    if (event->isAutoRepeat() || !pad->hardwareKeyPress(*event)) {
        CDialogFrame::keyPressEvent(event);
    }
}

void CCurrencyCalc2Dlg::keyReleaseEvent(QKeyEvent* event) {
    if (event->isAutoRepeat() || !pad->hardwareKeyRelease(*event)) {
        CDialogFrame::keyReleaseEvent(event);
    }
}

} // namespace zonara
