#include <gtest/gtest.h>

#include "net/UpdateDlgLayout.h"

namespace zonara {

namespace {

PixelRect box(int x, int y, int w, int h) {
    return {x, y, x + w, y + h};
}

} // namespace

TEST(UpdateDlgLayout, PlacesTheControlsByShapeResolutionAndTheSecondFlag) {
    struct Row {
        const char* name;
        int client, screenW, screenH;
        bool high, second;
        std::optional<UpdateDlgRects> expected;
    };
    const Row rows[] = {
        // Margin W/10; the status text starts 20 further right at full width.
        {"portrait", 240, 240, 320, false, false,
         UpdateDlgRects{box(24, 20, 192, 60), box(24, 90, 192, 20), box(24, 140, 14, 14),
                        box(44, 140, 192, 20)}},
        {"small portrait", 176, 176, 220, false, false,
         UpdateDlgRects{box(17, 20, 142, 60), box(17, 90, 142, 20), box(17, 140, 14, 14),
                        box(37, 140, 142, 20)}},
        {"portrait, second flag", 240, 240, 320, false, true,
         UpdateDlgRects{box(24, 5, 192, 40), box(24, 65, 192, 20), box(24, 105, 14, 14),
                        box(44, 105, 192, 20)}},
        {"high portrait", 480, 480, 640, true, false,
         UpdateDlgRects{box(48, 30, 384, 80), box(48, 120, 384, 40), box(48, 218, 14, 14),
                        box(68, 210, 384, 40)}},
        {"high portrait, second flag: the plain portrait rows", 480, 480, 640, true, true,
         UpdateDlgRects{box(48, 20, 384, 60), box(48, 90, 384, 20), box(48, 140, 14, 14),
                        box(68, 140, 384, 20)}},
        {"landscape", 320, 320, 240, false, false,
         UpdateDlgRects{box(32, 10, 256, 60), box(32, 70, 256, 20), box(32, 110, 14, 14),
                        box(52, 110, 256, 20)}},
        {"square counts as landscape", 240, 240, 240, false, false,
         UpdateDlgRects{box(24, 10, 192, 60), box(24, 70, 192, 20), box(24, 110, 14, 14),
                        box(44, 110, 192, 20)}},
        {"landscape, second flag: left where they are", 320, 320, 240, false, true, std::nullopt},
        {"high landscape: margin W/6", 640, 640, 480, true, false,
         UpdateDlgRects{box(106, 10, 428, 80), box(106, 100, 428, 40), box(106, 198, 14, 14),
                        box(126, 190, 428, 30)}},
        {"high landscape, second flag: the plain landscape rows", 640, 640, 480, true, true,
         UpdateDlgRects{box(64, 10, 512, 60), box(64, 70, 512, 20), box(64, 110, 14, 14),
                        box(84, 110, 512, 20)}},
        // The shape is the screen's, the margin and widths the dialog's own.
        {"narrow dialog on a landscape screen", 200, 320, 240, false, false,
         UpdateDlgRects{box(20, 10, 160, 60), box(20, 70, 160, 20), box(20, 110, 14, 14),
                        box(40, 110, 160, 20)}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto got =
            updateDlgLayout(row.client, row.screenW, row.screenH, row.high, row.second);
        ASSERT_EQ(got.has_value(), row.expected.has_value());
        if (got) {
            EXPECT_EQ(got->description, row.expected->description);
            EXPECT_EQ(got->progress, row.expected->progress);
            EXPECT_EQ(got->icon, row.expected->icon);
            EXPECT_EQ(got->status, row.expected->status);
        }
    }
}

} // namespace zonara
