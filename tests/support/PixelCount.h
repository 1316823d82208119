#pragma once
// How many pixels of a picture's box have one colour.

#include <QImage>
#include <QRect>

namespace zonara::test {

inline int countPixels(const QImage& image, const QRect& box, QRgb colour) {
    int n = 0;
    for (int y = box.top(); y <= box.bottom(); ++y)
        for (int x = box.left(); x <= box.right(); ++x)
            n += image.pixel(x, y) == colour;
    return n;
}

} // namespace zonara::test
