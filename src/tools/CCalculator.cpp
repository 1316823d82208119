#include "tools/CCalculator.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace zonara {

namespace {

// A display text holds at most this many characters before a typed key is refused.
constexpr std::size_t maxTypedLength = 201;

double squareRootSingle(double x) {
    return double(std::sqrt(float(x)));
}
double reciprocal(double x) {
    return 1.0 / x;
}
double negated(double x) {
    return x * -1.0;
}

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

} // namespace

double atofValue(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size() && isBlank(text[at]))
        ++at;
    if (at < text.size() && text[at] == '+') {
        ++at;
        if (at < text.size() && text[at] == '-')
            return 0;
    }
    double value = 0;
    const auto [end, error] = std::from_chars(text.data() + at, text.data() + text.size(), value);
    (void)end;
    // Out of range gives the huge or tiny value strtod would, keeping the sign.
    if (error == std::errc::result_out_of_range)
        return value;
    return error == std::errc() ? value : 0.0;
}

int truncateToInt32(double x) {
    if (std::isnan(x))
        return 0;
    if (x >= 2147483647.0)
        return std::numeric_limits<int>::max();
    if (x <= -2147483648.0)
        return std::numeric_limits<int>::min();
    return int(x);
}

std::string CCalculator::FormatNumber(double x) {
    const int whole = truncateToInt32(x);
    if (!(x - whole > 0))
        return std::to_string(whole);
    // Enough for the largest double with 14 decimals.
    std::array<char, 400> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), x,
                                      std::chars_format::fixed, 14);
    std::string text(buffer.data(), result.ptr);
    while (!text.empty() && text.back() == '0')
        text.pop_back();
    if (!text.empty() && text.back() == '.')
        text.push_back('0');
    return text;
}

void CCalculator::Key(int index) {
    if (index >= 0 && index <= 9) {
        const char digit[2] = {char('0' + index), '\0'};
        Append(digit);
        return;
    }
    switch (index) {
    case keypadKey::divide:
        Operator(PendingOp::Divide);
        break;
    case keypadKey::multiply:
        Operator(PendingOp::Multiply);
        break;
    case keypadKey::add:
        Operator(PendingOp::Add);
        break;
    case keypadKey::subtract:
        Operator(PendingOp::Subtract);
        break;
    case keypadKey::equals:
        Equals();
        break;
    case keypadKey::point:
        Append(".");
        break;
    case keypadKey::clear:
        Clear();
        break;
    case keypadKey::backspace:
        Backspace();
        break;
    case keypadKey::memoryClear:
        MemoryClear();
        break;
    case keypadKey::memoryRecall:
        MemoryRecall();
        break;
    case keypadKey::memoryStore:
        MemoryStore();
        break;
    case keypadKey::squareRoot:
        Unary(squareRootSingle);
        break;
    case keypadKey::reciprocal:
        Unary(reciprocal);
        break;
    case keypadKey::negate:
        Unary(negated);
        break;
    default:
        break;
    }
}

void CCalculator::Append(std::string_view text) {
    if (startNew) {
        display.clear();
    } else if (display != "0." && atofValue(display) == 0) {
        // Drops a leading zero, and with it "0.0", "00" and the like.
        display.clear();
    }
    if (display.size() >= maxTypedLength)
        return;
    display.append(text);
    if (display == ".")
        display = "0.";
    current = atofValue(display);
    startNew = false;
}

void CCalculator::Backspace() {
    if (display.size() < 2) {
        display.assign(1, '0');
        startNew = true;
    } else {
        display.pop_back();
    }
    current = atofValue(display);
}

void CCalculator::Clear() {
    display.assign(1, '0');
    accumulator = 0;
    current = 0;
    noAccumulator = true;
    startNew = true;
}

void CCalculator::Operator(PendingOp op) {
    if (startNew && op == pendingOp)
        return;
    // Set before evaluating: the pending calculation is carried out with the
    // operator just pressed, so 2 + 3 x shows 6 and 7 - 2 + shows 9.
    pendingOp = op;
    if (noAccumulator)
        accumulator = current;
    else
        Evaluate();
    noAccumulator = false;
    startNew = true;
}

void CCalculator::Equals() {
    Evaluate();
    pendingOp = PendingOp::None;
    startNew = true;
}

void CCalculator::Evaluate() {
    switch (pendingOp) {
    case PendingOp::Add:
        accumulator = current + accumulator;
        break;
    case PendingOp::Subtract:
        accumulator = accumulator - current;
        break;
    case PendingOp::Multiply:
        accumulator = current * accumulator;
        break;
    case PendingOp::Divide:
        accumulator = accumulator / current;
        break;
    case PendingOp::None:
        break;
    }
    noAccumulator = true;
    display = FormatNumber(accumulator);
    current = accumulator;
}

void CCalculator::Unary(double (*f)(double)) {
    current = f(current);
    const std::string text = FormatNumber(current);
    startNew = true;
    Append(text);
}

void CCalculator::MemoryRecall() {
    if (memory.empty())
        return;
    startNew = true;
    // A copy: Append rewrites the display, which may be what memory was copied from.
    const std::string text = memory;
    Append(text);
}

void CCalculator::SetValue(double value) {
    current = value;
    display = FormatNumber(value);
}

std::optional<int> calculatorKeyByName(std::string_view name) {
    struct Name {
        std::string_view text;
        int key;
    };
    static constexpr std::array<Name, 16> names{{
        {".", keypadKey::point},
        {"+", keypadKey::add},
        {"-", keypadKey::subtract},
        {"x", keypadKey::multiply},
        {"÷", keypadKey::divide},
        {"/", keypadKey::divide},
        {"=", keypadKey::equals},
        {"c", keypadKey::clear},
        {"«", keypadKey::backspace},
        {"back", keypadKey::backspace},
        {"mc", keypadKey::memoryClear},
        {"mr", keypadKey::memoryRecall},
        {"m+", keypadKey::memoryStore},
        {"sqrt", keypadKey::squareRoot},
        {"1/x", keypadKey::reciprocal},
        {"+/-", keypadKey::negate},
    }};
    if (name.size() == 1 && name[0] >= '0' && name[0] <= '9')
        return name[0] - '0';
    std::string folded(name);
    for (char& c : folded)
        c = lowered(c);
    for (const Name& n : names)
        if (n.text == folded)
            return n.key;
    return std::nullopt;
}

} // namespace zonara
