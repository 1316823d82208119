#include "cities/CCitySelection.h"

#include <QAction>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

#include "controls/CommandIds.h"
#include "controls/SoftKeyBar.h"
#include "core/Text.h"

namespace zonara {

namespace {

QString qText(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

QListWidget* makeList(QWidget* parent, const char* name) {
    auto* list = new QListWidget(parent);
    list->setObjectName(QString::fromLatin1(name));
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    // Long names end in an ellipsis rather than widening the narrow columns.
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    return list;
}

} // namespace

CCitySelection::CCitySelection(CityCatalog& catalog, int slotIndex, const ClockSlot& slot,
                               const DeviceProfile& profile, QWidget* parent)
    : CDialogFrame(profile, tr("Select City"), parent), catalog(catalog) {
    buildWidgets(slotIndex);
    startAt(slot);
    search->setFocus();
}

void CCitySelection::buildWidgets(int slotIndex) {
    const QString heading = tr("Select City: Clock %1").arg(slotIndex + 1);
    setWindowTitle(heading);
    title = new QLabel(heading, this);
    title->setObjectName(QStringLiteral("title"));
    title->setProperty("role", QStringLiteral("title"));

    search = new QLineEdit(this);
    search->setObjectName(QStringLiteral("search"));
    search->setPlaceholderText(tr("Search city"));
    search->setClearButtonEnabled(true);
    search->installEventFilter(this);

    hitList = makeList(this, "hits");
    hitList->hide();

    countryList = makeList(this, "countries");
    cityList = makeList(this, "cities");
    for (const Country& country : catalog.countries()) {
        countryList->addItem(qText(country.name));
    }

    auto* lists = new QHBoxLayout;
    auto* countryColumn = new QVBoxLayout;
    countryColumn->addWidget(new QLabel(tr("Country"), this));
    countryColumn->addWidget(countryList);
    auto* cityColumn = new QVBoxLayout;
    cityColumn->addWidget(new QLabel(tr("City"), this));
    cityColumn->addWidget(cityList);
    lists->addLayout(countryColumn);
    lists->addLayout(cityColumn);

    setLeftKey(tr("Done"), cmd::Done);
    doneButton = softKeys()->leftButton();
    doneButton->setObjectName(QStringLiteral("done"));
    addMenuCommand(tr("Cancel"), cmd::Cancel)->setObjectName(QStringLiteral("cancel"));

    auto* content = new QVBoxLayout(this->content());
    content->setContentsMargins(6, 6, 6, 6);
    content->addWidget(title);
    content->addWidget(search);
    content->addWidget(hitList, 1);
    content->addLayout(lists, 2);

    setTabOrder(search, hitList);
    setTabOrder(hitList, countryList);
    setTabOrder(countryList, cityList);

    connect(countryList, &QListWidget::currentRowChanged, this, &CCitySelection::showCountry);
    connect(cityList, &QListWidget::currentRowChanged, this,
            [this](int row) { doneButton->setEnabled(row >= 0); });
    connect(cityList, &QListWidget::itemDoubleClicked, this, &CCitySelection::finish);
    connect(search, &QLineEdit::textChanged, this, &CCitySelection::showHits);
    connect(hitList, &QListWidget::currentRowChanged, this, &CCitySelection::pickHit);
    connect(hitList, &QListWidget::itemDoubleClicked, this, &CCitySelection::finish);
    doneButton->setEnabled(false);
}

void CCitySelection::startAt(const ClockSlot& slot) {
    const std::optional<StartPoint> start =
        catalog.locate(toUtf8(slot.countryName), toUtf8(slot.cityName));
    if (!start) {
        countryList->setCurrentRow(countryList->count() > 0 ? 0 : -1);
        return;
    }
    countryList->setCurrentRow(int(start->country));
    if (start->city) {
        cityList->setCurrentRow(int(*start->city));
    }
}

void CCitySelection::showCountry(int row) {
    cityList->clear();
    if (row < 0) {
        return;
    }
    for (const City& city : catalog.cities(std::size_t(row))) {
        cityList->addItem(qText(city.name));
    }
    cityList->setCurrentRow(cityList->count() > 0 ? 0 : -1);
}

void CCitySelection::showHits(const QString& text) {
    hits = catalog.search(text.toStdString(), hitLimit);
    hitList->clear();
    hitList->setVisible(!text.trimmed().isEmpty());
    for (const CityHit& hit : hits) {
        hitList->addItem(qText(catalog.city(hit).name) + QStringLiteral(", ") +
                         qText(catalog.countries()[hit.country].name));
    }
    if (hits.empty()) {
        if (hitList->isVisibleTo(this)) {
            auto* none = new QListWidgetItem(tr("No city found"), hitList);
            none->setFlags(Qt::NoItemFlags);
        }
        return;
    }
    hitList->setCurrentRow(0);
}

void CCitySelection::pickHit(int row) {
    if (row < 0 || std::size_t(row) >= hits.size()) {
        return;
    }
    const CityHit hit = hits[std::size_t(row)];
    countryList->setCurrentRow(int(hit.country));
    cityList->setCurrentRow(int(hit.city));
}

void CCitySelection::finish() {
    const int countryRow = countryList->currentRow();
    const int cityRow = cityList->currentRow();
    if (countryRow < 0 || cityRow < 0) {
        return;
    }
    const Country& country = catalog.countries()[std::size_t(countryRow)];
    choice = ChosenCity{Country{country.name, country.firstCityOffset, country.id, {}},
                        catalog.city({std::size_t(countryRow), std::size_t(cityRow)})};
    accept();
}

void CCitySelection::onCommand(int commandId) {
    if (commandId == cmd::Done)
        finish();
    else
        CDialogFrame::onCommand(commandId);
}

void CCitySelection::showEvent(QShowEvent* event) {
    CDialogFrame::showEvent(event);
    // The starting selection was made before the lists had a size.
    for (QListWidget* list : {countryList, cityList}) {
        if (list->currentItem() != nullptr) {
            list->scrollToItem(list->currentItem(), QAbstractItemView::PositionAtCenter);
        }
    }
}

bool CCitySelection::eventFilter(QObject* watched, QEvent* event) {
    // The arrow keys in the search field walk the hits, so typing and picking
    // need no change of focus.
    if (watched == search && event->type() == QEvent::KeyPress && hitList->isVisibleTo(this)) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            QCoreApplication::sendEvent(hitList, event);
            return true;
        default:
            break;
        }
    }
    return CDialogFrame::eventFilter(watched, event);
}

} // namespace zonara
