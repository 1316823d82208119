#include "clocks/CSkinSetup.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

#include "clocks/CXMLParser.h"
#include "clocks/SkinFiles.h"
#include "clocks/SkinScheme.h"

namespace zonara {

QImage skinPreviewPicture(const Paths& paths, std::string_view skinName, int width, int height) {
    CXMLParser parser;
    parser.Create();
    parser.Load(previewSchemeFile(paths, skinName, width, height));
    std::string name;
    const bool named = found(parser.GetValue(std::string(schemePrefix) + "/background/@img", name));
    parser.Close();
    if (!named || name.empty())
        return {};
    return QImage(QString::fromStdString(paths.graphicsFile(name).string()));
}

CSkinSetup::CSkinSetup(const Paths& paths, const DeviceProfile& profile,
                       std::string_view currentSkin, QWidget* parent)
    : QDialog(parent), paths(paths), profile(profile), current(currentSkin) {
    setWindowTitle(tr("Skins"));
    setModal(true);

    list = new QListWidget(this);
    const SkinList skins = enumerateSkins(paths, profile.width, profile.height, current);
    names = skins.names;
    for (const std::string& name : names)
        list->addItem(QString::fromStdString(name));

    previewLabel = new QLabel(this);
    previewLabel->setAlignment(Qt::AlignCenter);
    previewLabel->setMinimumSize(1, 1);

    // The soft-key bar: Done on the left, Cancel in the Menu on the right.
    done = new QPushButton(tr("Done"), this);
    auto* menuButton = new QPushButton(tr("Menu"), this);
    auto* menu = new QMenu(menuButton);
    cancel = menu->addAction(tr("Cancel"));
    menuButton->setMenu(menu);
    connect(done, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QAction::triggered, this, &QDialog::reject);

    auto* bar = new QHBoxLayout;
    bar->addWidget(done);
    bar->addStretch(1);
    bar->addWidget(menuButton);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list, 1);
    layout->addWidget(previewLabel, 2);
    layout->addLayout(bar);

    connect(list, &QListWidget::currentRowChanged, this, [this] { showPreview(); });
    if (!names.empty())
        list->setCurrentRow(static_cast<int>(skins.selected));

    if (parent != nullptr)
        setGeometry(parent->window()->geometry());
    else
        resize(profile.width, profile.height);
}

std::string CSkinSetup::chosenSkin() const {
    const int row = list->currentRow();
    if (row < 0 || static_cast<std::size_t>(row) >= names.size())
        return current;
    return names[static_cast<std::size_t>(row)];
}

bool CSkinSetup::skinChanged() const {
    return result() == QDialog::Accepted && chosenSkin() != current;
}

void CSkinSetup::showPreview() {
    preview = skinPreviewPicture(paths, chosenSkin(), profile.width, profile.height);
    if (preview.isNull()) {
        previewLabel->clear();
        return;
    }
    const QSize room = previewLabel->size().isEmpty() ? QSize(profile.width / 2, profile.height / 2)
                                                      : previewLabel->size();
    previewLabel->setPixmap(
        QPixmap::fromImage(preview.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
}

} // namespace zonara
