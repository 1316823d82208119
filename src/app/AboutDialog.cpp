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
        new QLabel(tr("<h2>Zonara</h2><p>Version %1</p>"
                      "<p>A world clock with travel tools: the time of four cities of your choice, "
                      "right to the minute, wherever you are.</p>"
                      "<p>Time-zone and city data from public sources; see Data/sources.</p>"
                      "<p>Globe imagery courtesy of NASA: Blue Marble (NASA Goddard Space Flight "
                      "Center, Earth Observatory) and Earth's City Lights (NASA GSFC and NOAA "
                      "NGDC).</p>")
                       .arg(QStringLiteral(ZONARA_VERSION)),
                   content());
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignCenter);
    auto* layout = new QVBoxLayout(content());
    layout->addWidget(text);
}

} // namespace zonara
