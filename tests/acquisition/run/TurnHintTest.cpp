#include "acquisition/run/TurnHint.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lobegraph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using enum RemarkRank;

TEST(TurnHintTest, NothingSaidIsNothingShown) {
  TurnHint hint;
  hint.Add(Late, "");
  EXPECT_EQ(hint.Shown(), "");
  EXPECT_EQ(hint.Spoken(), "");
  EXPECT_THAT(hint.All(), IsEmpty());
}

TEST(TurnHintTest, WhatLosesDataComesFirstWhateverWasSaidBefore) {
  const std::vector<RemarkRank> urgentFirst = {DataInDanger, SourceLost, Silent,  Late,
                                               Part,         Quality,    NextStep};
  for (std::size_t first = 0; first < urgentFirst.size(); ++first)
    for (std::size_t second = first + 1; second < urgentFirst.size(); ++second) {
      TurnHint hint;
      hint.Add(urgentFirst[second], "less");
      hint.Add(urgentFirst[first], "more");
      EXPECT_EQ(hint.Shown(), "more") << first << " " << second;
      EXPECT_EQ(hint.Spoken(), "more less");
    }
}

TEST(TurnHintTest, OfOneRankTheFirstToldComesFirst) {
  TurnHint hint;
  hint.Add(Quality, "The floor is high.");
  hint.Add(NextStep, "Save File.");
  hint.Add(Quality, "The turn closes within 3 dB.");
  EXPECT_EQ(hint.Spoken(), "The floor is high. The turn closes within 3 dB. Save File.");
}

TEST(TurnHintTest, WhatIsToldTwiceStandsOnce) {
  TurnHint hint;
  hint.Add(Silent, "Nothing was heard.");
  hint.Add(Silent, "Nothing was heard.");
  EXPECT_THAT(hint.All(), ElementsAre(TurnRemark{Silent, "Nothing was heard."}));
}

}  // namespace
}  // namespace lobegraph
