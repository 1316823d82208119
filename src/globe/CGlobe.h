#pragma once
// The globe view: the world map with its night side, the four cities' markers, and the
// selected city's small clock in a strip below the map.

#include <QFont>
#include <QImage>
#include <QTimer>
#include <QWidget>

#include "controls/ClockView.h"
#include "core/Settings.h"
#include "globe/GlobeModel.h"

namespace zonara {

class CSmallClock;

class CGlobe : public QWidget, public ClockView {
    Q_OBJECT
  public:
    // The view takes the profile's size; it loads its pictures and ticks only while shown.
    CGlobe(const ViewSetup& setup, QWidget* parent = nullptr);
    ~CGlobe() override;

    QWidget* widget() override { return this; }
    // The first call after showing paints the busy text, shades the map and centres it on
    // the selected city; later ones bind the selected slot again and centre on it when it
    // is another slot.
    void showSlots(const Settings& settings, const DstRuleList& rules) override;
    void refresh() override { Refresh(false); }
    void takeFocus() override { setFocus(); }

    // Loads the pictures, goes back to the left edge, is busy until the next paint and
    // starts the timer. The view calls it when it is shown; a view drawn without ever
    // being shown calls it itself.
    void Show();
    // Stops the timer and releases the pictures.
    void Hide();
    // Full: the day picture restored and shaded anew. Either way the strip's clock moves on.
    void Refresh(bool full);
    void CentreOnSelected();

    // One tick of the one-second timer: the clock, and every five minutes the shading.
    void tick();
    const QTimer& refreshTimer() const { return timer; }
    int nextTickDelay() const { return tickDelay; }

    const GlobeModel& model() const { return globe; }
    void setScrollOffset(int offset);
    // The shaded map as the shading left it: the map's size, no markers.
    const QImage& mapImage() const { return map; }
    const QImage& markerImage() const { return marker; }
    CSmallClock* strip() const { return clockStrip; }
    // 1 on a portrait screen, 4 on a square or landscape one or with the second display.
    int stripLayoutMode() const { return stripMode; }
    // How many times the map was shaded since the view was made.
    int shadingCount() const { return shadings; }

    // The view as the window shows it once the busy text has gone: map, markers, strip.
    QImage renderImage();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void finishShowing();
    void bindSlot();
    void layOut();
    void composeCanvas();
    void mapChanged();
    QRect mapArea() const;
    void scheduleTick();

    ViewSetup setup;
    Settings record; // the frame's settings as last given
    const DstRuleList* rules = nullptr;
    GlobeModel globe;

    QImage day;   // the day picture as loaded, which each shading starts from
    QImage map;   // the day picture with the night shaded in
    QImage night; // the night picture, unchanged
    QImage marker;
    QImage clockFace;
    QImage canvas; // the view's own area as last composed: map pieces and markers
    bool canvasStale = true;

    QFont normalFont;
    QFont boldFont;
    CSmallClock* clockStrip; // child, owned by the view
    int stripMode = 0;

    bool showingPending = false; // shown, but not yet shaded and centred
    int shadings = 0;
    QTimer timer;
    int tickDelay = 1000;
};

} // namespace zonara
