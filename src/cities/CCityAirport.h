#pragma once
// The user's airport list: a combo box of the airports, a description and an ICAO box, Add and
// Delete.

#include <filesystem>

#include "controls/CDialogFrame.h"

#include "cities/AirportDialogState.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace zonara {

class CCityAirport : public CDialogFrame {
    Q_OBJECT

  public:
    // Loads the list from `file` (created empty when missing) and shows its
    // first airport.
    CCityAirport(const std::filesystem::path& file, const DeviceProfile& profile,
                 QWidget* parent = nullptr);

    // How the dialog ended: its result is the command that ended it (Done
    // only with a description and a 4-letter code in the boxes, else Cancel)
    // and the boxes' texts. A Cancel ending until then.
    const AirportDialogEnd& ending() const { return end; }
    const AirportDialogState& state() const { return airports; }

    QComboBox* airportBox() const { return combo; }
    QLineEdit* descriptionBox() const { return description; }
    QLineEdit* codeBox() const { return code; }
    QLabel* hintLine() const { return hint; }

  protected:
    void onCommand(int commandId) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buildWidgets();
    void takeBoxes();
    void showState();
    void finish(AirportDialogEnd ending);

    AirportDialogState airports;
    AirportDialogEnd end;

    QComboBox* combo = nullptr;
    QLineEdit* description = nullptr;
    QLineEdit* code = nullptr;
    QLabel* hint = nullptr;
};

} // namespace zonara
