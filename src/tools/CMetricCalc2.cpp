#include "tools/CMetricCalc2.h"

#include <QAction>
#include <QActionGroup>
#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "controls/CKeypad.h"
#include "controls/CommandIds.h"
#include "controls/DialogTheme.h"
#include "controls/SoftKeyBar.h"

namespace zonara {

QString unitText(std::string_view english) {
    const QByteArray key(english.data(), qsizetype(english.size()));
    return QCoreApplication::translate("UnitTables", key.constData());
}

CMetricCalc2::CMetricCalc2(const DeviceProfile& profile, QWidget* parent)
    : CDialogFrame(profile, tr("Metric"), parent), pad(new CKeypad(this)),
      fromUnits(new QComboBox(this)), toUnits(new QComboBox(this)), label(new QLabel(this)),
      categories(new QActionGroup(this)) {
    pad->setProfile(profile);
    pad->setFont(themeFont(profile.dpi));
    connect(pad, &CKeypad::command, this, [this](int id) { runCommand(id); });

    label->setObjectName(QStringLiteral("category"));
    label->setProperty("role", QStringLiteral("title"));
    fromUnits->setObjectName(QStringLiteral("fromUnits"));
    toUnits->setObjectName(QStringLiteral("toUnits"));
    for (QComboBox* list : {fromUnits, toUnits}) {
        // Long names are cut short in the box; the open list shows them whole.
        list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        list->setMinimumContentsLength(4);
        list->installEventFilter(this);
    }
    fromUnits->setPlaceholderText(tr("from"));
    toUnits->setPlaceholderText(tr("to"));
    connect(fromUnits, &QComboBox::currentIndexChanged, this, [this](int row) {
        engine.setFromUnit(row >= 0 ? std::optional<int>(row) : std::nullopt);
    });
    connect(toUnits, &QComboBox::currentIndexChanged, this, [this](int row) {
        engine.setToUnit(row >= 0 ? std::optional<int>(row) : std::nullopt);
    });

    setLeftKey(tr("Done"), cmd::Done);
    // Enter belongs to the sums being typed, not to closing the converter.
    softKeys()->leftButton()->setDefault(false);
    categories->setExclusive(true);
    for (int i = 0; i < unitCategoryCount; ++i) {
        QAction* item =
            addMenuCommand(unitText(unitCategoryNames[std::size_t(i)]), cmd::MetricCategory + i);
        item->setCheckable(true);
        categories->addAction(item);
    }

    buildLayout();
    chooseCategory(0);
    showState();
    pad->setFocus();
}

void CMetricCalc2::buildLayout() {
    const DeviceProfile& screen = profile();
    const bool landscape = screen.width > screen.height;
    // The smallest screens have no pixel to spare between the parts.
    const bool tiny = std::min(screen.width, screen.height) < 240;
    const int margin = tiny ? 2 : 4 * screen.dpi / 96;
    // A portrait pad fills the width but for what is left at its sides.
    const int side =
        landscape ? margin : std::min(margin, (screen.width - pad->layout().width) / 2);
    // The label may be cut rather than widen the dialog beyond its screen;
    // beside the small landscape pad a smaller face keeps "Temperature" whole.
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    if (tiny && landscape)
        label->setFont(themeFont(screen.dpi, 8, true));

    // The pad's gaps in the colour the dialog's background ends in.
    QPalette colours = pad->palette();
    colours.setColor(QPalette::Window, dialogTheme().backgroundBottom);
    pad->setPalette(colours);

    // Portrait screens have the width for the captions beside the lists;
    // landscape ones, beside the pad, have the height to put them above.
    auto* fromCaption = new QLabel(tr("From"), this);
    auto* toCaption = new QLabel(tr("To"), this);
    QLayout* units = nullptr;
    if (landscape) {
        auto* stack = new QVBoxLayout;
        stack->setSpacing(0);
        stack->addWidget(label);
        stack->addWidget(fromCaption);
        stack->addWidget(fromUnits);
        stack->addSpacing(margin);
        stack->addWidget(toCaption);
        stack->addWidget(toUnits);
        units = stack;
    } else {
        auto* grid = new QGridLayout;
        grid->setSpacing(margin);
        grid->addWidget(label, 0, 0, 1, 2);
        grid->addWidget(fromCaption, 1, 0);
        grid->addWidget(fromUnits, 1, 1);
        grid->addWidget(toCaption, 2, 0);
        grid->addWidget(toUnits, 2, 1);
        grid->setColumnStretch(1, 1);
        units = grid;
    }
    units->setContentsMargins(0, 0, 0, 0);

    if (landscape) {
        // Lists on the left, the pad on the right, both from the top.
        auto* row = new QHBoxLayout(content());
        row->setContentsMargins(side, margin, side, 0);
        row->setSpacing(margin);
        auto* left = new QVBoxLayout;
        left->addLayout(units);
        left->addStretch(1);
        row->addLayout(left, 1);
        row->addWidget(pad, 0, Qt::AlignTop);
    } else {
        auto* column = new QVBoxLayout(content());
        column->setContentsMargins(side, margin, side, 0);
        column->setSpacing(margin);
        column->addLayout(units);
        column->addStretch(1);
        column->addWidget(pad, 0, Qt::AlignHCenter);
    }
}

void CMetricCalc2::chooseCategory(int index) {
    const auto category = UnitCategory(index);
    engine.selectCategory(category);
    for (QComboBox* list : {fromUnits, toUnits}) {
        const QSignalBlocker quiet(list);
        list->clear();
        for (int unit = 0; unit < engine.table().UnitCount(); ++unit)
            list->addItem(unitText(engine.table().UnitName(unit)));
        // The lists start with no unit chosen, as the converter does.
        list->setCurrentIndex(-1);
    }
    label->setText(unitText(categoryName(category)));
    categories->actions().at(index)->setChecked(true);
    update();
}

void CMetricCalc2::onCommand(int commandId) {
    if (commandId >= cmd::MetricCategory && commandId < cmd::MetricCategory + unitCategoryCount) {
        chooseCategory(commandId - cmd::MetricCategory);
        showState();
        return;
    }
    if (commandId >= keypadCommandBase && commandId < keypadCommandBase + keypadKeyCount) {
        engine.pressKey(commandId - keypadCommandBase);
        showState();
        return;
    }
    CDialogFrame::onCommand(commandId);
}

void CMetricCalc2::showState() {
    pad->setDisplayText(QString::fromStdString(engine.displayText()));
    // The converted value with its unit goes to the status line under the pad.
    setStatus(QString::fromStdString(engine.resultText()));
}

void CMetricCalc2::keyPressEvent(QKeyEvent* event) {
    if (event->isAutoRepeat() || !pad->hardwareKeyPress(*event))
        CDialogFrame::keyPressEvent(event);
}

void CMetricCalc2::keyReleaseEvent(QKeyEvent* event) {
    if (event->isAutoRepeat() || !pad->hardwareKeyRelease(*event))
        CDialogFrame::keyReleaseEvent(event);
}

bool CMetricCalc2::eventFilter(QObject* watched, QEvent* event) {
    // A unit list with the focus would take digits for a search: the pad's
    // keys go to the pad, the list keeps its arrows.
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->isAutoRepeat())
            return false;
        if (event->type() == QEvent::KeyPress ? pad->hardwareKeyPress(*key)
                                              : pad->hardwareKeyRelease(*key))
            return true;
    }
    return CDialogFrame::eventFilter(watched, event);
}

} // namespace zonara
