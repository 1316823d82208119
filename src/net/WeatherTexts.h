#pragma once
// The weather window's own texts, English as built in (the string numbers in comments).

#include <string_view>

namespace zonara::weather_text {

// Labels of the current values.
inline constexpr std::string_view temperature = "Temp.";                    // 40305
inline constexpr std::string_view humidity = "Humidity";                    // 40306
inline constexpr std::string_view windSpeed = "Wind Speed";                 // 40307
inline constexpr std::string_view barometer = "Barometer";                  // 40308
inline constexpr std::string_view dewPoint = "Dew Point";                   // 40309
inline constexpr std::string_view windChill = "Wind Chill";                 // 40310
inline constexpr std::string_view forecastLine = "Day : High(%s)  Low(%s)"; // 40169

// Soft keys.
inline constexpr std::string_view showNow = "Show Now";             // 40207
inline constexpr std::string_view showForecast = "Show Forecast";   // 40208
inline constexpr std::string_view updateWeather = "Update Weather"; // 40209

// Progress of a run, in the status line.
inline constexpr std::string_view dialConnection = "Dial Connection"; // 40119
inline constexpr std::string_view connecting = "Connecting...";       // 40087
inline constexpr std::string_view gettingWeather = "Getting Weather"; // 40090

// What a failed run tells the user.
inline constexpr std::string_view unableToConnect = "Unable to Connect";       // 40088
inline constexpr std::string_view serverError = "Server error, try later";     // 40125
inline constexpr std::string_view noWeather = "No weather available for city"; // 40114

} // namespace zonara::weather_text
