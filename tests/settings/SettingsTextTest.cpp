#include "settings/SettingsText.h"

#include <gmock/gmock.h>

namespace lobegraph {
namespace {

using ::testing::Optional;
using ::testing::PrintToString;

struct FindCase {
  const char* Name;
  std::string Text;
  std::optional<std::string> Value;
};
void PrintTo(const FindCase& given, std::ostream* out) { *out << given.Name; }

class FindValueTest : public ::testing::TestWithParam<FindCase> {};

TEST_P(FindValueTest, ReadsScaleOfSettings) {
  EXPECT_EQ(FindValue(GetParam().Text, "Settings", "Scale"), GetParam().Value);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, FindValueTest,
    ::testing::Values(FindCase{"Plain", "[Settings]\nScale=35\n", "35"}, FindCase{"NoText", "", std::nullopt},
                      FindCase{"NoSection", "Scale=35\n", std::nullopt},
                      FindCase{"OtherSection", "[Ports]\nScale=35\n", std::nullopt},
                      FindCase{"SectionEnds", "[Settings]\n[Ports]\nScale=35\n", std::nullopt},
                      FindCase{"SectionTwice", "[Settings]\na=1\n[Ports]\nb=2\n[Settings]\nScale=35\n", "35"},
                      FindCase{"LastLineOfAKeyCounts", "[Settings]\nScale=35\nScale=40\n", "40"},
                      FindCase{"Empty", "[Settings]\nScale=\n", ""},
                      FindCase{"OneBlank", "[Settings]\nScale= \n", " "},
                      FindCase{"BlanksAround", "[Settings]\nScale=  3 5\t \n", "  3 5\t "},
                      FindCase{"BlanksAroundTheKey", " [Settings] \n Scale =35\n", "35"},
                      FindCase{"MoreEqualSigns", "[Settings]\nScale=a=b;c,\"d\\\n", "a=b;c,\"d\\"},
                      FindCase{"CarriageReturns", "[Settings]\r\nScale=35\r\n", "35"},
                      FindCase{"Utf8", "[Settings]\nScale=DL1\u00c4\u00df\n", "DL1\u00c4\u00df"},
                      FindCase{"ByteOrderMark", "\xEF\xBB\xBF[Settings]\nScale=35\n", "35"},
                      FindCase{"Comments", "# Scale=1\n[Settings]\n;Scale=2\n#Scale=3\nwords\nScale=35\n",
                               "35"},
                      FindCase{"OtherCase", "[Settings]\nscale=35\n", std::nullopt},
                      FindCase{"KeyWithTail", "[Settings]\nScaleX=1\nXScale=2\n", std::nullopt},
                      FindCase{"NoEqualSign", "[Settings]\nScale\n", std::nullopt},
                      FindCase{"HalfWritten", "[Settings]\nScale=3", std::nullopt},
                      FindCase{"HalfWrittenAgain", "[Settings]\nScale=35\nScale=4", "35"},
                      FindCase{"HalfWrittenHeader", "[Settings]", std::nullopt},
                      FindCase{"OnlyBrackets", "[]\n[\n]\n=\n[Settings]\nScale=35\n", "35"}),
    [](const auto& given) { return given.param.Name; });

TEST(SettingsTextTest, ATextIsWholeWhenItsLastLineHasItsEnd) {
  EXPECT_TRUE(IsWholeText("[Settings]\n"));
  EXPECT_TRUE(IsWholeText("[Settings]\r\n"));
  EXPECT_FALSE(IsWholeText("[Settings]\nScale=3"));
  EXPECT_FALSE(IsWholeText("[Settings]\r"));
  EXPECT_FALSE(IsWholeText("")) << "a file just emptied to be written anew";
}

struct ReplaceCase {
  const char* Name;
  std::string Before;
  std::string After;
};
void PrintTo(const ReplaceCase& given, std::ostream* out) { *out << given.Name; }

class ReplaceValueTest : public ::testing::TestWithParam<ReplaceCase> {};

TEST_P(ReplaceValueTest, SetsScaleOfSettingsTo40) {
  EXPECT_EQ(ReplaceValue(GetParam().Before, "Settings", "Scale", "40"), GetParam().After);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ReplaceValueTest,
    ::testing::Values(
        ReplaceCase{"NoText", "", "[Settings]\nScale=40\n"},
        ReplaceCase{"Replaced", "[Settings]\nScale=35\nTrigger=0\n", "[Settings]\nScale=40\nTrigger=0\n"},
        ReplaceCase{"Added", "[Settings]\nTrigger=0\n", "[Settings]\nTrigger=0\nScale=40\n"},
        ReplaceCase{"AddedBeforeTheNextSection", "[Settings]\nTrigger=0\n\n[Ports]\nCOM1=/dev/x\n",
                    "[Settings]\nTrigger=0\nScale=40\n\n[Ports]\nCOM1=/dev/x\n"},
        ReplaceCase{"EmptySection", "[Settings]\n\n[Ports]\n", "[Settings]\nScale=40\n\n[Ports]\n"},
        ReplaceCase{"NewSection", "[Ports]\nScale=1\n", "[Ports]\nScale=1\n[Settings]\nScale=40\n"},
        ReplaceCase{"ForeignLinesStay", "# mine\nwords\n[Settings]\n ; why\nZ=  \nScale=35\n\n[X]\nScale=9\n",
                    "# mine\nwords\n[Settings]\n ; why\nZ=  \nScale=40\n\n[X]\nScale=9\n"},
        ReplaceCase{"BlanksAroundTheKeyStay", "[Settings]\n Scale =35\n", "[Settings]\n Scale =40\n"},
        ReplaceCase{"CarriageReturnsStay", "[Settings]\r\nScale=35\r\nTrigger=0\r\n",
                    "[Settings]\r\nScale=40\r\nTrigger=0\r\n"},
        ReplaceCase{"CarriageReturnsForNewLines", "[Settings]\r\n", "[Settings]\r\nScale=40\r\n"},
        ReplaceCase{"TheLineThatCounts", "[Settings]\nScale=1\nScale=2\n", "[Settings]\nScale=1\nScale=40\n"},
        ReplaceCase{"ByteOrderMarkStaysFirst", "\xEF\xBB\xBF", "\xEF\xBB\xBF[Settings]\nScale=40\n"},
        ReplaceCase{"HalfLineStaysLast", "[Settings]\nTrigger=0\nAuto",
                    "[Settings]\nTrigger=0\nScale=40\nAuto"},
        ReplaceCase{"HalfLineOfThisKeyIsCompleted", "[Settings]\nScale=3", "[Settings]\nScale=40\n"},
        ReplaceCase{"HalfLineStaysInItsSection", "[A]\nb=1\n[Ports]\nCOM1=/dev",
                    "[A]\nb=1\n[Settings]\nScale=40\n[Ports]\nCOM1=/dev"},
        ReplaceCase{"HalfHeaderStaysLast", "[A]\nb=1\n[Settings]",
                    "[A]\nb=1\n[Settings]\nScale=40\n[Settings]"},
        ReplaceCase{"HalfLineAlone", "Sca", "[Settings]\nScale=40\nSca"}),
    [](const auto& given) { return given.param.Name; });

TEST(SettingsTextTest, EveryValueIsReadBackAsItWasSaved) {
  for (const std::string value : {"", " ", "  a b  ", "\t", "a=b", "[Settings]", "# no comment", "\"q\"",
                                  "\\n", "Z\u00fcrich", "1,5", "\xff\xfe"}) {
    const std::string text = ReplaceValue("[Settings]\nA=1\n", "Settings", "Username", value);
    EXPECT_THAT(FindValue(text, "Settings", "Username"), Optional(value)) << PrintToString(value);
    EXPECT_THAT(FindValue(text, "Settings", "A"), Optional(std::string("1"))) << PrintToString(value);
  }
}

TEST(SettingsTextTest, LineBreaksInAValueBecomeBlanks) {
  const auto saved = [](std::string_view value) { return ReplaceValue("", "S", "k", value); };
  EXPECT_EQ(saved("a\nb\r\nc\rd\n"), "[S]\nk=a b c d \n");
  EXPECT_EQ(saved("x\n[S]\nk=2"), "[S]\nk=x [S] k=2\n") << "a value never becomes a line of its own";
}

TEST(SettingsTextTest, NamesThatCouldNotBeFoundAgainAreNoNames) {
  for (const char* name : {"Scale", "COM1", "two words", "\u00c4", "a#b", "-"})
    EXPECT_TRUE(IsSettingName(name)) << name;
  for (const char* name : {"", " ", "a=b", "[a", "a]", "a\nb", "a\rb", " a", "a\t", "#a", ";a"})
    EXPECT_FALSE(IsSettingName(name)) << name;
}

}  // namespace
}  // namespace lobegraph
