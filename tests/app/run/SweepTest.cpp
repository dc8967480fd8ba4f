// Calibrating: the level goes round the plot while the user sets the input up.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAreArray;

class SweepTest : public testing::Test, protected AppFixture {
 protected:
  SweepTest() {
    Start();
    View.Of(Slider2).Value = 36;
  }
  /// Ticks the box and lets the timer fire, as the event loop does.
  void Sweep() {
    Tick(chkCalibrate, true);
    if (View.Timer1) Form.Run().Timer1_Timer();
  }
  /// The user at a yield of the sweep; unticks the box at the end.
  void At(int yield, std::function<void()> act) {
    OnYield = [this, yield, act = std::move(act)] {
      if (!Shared.Run.IsSweeping) return;
      if (++yields_ == yield && act) act();
      if (yields_ == yield + 40) View.Of(chkCalibrate).Checked = false;
    };
  }

 private:
  int yields_ = 0;
};

TEST_F(SweepTest, TickingTheBoxStartsTheTimerOnce) {
  Tick(chkCalibrate, true);
  EXPECT_THAT(Log, ElementsAre("Timer1 on"));
  At(10, nullptr);
  Form.Run().Timer1_Timer();
  EXPECT_EQ(Log.at(1), "Timer1 off");
  EXPECT_FALSE(View.Timer1);
}

TEST_F(SweepTest, UntickingTheBoxByTheUserDoesNothingByItself) {
  Tick(chkCalibrate, false);
  EXPECT_THAT(Log, IsEmpty());
}

TEST_F(SweepTest, WithoutAWorkingInputTheBoxIsUntickedWithAMessage) {
  HoldBeam();
  Forget();
  Shared.Run.InputReady = false;
  Sound.firstError = "No sound server answers.";
  Tick(chkCalibrate, true);
  EXPECT_THAT(Dialogs.Texts(),
              ElementsAre("LBG006 Cannot take readings - calibrate input function inoperative"));
  EXPECT_FALSE(View.Of(chkCalibrate).Checked);
  EXPECT_FALSE(View.Timer1);
  EXPECT_NE(Text(txtFileName), "") << "what was refused has touched nothing";
  EXPECT_EQ(Grids(), 0);
}

TEST_F(SweepTest, WithoutTheMetersPortItIsRefusedAndThePatternStaysToBeSeen) {
  HoldBeam();
  Forget();
  Shared.Settings.Input.InputDeviceIsdBMeter = true;
  Shared.Settings.Input.ROSKAmeter = true;
  Tick(chkCalibrate, true);
  EXPECT_THAT(Dialogs.Texts(),
              ElementsAre("The Com port for the serially attached dB meter is not available"));
  EXPECT_FALSE(View.Of(chkCalibrate).Checked);
  EXPECT_FALSE(View.Timer1);
  EXPECT_EQ(Grids(), 0);
}

TEST_F(SweepTest, AnInputThatFailedOnceAndWorksAgainIsSwept) {
  Shared.Run.InputReady = false;
  At(10, nullptr);
  Sweep();
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
  EXPECT_GT(Surface.Count("dot", kUserColour), 0);
}

TEST_F(SweepTest, TheSourceIsNamedFromTheFirstSweepOn) {
  std::string named;
  At(10, [&] { named = Text(lblSource); });
  Sweep();
  EXPECT_EQ(named, "Fake microphone");
}

TEST_F(SweepTest, AfterItTheFieldsTellOfThePatternHeldAgain) {
  HoldBeam();
  Enter(txtRotate, "30");
  const auto shown = [this] {
    return std::vector{Text(txtRotate), Text(txtTrimFront), Text(txtTrimEnd),     Text(txtFileName),
                       Text(txtAngle),  Text(txtGain),      Text(txtDescription), Text(lblFileDescription)};
  };
  const auto before = shown();
  At(10, [&] { EXPECT_EQ(Text(txtFileName), ""); });
  Sweep();
  EXPECT_EQ(shown(), before);
}

TEST_F(SweepTest, LocksItsControlsAndPaintsItsBox) {
  std::vector<Control> disabled;
  At(10, [&] {
    disabled = View.Disabled();
    EXPECT_EQ(View.Of(chkCalibrate).Background, (Colour{255, 192, 192}));
    EXPECT_TRUE(View.Of(chkCalibrate).Bold);
    EXPECT_EQ(Text(txtChan1), "<300.0>");
  });
  Sweep();
  std::vector<Control> expected(LockedInSweep().begin(), LockedInSweep().end());
  expected.push_back(cmdHaltInput);
  EXPECT_THAT(disabled, UnorderedElementsAreArray(expected))
      << "collect, calibrate and display stay in reach";
}

TEST_F(SweepTest, TheFormerPatternsFieldsAreClearedBeforeItLocksItsControls) {
  HoldBeam();
  At(10, nullptr);
  Sweep();
  EXPECT_GE(PlaceOf("txtFileName="), 0);
  EXPECT_LT(PlaceOf("txtFileName="), PlaceOf("cmdGetData disabled"));
  EXPECT_LT(PlaceOf("cmdGetData disabled"), PlaceOf("clear"));
}

