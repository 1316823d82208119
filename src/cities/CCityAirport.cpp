#include "cities/CCityAirport.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QVBoxLayout>

#include "controls/CommandIds.h"
#include "controls/DialogTheme.h"

namespace zonara {

namespace {

// Loading and saving show the wait cursor, as long file work does everywhere.
class WaitCursor {
  public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

AirportDialogState openList(const std::filesystem::path& file) {
    WaitCursor wait;
    return AirportDialogState(file);
}

QString qText(const std::u16string& text) {
    return QString::fromStdU16String(text);
}

QLabel* boldLabel(const QString& text, int dpi, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setFont(themeFont(dpi, 9, true));
    return label;
}

} // namespace

CCityAirport::CCityAirport(const std::filesystem::path& file, const DeviceProfile& profile,
                           QWidget* parent)
    : CDialogFrame(profile, tr("Airport"), parent), airports(openList(file)) {
    buildWidgets();
    showState();
}

void CCityAirport::buildWidgets() {
    const int dpi = profile().dpi;
    QWidget* area = content();
    auto* heading = boldLabel(tr("Airport"), dpi, area);
    heading->setProperty("role", QStringLiteral("title"));

    combo = new QComboBox(area);
    combo->setObjectName(QStringLiteral("airports"));
    combo->setEditable(false);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(4);

    description = new QLineEdit(area);
    description->setObjectName(QStringLiteral("description"));
    description->setMaxLength(int(airportTextLimit));
    code = new QLineEdit(area);
    code->setObjectName(QStringLiteral("code"));
    code->setMaxLength(4);
    for (QLineEdit* box : {description, code})
        box->installEventFilter(this);

    hint = new QLabel(area);
    hint->setObjectName(QStringLiteral("hint"));
    hint->setWordWrap(true);
    hint->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    hint->setFont(themeFont(dpi));

    auto* descriptionLabel = boldLabel(tr("Description"), dpi, area);
    auto* codeLabel = boldLabel(tr("ICAO"), dpi, area);
    const int margin = std::max(3, 6 * dpi / 96 / 2);
    auto* column = new QVBoxLayout(area);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(margin);
    column->addWidget(heading);
    column->addWidget(combo);
    // Tall screens stack each label over its box; the short ones (the wide
    // forms and 176x220) put the labels beside, or the hint line would not fit.
    const bool stacked = profile().height > profile().width && profile().height >= 320;
    if (!stacked) {
        auto* boxes = new QGridLayout;
        boxes->setHorizontalSpacing(2 * margin);
        boxes->setVerticalSpacing(margin);
        boxes->addWidget(descriptionLabel, 0, 0);
        boxes->addWidget(description, 0, 1);
        boxes->addWidget(codeLabel, 1, 0);
        boxes->addWidget(code, 1, 1);
        column->addLayout(boxes);
    } else {
        column->addWidget(descriptionLabel);
        column->addWidget(description);
        column->addWidget(codeLabel);
        column->addWidget(code);
    }
    column->addWidget(hint);
    column->addStretch(1);
    setTabOrder(combo, description);
    setTabOrder(description, code);

    setLeftKey(tr("Done"), cmd::Done);
    addMenuCommand(tr("Add"), cmd::AirportAdd)->setObjectName(QStringLiteral("add"));
    addMenuCommand(tr("Delete"), cmd::AirportDelete)->setObjectName(QStringLiteral("delete"));
    addMenuSeparator();
    addMenuCommand(tr("Cancel"), cmd::Cancel)->setObjectName(QStringLiteral("cancel"));

    connect(combo, &QComboBox::currentIndexChanged, this, [this](int line) {
        if (line < 0)
            return;
        airports.select(std::size_t(line));
        description->setText(qText(airports.description()));
        code->setText(qText(airports.code()));
    });
}

void CCityAirport::takeBoxes() {
    airports.setDescription(description->text().toStdU16String());
    airports.setCode(code->text().toStdU16String());
}

void CCityAirport::showState() {
    {
        const QSignalBlocker quiet(combo);
        combo->clear();
        for (const std::u16string& line : airports.comboLines())
            combo->addItem(qText(line));
        combo->setCurrentIndex(airports.selection() ? int(*airports.selection()) : -1);
    }
    description->setText(qText(airports.description()));
    code->setText(qText(airports.code()));
    hint->setText(qText(airports.hint()));
    switch (airports.focus()) {
    case AirportFocus::Combo:
        combo->setFocus();
        break;
    case AirportFocus::Description:
        description->setFocus();
        description->selectAll();
        break;
    case AirportFocus::Code:
        code->setFocus();
        code->selectAll();
        break;
    }
}

void CCityAirport::finish(AirportDialogEnd ending) {
    end = std::move(ending);
    done(end.result);
}

void CCityAirport::onCommand(int commandId) {
    takeBoxes();
    switch (commandId) {
    case cmd::AirportAdd:
        airports.add();
        showState();
        break;
    case cmd::AirportDelete:
        airports.remove();
        showState();
        break;
    case cmd::Done: {
        WaitCursor wait;
        finish(airports.done());
        break;
    }
    case cmd::Cancel:
    case cmd::PlatformCancel: {
        WaitCursor wait;
        finish(airports.cancel());
        break;
    }
    default:
        break;
    }
}

bool CCityAirport::eventFilter(QObject* watched, QEvent* event) {
    // A box that gains the focus has all its text selected, however it got
    // there; a click would clear a selection made at once, so it comes after.
    if (event->type() == QEvent::FocusIn && (watched == description || watched == code)) {
        auto* box = static_cast<QLineEdit*>(watched);
        QTimer::singleShot(0, box, [box] { box->selectAll(); });
    }
    return CDialogFrame::eventFilter(watched, event);
}

} // namespace zonara
