// What stands on disk while a turn runs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "app/CollectionFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::IsEmpty;

class CollectionCopyTest : public CollectionFixture {};

TEST_F(CollectionCopyTest, WhileATurnRunsItsReadingsStandOnDisk) {
  Heard = [this] { return 100.F + static_cast<float>(ReadingsDone()); };
  ReadingsRecord onDisk;
  At(120, [&] { onDisk = OnDisk(TurnFile()); });
  Collect();
  EXPECT_EQ(onDisk.NumReadings, 119);
  for (int i = 0; i < 120; ++i) EXPECT_NEAR(onDisk.Readings(i), 100.F + static_cast<float>(i), .05F) << i;
  EXPECT_EQ(onDisk.CollectedBy, "N0CALL");
}

TEST_F(CollectionCopyTest, ASafetyCopyOpensLikeAnyPattern) {
  HaltAfter(100);
  Collect();
  std::ifstream file(TurnFile(), std::ios::binary);
  Files.Held["/state/turn.lbg"] = std::string(std::istreambuf_iterator<char>(file), {});
  Load("/state/turn.lbg");
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
  EXPECT_EQ(Text(txtReadingsPlotted), "100");
  EXPECT_EQ(Surface.Count("line", kTraceColour), 100);
}

TEST_F(CollectionCopyTest, TheEndOfATurnIsWrittenAsTheRecordHasIt) {
  View.Of(chkAutoStop).Checked = true;
  Heard = [this] { return ReadingsDone() < 70 ? 300.F : 5.F; };
  Collect();
  const ReadingsRecord onDisk = OnDisk(TurnFile());
  EXPECT_EQ(onDisk.NumReadings, 74);
  EXPECT_EQ(onDisk.TrimEnd, 5);
  EXPECT_EQ(onDisk.ReadingsPlotted, 75);
}

TEST_F(CollectionCopyTest, TroubleWithTheDiskDoesNotEndTheTurnAndIsTold) {
  std::ofstream(State.File("turns")) << "a file in the folder's place";
  Collect();
  EXPECT_EQ(Record().NumReadings, 359);
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
  EXPECT_EQ(Text(lblHint), "Save File now: the safety copy failed (Path not found).");
}

}  // namespace
}  // namespace lobegraph
