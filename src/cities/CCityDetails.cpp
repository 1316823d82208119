#include "cities/CCityDetails.h"

#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>

#include "cities/AirportChoice.h"
#include "cities/CCityAirport.h"
#include "cities/CityDetailsRows.h"
#include "controls/CommandIds.h"
#include "controls/DialogTheme.h"

namespace zonara {

namespace {

QString qText(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
}

} // namespace

CCityDetails::CCityDetails(const ClockSlot& city, const SystemTime& utc, const DstRuleList& rules,
                           std::filesystem::path airportFile, const DeviceProfile& profile,
                           QWidget* parent, DialogRunner runDialog)
    : CDialogFrame(profile, tr("City Details"), parent), shown(city), utc(utc), rules(rules),
      airportFile(std::move(airportFile)), runDialog(std::move(runDialog)) {
    if (!this->runDialog)
        this->runDialog = [](QDialog& dialog) { return dialog.exec(); };

    cityLabel = new QLabel(content());
    cityLabel->setObjectName(QStringLiteral("cityName"));
    cityLabel->setProperty("role", QStringLiteral("title"));
    countryLabel = new QLabel(content());
    countryLabel->setObjectName(QStringLiteral("countryName"));
    for (QLabel* line : {cityLabel, countryLabel})
        line->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);

    rows = new QTableWidget(0, 2, content());
    rows->setObjectName(QStringLiteral("details"));
    rows->horizontalHeader()->hide();
    rows->verticalHeader()->hide();
    rows->setShowGrid(false);
    rows->setEditTriggers(QAbstractItemView::NoEditTriggers);
    rows->setSelectionMode(QAbstractItemView::SingleSelection);
    rows->setSelectionBehavior(QAbstractItemView::SelectRows);
    rows->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    rows->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    // The second column takes what the first leaves, so a vertical scroll
    // bar narrows the values rather than hiding them; a value wider than
    // its column breaks at its blank (a date and its time) instead of
    // losing its end, and its row grows to hold it.
    rows->horizontalHeader()->setStretchLastSection(true);
    rows->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    rows->setWordWrap(true);
    rows->setTextElideMode(Qt::ElideNone);
    // The list's own style sheet would cut its font off from the dialog's,
    // so it names the size itself.
    const DialogTheme& theme = dialogTheme();
    rows->setStyleSheet(QStringLiteral("QTableWidget { color: %1; background: %2;"
                                       " border: 1px solid %3; selection-background-color: %4;"
                                       " selection-color: white; outline: none;"
                                       " font-size: %5px; }")
                            .arg(theme.text.name(), theme.field.name(), theme.fieldBorder.name(),
                                 theme.selection.name())
                            .arg(themeFont(profile.dpi).pixelSize()));

    setLeftKey(tr("Done"), cmd::Done);
    addMenuCommand(tr("Airports"), cmd::Airports)->setObjectName(QStringLiteral("airports"));

    content()->installEventFilter(this);
    fill();
    layOut();
    rows->setFocus();
}

void CCityDetails::fill() {
    const CityDetails details = cityDetails(shown, utc, rules);
    cityLabel->setText(qText(details.cityName));
    countryLabel->setText(qText(details.countryName));
    rows->setRowCount(int(details.rows.size()));
    int line = 0;
    for (const DetailsRow& row : details.rows) {
        auto* label = new QTableWidgetItem(tr(std::string(detailsLabel(row.id)).c_str()));
        label->setForeground(dialogTheme().dimText);
        rows->setItem(line, 0, label);
        rows->setItem(line, 1, new QTableWidgetItem(qText(row.value)));
        ++line;
    }
}

void CCityDetails::layOut() {
    const QSize area = content()->size();
    arranged = detailsArrangement(width(), height());
    const int dpi = profile().dpi;
    const bool tall = arranged == DetailsArrangement::Tall;
    cityLabel->setFont(themeFont(dpi, tall ? 12 : 11, true));
    countryLabel->setFont(themeFont(dpi, tall ? 10 : 9));

    const DetailsGeometry g = detailsGeometry(arranged, area.width(), area.height(), dpi);
    const auto place = [](QWidget* widget, const PixelRect& box) {
        widget->setGeometry(box.left, box.top, box.width(), box.height());
    };
    place(cityLabel, g.cityLine);
    place(countryLabel, g.countryLine);
    place(rows, g.list);
    rows->setColumnWidth(0, g.labelColumn);
}

bool CCityDetails::eventFilter(QObject* watched, QEvent* event) {
    if (watched == content() && event->type() == QEvent::Resize)
        layOut();
    return CDialogFrame::eventFilter(watched, event);
}

void CCityDetails::openAirports() {
    CCityAirport airports(airportFile, profile(), this);
    runDialog(airports);
    if (!keepChosenAirport(shown, airports.ending()))
        return;
    chosenAirport = true;
    fill();
}

void CCityDetails::onCommand(int commandId) {
    if (commandId == cmd::Airports)
        openAirports();
    else
        CDialogFrame::onCommand(commandId);
}

} // namespace zonara
