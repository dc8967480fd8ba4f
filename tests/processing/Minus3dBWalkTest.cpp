#include "processing/Minus3dBWalk.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace lobegraph {
namespace {

/// Ten readings; those not named lie 20 dB down. The peak is reading 0.
int Walk(WalkSide side, const std::map<int, float>& levels, int peak = 0,
         std::vector<int>* examined = nullptr) {
  return WalkToMinus3dB({0, 9, peak}, side, [&](int index) {
    if (examined != nullptr) examined->push_back(index);
    const auto found = levels.find(index);
    if (found != levels.end()) return found->second;
    return index == peak ? 0.F : 20.F;
  });
}

struct Case {
  const char* What;
  std::map<int, float> Levels;
  int A;
};

class ForwardWalkTest : public ::testing::TestWithParam<Case> {};

TEST_P(ForwardWalkTest, EndsAtTheReadingNearerTo3dB) {
  EXPECT_EQ(Walk(WalkSide::A, GetParam().Levels), GetParam().A) << GetParam().What;
  std::map<int, float> mirrored;
  for (const auto& [index, level] : GetParam().Levels) mirrored[(10 - index) % 10] = level;
  EXPECT_EQ(Walk(WalkSide::B, mirrored), (10 - GetParam().A) % 10) << "backward: " << GetParam().What;
}

INSTANTIATE_TEST_SUITE_P(
    Walks, ForwardWalkTest,
    ::testing::Values(
        Case{"candidate 2.5 against 3.2: the latter is nearer", {{1, 1.F}, {2, 2.5F}, {3, 3.2F}}, 3},
        Case{"candidate 2.9 against 3.5: the candidate is nearer", {{1, 1.F}, {2, 2.9F}, {3, 3.5F}}, 2},
        Case{"a tie goes to the one at or past 3 dB", {{1, 1.F}, {2, 2.75F}, {3, 3.25F}}, 3},
        Case{"exactly 3 dB", {{1, 1.F}, {2, 2.F}, {3, 3.F}, {4, 3.9F}}, 3},
        Case{"exactly 3 dB ends it", {{1, 1.F}, {2, 2.F}, {3, 3.F}, {4, 2.5F}, {5, 3.3F}}, 3},
        Case{"readings below 1 dB take no part", {{1, .2F}, {2, .9F}, {3, 2.8F}, {4, 3.6F}}, 3},
        Case{"readings above 4 dB take no part", {{1, 2.F}, {2, 4.1F}, {3, 3.1F}}, 3},
        Case{"a first candidate at 2.9 is no measure", {{1, 2.9F}, {2, 3.1F}, {3, 2.F}, {4, 3.1F}}, 4},
        Case{"a reading that falls back starts anew", {{1, 2.5F}, {2, 2.F}, {3, 2.2F}, {4, 3.4F}}, 4},
        Case{"an equal level is no rise", {{1, 2.F}, {2, 2.F}, {3, 3.1F}, {4, 2.5F}, {5, 3.1F}}, 5},
        Case{"a jump past 4 dB leaves it to a later lobe", {{1, 2.F}, {2, 9.F}, {5, 2.5F}, {6, 3.1F}}, 6}));

TEST(Minus3dBWalkTest, TheRiseIsRememberedAfterACandidateIsForgottenOnPurpose) {
  // 2.0 -> 2.2 sets the mark; 2.1 forgets the candidate's level but, the mark being set, becomes the
  // candidate at once.
  EXPECT_EQ(Walk(WalkSide::A, {{1, 2.F}, {2, 2.2F}, {3, 2.1F}, {4, 3.95F}}), 3);
}

TEST(Minus3dBWalkTest, AWalkThatEndsNowhereYieldsThePeak) {
  EXPECT_EQ(Walk(WalkSide::A, {}, 4), 4);
  EXPECT_EQ(Walk(WalkSide::B, {}, 4), 4);
  EXPECT_EQ(Walk(WalkSide::A, {{5, 2.F}}, 4), 4) << "a candidate alone is not enough";
}

TEST(Minus3dBWalkTest, ExaminesEachReadingOnceBeginningBesideThePeakAndWrapping) {
  std::vector<int> examined;
  Walk(WalkSide::A, {}, 7, &examined);
  EXPECT_EQ(examined, (std::vector<int>{8, 9, 0, 1, 2, 3, 4, 5, 6, 7}));
  examined.clear();
  Walk(WalkSide::B, {}, 2, &examined);
  EXPECT_EQ(examined, (std::vector<int>{1, 0, 9, 8, 7, 6, 5, 4, 3, 2}));
}

TEST(Minus3dBWalkTest, AFormerPeakOutsideTheRangeStillWalksTheRange) {
  for (const int peak : {-5, 2, 300}) {
    std::vector<int> examined;
    WalkToMinus3dB({10, 12, peak}, WalkSide::A, [&](int index) {
      examined.push_back(index);
      return 20.F;
    });
    EXPECT_EQ(examined, (std::vector<int>{10, 11, 12})) << peak;
  }
}

}  // namespace
}  // namespace lobegraph
