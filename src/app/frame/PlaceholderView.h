#pragma once
// A plain page standing in for a view whose feature is not there yet.

#include <QLabel>

#include "controls/ClockView.h"

namespace zonara {

class PlaceholderView : public QLabel, public ClockView {
    Q_OBJECT
  public:
    PlaceholderView(const QString& title, QWidget* parent = nullptr);

    QWidget* widget() override { return this; }
    void showSlots(const Settings&, const DstRuleList&) override {}
    void refresh() override {}
    void takeFocus() override { setFocus(); }
};

} // namespace zonara
