#pragma once
// One small clock: a face with hands, the city's name, local time and date, a sun or moon
// cue, and the difference to a reference city; the globe's strip and the multi-clock page.

#include <optional>

#include <QFont>
#include <QImage>
#include <QRegion>
#include <QWidget>

#include "clocks/SmallClock.h"
#include "clocks/SmallClockLayout.h"
#include "core/ClockSlot.h"
#include "core/DstRule.h"
#include "core/SystemTime.h"

namespace zonara {

class CSmallClock : public QWidget {
    Q_OBJECT
  public:
    // How the clock is marked on its page: the selected slot, or where Enter would choose.
    enum class Mark { None, Selected, Cursor };

    explicit CSmallClock(QWidget* parent = nullptr);

    // The face picture (shared, not copied) and its hands' radius at its own size; an empty
    // picture leaves the face out but still lays the texts out beside its place.
    void setFace(const QImage& picture, int faceSize, int sizeValue);
    void releaseFace();
    // FaceBeside, FaceAbove or FaceBesideWide.
    void setLayoutMode(int mode);
    // Name and time in the bold one, date and difference in the normal one.
    void setFonts(const QFont& normal, const QFont& bold);
    void setMark(Mark mark);
    void setUse24Hour(bool use24Hour);
    // The owner keeps the list alive; nothing means no rules.
    void setRules(const DstRuleList* rules);
    // The city shown, and the one its difference counts to; none shows no difference.
    void setCity(const ClockSlot& city, const std::optional<ClockSlot>& reference);

    // The clock at this instant; only the parts whose content changed are repainted.
    void showTime(const SystemTime& utc);

    const SmallClockState& state() const { return current; }
    const SmallClockLayout& layout() const { return placed; }
    const SmallClockHands& hands() const { return shownHands; }
    Mark mark() const { return marked; }
    int layoutMode() const { return mode; }
    // What the last showTime asked to repaint.
    const QRegion& lastChange() const { return changed; }
    int lineHeight() const;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void relayout();
    void ensureLayout();
    QRegion markArea() const;
    void drawFace(QPainter& painter) const;
    void drawCue(QPainter& painter) const;
    void drawTexts(QPainter& painter, const QRegion& area) const;
    void drawMark(QPainter& painter) const;

    QImage face;
    QImage scaledFace; // the face at the size the layout gives it
    int faceSide = 0;
    int faceRadius = 0;
    int mode = FaceBeside;
    QFont normalFont;
    QFont boldFont;
    Mark marked = Mark::None;
    bool use24Hour = false;
    const DstRuleList* rules = nullptr;
    DstRuleList noRules; // what a clock without rules reads
    ClockSlot city;
    std::optional<ClockSlot> reference;

    SmallClockLayout placed;
    QSize laidOutFor;
    SmallClockState current;
    SmallClockHands shownHands;
    bool shown = false; // whether current holds a computed state
    QRegion changed;
};

} // namespace zonara
