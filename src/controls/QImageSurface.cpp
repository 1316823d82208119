#include "controls/QImageSurface.h"

namespace zonara {

QRgb toQRgb(ColorRef colour) {
    return qRgb(redOf(colour), greenOf(colour), blueOf(colour));
}

ColorRef fromQRgb(QRgb rgb) {
    return zonara::rgb(qRed(rgb), qGreen(rgb), qBlue(rgb));
}

QImageSurface::QImageSurface(QImage& image) {
    if (image.format() != QImage::Format_RGB32)
        image.convertTo(QImage::Format_RGB32);
    bits = image.bits();
    bytesPerLine = image.bytesPerLine();
    w = image.width();
    h = image.height();
}

ColorRef QImageSurface::getPixel(int x, int y) const {
    if (!contains(x, y))
        return 0;
    return fromQRgb(reinterpret_cast<const QRgb*>(bits + y * bytesPerLine)[x]);
}

void QImageSurface::setPixel(int x, int y, ColorRef colour) {
    if (contains(x, y))
        reinterpret_cast<QRgb*>(bits + y * bytesPerLine)[x] = toQRgb(colour);
}

} // namespace zonara
