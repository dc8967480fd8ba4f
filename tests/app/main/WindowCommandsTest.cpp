// Growing, shrinking, the operator's name and the rotation time.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::ElementsAre;
using testing::IsEmpty;

class WindowCommandsTest : public testing::Test, protected AppFixture {
 protected:
  WindowCommandsTest() { Start(); }
};

TEST_F(WindowCommandsTest, ShrinkShowsGrowAndNarrowsTheWindow) {
  Press(cmdShrink);
  EXPECT_EQ(View.WidthTwips, 7515);
  EXPECT_TRUE(View.Of(cmdGrow).Visible);
  EXPECT_TRUE(View.Of(cmdShrink).Visible) << "only Grow comes and goes";
}

TEST_F(WindowCommandsTest, GrowWidensTheWindowAndHidesItself) {
  Press(cmdShrink);
  Press(cmdGrow);
  EXPECT_EQ(View.WidthTwips, 11370);
  EXPECT_FALSE(View.Of(cmdGrow).Visible);
  EXPECT_TRUE(View.Of(cmdShrink).Visible);
  EXPECT_THAT(Only("cmdShrink"), IsEmpty());
}

TEST_F(WindowCommandsTest, GrowDoesNothingSilentlyInAMaximisedWindow) {
  Press(cmdShrink);
  Forget();
  View.Window = WindowState::Maximised;
  Press(cmdGrow);
  EXPECT_THAT(Log, IsEmpty());
}

TEST_F(WindowCommandsTest, ShrinkSpeaksOfAMaximisedWindowEvenWhenItIsMinimisedOnPurpose) {
  for (const WindowState state : {WindowState::Maximised, WindowState::Minimised}) {
    Forget();
    View.Window = state;
    Press(cmdShrink);
    EXPECT_THAT(Log, ElementsAre("message The screen cannot be shrunk when it is maximised"));
  }
}

TEST_F(WindowCommandsTest, TheOperatorsNameIsAskedForWithoutATitle) {
  Dialogs.Answer = "  DL0XY ";
  Press(lblOperator);
  ASSERT_EQ(Dialogs.Prompts.size(), 1U);
  EXPECT_EQ(Dialogs.Prompts[0].first, "Please enter the Operator's name");
  EXPECT_EQ(Dialogs.Prompts[0].second, "");
  EXPECT_EQ(Text(lblOperator), "   DL0XY ");
  EXPECT_EQ(Shared.UserName, "DL0XY");
  EXPECT_THAT(Only("save "), IsEmpty());
}

TEST_F(WindowCommandsTest, BlanksOnlyShowABlankAndTheBlanksAndKeepTheName) {
  Dialogs.Answer = "  ";
  Press(lblOperator);
  EXPECT_EQ(Text(lblOperator), "   ");
  EXPECT_EQ(Shared.UserName, "N0CALL");
}

TEST_F(WindowCommandsTest, ACancelledOperatorsNameLeavesOneBlankAndTheName) {
  Dialogs.Answer.reset();
  Press(lblOperator);
  EXPECT_EQ(Text(lblOperator), " ");
  EXPECT_EQ(Shared.UserName, "N0CALL");
}

TEST_F(WindowCommandsTest, AnOperatorsNameThatIsTickedIsTheCallSignOfTheNextStart) {
  Dialogs.Answer = "  DL0XY ";
  Dialogs.Tick = true;
  Press(lblOperator);
  EXPECT_THAT(Dialogs.Ticks, ElementsAre("Also my &call sign at the next start"));
  EXPECT_EQ(Shared.UserName, "DL0XY");
  EXPECT_EQ(Store.Held("Username"), "DL0XY");
  Dialogs.Answer = "";
  Press(lblOperator);
  EXPECT_EQ(Store.Held("Username"), "");
  Dialogs.Answer.reset();
  Forget();
  Press(lblOperator);
  EXPECT_THAT(Only("save "), IsEmpty()) << "cancelled";
}

TEST_F(WindowCommandsTest, NoBoxOpensInTheMiddleOfACollection) {
  Shared.Run.IsCollecting = true;
  Press(lblOperator);
  EXPECT_THAT(Log, IsEmpty());
}

TEST_F(WindowCommandsTest, TheRotationSliderShowsItsSeconds) {
  Slide(Slider2, 36);
  EXPECT_EQ(Text(lblRotationTime), "36");
}

}  // namespace
}  // namespace lobegraph
