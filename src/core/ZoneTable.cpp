#include "core/ZoneTable.h"

namespace zonara {

// clang-format off
constexpr std::array<ZoneRow, 74> zoneTable = {{
    //  key  minutes  offset    name
    {   0,  -720, "-12:00", "Dateline"},
    {   1,  -660, "-11:00", "Samoa"},
    {   2,  -600, "-10:00", "Hawaiian"},
    {   3,  -540, "-09:00", "Alaskan"},
    {   4,  -480, "-08:00", "Pacific"},
    {  10,  -420, "-07:00", "Mountain"},
    {  15,  -420, "-07:00", ""},
    {  20,  -360, "-06:00", "Central"},
    {  25,  -360, "-06:00", "Canada Central"},
    {  28,  -360, "-06:00", "Central America"},
    {  30,  -360, "-06:00", "Mexico"},
    {  35,  -300, "-05:00", "Eastern"},
    {  40,  -300, "-05:00", "US Eastern"},
    {  45,  -300, "-05:00", "SA Pacific"},
    {  50,  -240, "-04:00", "Atlantic"},
    {  55,  -240, "-04:00", "SA Western"},
    {  56,  -240, "-04:00", "Pacific SA"},
    {  60,  -210, "-03:30", "Newfoundland"},
    {  63,  -180, "-03:00", "Greenland"},
    {  65,  -180, "-03:00", "E. South America"},
    {  70,  -180, "-03:00", "SA Eastern"},
    {  75,  -120, "-02:00", "Mid-Atlantic"},
    {  77,   -60, "-01:00", "Cape Verde"},
    {  80,   -60, "-01:00", "Azores"},
    {  85,     0, "00:00",  "Greenwich Mean Time"},
    {  90,     0, "00:00",  "GMT"},
    {  93,    60, "+01:00", "West Central Africa"},
    {  95,    60, "+01:00", "Central Europe"},
    { 100,    60, "+01:00", "Central European"},
    { 105,    60, "+01:00", "Romance"},
    { 110,    60, "+01:00", "W. Europe"},
    { 115,   120, "+02:00", "E. Europe"},
    { 120,   120, "+02:00", "Egypt"},
    { 125,   120, "+02:00", "FLE"},
    { 130,   120, "+02:00", "GTB"},
    { 135,   120, "+02:00", "Israel"},
    { 140,   120, "+02:00", "South Africa"},
    { 145,   180, "+03:00", "Russian"},
    { 150,   180, "+03:00", "Arab"},
    { 153,   180, "+03:00", "Arabic"},
    { 155,   180, "+03:00", "East Africa"},
    { 160,   210, "+03:30", "Iran"},
    { 165,   240, "+04:00", "Arabian"},
    { 170,   240, "+04:00", "Caucasus"},
    { 175,   270, "+04:30", "Afghanistan"},
    { 180,   300, "+05:00", "Yekaterinburg"},
    { 185,   300, "+05:00", "West Asia"},
    { 190,   330, "+05:30", "India"},
    { 193,   345, "+05:45", "Nepal"},
    { 195,   360, "+06:00", "Central Asia"},
    { 197,   360, "+06:00", "Central Asia North"},
    { 200,   360, "+06:00", "Sri Lanka"},
    { 203,   390, "+06:30", "Myanmar"},
    { 205,   420, "+07:00", "SE Asia"},
    { 207,   420, "+07:00", "North Asia"},
    { 210,   480, "+08:00", "China"},
    { 215,   480, "+08:00", "Singapore"},
    { 220,   480, "+08:00", "Taipei"},
    { 225,   480, "+08:00", "West Australia"},
    { 227,   480, "+08:00", "North Asia East"},
    { 230,   540, "+09:00", "Korea"},
    { 235,   540, "+09:00", "Tokyo"},
    { 240,   540, "+09:00", "Yakutsk"},
    { 245,   570, "+09:30", "AUS Central"},
    { 250,   570, "+09:30", "Cen. Australia"},
    { 255,   600, "+10:00", "Sydney"},
    { 260,   600, "+10:00", "E Australia"},
    { 265,   600, "+10:00", "Tasmania"},
    { 270,   600, "+10:00", "Vladivostok"},
    { 275,   600, "+10:00", "West Pacific"},
    { 280,   660, "+11:00", "Central Pacific"},
    { 285,   720, "+12:00", "Fiji"},
    { 290,   720, "+12:00", "New Zealand"},
    { 300,   780, "+13:00", "Tonga"},
}};
// clang-format on

const ZoneRow& zoneRow(std::int32_t key) {
    for (std::size_t i = 0; i < zoneTable.size(); ++i) {
        if (zoneTable[i].key == key) {
            return zoneTable[i];
        }
        if (zoneTable[i].key > key) {
            // The first key above takes the row before it; a key below the
            // first row has no row before it and takes row 0.
            return zoneTable[i == 0 ? 0 : i - 1];
        }
    }
    return zoneTable[0];
}

} // namespace zonara
