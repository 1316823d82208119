#include "app/frame/PlaceholderView.h"

namespace zonara {

PlaceholderView::PlaceholderView(const QString& title, QWidget* parent) : QLabel(parent) {
    setObjectName(title);
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setMargin(16);
    setText(tr("<h2>%1</h2><p>This view comes in a later version of Zonara.</p>"
               "<p>Press 2 or choose Menu, View, Full Clock to return to the clock.</p>")
                .arg(title.toHtmlEscaped()));
}

} // namespace zonara
