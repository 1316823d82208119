#pragma once
// The data update dialog: a description, the progress of the file being
// downloaded, a blinking status icon and the status text; "Update" starts a
// run on a worker thread, Done and Cancel stop it.

#include <atomic>
#include <memory>

#include <QPixmap>
#include <QTimer>

#include "controls/CDialogFrame.h"
#include "core/Paths.h"
#include "net/Config.h"
#include "net/DataUpdateWorker.h"
#include "net/UpdateStatus.h"

class QLabel;
class QProgressBar;

namespace zonara {

class CUpdateDlg : public CDialogFrame {
    Q_OBJECT
  public:
    CUpdateDlg(const Paths& paths, const Config& config, const DeviceProfile& profile,
               QWidget* parent = nullptr);
    // Stops a run still going on, as Cancel does.
    ~CUpdateDlg() override;

    // True once a run of this dialog has installed new world files, even when
    // a later run found nothing new: the caller must rebuild either way.
    bool dataInstalled() const { return installed.load(); }
    // From "Update" until the run's end has reached the dialog.
    bool runShown() const { return runOnScreen; }

    QString statusText() const;
    QString descriptionText() const;
    QProgressBar* progressBar() const { return progress; }
    QLabel* statusIcon() const { return icon; }
    // Which picture the icon shows: the lit one or the idle one.
    bool iconLit() const { return lit; }
    const QTimer& iconTimer() const { return blink; }
    // The two pictures the icon blinks between, 14 by 14.
    static QPixmap iconPicture(bool lit);

  protected:
    void onCommand(int commandId) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    class Sink;
    void layOut();
    void fitStatus();
    void startRun();
    void cancelRun();
    void showStatus(UpdateStatus status);
    void setRange(std::uint16_t range);
    void setPosition(std::int32_t bytes);
    void runEnded();
    void showIcon(bool on);

    QLabel* description = nullptr;
    QProgressBar* progress = nullptr;
    QLabel* icon = nullptr;
    QLabel* status = nullptr;
    QTimer blink; // the icon's 500 ms blink while a run goes on
    bool lit = false;
    bool runOnScreen = false;
    int shownRange = 100;               // the bar's upper end as the run set it
    std::atomic<bool> installed{false}; // set on the worker thread
    std::unique_ptr<Sink> sink;
    DataUpdateWorker worker; // last: stopped before the sink goes
};

} // namespace zonara
