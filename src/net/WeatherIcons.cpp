#include "net/WeatherIcons.h"

#include "clocks/SkinValue.h"

namespace zonara {

namespace {

const WeatherIcon& iconAt(int index) {
    if (index < 0 || std::size_t(index) >= weatherIcons.size())
        index = unknownWeatherIcon;
    return weatherIcons[std::size_t(index)];
}

} // namespace

int weatherIconIndex(std::string_view name) {
    if (name.empty())
        return unknownWeatherIcon;
    for (std::size_t i = 0; i < weatherIcons.size(); ++i) {
        if (isKeyword(name, weatherIcons[i].name))
            return int(i);
    }
    return unknownWeatherIcon;
}

std::string_view weatherIconDescription(int index) {
    return iconAt(index).description;
}

std::string_view weatherIconFile(int index) {
    const WeatherIcon& icon = iconAt(index);
    return icon.name.empty() ? std::string_view("na.gif") : icon.name;
}

} // namespace zonara
