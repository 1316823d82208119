#pragma once
// The frame's "Menu" popup, made from the command table.

#include <functional>

class QAction;
class QMenu;

namespace zonara {

// Fills `top` with the table's shown rows in order, their popups made where
// their first row stands; each item carries its id and runs it. Rows removed
// at every start are made and taken out again.
void buildFrameMenu(QMenu* top, const std::function<void(int id)>& run);

// The item carrying this id anywhere in the menu; nothing when there is none.
QAction* findMenuAction(const QMenu* menu, int id);

} // namespace zonara
