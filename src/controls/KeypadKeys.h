#pragma once
// The calculator keypad's 25 keys: faces, colours, grid, sizes per screen and the hardware keys.

#include <array>
#include <optional>
#include <string_view>

#include "controls/ColorRef.h"
#include "controls/KeypadKeyIndex.h"
#include "controls/PixelSurface.h"
#include "core/DeviceProfile.h"

namespace zonara {

inline constexpr int keypadKeyCount = keypadKey::count;
// A key's button sends this plus the key's index.
inline constexpr int keypadCommandBase = 7000;

struct KeypadKey {
    std::string_view face;
    bool digit = false;
    // The face is a word that the string table translates, not a symbol.
    bool translated = false;
};

inline constexpr std::array<KeypadKey, keypadKeyCount> keypadKeys{{
    {"0", true},
    {"1", true},
    {"2", true},
    {"3", true},
    {"4", true},
    {"5", true},
    {"6", true},
    {"7", true},
    {"8", true},
    {"9", true},
    {"÷"},
    {"x"},
    {"+"},
    {"-"},
    {"="},
    {"."},
    {"C"},
    {"CON", false, true},
    {"«"},
    {"MC", false, true},
    {"MR", false, true},
    {"M+", false, true},
    {"sqrt", false, true},
    {"1/x", false, true},
    {"+/-", false, true},
}};

inline constexpr ColorRef digitFaceColour = rgb(255, 255, 255);
inline constexpr ColorRef operatorFaceColour = rgb(255, 0, 0);

constexpr ColorRef keypadFaceColour(int index) {
    return keypadKeys[std::size_t(index)].digit ? digitFaceColour : operatorFaceColour;
}

// Key indices by row and column as the pad shows them: memory and editing on
// top, digits on the left, operators and functions on the right.
inline constexpr std::array<std::array<int, 5>, 5> keypadGrid{{
    {19, 20, 21, 18, 16},
    {7, 8, 9, 10, 22},
    {4, 5, 6, 11, 23},
    {1, 2, 3, 13, 24},
    {0, 15, 14, 12, 17},
}};

struct KeypadLayout {
    int width = 0;
    int height = 0;
    PixelRect display; // the line above the keys
    std::array<PixelRect, keypadKeyCount> keys{};
    int facePixels = 0;    // face text height
    int displayPixels = 0; // display text height
};

// The pad for a screen: sized so that the unit lists, the display and the
// soft-key bar fit beside (landscape) or above (portrait) it.
KeypadLayout keypadLayout(const DeviceProfile& profile);

// The key at a point of the pad, if any.
std::optional<int> keypadKeyAt(const KeypadLayout& layout, int x, int y);

// The hardware keys, by the handheld's virtual-key codes.
namespace virtualKey {
inline constexpr int backspace = 8;
inline constexpr int shift = 16;
inline constexpr int equalsPlus = 187;
inline constexpr int minus = 189;
inline constexpr int period = 190;
inline constexpr int slash = 191;
} // namespace virtualKey

// The key that a hardware key gives: digits, with Shift+8 as x and Shift+=
// as +; the other keys the same with or without Shift. Nothing for keys the
// pad does not know.
std::optional<int> keypadKeyForHardwareKey(int virtualKeyCode, bool shift);

// Shift as the pad tracks it: set when Shift goes down, cleared by the
// release of any key, Shift's own included.
class HardwareKeyState {
  public:
    void keyDown(int virtualKeyCode) {
        if (virtualKeyCode == virtualKey::shift)
            shiftDown = true;
    }
    // The key to press on a release; `shiftHeld` adds a Shift that the
    // platform reports with the key rather than as a key of its own.
    std::optional<int> keyUp(int virtualKeyCode, bool shiftHeld = false) {
        const auto key = keypadKeyForHardwareKey(virtualKeyCode, shiftDown || shiftHeld);
        shiftDown = false;
        return key;
    }
    bool shifted() const { return shiftDown; }

  private:
    bool shiftDown = false;
};

} // namespace zonara
