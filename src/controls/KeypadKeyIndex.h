#pragma once
// The calculator keypad's key indices: digits 0-9 are their own index.

namespace zonara::keypadKey {

inline constexpr int divide = 10;
inline constexpr int multiply = 11;
inline constexpr int add = 12;
inline constexpr int subtract = 13;
inline constexpr int equals = 14;
inline constexpr int point = 15;
inline constexpr int clear = 16;
inline constexpr int convert = 17; // handled by the converter that owns the pad
inline constexpr int backspace = 18;
inline constexpr int memoryClear = 19;
inline constexpr int memoryRecall = 20;
inline constexpr int memoryStore = 21;
inline constexpr int squareRoot = 22;
inline constexpr int reciprocal = 23;
inline constexpr int negate = 24;
inline constexpr int count = 25;

} // namespace zonara::keypadKey
