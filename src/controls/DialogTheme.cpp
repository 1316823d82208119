#include "controls/DialogTheme.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QLinearGradient>
#include <QPainter>

namespace zonara {

const DialogTheme& dialogTheme() {
    static const DialogTheme theme;
    return theme;
}

QFont themeFont(int dpi, int points, bool bold) {
    // The offscreen platform gets a fixed face, so pictures drawn there come
    // out the same on every machine.
    QFont font = QGuiApplication::platformName() == QLatin1String("offscreen")
                     ? QFont(QStringLiteral("DejaVu Sans"))
                     : QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(std::max(9, points * 4 / 3 * std::max(dpi, 96) / 96));
    font.setBold(bold);
    return font;
}

void paintDialogBackground(QPainter& painter, const QRect& area) {
    const DialogTheme& theme = dialogTheme();
    QLinearGradient gradient(area.topLeft(), area.bottomLeft());
    gradient.setColorAt(0.0, theme.backgroundTop);
    gradient.setColorAt(1.0, theme.backgroundBottom);
    painter.fillRect(area, gradient);
}

QString dialogStyleSheet(int dpi) {
    const DialogTheme& t = dialogTheme();
    const int pad = std::max(2, 3 * dpi / 96);
    const int bar = std::max(6, 8 * dpi / 96);
    const int radius = std::max(2, 3 * dpi / 96);
    return QStringLiteral(
               "QLabel { color: %1; background: transparent; }"
               "QLabel[role=\"title\"] { color: %3; font-weight: bold; }"
               "QLabel[role=\"status\"] { color: %2; }"
               "QListWidget, QLineEdit, QComboBox, QTextEdit, QPlainTextEdit, QTreeWidget {"
               " color: %1; background: %4; border: 1px solid %5; border-radius: %7px;"
               " padding: %6px; selection-background-color: %8; selection-color: white; }"
               "QComboBox QAbstractItemView { color: %1; background: %4;"
               " selection-background-color: %8; }"
               "QHeaderView::section { color: %2; background: %4; border: none; }"
               "QPushButton { color: %1; background: %4; border: 1px solid %5;"
               " border-radius: %7px; padding: %6px; }"
               "QPushButton:pressed, QPushButton:checked { background: %8; }"
               "QPushButton:disabled { color: %2; }"
               "QProgressBar { color: %1; background: %4; border: 1px solid %5;"
               " border-radius: %7px; text-align: center; }"
               "QProgressBar::chunk { background: %3; }"
               "QRadioButton, QCheckBox { color: %1; background: transparent; }"
               "QScrollBar:vertical { background: %4; width: %9px; margin: 0; border: none; }"
               "QScrollBar:horizontal { background: %4; height: %9px; margin: 0; border: none; }"
               "QScrollBar::handle { background: %5; border-radius: %7px; min-height: 12px;"
               " min-width: 12px; }"
               "QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }"
               "QScrollBar::add-page, QScrollBar::sub-page { background: none; }")
        .arg(t.text.name(), t.dimText.name(), t.accent.name(), t.field.name(), t.fieldBorder.name())
        .arg(pad)
        .arg(radius)
        .arg(t.selection.name())
        .arg(bar);
}

} // namespace zonara
