#include "controls/KeypadKeys.h"

namespace zonara {

namespace {

struct PadMetrics {
    int keyWidth;
    int keyHeight;
    int gap;
    int displayHeight;
    int facePixels;
    int displayPixels;
};

PadMetrics metricsFor(const DeviceProfile& profile) {
    const bool landscape = profile.width > profile.height;
    if (profile.highResolution)
        return landscape ? PadMetrics{72, 56, 6, 48, 24, 32} : PadMetrics{88, 56, 8, 48, 26, 32};
    if (profile.width >= 240 || profile.height >= 240)
        return landscape ? PadMetrics{36, 28, 3, 24, 12, 16} : PadMetrics{44, 28, 4, 24, 13, 16};
    return landscape ? PadMetrics{24, 20, 2, 18, 9, 12} : PadMetrics{32, 20, 2, 18, 10, 12};
}

} // namespace

KeypadLayout keypadLayout(const DeviceProfile& profile) {
    const PadMetrics m = metricsFor(profile);
    KeypadLayout layout;
    const int columns = int(keypadGrid[0].size());
    const int rows = int(keypadGrid.size());
    layout.width = columns * m.keyWidth + (columns - 1) * m.gap;
    layout.display = {0, 0, layout.width, m.displayHeight};
    const int keysTop = m.displayHeight + m.gap;
    layout.height = keysTop + rows * m.keyHeight + (rows - 1) * m.gap;
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column) {
            const int left = column * (m.keyWidth + m.gap);
            const int top = keysTop + row * (m.keyHeight + m.gap);
            layout.keys[std::size_t(keypadGrid[std::size_t(row)][std::size_t(column)])] = {
                left, top, left + m.keyWidth, top + m.keyHeight};
        }
    layout.facePixels = m.facePixels;
    layout.displayPixels = m.displayPixels;
    return layout;
}

std::optional<int> keypadKeyAt(const KeypadLayout& layout, int x, int y) {
    for (int i = 0; i < keypadKeyCount; ++i) {
        const PixelRect& r = layout.keys[std::size_t(i)];
        if (x >= r.left && x < r.right && y >= r.top && y < r.bottom)
            return i;
    }
    return std::nullopt;
}

std::optional<int> keypadKeyForHardwareKey(int virtualKeyCode, bool shift) {
    if (virtualKeyCode >= '0' && virtualKeyCode <= '9') {
        if (shift && virtualKeyCode == '8')
            return keypadKey::multiply;
        return virtualKeyCode - '0';
    }
    switch (virtualKeyCode) {
    case virtualKey::equalsPlus:
        return shift ? keypadKey::add : keypadKey::equals;
    case virtualKey::minus:
        return keypadKey::subtract;
    case virtualKey::period:
        return keypadKey::point;
    case virtualKey::slash:
        return keypadKey::divide;
    case virtualKey::backspace:
        return keypadKey::backspace;
    default:
        return std::nullopt;
    }
}

} // namespace zonara
