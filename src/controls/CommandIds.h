#pragma once
// Every command id of the main frame's menu and of the dialogs' soft keys, by name.

#include <array>

namespace zonara::cmd {

// The platform's own cancel (the Escape key, a window closed by its manager).
inline constexpr int PlatformCancel = 2;

inline constexpr int SelectCity = 32772;
inline constexpr int Globe = 32774;
inline constexpr int FullClock = 32775;
inline constexpr int MultiClock = 32776;
inline constexpr int CityDetails = 32777;
inline constexpr int CurrencyConversion = 32779;
inline constexpr int StopWatch = 32780;
inline constexpr int Metric = 32783;
inline constexpr int FullClockSkin = 32790;
inline constexpr int UpdateData = 32791;
inline constexpr int UseTwentyFourHour = 32792;
inline constexpr int Help = 32793;
inline constexpr int About = 32794;
inline constexpr int Exit = 32795;
inline constexpr int WeatherUpdate = 32819;
inline constexpr int WeatherShowLast = 32820;

// The dialogs' soft keys.
inline constexpr int Done = 32796;
inline constexpr int Cancel = 32797;
inline constexpr int Update = 32798;
inline constexpr int Menu = 32799;
inline constexpr int StartStop = 32800;
inline constexpr int Reset = 32801;
inline constexpr int AirportDelete = 32823;
inline constexpr int AirportAdd = 32824;
inline constexpr int Airports = 32825; // the city details open the airport list
inline constexpr int MetricCategory = 32840; // the first of the unit converter's ten, in menu order
inline constexpr int ShowNow = 40207;
inline constexpr int ShowForecast = 40208;
inline constexpr int UpdateWeather = 40209;
// The weather window's two display choices.
inline constexpr int UseCelsius = 40322;
inline constexpr int UseMillibar = 40323;

// Ids the frame accepts and does nothing with: items of the handheld's menu
// that no longer lead anywhere.
inline constexpr std::array<int, 6> acceptedAndIgnored = {32782, 32784, 32785, 32786, 32787, 32788};

} // namespace zonara::cmd
