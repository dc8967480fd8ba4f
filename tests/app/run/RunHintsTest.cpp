#include "app/run/RunHints.h"

#include <gmock/gmock.h>

#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using ::testing::EndsWith;
using ::testing::StartsWith;

TEST(RunHintsTest, TimeLeftIsInMinutesAndWholeSecondsRoundedUp) {
  const struct {
    int Readings;
    int Seconds;
    const char* Text;
  } cases[] = {{360, 60, "1:00"}, {359, 60, "1:00"},    {354, 60, "0:59"},   {1, 60, "0:01"},
               {0, 60, "0:00"},   {360, 1200, "20:00"}, {180, 1210, "10:05"}};
  for (const auto& [readings, seconds, text] : cases) EXPECT_EQ(TimeLeft(readings, seconds), text);
}

TEST(RunHintsTest, TheLineTellsWhereTheTurnIs) {
  EXPECT_EQ(StartHint(false, false, false, 120), "Collecting: 2:00 left.");
  EXPECT_EQ(StartHint(true, true, true, 120), "Waiting for a signal. Halt Collection ends the wait.");
  EXPECT_EQ(StartHint(false, true, true, 120), "Waiting for the first trigger pulse.");
  EXPECT_EQ(StartHint(false, true, false, 120),
            "The trigger's port is not open: press Manual Trigger for each reading.");
  EXPECT_EQ(ProgressHint(128, false, 120), "Reading 128 of 360, 1:18 left.");
  EXPECT_EQ(ProgressHint(128, true, 120), "Reading 128 of 360, paced by the trigger.");
}

struct CountingDesktop final : DesktopAwake {
  int Begun = 0;
  int Ended = 0;
  void Begin() override { ++Begun; }
  void End() override { ++Ended; }
};

TEST(RunHintsTest, TheDesktopIsAwakeAsLongAsARunLasts) {
  CountingDesktop desktop;
  {
    const StayAwake awake(&desktop);
    EXPECT_EQ(desktop.Begun, 1);
    EXPECT_EQ(desktop.Ended, 0);
  }
  EXPECT_EQ(desktop.Ended, 1);
  const StayAwake noDesktop(nullptr);
}

class RunHintsInTheWindow : public ::testing::Test, protected AppFixture {
 protected:
  RunHintsInTheWindow() { Start(); }
};

TEST_F(RunHintsInTheWindow, ATurnTellsReadingAndTimeLeftUntilItsEnd) {
  View.Of(Slider2).Value = 36;
  std::vector<std::string> seen;
  OnYield = [&] {
    if (seen.empty() || seen.back() != Text(lblHint)) seen.push_back(Text(lblHint));
  };
  Press(cmdCollectData);
  ASSERT_GT(seen.size(), 100U);
  EXPECT_THAT(seen, ::testing::Contains("Collecting: 0:36 left."));
  EXPECT_THAT(seen, ::testing::Contains("Reading 180 of 360, 0:18 left."));
  EXPECT_THAT(Text(lblHint), StartsWith("360 readings."));
}

TEST_F(RunHintsInTheWindow, AnAbandonedStartLeavesTheLineAsItWas) {
  const std::string before = Text(lblHint);
  Silent = true;
  Press(cmdCollectData);
  EXPECT_EQ(Text(lblHint), before);
}

TEST(RunHintsTest, OnlyTheSoundCardHasAColourToAimAt) {
  EXPECT_THAT(CalibrateHint(true), testing::HasSubstr("green"));
  EXPECT_THAT(CalibrateHint(false), testing::Not(testing::HasSubstr("green")));
}

TEST_F(RunHintsInTheWindow, ASweepTellsWhatToDoMeanwhileAndNext) {
  bool told = false;
  OnYield = [&] {
    told |= Text(lblHint) == "At the peak set the level to green; then untick Calibrate.";
    View.Of(chkCalibrate).Checked = false;
  };
  View.Of(chkCalibrate).Checked = true;
  Form.Click(chkCalibrate);
  Form.Run().Timer1_Timer();
  EXPECT_TRUE(told);
  EXPECT_EQ(Text(lblHint), "Start the rotator, then press Collect Data.");
}

}  // namespace
}  // namespace lobegraph
