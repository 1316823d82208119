#include "globe/DayNight.h"

#include <gtest/gtest.h>

#include "globe/SolarPosition.h"

namespace zonara {
namespace {

// A 360 x 180 map has one column per degree of longitude and one row per degree of
// latitude (the row scale comes out as exactly 1.0), a band of 4 rows and a step of 63.
constexpr int W = 360;
constexpr int H = 180;
constexpr ColorRef day = rgb(200, 180, 160);
constexpr ColorRef night = rgb(20, 40, 60);

// The band's colours over these two, by hand: weight k of 255 for the day colour,
// computed as k/255 truncated to millionths, e.g. red at 63: 200 * 0.247058 +
// 20 * 0.752942 = 64.47 -> 64.
constexpr ColorRef band63 = rgb(64, 74, 84);
constexpr ColorRef band126 = rgb(108, 109, 109);
constexpr ColorRef band189 = rgb(153, 143, 134);

SystemTime utcAt(int y, int mo, int d, int h, int mi, int s) {
    SystemTime t;
    t.year = y, t.month = mo, t.day = d, t.hour = h, t.minute = mi, t.second = s;
    return t;
}

struct Shaded {
    MemorySurface map{W, H, day};
    MemorySurface nightMap{W, H, night};
};

// What a column must look like when its boundary lies at row `boundary`: the night from
// four rows beyond it, the band back toward the day side, the equator over everything.
ColorRef expectedAt(int row, int boundary, bool downward) {
    if (row == H / 2) {
        return equatorColour;
    }
    // Rows counted from the boundary into the night: 4 is the band's pure-night row.
    const int intoNight = downward ? row - boundary : boundary - row;
    if (intoNight > 4) {
        return night;
    }
    // Upward, the band's first row is not part of the copy and turns night only by its
    // blend, which row 0 never gets.
    if (intoNight == 4) {
        return !downward && row == 0 ? day : night;
    }
    if (intoNight <= 0 || row == 0) {
        return day;
    }
    const ColorRef byDistance[] = {0, band189, band126, band63};
    return byDistance[intoNight];
}

void expectColumn(const PixelSurface& map, int column, int boundary, bool downward) {
    for (int row = 0; row < H; ++row) {
        ASSERT_EQ(map.getPixel(column, row), expectedAt(row, boundary, downward))
            << "column " << column << " row " << row << " boundary " << boundary;
    }
}

TEST(DayNight, SunOverTheMap) {
    struct Row {
        SystemTime utc;
        int subSolar;
        bool northernSummer;
    };
    const Row rows[] = {
        // Greenwich hour angle 359.16: s = 180 - 359 = -179, + 360.
        {utcAt(2000, 1, 1, 12, 0, 0), 181, false},
        // 4.10: the sun is 4 degrees west of Greenwich.
        {utcAt(2006, 11, 3, 12, 0, 0), 176, false},
        // 179.96 at midnight: the sub-solar meridian is near the date line.
        {utcAt(2006, 4, 15, 0, 0, 0), 1, true},
        // 449.6 reduced once to 89.6 at 18:00: the sun is over 89.6 W, 91 from the edge.
        {utcAt(2006, 6, 21, 18, 0, 0), 91, true},
    };
    for (const Row& r : rows) {
        const SunOverMap sun = sunOverMap(r.utc);
        EXPECT_EQ(sun.subSolarDegrees, r.subSolar) << r.utc.month << "/" << r.utc.day;
        EXPECT_EQ(sun.declination > 0, r.northernSummer) << r.utc.month << "/" << r.utc.day;
    }
    // Minutes and seconds count: 20 Mar 2006 18:26:00 is after the equinox, 18:00 before.
    EXPECT_GT(sunOverMap(utcAt(2006, 3, 20, 18, 26, 0)).declination, 0);
    EXPECT_LT(sunOverMap(utcAt(2006, 3, 20, 18, 0, 0)).declination, 0);
}

TEST(DayNight, BandRowsAndStep) {
    struct Row {
        int height, rows, step;
    };
    const Row rows[] = {
        {320, 8, 31}, {160, 4, 63}, {180, 4, 63}, {38, 1, 255}, {37, 0, 0}, {0, 0, 0},
    };
    for (const Row& r : rows) {
        const ShadingBand band = shadingBand(r.height);
        EXPECT_EQ(band.rows, r.rows) << r.height;
        EXPECT_EQ(band.step, r.step) << r.height;
    }
}

TEST(DayNight, ShadesEveryPixelByTheBoundary) {
    struct Row {
        double declination;
        int subSolar;
        const char* what;
    };
    const Row rows[] = {
        {23.44, 180, "northern summer: the night fills down to the bottom"},
        {-23.44, 180, "southern summer: up to the top"},
        // Its boundary comes within four rows of the top near the sub-solar meridian, so
        // the band reaches row 0, which keeps the day, and above the map.
        {-0.18, 90, "just before the March equinox: up to the top"},
        {10.0, 37, "the sub-solar meridian off centre"},
        {-5.0, 0, "and at the left edge"},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.what);
        Shaded s;
        DrawDayNight(s.map, s.nightMap, SunOverMap{r.declination, r.subSolar});
        const bool downward = r.declination > 0;
        for (int column = 0; column < W; ++column) {
            const int boundary = 90 - TerminatorLatitude(column - r.subSolar, r.declination);
            expectColumn(s.map, column, boundary, downward);
        }
    }
}

TEST(DayNight, BandOnTheBoundaryWhenNotInsideTheNight) {
    Shaded s;
    DrawDayNight(s.map, s.nightMap, SunOverMap{23.44, 180}, false);
    // Boundary row 156: night from there, the band reaching three rows into the day.
    EXPECT_EQ(s.map.getPixel(180, 156), night);
    EXPECT_EQ(s.map.getPixel(180, 155), band63);
    EXPECT_EQ(s.map.getPixel(180, 153), band189);
    EXPECT_EQ(s.map.getPixel(180, 152), day);
}

TEST(DayNight, EquatorAndMissingPictures) {
    // A missing night picture leaves the day as it was, but the equator is drawn.
    MemorySurface map(W, H, day);
    const MemorySurface empty(0, 0);
    DrawDayNight(map, empty, SunOverMap{23.44, 180});
    for (int x = 0; x < W; ++x) {
        ASSERT_EQ(map.getPixel(x, H / 2), equatorColour) << x;
        ASSERT_EQ(map.getPixel(x, H / 2 + 1), day) << x;
        ASSERT_EQ(map.getPixel(x, H - 1), day) << x;
    }
    // An odd height halves down; a map too short for a band still gets its night.
    MemorySurface small(8, 21, day);
    const MemorySurface smallNight(8, 21, night);
    DrawDayNight(small, smallNight, SunOverMap{23.44, 180});
    EXPECT_EQ(small.getPixel(3, 10), equatorColour);
    EXPECT_EQ(small.getPixel(0, 20), night);
}

TEST(DayNight, LargeMapColumnsFollowTheHourAngle) {
    // 640 columns of 0.5625 degrees: column 320 is 180 degrees from the left edge, so with
    // the sun there it is the sub-solar column, and column 0 the antipode.
    MemorySurface map(640, 320, day);
    const MemorySurface nightMap(640, 320, night);
    DrawDayNight(map, nightMap, SunOverMap{23.44, 180});
    // Boundary rows (90 -+ 66) * 1.777778: 277 under the sun, 42 opposite; 8 band rows.
    EXPECT_EQ(map.getPixel(320, 277 + 8), night);
    // Step 31: weight 31 next to the night (41.88, 57.02, 72.16), 217 next to the day.
    EXPECT_EQ(map.getPixel(320, 277 + 7), rgb(41, 57, 72));
    EXPECT_EQ(map.getPixel(320, 277 + 1), rgb(173, 159, 145));
    EXPECT_EQ(map.getPixel(320, 277), day);
    EXPECT_EQ(map.getPixel(0, 42 + 8), night);
    EXPECT_EQ(map.getPixel(0, 42), day);
    EXPECT_EQ(map.getPixel(639, 42 + 8), night);
}

} // namespace
} // namespace zonara
