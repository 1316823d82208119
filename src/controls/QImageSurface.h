#pragma once
// The pixel surface over a QImage in Format_RGB32; colours turn into QRgb only here.

#include <QImage>
#include <QRgb>

#include "controls/PixelSurface.h"

namespace zonara {

QRgb toQRgb(ColorRef colour);
ColorRef fromQRgb(QRgb rgb);

// Draws straight into the image's pixels; the image must outlive the surface
// and must not be resized or reassigned while the surface is in use. An image
// of another format is converted to RGB32 first.
class QImageSurface final : public PixelSurface {
  public:
    explicit QImageSurface(QImage& image);

    int width() const override { return w; }
    int height() const override { return h; }
    ColorRef getPixel(int x, int y) const override;
    void setPixel(int x, int y, ColorRef colour) override;

  private:
    uchar* bits;
    qsizetype bytesPerLine;
    int w;
    int h;
};

} // namespace zonara
