#include "app/plot/CursorCommands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

/// A beam of 360 readings whose strongest one lies at the top.
class CursorCommandsTest : public testing::Test, protected AppFixture {
 protected:
  CursorCommandsTest() {
    Start();
    HoldBeam();
    Activate();
    Type(lblHint, "Save it.");
  }
  CursorCommands& Cursor() { return Form.Cursor(); }
  /// A place of the circle.
  static SurfacePoint At(float right, float up) { return {250.5F + right, 283.F - up}; }
};

TEST_F(CursorCommandsTest, ThePointerReadsTheBearingInTheCircle) {
  Cursor().PointAt(At(100, 0));
  EXPECT_THAT(Text(lblHint), StartsWith("Bearing 90: "));
  EXPECT_THAT(Text(lblHint), testing::HasSubstr("reading 91 of 360."));
  Cursor().PointAt(At(0, -50));
  EXPECT_THAT(Text(lblHint), StartsWith("Bearing 180: "));
  Cursor().PointAt(At(-230, 0));
  EXPECT_THAT(Text(lblHint), StartsWith("Bearing 270: "));
}

TEST_F(CursorCommandsTest, AndAlongTheRectangle) {
  Press(cmdLinear);
  Type(lblHint, "Save it.");
  Cursor().PointAt({260, 300});
  EXPECT_THAT(Text(lblHint), StartsWith("Bearing 0: "));
  Cursor().PointAt({26, 300});
  EXPECT_THAT(Text(lblHint), StartsWith("Bearing 180: "));
  Cursor().PointAt({26 + 117, 300});
  EXPECT_THAT(Text(lblHint), StartsWith("Bearing 270: "));
  Cursor().PointAt({260, 420});
  EXPECT_EQ(Text(lblHint), "Save it.") << "below the drawing";
}

TEST_F(CursorCommandsTest, BeyondThePlotTheLineHasItsWordsAgain) {
  Cursor().PointAt(At(100, 0));
  Cursor().PointAt(At(245, 245));
  EXPECT_EQ(Text(lblHint), "Save it.");
  Cursor().PointAt(At(0, 100));
  Cursor().Leave();
  EXPECT_EQ(Text(lblHint), "Save it.");
}

TEST_F(CursorCommandsTest, WhatWasSaidMeanwhileStays) {
  Cursor().PointAt(At(100, 0));
  Type(lblHint, "Printed to laser");
  Cursor().Leave();
  EXPECT_EQ(Text(lblHint), "Printed to laser");
  Cursor().PointAt(At(100, 0));
  Type(lblHint, "Saved");
  Cursor().PointAt(At(0, 100));
  Cursor().Leave();
  EXPECT_EQ(Text(lblHint), "Saved");
}

TEST_F(CursorCommandsTest, KeysBeginAtTheStrongestReadingAndMarkWhereTheyAre) {
  Cursor().Step(0);
  EXPECT_THAT(Text(lblHint), StartsWith("Bearing 0: 0.0 dB, reading 1 of 360."));
  ASSERT_THAT(Form.Board().Cursor().Lines(), SizeIs(1));
  Cursor().Step(10);
  EXPECT_THAT(Text(lblHint), StartsWith("Bearing 10: "));
  EXPECT_TRUE(Form.Board().Cursor().Lines().begin()->second.Inverting);
  Cursor().Step(-11);
  EXPECT_THAT(Text(lblHint), StartsWith("Bearing 359: "));
  const int shown = View.TimesShown;
  Cursor().PointAt(At(100, 0));
  EXPECT_THAT(Form.Board().Cursor().Lines(), IsEmpty()) << "the pointer takes over";
  EXPECT_GT(View.TimesShown, shown);
  Cursor().Step(0);
  Cursor().Leave();
  EXPECT_THAT(Form.Board().Cursor().Lines(), IsEmpty());
}

TEST_F(CursorCommandsTest, ANewDrawingForgetsTheMark) {
  Cursor().Step(0);
  Press(cmdLogLin);
  EXPECT_THAT(Form.Board().Cursor().Lines(), IsEmpty());
}

TEST_F(CursorCommandsTest, ARunKeepsItsLine) {
  Cursor().PointAt(At(100, 0));
  Shared.Run.IsCollecting = true;
  Type(lblHint, "Collecting: 0:43 left.");
  Cursor().PointAt(At(0, 100));
  Cursor().Step(1);
  EXPECT_EQ(Text(lblHint), "Collecting: 0:43 left.");
  Shared.Run.IsCollecting = false;
}

TEST(CursorWithoutAPattern, SaysNothing) {
  struct Empty : AppFixture {
    Empty() { Start(); }
    using AppFixture::Form;
    using AppFixture::Text;
    using AppFixture::Type;
  } window;
  window.Type(lblHint, "Press Collect Data.");
  window.Form.Cursor().PointAt({250, 100});
  window.Form.Cursor().Step(1);
  EXPECT_EQ(window.Text(lblHint), "Press Collect Data.");
}

}  // namespace
}  // namespace lobegraph
