// Files that cannot be read, or not to their end.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/LoadFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::IsEmpty;

class DamagedFilesTest : public LoadFixture {
 protected:
  /// A whole file with the line of a field (from 0, readings counted) replaced, or cut before it.
  static std::string Damaged(int line, const std::string& text) { return Lines(line, text, true); }
  static std::string CutBefore(int line) { return Lines(line, "", false); }

  static constexpr int kFirstAfterReadings = 361;
  static constexpr int kPeakIndex = kFirstAfterReadings + 4;
  static constexpr int kDescription = kFirstAfterReadings + 6;

 private:
  static std::string Lines(int line, const std::string& text, bool goOn) {
    const std::string whole = WritePatternText(FileRecord(), "V1.0.0");
    std::size_t begin = 0;
    for (int i = 0; i < line; ++i) begin = whole.find("\r\n", begin) + 2;
    if (!goOn) return whole.substr(0, begin);
    return whole.substr(0, begin) + text + whole.substr(whole.find("\r\n", begin));
  }
};

class UnreadableFileTest : public DamagedFilesTest, public testing::WithParamInterface<int> {};

TEST_P(UnreadableFileTest, LeavesEverythingWithOneMessage) {
  HoldBeam();
  Tick(chk180, true);
  const std::string before = Everything();
  Files.ReadFault = GetParam();
  for (const Control command : {cmdGetData, cmdOverlay}) {
    Forget();
    Dialogs.FileToOpen = "/patterns/gone.lbg";
    Press(command);
    ASSERT_EQ(Dialogs.Messages.size(), 1U);
    EXPECT_THAT(
        Dialogs.Messages[0].Text,
        testing::MatchesRegex("Error " + std::to_string(GetParam()) +
                              " \\(.*\\) in line [0-9]+ of procedure cmdGetData_Click of Form Form1"));
    EXPECT_EQ(Everything(), before);
    EXPECT_THAT(Surface.Operations, IsEmpty());
  }
}

INSTANTIATE_TEST_SUITE_P(Faults, UnreadableFileTest, testing::Values(53, 75, 76),
                         testing::PrintToStringParamName());

struct Damage {
  const char* Name;
  std::string Bytes;
  int Number;
};

class DamagedFileTest : public DamagedFilesTest, public testing::WithParamInterface<int> {
 protected:
  Damage Case() const {
    switch (GetParam()) {
      case 0:
        return {"cut", CutBefore(200), 62};
      case 1:
        return {"no number", Damaged(50, "abc"), 13};
      case 2:
        return {"too large for 16 bits", Damaged(kFirstAfterReadings, "40000"), 6};
      case 3:
        return {"peak index outside", Damaged(kPeakIndex, "500"), 9};
      case 4:
        return {"too many readings", Damaged(0, "400"), 9};
      default:
        return {"no readings at all", "", 62};
    }
  }
};

TEST_P(DamagedFileTest, IsReportedOnceShownSavedAndNotDrawn) {
  HoldBeam();
  const Damage damage = Case();
  Files.Held["/patterns/damaged.lbg"] = damage.Bytes;
  Load("/patterns/damaged.lbg");
  ASSERT_EQ(Dialogs.Messages.size(), 1U) << damage.Name;
  EXPECT_THAT(Dialogs.Messages[0].Text, testing::StartsWith("Error " + std::to_string(damage.Number) + " ("));
  EXPECT_THAT(Dialogs.Messages[0].Text, testing::EndsWith(" of procedure cmdGetData_Click of Form Form1"));
  EXPECT_EQ(Surface.Count("line", kTraceColour), 0) << "half a set is not drawn";
  EXPECT_EQ(Grids(), 1);
  EXPECT_EQ(Text(txtFileName), "damaged.lbg");
  EXPECT_EQ(Record().SavedReadings, Record().Readings);
}

TEST_P(DamagedFileTest, IsNotDrawnOnActivationEither) {
  Files.Held["/patterns/damaged.lbg"] = Case().Bytes;
  Load("/patterns/damaged.lbg");
  Forget();
  Activate();
  EXPECT_EQ(Grids(), 1);
  EXPECT_EQ(Surface.Count("line", kTraceColour), 0);
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Faults, DamagedFileTest, testing::Range(0, 6));

