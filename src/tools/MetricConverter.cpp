#include "tools/MetricConverter.h"

#include <array>
#include <charconv>
#include <cmath>

namespace zonara {

std::string suffixedValue(double value, std::string_view suffix) {
    double whole = 0;
    const bool fractional = std::modf(value, &whole) != 0;
    std::array<char, 400> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::fixed, fractional ? 7 : 0)
                         .ptr;
    std::string text(buffer.data(), end);
    text.push_back(' ');
    text.append(suffix);
    return text;
}

void MetricConverter::selectCategory(UnitCategory value) {
    current = value;
    fromUnit.reset();
    toUnit.reset();
    result.clear();
    notConvertible = false;
}

std::string MetricConverter::displayText() const {
    return notConvertible ? std::string(cannotConvertText) : engine.DisplayText();
}

bool MetricConverter::selected(std::optional<int> index) const {
    return index && *index >= 0 && *index < table().UnitCount();
}

void MetricConverter::pressKey(int index) {
    result.clear();
    notConvertible = false;
    if (index == keypadKey::convert)
        convert();
    else
        engine.Key(index);
}

ConvertOutcome MetricConverter::convert() {
    if (!selected(fromUnit) || !selected(toUnit))
        return ConvertOutcome::NoSelection;
    return convertValue(atofValue(engine.DisplayText()));
}

ConvertOutcome MetricConverter::convertValue(double value) {
    if (!selected(fromUnit) || !selected(toUnit))
        return ConvertOutcome::NoSelection;
    const CTable& units = table();
    if (!units.CanConvert(*fromUnit, *toUnit)) {
        result.clear();
        notConvertible = true;
        return ConvertOutcome::CannotConvert;
    }
    const double converted = units.Convert(float(value), *fromUnit, *toUnit);
    notConvertible = false;
    result = suffixedValue(converted, units.UnitSuffix(*toUnit));
    engine.SetValue(converted);
    return ConvertOutcome::Converted;
}

} // namespace zonara