TEST_F(SweepTest, EndsWithTheEmptyGridAndTheWindowUnlocked) {
  At(10, nullptr);
  Sweep();
  EXPECT_THAT(View.Disabled(), testing::ElementsAre(cmdHaltInput));
  EXPECT_EQ(View.Of(chkCalibrate).Background, (Colour{255, 255, 192}));
  EXPECT_FALSE(View.Of(chkCalibrate).Bold);
  EXPECT_EQ(Text(txtChan1), "0.0");
  EXPECT_EQ(View.Of(txtChan1).Background, (Colour{255, 255, 0}));
  EXPECT_FALSE(Surface.Operations.back().ends_with(kUserColour)) << "the grid is drawn last";
  EXPECT_EQ(Grids(), 2);
  EXPECT_FALSE(Shared.Run.IsSweeping);
}

TEST_F(SweepTest, UnlockingLeavesLogLinAloneWhileThePlotIsNotInDb) {
  Tick(chkPlotInDB, false);
  At(10, nullptr);
  Sweep();
  EXPECT_FALSE(View.Of(cmdLogLin).Enabled);
}

TEST_F(SweepTest, DrawsLivePointsAndStoresNothing) {
  HoldBeam();
  const ReadingArray before = Record().Readings;
  At(100, nullptr);
  Sweep();
  EXPECT_GT(Surface.Count("line", kUserColour), 20);
  EXPECT_EQ(Surface.Count("dot", kUserColour), 1);
  EXPECT_EQ(Record().Readings, before);
  EXPECT_EQ(Record().ReadingCount, 359.0) << "the pattern held is still held";
  Forget();
  Activate();
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360);
}

TEST_F(SweepTest, EveryRoundBeginsOnAFreshGridWithThePenUp) {
  // Four yields a point.
  At(4 * 360 * 2, nullptr);
  Sweep();
  EXPECT_GE(Surface.Count("dot", kUserColour), 3);
  EXPECT_GE(Grids(), 4);
}

TEST_F(SweepTest, ADisplayOptionDoesWhatItSaysInTheMiddle) {
  At(50, [this] {
    Surface.Operations.clear();
    Press(cmdLinear);
    EXPECT_THAT(Surface.Only("filled box"), SizeIs(1));
  });
  Sweep();
  EXPECT_TRUE(Shared.Settings.LinearMode);
  EXPECT_EQ(Surface.Count("dot", kUserColour), 1) << "no line from the former drawing";
  EXPECT_GT(Surface.Count("line", kUserColour), 2);
}

TEST_F(SweepTest, ActivationDrawsNothingIntoIt) {
  At(50, [this] {
    const std::size_t drawn = Surface.Operations.size();
    Activate();
    EXPECT_EQ(Surface.Operations.size(), drawn);
  });
  Sweep();
}

TEST_F(SweepTest, EndsAnOverlay) {
  HoldPair();
  At(10, nullptr);
  Sweep();
  EXPECT_FALSE(Pattern.Beneath());
}

TEST_F(SweepTest, CollectDataEndsItAndTakesATurn) {
  At(50, [this] { Press(cmdCollectData); });
  Sweep();
  EXPECT_FALSE(View.Of(chkCalibrate).Checked);
  EXPECT_EQ(Record().NumReadings, 359);
  EXPECT_EQ(Text(lblHint), "360 readings. Rescale turns the beam up; then Save File.");
  EXPECT_EQ(View.Focus, cmdRescaleData);
}

TEST_F(SweepTest, WithoutASoundServerItEndsWithTheReason) {
  Sound.firstError = "No sound server answers.";
  Sweep();
  ASSERT_THAT(Dialogs.Messages, SizeIs(1));
  EXPECT_EQ(Dialogs.Messages[0], (UserMessage{"No sound server answers.", "DirectSound Error", true}));
  EXPECT_FALSE(View.Of(chkCalibrate).Checked);
  EXPECT_TRUE(View.Of(cmdGetData).Enabled);
}

TEST_F(SweepTest, AFaultIsReportedWithTheWindowUnlocked) {
  Shared.Settings.PeakInputLevel = 0.F;
  Tick(chkPlotInDB, false);
  Forget();
  Sweep();
  ASSERT_THAT(Dialogs.Messages, SizeIs(1));
  EXPECT_THAT(Dialogs.Messages[0].Text, testing::EndsWith(" of procedure Timer1_Timer of Form Form1"));
  EXPECT_TRUE(View.Of(cmdGetData).Enabled);
  EXPECT_FALSE(View.Of(chkCalibrate).Checked);
}

TEST_F(SweepTest, AWindowThatIsClosedInTheMiddleEndsIt) {
  At(50, [this] { Shared.Run.RequestClose(); });
  Sweep();
  EXPECT_FALSE(Shared.Run.IsSweeping);
  EXPECT_FALSE(View.Of(cmdGetData).Enabled);
}

}  // namespace
}  // namespace lobegraph
