#pragma once
// The skin chooser: the skins for the screen, a preview of the selected one, Done and Cancel.

#include <string>
#include <string_view>
#include <vector>

#include "controls/CDialogFrame.h"

#include "core/DeviceProfile.h"
#include "core/Paths.h"

class QAction;
class QLabel;
class QListWidget;
class QPushButton;

namespace zonara {

class CSkinSetup : public CDialogFrame {
    Q_OBJECT
  public:
    // Lists the skins that have a scheme for the profile's screen size, with
    // the current one selected (or the first when it has none). The dialog
    // covers the parent's window.
    CSkinSetup(const Paths& paths, const DeviceProfile& profile, std::string_view currentSkin,
               QWidget* parent = nullptr);

    const std::vector<std::string>& skinNames() const { return names; }
    // The skin selected in the list; the current one when the list is empty.
    std::string chosenSkin() const;
    // Done was pressed with another skin than the current one selected: the
    // caller saves the settings and re-skins the full clock.
    bool skinChanged() const;

    // The picture the preview shows: the selected skin's background, read
    // from its portrait-named scheme. Null when there is none.
    const QImage& previewImage() const { return preview; }

    QListWidget* skinList() const { return list; }
    QPushButton* doneButton() const { return done; }
    QAction* cancelAction() const { return cancel; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void showPreview();
    void scalePreview();

    Paths paths;
    std::string current;
    std::vector<std::string> names;
    QImage preview;
    QListWidget* list = nullptr;
    QLabel* previewLabel = nullptr;
    QPushButton* done = nullptr;
    QAction* cancel = nullptr;
};

// The background picture named by a skin's portrait-named scheme; null when
// the scheme or the picture is missing.
QImage skinPreviewPicture(const Paths& paths, std::string_view skinName, int width, int height);

} // namespace zonara
