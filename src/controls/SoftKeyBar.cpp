#include "controls/SoftKeyBar.h"

#include <QHBoxLayout>

namespace zonara {

SoftKeyBar::SoftKeyBar(const QString& leftText, QWidget* parent)
    : QWidget(parent), left(new QPushButton(leftText, this)),
      right(new QPushButton(tr("Menu"), this)), popup(new QMenu(right)) {
    setObjectName(QStringLiteral("softKeyBar"));
    left->setObjectName(QStringLiteral("leftSoftKey"));
    right->setObjectName(QStringLiteral("menu"));
    left->setFlat(true);
    right->setFlat(true);
    right->setAutoDefault(false);
    right->setMenu(popup);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->addWidget(left);
    layout->addStretch(1);
    layout->addWidget(right);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Button);
}

} // namespace zonara
