#include "controls/SoftKeyBar.h"

#include <gtest/gtest.h>

namespace zonara {

TEST(SoftKeyBar, PopupsOpenAboveTheirKeyInsideTheWindow) {
    const QRect window(100, 50, 240, 340);
    struct Row {
        QRect key;
        QSize popup;
        QPoint at;
    };
    for (const Row& r : {
             // Right edges aligned, bottom on the key's top.
             Row{QRect(280, 366, 60, 24), QSize(120, 200), QPoint(220, 166)},
             // Taller than the room above the key: held at the window's top.
             Row{QRect(280, 366, 60, 24), QSize(120, 400), QPoint(220, 50)},
             // Wider than the room left of the key's right edge: held at the left edge.
             Row{QRect(100, 366, 60, 24), QSize(120, 100), QPoint(100, 266)},
         }) {
        EXPECT_EQ(SoftKeyBar::popupPosition(window, r.key, r.popup), r.at) << r.popup.height();
    }
    // Submenus open to the right when there is room, else to the left, and
    // never below the window.
    const QRect parent(220, 166, 120, 200);
    EXPECT_EQ(SoftKeyBar::submenuPosition(window, QRect(100, 166, 80, 200), QRect(0, 170, 100, 60)),
              QPoint(180, 170));
    EXPECT_EQ(SoftKeyBar::submenuPosition(window, parent, QRect(0, 170, 100, 60)),
              QPoint(120, 170));
    EXPECT_EQ(SoftKeyBar::submenuPosition(window, parent, QRect(0, 360, 100, 60)),
              QPoint(120, 330));
}

} // namespace zonara
