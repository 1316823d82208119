#pragma once
// The currency converter: the keypad for the amount, the "from" and "to" lists, CON, and Update.

#include <QString>

#include "controls/CDialogFrame.h"
#include "core/DeviceProfile.h"
#include "core/Paths.h"
#include "net/CurrencyConverter.h"
#include "net/CurrencyPad.h"
#include "net/CurrencyRefresh.h"
#include "net/CurrencyRefreshWorker.h"

class QComboBox;

namespace zonara {

class CKeypad;

class CCurrencyCalc2Dlg : public CDialogFrame {
    Q_OBJECT
  public:
    // Opens the stored list with the last pair chosen. `refresh` is how Update
    // reaches the sources; its status callback is the dialog's own.
    CCurrencyCalc2Dlg(const Paths& paths, const DeviceProfile& profile,
                      CurrencyRefreshSetup refresh, QWidget* parent = nullptr);
    ~CCurrencyCalc2Dlg() override;

    const CurrencyConverter& converter() const { return model; }
    bool refreshing() const { return worker.running() || waitingForOutcome; }

    QComboBox* fromList() const { return fromBox; }
    QComboBox* toList() const { return toBox; }
    CKeypad* keypad() const { return pad; }

  protected:
    void onCommand(int commandId) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

  private:
    void buildWidgets();
    void fillLists();
    void pressKey(int index);
    void startRefresh();
    void showOutcome(const CurrencyRefreshOutcome& outcome);
    void finish(int commandId);

    CurrencyConverter model;
    CurrencyPad amount;
    CurrencyRefreshSetup refreshSetup;
    CurrencyRefreshWorker worker;
    bool waitingForOutcome = false; // ended on the worker, not yet shown here
    QComboBox* fromBox = nullptr;
    QComboBox* toBox = nullptr;
    CKeypad* pad = nullptr;
};

} // namespace zonara
