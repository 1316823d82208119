#include "clocks/CXMLParser.h"

#include <gtest/gtest.h>

#include "support/TempDir.h"

namespace zonara {
namespace {

using Result = CXMLParser::Result;
using test::TempDir;
using test::writeFile;

constexpr std::string_view sampleScheme = R"(<?xml version="1.0"?>
<scheme>
  <mainclock>
    <city state="show" rect="" font-size="12"/>
    <note>hello &amp; bye</note>
    <empty/>
    <nested><child/>tail</nested>
    <remark><!--first-->text</remark>
    <data><![CDATA[<raw>]]></data>
  </mainclock>
</scheme>
)";

TEST(CXMLParserTest, LookupsGiveTheFourOutcomes) {
    TempDir dir;
    writeFile(dir.path() / "scheme.xml", sampleScheme);
    CXMLParser parser;
    ASSERT_EQ(parser.Create(), Result::Value);
    ASSERT_EQ(parser.Load(dir.path() / "scheme.xml"), Result::Value);

    struct Case {
        std::string_view xpath;
        Result result;
        std::string_view out; // what the output holds afterwards; it starts as "before"
    };
    const Case cases[] = {
        {"scheme/mainclock/city/@state", Result::Value, "show"},
        {"//city/@font-size", Result::Value, "12"},
        {"scheme/mainclock/city/@rect", Result::Empty, "before"},
        {"scheme/mainclock/city/@align", Result::NoMatch, "before"},
        {"scheme/mainclock/note", Result::Value, "hello & bye"},
        {"scheme/mainclock/empty", Result::Empty, "before"},
        // An element's value is that of its first child; an element child has none.
        {"scheme/mainclock/nested", Result::Value, ""},
        {"scheme/mainclock/remark", Result::Value, "first"},
        {"scheme/mainclock/data", Result::Value, "<raw>"},
        // A text node has no children of its own.
        {"scheme/mainclock/note/text()", Result::Empty, "before"},
        {"scheme/mainclock/city[", Result::Error, "before"},
        {"count(//city)", Result::Error, "before"},
    };
    for (const Case& c : cases) {
        std::string out = "before";
        EXPECT_EQ(parser.GetValue(c.xpath, out), c.result) << c.xpath;
        EXPECT_EQ(out, c.out) << c.xpath;
        EXPECT_EQ(found(c.result), c.result != Result::Error);
    }
}

TEST(CXMLParserTest, OnlyACreatedAndLoadedDocumentAnswers) {
    TempDir dir;
    writeFile(dir.path() / "a.xml", "<a b='1'/>");
    writeFile(dir.path() / "broken.xml", "<a b='1'><city/>");
    CXMLParser parser;
    std::string out = "kept";
    EXPECT_EQ(parser.GetValue("a", out), Result::Error);
    EXPECT_EQ(parser.GetValueAt(pugi::xml_node(), "@a", out), Result::Error);
    EXPECT_TRUE(parser.selectNodes("//*").empty());
    EXPECT_EQ(parser.Load(dir.path() / "a.xml"), Result::Error);

    ASSERT_EQ(parser.Create(), Result::Value);
    ASSERT_EQ(parser.Load(dir.path() / "a.xml"), Result::Value);
    // A second Create releases the document and fails.
    EXPECT_EQ(parser.Create(), Result::Error);
    EXPECT_EQ(parser.GetValue("a/@b", out), Result::Error);
    EXPECT_EQ(parser.Create(), Result::Value);
    EXPECT_EQ(parser.GetValue("a/@b", out), Result::NoMatch);
    // A failed load, missing or half-read, leaves an empty document.
    for (const char* name : {"missing.xml", "broken.xml"}) {
        ASSERT_EQ(parser.Load(dir.path() / "a.xml"), Result::Value);
        EXPECT_EQ(parser.Load(dir.path() / name), Result::Error);
        EXPECT_EQ(parser.GetValue("a/@b", out), Result::NoMatch) << name;
    }
    ASSERT_EQ(parser.Load(dir.path() / "a.xml"), Result::Value);
    parser.Close();
    EXPECT_EQ(parser.GetValue("a/@b", out), Result::Error);
    EXPECT_EQ(out, "kept");
}

TEST(CXMLParserTest, Utf16FilesGiveUtf8Values) {
    TempDir dir;
    const std::u16string text = u"\uFEFF<city name=\"Z\u00FCrich \u6771\u4EAC\"/>";
    std::string bytes;
    for (char16_t unit : text) {
        bytes.push_back(char(unit & 0xFF));
        bytes.push_back(char(unit >> 8));
    }
    writeFile(dir.path() / "city.xml", bytes);
    CXMLParser parser;
    ASSERT_EQ(parser.Create(), Result::Value);
    ASSERT_EQ(parser.Load(dir.path() / "city.xml"), Result::Value);
    std::string out;
    EXPECT_EQ(parser.GetValue("city/@name", out), Result::Value);
    EXPECT_EQ(out, "Z\xC3\xBCrich \xE6\x9D\xB1\xE4\xBA\xAC");
}

TEST(CXMLParserTest, NodeListsAreReadRelativeToEachItem) {
    TempDir dir;
    writeFile(dir.path() / "rates.xml", R"(<rates>
  <rate currency="USD" value="1.1"/>
  <rate currency="JPY"/>
  <rate currency="GBP" value="0.8"/>
</rates>)");
    CXMLParser parser;
    ASSERT_EQ(parser.Create(), Result::Value);
    ASSERT_EQ(parser.Load(dir.path() / "rates.xml"), Result::Value);

    const pugi::xpath_node_set rates = parser.selectNodes("rates/rate");
    ASSERT_EQ(rates.size(), 3u);
    std::string currency, value;
    std::vector<std::string> seen;
    for (const pugi::xpath_node& rate : rates) {
        parser.GetValueAt(rate.node(), "@currency", currency);
        EXPECT_TRUE(found(parser.GetValueAt(rate.node(), "@value", value)));
        seen.push_back(currency + "=" + value);
    }
    // The missing value of JPY repeats the one read before it.
    EXPECT_EQ(seen, (std::vector<std::string>{"USD=1.1", "JPY=1.1", "GBP=0.8"}));

    EXPECT_EQ(parser.GetValueAt(rates[2].node(), "note[", value), Result::Error);
    EXPECT_EQ(parser.GetValueAt(pugi::xml_node(), "@currency", value), Result::NoMatch);
    EXPECT_TRUE(parser.selectNodes("rates/rate[").empty());
    EXPECT_TRUE(parser.selectNodes("count(rates/rate)").empty());
}

} // namespace
} // namespace zonara
