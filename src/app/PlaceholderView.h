#pragma once
// A plain page standing in for a view whose feature is not there yet.

#include <QLabel>

namespace zonara {

class PlaceholderView : public QLabel {
    Q_OBJECT
  public:
    PlaceholderView(const QString& title, QWidget* parent = nullptr);
};

} // namespace zonara
