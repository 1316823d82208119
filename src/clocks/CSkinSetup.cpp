#include "clocks/CSkinSetup.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

#include "clocks/CXMLParser.h"
#include "clocks/SkinFiles.h"
#include "clocks/SkinScheme.h"
#include "controls/SoftKeyBar.h"

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

    auto* bar = new SoftKeyBar(tr("Done"), this);
    done = bar->leftButton();
    done->setObjectName(QStringLiteral("done"));
    done->setDefault(true);
    cancel = bar->menu()->addAction(tr("Cancel"));
    cancel->setObjectName(QStringLiteral("cancel"));
    connect(done, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QAction::triggered, this, &QDialog::reject);

    auto* content = new QVBoxLayout;
    content->setContentsMargins(6, 6, 6, 6);
    content->addWidget(new QLabel(tr("Skin"), this));
    content->addWidget(list, 1);
    content->addWidget(previewLabel, 2);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(content, 1);
    layout->addWidget(bar);

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
    scalePreview();
}

void CSkinSetup::scalePreview() {
    if (preview.isNull()) {
        previewLabel->clear();
        return;
    }
    previewLabel->setPixmap(QPixmap::fromImage(
        preview.scaled(previewLabel->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation)));
}

void CSkinSetup::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    scalePreview();
}

} // namespace zonara
