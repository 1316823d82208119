#include <gtest/gtest.h>

#include "core/Text.h"

namespace zonara {

TEST(Text, ReadsFieldsAsUtf8OrWindows1252) {
    struct Row {
        std::string bytes;
        std::string utf8;
    };
    const Row table[] = {
        {"London", "London"},
        {"S\xC3\xA3o Paulo", "S\xC3\xA3o Paulo"},         // valid UTF-8 stands
        {"Z\xFCrich", "Z\xC3\xBCrich"},                   // Latin-1 range
        {"\x80 5", "\xE2\x82\xAC 5"},                     // the euro sign of Windows-1252
        {"a\x81z", "a\xEF\xBF\xBDz"},                     // undefined in Windows-1252
        {"\xC0\xAF", "\xC3\x80\xC2\xAF"},                 // an overlong form is not UTF-8
        {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC"}, // nor is a surrogate
    };
    for (const Row& r : table) {
        EXPECT_EQ(decodeField(r.bytes), r.utf8);
    }
}

TEST(Text, ConvertsBetweenUtf8AndUtf16) {
    const std::string text = "Z\xC3\xBCrich \xE2\x82\xAC \xF0\x9F\x8C\x8D";
    const std::u16string wide = toUtf16(text);
    EXPECT_EQ(wide, u"Z\u00FCrich \u20AC \U0001F30D");
    EXPECT_EQ(toUtf8(wide), text);
    EXPECT_EQ(toUtf8(u"a\xD800z"), "a\xEF\xBF\xBDz"); // a lone surrogate
    EXPECT_EQ(toUtf16("a\xFFz"), u"a\uFFFDz");
}

TEST(Text, TrimsOnlyAnIncompleteLastSequence) {
    EXPECT_EQ(trimIncompleteUtf8Tail("ab\xE2\x82"), "ab");
    EXPECT_EQ(trimIncompleteUtf8Tail("ab\xC3"), "ab");
    EXPECT_EQ(trimIncompleteUtf8Tail("ab\xE2\x82\xAC"), "ab\xE2\x82\xAC");
    EXPECT_EQ(trimIncompleteUtf8Tail("abc"), "abc");
    EXPECT_EQ(trimIncompleteUtf8Tail(""), "");
}

} // namespace zonara
