#include "app/AboutDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

namespace zonara {

AboutDialog::AboutDialog(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("About"));
    setObjectName(QStringLiteral("aboutDialog"));
    auto* text =
        new QLabel(tr("<h2>Zonara</h2><p>Version %1</p>"
                      "<p>A world clock with travel tools: the time of four cities of your choice, "
                      "right to the minute, wherever you are.</p>"
                      "<p>Time-zone and city data from public sources; see Data/sources.</p>")
                       .arg(QStringLiteral(ZONARA_VERSION)),
                   this);
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignCenter);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(buttons);
}

} // namespace zonara