TEST_F(DamagedFilesTest, ADamagedFileShowsTheFieldsBeforeTheDamage) {
  Files.Held["/patterns/damaged.lbg"] = CutBefore(kDescription + 1);
  Load("/patterns/damaged.lbg");
  EXPECT_EQ(Record().ReadingCount, 359.0);
  EXPECT_EQ(Text(txtDescription), "Three elements");
  EXPECT_TRUE(Pattern.DescriptionLoaded());
}

TEST_F(DamagedFilesTest, ADamagedFileKeepsNothingOfTheFormerPlot) {
  HoldBeam();
  Tick(chk180, true);
  Enter(txtTrimFront, "3");
  Files.Held["/patterns/damaged.lbg"] = CutBefore(200);
  Load("/patterns/damaged.lbg");
  EXPECT_FALSE(View.Of(chk180).Checked);
  EXPECT_FALSE(Record().Plot180);
  for (const Control box : {txtRotate, txtTrimFront, txtTrimEnd})
    EXPECT_EQ(Text(box), "0") << RowOf(box).Name;
  EXPECT_EQ(Text(txtAngle), "Angle");
  EXPECT_EQ(Text(txtGain), "Gain");
  EXPECT_EQ(Pattern.BeamwidthDeg(), 0.F);
}

TEST_F(DamagedFilesTest, WithoutADescriptionTheCaptionSaysSo) {
  HoldBeam();
  Files.Held["/patterns/damaged.lbg"] = CutBefore(kDescription);
  Load("/patterns/damaged.lbg");
  EXPECT_EQ(Text(lblFileDescription), "no description");
  EXPECT_EQ(Record().Description, "no description");
  EXPECT_FALSE(Pattern.DescriptionLoaded());
}

TEST_F(DamagedFilesTest, WhatRescaleHasDrawnEveryCommandAndTheWindowDrawAgain) {
  Files.Held["/patterns/damaged.lbg"] = CutBefore(kDescription + 1);
  Load("/patterns/damaged.lbg");
  Press(cmdRescaleData);
  ASSERT_GT(Surface.Count("line", kTraceColour), 0);
  for (const Control control : {cmdLogLin, cmdLinear, chkShow3dB, cmdSmooth}) {
    Forget();
    Press(control);
    EXPECT_GT(Surface.Count("line", kTraceColour), 0) << RowOf(control).Name;
  }
  Forget();
  Activate();
  EXPECT_GT(Surface.Count("line", kTraceColour), 0);
}

TEST_F(DamagedFilesTest, TheHintAdvisesNothingThatDrawsNothing) {
  Files.Held["/patterns/damaged.lbg"] = CutBefore(200);
  Load("/patterns/damaged.lbg");
  EXPECT_EQ(Text(lblHint), "Damaged: the editor can show what was read.");
  HoldBeam();
  EXPECT_EQ(Text(lblHint), "Circ / Rect and Lin / Log show it in another way.");
}

TEST_F(DamagedFilesTest, AfterADamagedFileAGoodOneIsDrawnAgain) {
  Files.Held["/patterns/damaged.lbg"] = CutBefore(200);
  Load("/patterns/damaged.lbg");
  HoldBeam();
  Activate();
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360);
}

TEST_F(DamagedFilesTest, ADamagedOverlayLeavesThePatternBeneathInTheWindow) {
  HoldBeam();
  Files.Held["/patterns/damaged.lbg"] = CutBefore(200);
  Overlay("/patterns/damaged.lbg");
  EXPECT_THAT(Surface.Operations, IsEmpty());
  Forget();
  Activate();
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360);
  EXPECT_EQ(Surface.Count("line", kOverlayTraceColour), 0);
}

TEST_F(DamagedFilesTest, ADamagedPatternIsNotKeptBeneathAnOverlay) {
  Files.Held["/patterns/damaged.lbg"] = CutBefore(200);
  Load("/patterns/damaged.lbg");
  PutFile("/patterns/second.lbg", FileRecord());
  Overlay("/patterns/second.lbg");
  Forget();
  Activate();
  EXPECT_EQ(Surface.Count("line", kTraceColour), 360) << "the good one stands alone";
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
}

}  // namespace
}  // namespace lobegraph
