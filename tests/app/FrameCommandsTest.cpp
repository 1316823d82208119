#include <gtest/gtest.h>

#include "app/HelpPage.h"
#include "support/TempDir.h"

namespace zonara {

// The command table and keys are exercised through the window in CMainFrameTest.
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
