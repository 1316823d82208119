#pragma once
// The unit converter dialog: the calculator pad, the category, the two unit lists and CON.

#include "controls/CDialogFrame.h"
#include "tools/MetricConverter.h"

class QActionGroup;
class QComboBox;
class QLabel;

namespace zonara {

class CKeypad;

class CMetricCalc2 : public CDialogFrame {
    Q_OBJECT
  public:
    // Opens on the first category with neither unit chosen.
    explicit CMetricCalc2(const DeviceProfile& profile, QWidget* parent = nullptr);

    const MetricConverter& converter() const { return engine; }
    CKeypad* keypad() const { return pad; }
    QComboBox* fromList() const { return fromUnits; }
    QComboBox* toList() const { return toUnits; }
    QLabel* categoryLabel() const { return label; }
    // The menu items of the categories, checked as one radio group.
    QActionGroup* categoryItems() const { return categories; }

  protected:
    // The pad's keys (7000 + index) and the ten categories come here too.
    void onCommand(int commandId) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buildLayout();
    void chooseCategory(int index);
    void showState();

    MetricConverter engine;
    CKeypad* pad;
    QComboBox* fromUnits;
    QComboBox* toUnits;
    QLabel* label;
    QActionGroup* categories;
};

// A unit's long name or a category's label in the user's language.
QString unitText(std::string_view english);

} // namespace zonara
