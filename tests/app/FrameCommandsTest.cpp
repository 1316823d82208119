#include <gtest/gtest.h>

#include <set>

#include "app/FrameCommands.h"
#include "app/HelpPage.h"
#include "support/TempDir.h"

namespace zonara {

TEST(FrameCommands, TableKnowsEveryIdOnce) {
    std::set<int> ids;
    for (const FrameCommand& command : frameCommands()) {
        EXPECT_TRUE(ids.insert(command.id).second) << command.id;
    }
    for (const int id :
         {32772, 32774, 32775, 32776, 32777, 32819, 32820, 32779, 32783, 32780, 32790, 32791,
          32792, 32793, 32794, 32795, 2,     32782, 32784, 32785, 32786, 32787, 32788}) {
        EXPECT_NE(findFrameCommand(id), nullptr) << id;
    }
    EXPECT_EQ(findFrameCommand(32781), nullptr);
    EXPECT_EQ(findFrameCommand(32779)->text, "Curreny Conversion");
    EXPECT_EQ(findFrameCommand(32784)->action, FrameAction::Nothing);
    EXPECT_EQ(findFrameCommand(2)->action, FrameAction::Exit);
    EXPECT_EQ(findFrameCommand(32774)->view, globeView);
    EXPECT_EQ(findFrameCommand(32775)->view, fullClockView);
    EXPECT_EQ(findFrameCommand(32776)->view, multiClockView);
}

TEST(FrameCommands, KeysFollowTheViewMenuAndSlotsWrap) {
    EXPECT_EQ(viewForKey('1'), globeView);
    EXPECT_EQ(viewForKey('2'), fullClockView);
    EXPECT_EQ(viewForKey('3'), multiClockView);
    EXPECT_EQ(viewForKey('4'), std::nullopt);
    EXPECT_EQ(viewForKey('a'), std::nullopt);
    struct Row {
        int slot;
        bool up;
        int next;
    };
    for (const Row r : {Row{0, true, 3}, Row{3, true, 2}, Row{1, true, 0}, Row{3, false, 0},
                        Row{0, false, 1}, Row{2, false, 3}}) {
        EXPECT_EQ(stepSlot(r.slot, r.up), r.next) << r.slot << (r.up ? " up" : " down");
    }
}

TEST(HelpPage, MapsLanguagesAndFallsBackToTheEnglishPage) {
    struct Row {
        std::uint16_t id;
        std::uint16_t mapped;
    };
    for (const Row r : {Row{1031, 1031}, Row{5127, 1031}, Row{2064, 1040}, Row{1028, 2052},
                        Row{5124, 2052}, Row{20490, 3082}, Row{1034, 3082}, Row{6156, 1036},
                        Row{1033, 1033}, Row{1041, 1033}, Row{0, 1033}, Row{21514, 1033}}) {
        EXPECT_EQ(mapLanguage(r.id), r.mapped) << r.id;
    }
    struct Locale {
        const char* name;
        std::uint16_t id;
    };
    for (const Locale l :
         {Locale{"de_CH.UTF-8", 2055}, Locale{"de_DE", 1031}, Locale{"zh_TW", 1028},
          Locale{"fr_CA.UTF-8@euro", 3084}, Locale{"es_ES", 3082}, Locale{"pt_BR", 1033},
          Locale{"C", 1033}, Locale{"deu", 1033}}) {
        EXPECT_EQ(languageIdFromLocale(l.name), l.id) << l.name;
    }
    test::TempDir dir;
    test::writeFile(dir.path() / "help_0407.htm", "de");
    EXPECT_EQ(helpPage(dir.path(), 2055), dir.path() / "help_0407.htm");
    EXPECT_EQ(helpPage(dir.path(), 1036), dir.path() / "help.htm");
    test::writeFile(dir.path() / "help_0804.htm", "zh");
    EXPECT_EQ(helpPage(dir.path(), 1028), dir.path() / "help_0804.htm");
}

} // namespace zonara
