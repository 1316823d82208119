#pragma once
// The city details: the city's two name lines over a two-column list of what is known of it.

#include <filesystem>
#include <functional>

#include "controls/CDialogFrame.h"

#include "cities/CityDetailsLayout.h"
#include "core/ClockSlot.h"
#include "core/DstRule.h"
#include "core/SystemTime.h"

class QLabel;
class QTableWidget;

namespace zonara {

// Runs a modal dialog and gives its result; the frame's runner by default.
using DialogRunner = std::function<int(QDialog&)>;

class CCityDetails : public CDialogFrame {
    Q_OBJECT

  public:
    // Shows the city at the UTC instant. "Airports" in the menu opens the
    // airport list kept in `airportFile`; an airport picked there becomes the
    // city's ICAO code. The rules must outlive the dialog.
    CCityDetails(const ClockSlot& city, const SystemTime& utc, const DstRuleList& rules,
                 std::filesystem::path airportFile, const DeviceProfile& profile,
                 QWidget* parent = nullptr, DialogRunner runDialog = {});

    // The city as shown, with the airport picked last.
    const ClockSlot& city() const { return shown; }
    // An airport was picked: the caller keeps the city's new ICAO code.
    bool airportChosen() const { return chosenAirport; }
    DetailsArrangement arrangement() const { return arranged; }

    QLabel* cityLine() const { return cityLabel; }
    QLabel* countryLine() const { return countryLabel; }
    QTableWidget* rowList() const { return rows; }

  protected:
    void onCommand(int commandId) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void fill();
    void layOut();
    void openAirports();

    ClockSlot shown;
    SystemTime utc;
    const DstRuleList& rules;
    std::filesystem::path airportFile;
    DialogRunner runDialog;
    bool chosenAirport = false;
    DetailsArrangement arranged = DetailsArrangement::Tall;

    QLabel* cityLabel = nullptr;
    QLabel* countryLabel = nullptr;
    QTableWidget* rows = nullptr;
};

} // namespace zonara
