#pragma once
// A pixel surface that passes writes on only inside some rectangles, so a
// pass can redraw parts of a picture and leave the rest as it was.

#include <algorithm>
#include <cstdint>
#include <vector>

#include "controls/PixelSurface.h"

namespace zonara {

class ClippedSurface final : public PixelSurface {
  public:
    ClippedSurface(PixelSurface& target, const std::vector<PixelRect>& clip) : target(target) {
        if (clip.empty())
            return;
        bounds = clip.front();
        for (const PixelRect& r : clip)
            bounds = {std::min(bounds.left, r.left), std::min(bounds.top, r.top),
                      std::max(bounds.right, r.right), std::max(bounds.bottom, r.bottom)};
        // One flag per pixel of the rectangles' bounds: a pass asks for every
        // pixel it would blend, so the answer must cost next to nothing.
        inside.assign(std::size_t(bounds.width()) * std::size_t(bounds.height()), 0);
        for (const PixelRect& r : clip)
            for (int y = r.top; y < r.bottom; ++y)
                std::fill_n(inside.begin() + index(r.left, y), r.width(), std::uint8_t(1));
    }

    int width() const override { return target.width(); }
    int height() const override { return target.height(); }
    ColorRef getPixel(int x, int y) const override { return target.getPixel(x, y); }
    bool writable(int x, int y) const override {
        return x >= bounds.left && x < bounds.right && y >= bounds.top && y < bounds.bottom &&
               inside[index(x, y)] != 0;
    }
    void setPixel(int x, int y, ColorRef colour) override {
        if (writable(x, y))
            target.setPixel(x, y, colour);
    }

  private:
    std::size_t index(int x, int y) const {
        return std::size_t(y - bounds.top) * std::size_t(bounds.width()) +
               std::size_t(x - bounds.left);
    }

    PixelSurface& target;
    PixelRect bounds;
    std::vector<std::uint8_t> inside;
};

} // namespace zonara
