#pragma once
// A pixel surface that passes writes on only inside one rectangle, so a pass
// can redraw part of a picture and leave the rest as it was.

#include "controls/PixelSurface.h"

namespace zonara {

class ClippedSurface final : public PixelSurface {
  public:
    ClippedSurface(PixelSurface& target, PixelRect clip) : target(target), clip(clip) {}

    int width() const override { return target.width(); }
    int height() const override { return target.height(); }
    ColorRef getPixel(int x, int y) const override { return target.getPixel(x, y); }
    void setPixel(int x, int y, ColorRef colour) override {
        if (x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom)
            target.setPixel(x, y, colour);
    }

  private:
    PixelSurface& target;
    PixelRect clip;
};

} // namespace zonara
