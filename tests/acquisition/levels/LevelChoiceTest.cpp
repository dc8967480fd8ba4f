#include "acquisition/levels/LevelChoice.h"

#include <gtest/gtest.h>

namespace lobegraph {
namespace {

TEST(LevelChoiceTest, AStoredTextNamesItsMethod) {
  for (const LevelMethodRow& row : kLevelMethods) EXPECT_EQ(LevelMethodOf(row.Stored).Method, row.Method);
  for (const SoundChannelRow& row : kSoundChannels)
    EXPECT_EQ(SoundChannelOf(row.Stored).Channel, row.Channel);
}

TEST(LevelChoiceTest, ATextThatIsNoneMeansPeaksOfBothChannels) {
  for (const char* text : {"", "Peaks", "tone ", "narrow"}) {
    EXPECT_EQ(LevelMethodOf(text).Method, LevelMethod::Peaks) << text;
    EXPECT_EQ(SoundChannelOf(text).Channel, SoundChannel::Sum) << text;
  }
}

TEST(LevelChoiceTest, EveryMethodSaysWhatItAssumes) {
  for (const LevelMethodRow& row : kLevelMethods) EXPECT_FALSE(row.Assumes.empty()) << row.Name;
  EXPECT_NE(RowOf(LevelMethod::ToneOverNoise).Assumes.find("equal in all directions"),
            std::string_view::npos);
}

}  // namespace
}  // namespace lobegraph
