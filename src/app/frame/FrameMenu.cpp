#include "app/frame/FrameMenu.h"

#include <QAction>
#include <QMenu>
#include <map>

#include "app/frame/FrameCommands.h"

namespace zonara {

namespace {

QString translated(std::string_view text) {
    return QObject::tr(std::string(text).c_str());
}

} // namespace

void buildFrameMenu(QMenu* top, const std::function<void(int id)>& run) {
    std::map<MenuPopup, QMenu*> popups;
    for (const FrameCommand& row : frameCommands()) {
        if (row.item == MenuItem::NoItem)
            continue;
        if (row.separatorBefore)
            top->addSeparator();
        QMenu* into = top;
        if (row.popup != MenuPopup::None) {
            QMenu*& popup = popups[row.popup];
            if (popup == nullptr)
                popup = top->addMenu(translated(popupTitle(row.popup)));
            into = popup;
        }
        QAction* item = into->addAction(translated(row.text));
        item->setData(row.id);
        item->setCheckable(row.checkable);
        const int id = row.id;
        QObject::connect(item, &QAction::triggered, top, [run, id] { run(id); });
        // The skin setup is never offered in the menu, although its command
        // stays in the table and still works when it reaches the frame.
        if (row.item == MenuItem::Removed) {
            into->removeAction(item);
            item->deleteLater();
        }
    }
}

QAction* findMenuAction(const QMenu* menu, int id) {
    for (QAction* item : menu->actions()) {
        if (item->menu() != nullptr) {
            if (QAction* inner = findMenuAction(item->menu(), id))
                return inner;
        } else if (!item->isSeparator() && item->data().toInt() == id) {
            return item;
        }
    }
    return nullptr;
}

} // namespace zonara
