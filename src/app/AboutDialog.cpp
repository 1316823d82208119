#include "app/AboutDialog.h"

#include <QLabel>
#include <QVBoxLayout>

#include "controls/CommandIds.h"

namespace zonara {

AboutDialog::AboutDialog(const DeviceProfile& profile, QWidget* parent)
    : CDialogFrame(profile, tr("About"), parent) {
    setObjectName(QStringLiteral("aboutDialog"));
    setLeftKey(tr("Done"), cmd::Done);
    auto* text =
        new QLabel(tr("<h3>Zonara</h3><p>Version %1</p>"
                      "<p>A world clock with travel tools: the time of four cities of your choice, "
                      "right to the minute, wherever you are.</p>"
                      "<p><small>Time-zone and city data from public sources; see "
                      "Data/sources. Globe pictures courtesy of NASA: Blue Marble and Earth's "
                      "City Lights (NASA GSFC, NOAA NGDC).</small></p>")
                       .arg(QStringLiteral(ZONARA_VERSION)),
                   content());
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignCenter);
    auto* layout = new QVBoxLayout(content());
    // The smallest screen needs every row for the credits.
    layout->setContentsMargins(4, 0, 4, 0);
    layout->addWidget(text);
}

} // namespace zonara
