#include "clocks/CSkinSetup.h"

#include <QAction>
#include <QEvent>
#include <QLabel>
#include <QListWidget>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

#include "clocks/CXMLParser.h"
#include "clocks/SkinFiles.h"
#include "clocks/SkinScheme.h"
#include "controls/CommandIds.h"
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
    : CDialogFrame(profile, tr("Skins"), parent), paths(paths), current(currentSkin) {

    list = new QListWidget(this);
    const SkinList skins = enumerateSkins(paths, profile.width, profile.height, current);
    names = skins.names;
    for (const std::string& name : names)
        list->addItem(QString::fromStdString(name));

    previewLabel = new QLabel(this);
    previewLabel->setAlignment(Qt::AlignCenter);
    previewLabel->setMinimumSize(1, 1);
    previewLabel->installEventFilter(this);

    setLeftKey(tr("Done"), cmd::Done);
    done = softKeys()->leftButton();
    done->setObjectName(QStringLiteral("done"));
    cancel = addMenuCommand(tr("Cancel"), cmd::Cancel);
    cancel->setObjectName(QStringLiteral("cancel"));

    auto* content = new QVBoxLayout(this->content());
    content->setContentsMargins(6, 6, 6, 6);
    auto* heading = new QLabel(tr("Skin"), this);
    heading->setProperty("role", QStringLiteral("title"));
    content->addWidget(heading);
    content->addWidget(list, 1);
    content->addWidget(previewLabel, 2);

    connect(list, &QListWidget::currentRowChanged, this, [this] { showPreview(); });
    if (!names.empty())
        list->setCurrentRow(static_cast<int>(skins.selected));
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
    preview = skinPreviewPicture(paths, chosenSkin(), profile().width, profile().height);
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

bool CSkinSetup::eventFilter(QObject* watched, QEvent* event) {
    // The preview fills its label whatever size the layout gives it.
    if (watched == previewLabel && event->type() == QEvent::Resize)
        scalePreview();
    return CDialogFrame::eventFilter(watched, event);
}

} // namespace zonara
