#include "globe/DayNight.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "globe/SolarPosition.h"

namespace zonara {

SunOverMap sunOverMap(const SystemTime& utc) {
    const double hoursUT =
        utc.hour + utc.minute * 0.016666666666666666 + utc.second * 0.0002777777777777778;
    SunOverMap sun;
    sun.declination = SolarDeclination(utc.day, utc.month, utc.year, hoursUT);
    const double gha = SunGreenwichHourAngle(utc.day, utc.month, utc.year, hoursUT);
    int s = 180 - static_cast<int>(std::trunc(gha));
    if (s < 0) {
        s += 360;
    }
    if (s >= 361) {
        s -= 360;
    }
    sun.subSolarDegrees = s;
    return sun;
}

ShadingBand shadingBand(int mapHeight) {
    ShadingBand band;
    band.rows = static_cast<int>(double(float(mapHeight)) * 0.027);
    if (band.rows > 0) {
        band.step = 255 / band.rows;
    } else {
        band.rows = 0;
    }
    return band;
}

namespace {

// One band row's share of the day colour, and the night's.
struct BandWeight {
    FixedDecimal day;
    FixedDecimal night;
};

std::uint8_t mixComponent(std::uint8_t day, std::uint8_t night, const BandWeight& weight) {
    const FixedDecimal mixed =
        FixedDecimal(int(day)) * weight.day + FixedDecimal(int(night)) * weight.night;
    return static_cast<std::uint8_t>(mixed.toInt());
}

void copyNightColumn(PixelSurface& map, const PixelSurface& night, int column, int from, int to) {
    for (int row = std::max(from, 0); row < std::min(to, map.height()); ++row) {
        map.setPixel(column, row, night.getPixel(column, row));
    }
}

} // namespace

void DrawDayNight(PixelSurface& map, const PixelSurface& night, const SunOverMap& sun,
                  bool bandInsideNight) {
    const int w = map.width();
    const int h = map.height();
    if (w <= 0 || h <= 0) {
        return;
    }
    if (night.width() > 0 && night.height() > 0) {
        const bool downward = sun.declination > 0;
        const ShadingBand band = shadingBand(h);

        // The weights are the same in every column: weight / 255 and what it leaves.
        std::vector<BandWeight> weights(std::size_t(band.rows));
        const FixedDecimal step(band.step);
        const FixedDecimal full255(255);
        FixedDecimal weight;
        for (BandWeight& bw : weights) {
            const FixedDecimal share = weight / full255;
            bw = {share, FixedDecimal(1) - share};
            weight = weight + step;
        }

        const FixedDecimal columnStep(360.0 / w);
        const FixedDecimal rowScale(h * 0.005555555555555556); // rows per degree of latitude
        const FixedDecimal ninety(90);
        const FixedDecimal fullCircle(360);
        const FixedDecimal subSolar(sun.subSolarDegrees);
        FixedDecimal hourAngle(-sun.subSolarDegrees);
        for (int c = 0; subSolar + hourAngle < fullCircle;
             ++c, hourAngle = hourAngle + columnStep) {
            const int latitude = TerminatorLatitude(hourAngle.toInt(), sun.declination);
            int y = ((ninety - FixedDecimal(latitude)) * rowScale).toInt();
            if (bandInsideNight) {
                y += downward ? band.rows : -band.rows;
            }
            if (downward) {
                copyNightColumn(map, night, c, y, h);
            } else {
                copyNightColumn(map, night, c, 0, y);
            }
            // Rows outside the map still use up their weight.
            for (int i = 0; i < band.rows; ++i, y += downward ? -1 : 1) {
                if (y < 1 || y >= h) {
                    continue;
                }
                const ColorRef d = map.getPixel(c, y);
                const ColorRef n = night.getPixel(c, y);
                const BandWeight& bw = weights[std::size_t(i)];
                map.setPixel(c, y,
                             rgb(mixComponent(redOf(d), redOf(n), bw),
                                 mixComponent(greenOf(d), greenOf(n), bw),
                                 mixComponent(blueOf(d), blueOf(n), bw)));
            }
        }
    }
    const int equator = h / 2;
    for (int x = 0; x < w; ++x) {
        map.setPixel(x, equator, equatorColour);
    }
}

void DrawDayNight(PixelSurface& map, const PixelSurface& night, const SystemTime& utc,
                  bool bandInsideNight) {
    DrawDayNight(map, night, sunOverMap(utc), bandInsideNight);
}

} // namespace zonara
