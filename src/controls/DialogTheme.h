#pragma once
// The look every view-sized dialog shares: the colours and fonts of the default
// skin, the painted background and the style sheet of the common widgets.

#include <QColor>
#include <QFont>
#include <QString>

class QPainter;
class QRect;

namespace zonara {

struct DialogTheme {
    QColor backgroundTop{16, 26, 58};
    QColor backgroundBottom{6, 10, 28};
    QColor text{226, 234, 248};
    QColor dimText{150, 168, 205};
    QColor accent{255, 179, 71}; // the amber of the default skin's digits
    QColor field{24, 38, 82};
    QColor fieldBorder{74, 104, 170};
    QColor selection{52, 92, 178};
    QColor bar{10, 16, 40};
};

const DialogTheme& dialogTheme();

// The user-interface face at a pixel size suited to the profile's dpi:
// `points` at 96 dpi is the base, scaled by dpi / 96.
QFont themeFont(int dpi, int points = 9, bool bold = false);

// The dialogs' background: a vertical gradient from the top colour to the
// bottom one, with a faint glow line under the title area.
void paintDialogBackground(QPainter& painter, const QRect& area);

// The style sheet for the lists, boxes, buttons and labels inside a dialog.
QString dialogStyleSheet(int dpi);

} // namespace zonara
