#include "controls/SoftKeyBar.h"

#include <algorithm>

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

#include "controls/DialogTheme.h"

namespace zonara {

namespace {

QRect windowRectOf(const QWidget* widget) {
    const QWidget* top = widget->window();
    return QRect(top->mapToGlobal(QPoint(0, 0)), top->size());
}

QPoint clampInto(const QRect& window, QPoint at, const QSize& size) {
    at.setX(std::clamp(at.x(), window.left(),
                       std::max(window.left(), window.right() + 1 - size.width())));
    at.setY(std::clamp(at.y(), window.top(),
                       std::max(window.top(), window.bottom() + 1 - size.height())));
    return at;
}

} // namespace

SoftKeyBar::SoftKeyBar(const QString& leftText, QWidget* parent)
    : QWidget(parent), left(new QPushButton(leftText, this)),
      right(new QPushButton(tr("Menu"), this)), popup(new QMenu(this)) {
    setObjectName(QStringLiteral("softKeyBar"));
    left->setObjectName(QStringLiteral("leftSoftKey"));
    right->setObjectName(QStringLiteral("menu"));
    for (QPushButton* key : {left, right}) {
        key->setFlat(true);
        key->setAutoDefault(false);
        key->setFocusPolicy(Qt::NoFocus);
    }
    const DialogTheme& theme = dialogTheme();
    setStyleSheet(QStringLiteral("QPushButton { color: %1; background: transparent; border: none;"
                                 " padding: 3px 10px; font-weight: bold; }"
                                 "QPushButton:pressed { color: %2; }"
                                 "QPushButton:disabled { color: %3; }")
                      .arg(theme.text.name(), theme.accent.name(), theme.dimText.name()));
    popup->setStyleSheet(QStringLiteral("QMenu { color: %1; background: %2; border: 1px solid %3; }"
                                        "QMenu::item:selected { background: %4; }"
                                        "QMenu::item:disabled { color: %5; }"
                                        "QMenu::separator { height: 1px; background: %3;"
                                        " margin: 3px 6px; }")
                             .arg(theme.text.name(), theme.field.name(), theme.fieldBorder.name(),
                                  theme.selection.name(), theme.dimText.name()));
    connect(right, &QPushButton::clicked, this, &SoftKeyBar::openMenu);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->addWidget(left);
    layout->addStretch(1);
    layout->addWidget(right);
}

void SoftKeyBar::setDpi(int dpi) {
    const QFont font = themeFont(dpi, 9, true);
    left->setFont(font);
    right->setFont(font);
    popup->setFont(themeFont(dpi, 9));
}

QPoint SoftKeyBar::popupPosition(const QRect& window, const QRect& key, const QSize& size) {
    return clampInto(window, QPoint(key.right() + 1 - size.width(), key.top() - size.height()),
                     size);
}

QPoint SoftKeyBar::submenuPosition(const QRect& window, const QRect& parentMenu,
                                   const QRect& wanted) {
    QPoint at(parentMenu.right() + 1, wanted.top());
    if (at.x() + wanted.width() > window.right() + 1)
        at.setX(parentMenu.left() - wanted.width());
    return clampInto(window, at, wanted.size());
}

void SoftKeyBar::openMenu() {
    watchSubmenus(popup);
    popup->ensurePolished();
    const QSize size = popup->sizeHint();
    const QRect key(right->mapToGlobal(QPoint(0, 0)), right->size());
    popup->popup(popupPosition(windowRectOf(this), key, size));
}

void SoftKeyBar::watchSubmenus(QMenu* menu) {
    for (QAction* item : menu->actions()) {
        if (QMenu* inner = item->menu()) {
            inner->setFont(popup->font());
            inner->setStyleSheet(popup->styleSheet());
            inner->removeEventFilter(this);
            inner->installEventFilter(this);
            watchSubmenus(inner);
        }
    }
}

bool SoftKeyBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show) {
        auto* menu = qobject_cast<QMenu*>(watched);
        // Submenus made with addMenu are children of the menu that opens them.
        auto* parentMenu = menu != nullptr ? qobject_cast<QMenu*>(menu->parentWidget()) : nullptr;
        if (menu != nullptr && parentMenu != nullptr) {
            const QRect parentRect(parentMenu->pos(), parentMenu->size());
            menu->move(submenuPosition(windowRectOf(this), parentRect, menu->geometry()));
        }
    }
    return QWidget::eventFilter(watched, event);
}

void SoftKeyBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const DialogTheme& theme = dialogTheme();
    painter.fillRect(rect(), theme.bar);
    painter.setPen(theme.fieldBorder);
    painter.drawLine(0, 0, width(), 0);
}

} // namespace zonara
