#pragma once
// The dialog that chooses a clock slot's city by country and city or by search.

#include <optional>

#include "controls/CDialogFrame.h"

#include "cities/CityCatalog.h"
#include "core/ClockSlot.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace zonara {

// What "Done" chose; the country is copied without its cities.
struct ChosenCity {
    Country country;
    City city;
};

class CCitySelection : public CDialogFrame {
    Q_OBJECT

  public:
    // Starts at the slot's country and city when the catalog still has them.
    // The catalog must outlive the dialog.
    CCitySelection(CityCatalog& catalog, int slotIndex, const ClockSlot& slot,
                   const DeviceProfile& profile, QWidget* parent = nullptr);

    // Set only when the dialog ended with "Done"; the caller assigns the slot
    // and saves the settings.
    const std::optional<ChosenCity>& chosen() const { return choice; }

    // Hits shown for one search at most.
    static constexpr std::size_t hitLimit = 50;

  protected:
    void onCommand(int commandId) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buildWidgets(int slotIndex);
    void startAt(const ClockSlot& slot);
    void showCountry(int row);
    void showHits(const QString& text);
    void pickHit(int row);
    void finish();

    CityCatalog& catalog;
    std::vector<CityHit> hits;
    std::optional<ChosenCity> choice;

    QLabel* title = nullptr;
    QLineEdit* search = nullptr;
    QListWidget* hitList = nullptr;
    QListWidget* countryList = nullptr;
    QListWidget* cityList = nullptr;
    QPushButton* doneButton = nullptr;
};

} // namespace zonara
