// What the TARVEN dB meter sends.
#include "acquisition/meters/Tarven.h"

#include "acquisition/meters/Received.h"

namespace lobegraph {
namespace {

using test::Received;
using test::ReceivedRow;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TarvenTexts : public ::testing::TestWithParam<ReceivedRow> {};

const ReceivedRow kRows[] = {
    {"OneReading", "\r345 ", {"345"}},
    {"AMinusCancels", "\r345- ", {}},
    {"AMinusStopsCapturing", "\r34-5 ", {}},
    {"ALineFeedEmptiesAndCapturesOn", "\r12\n345 ", {"345"}},
    {"NothingBeforeACarriageReturn", "345 ", {}},
    {"OneReadingPerCarriageReturn", "\r345 678 \r9 ", {"345", "9"}},
    {"TheCarriageReturnEmpties", "\r12\r345 ", {"345"}},
    {"OtherCharactersJoin", "\r34.5 ", {"34.5"}},
};

TEST_P(TarvenTexts, GivesTheSameNumbersHoweverItsTextIsCut) {
  const auto& [name, text, numbers] = GetParam();
  EXPECT_EQ(Received(&ReceiveTarven, {text}), numbers);
  for (std::size_t cut = 0; cut <= text.size(); ++cut)
    EXPECT_EQ(Received(&ReceiveTarven, {text.substr(0, cut), text.substr(cut)}), numbers) << "cut at " << cut;
  std::vector<std::string> bytes;
  for (const char character : text) bytes.emplace_back(1, character);
  EXPECT_EQ(Received(&ReceiveTarven, bytes), numbers);
}
INSTANTIATE_TEST_SUITE_P(Texts, TarvenTexts, ::testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.Name; });

TEST(Tarven, EverythingBehindItsNameInThatTextIsIgnored) {
  EXPECT_THAT(Received(&ReceiveTarven, {"\rTARVEN 123 \r345 "}), IsEmpty());
  EXPECT_THAT(Received(&ReceiveTarven, {"\rTARVEN 123 \r345 ", "\r345 "}), ElementsAre("345"));
}

TEST(Tarven, ItsNameCutAtEveryByteGivesNoNumberBeforeTheNextCarriageReturn) {
  const std::string text = "\rTARVEN 123 ";
  for (std::size_t cut = 0; cut <= text.size(); ++cut)
    EXPECT_THAT(Received(&ReceiveTarven, {text.substr(0, cut), text.substr(cut)}), IsEmpty()) << cut;
}

TEST(Tarven, DeliberatelyTheCharactersStayBehindANumber) {
  EXPECT_THAT(Received(&ReceiveTarven, {"\r345 \n\r67 "}), ElementsAre("345", "67"));
}

TEST(Tarven, ItsNameIsHeardOnlyInPlaceOfANumber) {
  EXPECT_THAT(Received(&ReceiveTarven, {"TARVEN 123 \r345 "}), ElementsAre("345"));
}

TEST(Tarven, MoreThan64CharactersAreDropped) {
  std::vector<std::string> texts(5000, "1");
  texts.insert(texts.begin(), "\r");
  texts.emplace_back(" ");
  EXPECT_THAT(Received(&ReceiveTarven, texts), ElementsAre(std::string(64, '1')));
}

}  // namespace
}  // namespace lobegraph
