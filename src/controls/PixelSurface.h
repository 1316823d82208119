#pragma once
// A surface of pixels read and written one at a time, as the anti-aliased hands need them.

#include <cstddef>
#include <vector>

#include "controls/ColorRef.h"

namespace zonara {

struct PixelPoint {
    int x = 0;
    int y = 0;
    friend bool operator==(const PixelPoint&, const PixelPoint&) = default;
};

// Right and bottom are exclusive, as in a window's client rectangle.
struct PixelRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    int width() const { return right - left; }
    int height() const { return bottom - top; }
    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

// Pixels outside the surface read as 0 and ignore writes, so a hand that
// reaches past the edge of its window is simply cut off there.
class PixelSurface {
  public:
    virtual ~PixelSurface() = default;
    virtual int width() const = 0;
    virtual int height() const = 0;
    virtual ColorRef getPixel(int x, int y) const = 0;
    virtual void setPixel(int x, int y, ColorRef colour) = 0;

    bool contains(int x, int y) const { return x >= 0 && y >= 0 && x < width() && y < height(); }
    // Whether a write here lands; a pass may skip the work for a pixel that
    // would not.
    virtual bool writable(int x, int y) const { return contains(x, y); }
};

// A plain buffer of colour references, row by row.
class MemorySurface final : public PixelSurface {
  public:
    MemorySurface(int width, int height, ColorRef fill = 0)
        : w(width > 0 ? width : 0), h(height > 0 ? height : 0),
          pixels(std::size_t(w) * std::size_t(h), fill) {}

    int width() const override { return w; }
    int height() const override { return h; }
    ColorRef getPixel(int x, int y) const override {
        return contains(x, y) ? pixels[index(x, y)] : 0;
    }
    void setPixel(int x, int y, ColorRef colour) override {
        if (contains(x, y))
            pixels[index(x, y)] = colour;
    }
    void fill(ColorRef colour) { pixels.assign(pixels.size(), colour); }

  private:
    std::size_t index(int x, int y) const { return std::size_t(y) * std::size_t(w) + x; }

    int w;
    int h;
    std::vector<ColorRef> pixels;
};

} // namespace zonara
