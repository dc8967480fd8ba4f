// What the ROSKA power meter sends.
#include "acquisition/meters/Roska.h"

#include "acquisition/meters/Received.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

using test::Received;
using test::ReceivedRow;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RoskaTexts : public ::testing::TestWithParam<ReceivedRow> {};

const ReceivedRow kRows[] = {
    {"TwoReadings", "123;456;", {"123", "456"}},
    {"EveryDigit", "109;238;476;5;", {"109", "238", "476", "5"}},
    {"TheNeighboursOfTheDigitsAreNone", "1/2:3;", {"123"}},
    {"ASpaceEmptiesTheBuffer", "12 34;", {"34"}},
    {"AnEmptyBufferConvertsAfterASpace", "123; ;", {"123", ""}},
    {"AnEmptyBufferIsNoNumberElsewhere", "300;;300;;", {"300", "300"}},
    {"ASemicolonAloneIsNoNumber", ";", {}},
    {"NorBehindALineEnd", "300;\r\n;", {"300"}},
    {"NorBehindABlankAndALineEnd", "300; \n;", {"300"}},
    {"OtherCharactersAreIgnored", "a1\r\nb2.-3;", {"123"}},
    {"NothingWithoutItsEnd", "123", {}},
};

TEST_P(RoskaTexts, GivesTheSameNumbersHoweverItsTextIsCut) {
  const auto& [name, text, numbers] = GetParam();
  EXPECT_EQ(Received(&ReceiveRoska, {text}), numbers);
  for (std::size_t cut = 0; cut <= text.size(); ++cut)
    EXPECT_EQ(Received(&ReceiveRoska, {text.substr(0, cut), text.substr(cut)}), numbers) << "cut at " << cut;
  std::vector<std::string> bytes;
  for (const char character : text) bytes.emplace_back(1, character);
  EXPECT_EQ(Received(&ReceiveRoska, bytes), numbers);
}
INSTANTIATE_TEST_SUITE_P(Texts, RoskaTexts, ::testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.Name; });

TEST(Roska, NumbersAreCounted) {
  Reception reception;
  ReceiveRoska("123;456;", reception, [](const std::string&) {});
  EXPECT_EQ(reception.MeterReadingCount, 2);
}

TEST(Roska, TheCountIsCheckedForOverflowAndLeavesNothingBehind) {
  Reception reception;
  reception.MeterReadingCount = 2147483647;
  EXPECT_THROW(ReceiveRoska("1;", reception, [](const std::string&) {}), RunTimeError);
  EXPECT_EQ(reception.Buffer, "");
}

TEST(Roska, MoreThan64CharactersAreDropped) {
  const std::vector<std::string> endless(5000, "1");
  EXPECT_THAT(Received(&ReceiveRoska, endless), IsEmpty());
  std::vector<std::string> ended = endless;
  ended.emplace_back(";");
  EXPECT_THAT(Received(&ReceiveRoska, ended), ElementsAre(std::string(64, '1')));
}

}  // namespace
}  // namespace lobegraph
