// The log of a turn beside the file that is saved and loaded.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "app/CollectionFixture.h"
#include "data/turns/TurnDigest.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::HasSubstr;
using testing::IsEmpty;

class TurnBesideFileTest : public CollectionFixture {
 protected:
  TurnBesideFileTest() {
    Heard = [this] { return 100.F + static_cast<float>(ReadingsDone() % 50); };
  }
  TurnLog LogAt(const std::string& path) { return ReadTurnLog(Files.Held.at(path)); }
  ReadingsRecord PatternAt(const std::string& path) {
    ReadingsRecord record;
    EXPECT_FALSE(LoadPatternFile(Files, path, {}, record).Error);
    return record;
  }
  /// What was done to the saved readings, as the log beside them says.
  std::string ChangesAt(const std::string& stem) {
    const TurnLog log = LogAt(stem + ".turn.csv");
    const ReadingsRecord record = PatternAt(stem + ".lbg");
    EXPECT_NE(OwnerOf(log, record), LogOwner::Another) << stem;
    return CommandsOf(log, record);
  }
  bool HasLog(const std::string& stem) const { return Files.Held.contains(stem + ".turn.csv"); }
};

TEST_F(TurnBesideFileTest, SaveKeepsTheLogBesideThePattern) {
  Collect();
  SaveAs("/p/beam.lbg");
  const TurnLog log = LogAt("/p/beam.turn.csv");
  EXPECT_EQ(log.Key(turnkey::kEnded), "whole");
  EXPECT_EQ(log.Rows().size(), 360U);
  EXPECT_EQ(ChangesAt("/p/beam"), "");
  EXPECT_THAT(Text(lblHint), testing::StartsWith("Saved in /p/"));
}

TEST_F(TurnBesideFileTest, WhatWasDoneToTheReadingsSinceIsNoted) {
  Collect();
  Press(cmdSmooth);
  Press(cmdReverse);
  Press(cmdRescaleData);
  SaveAs("/p/beam.lbg");
  EXPECT_EQ(ChangesAt("/p/beam"), "smoothed, reversed");
}

TEST_F(TurnBesideFileTest, WhatWasTakenBackIsNotNoted) {
  Collect();
  Press(cmdSmooth);
  Form.Transform().Undo();
  SaveAs("/p/a.lbg");
  EXPECT_EQ(ChangesAt("/p/a"), "");
  Form.Transform().Redo();
  Press(cmdReverse);
  Press(cmdOriginalData);
  SaveAs("/p/b.lbg");
  EXPECT_EQ(ChangesAt("/p/b"), "");
}

TEST_F(TurnBesideFileTest, ACommandThatChangesNoReadingIsNotNoted) {
  Heard = [] { return 300.F; };
  Collect();
  Press(cmdDeSpike);
  SaveAs("/p/beam.lbg");
  EXPECT_EQ(ChangesAt("/p/beam"), "");
}

TEST_F(TurnBesideFileTest, TheEditorsReadingsAreNotedAsEdited) {
  Collect();
  ReadingArray readings = Record().Readings;
  readings(5) = 77.F;
  Form.Display().Run([&](PatternSession& pattern) { return pattern.Update(readings); });
  SaveAs("/p/beam.lbg");
  EXPECT_EQ(ChangesAt("/p/beam"), "edited");
}

TEST_F(TurnBesideFileTest, ALoadKnowsTheTurnAndTheNextSaveGoesOnFromThere) {
  Collect();
  Press(cmdSmooth);
  SaveAs("/p/beam.lbg");
  Load("/p/beam.lbg");
  ASSERT_NE(Pattern.Turn(), nullptr);
  Press(cmdReverse);
  SaveAs("/p/second.lbg");
  EXPECT_EQ(ChangesAt("/p/second"), "smoothed, reversed");
  Press(cmdOriginalData);
  SaveAs("/p/third.lbg");
  EXPECT_EQ(ChangesAt("/p/third"), "smoothed") << "the copy that Original returns to is that of the file";
  EXPECT_EQ(LogAt("/p/third.turn.csv").Key(turnkey::kEnded), "whole");
}

TEST_F(TurnBesideFileTest, UndoOfALoadBringsTheFormerTurnBack) {
  Collect();
  PutFile("/p/other.lbg", FileRecord(90));
  Load("/p/other.lbg");
  EXPECT_EQ(Pattern.Turn(), nullptr);
  Form.Transform().Undo();
  EXPECT_NE(Pattern.Turn(), nullptr);
}

TEST_F(TurnBesideFileTest, APatternWithoutALogLoadsAndSavesWithout) {
  HoldBeam();
  EXPECT_EQ(Pattern.Turn(), nullptr);
  SaveAs("/p/beam.lbg");
  EXPECT_FALSE(HasLog("/p/beam"));
}

TEST_F(TurnBesideFileTest, AnotherPatternsLogIsNamedAndLeftAlone) {
  Collect();
  SaveAs("/p/beam.lbg");
  const std::string log = Files.Held["/p/beam.turn.csv"];
  PutFile("/p/beam.lbg", FileRecord(90));
  Load("/p/beam.lbg");
  EXPECT_EQ(Pattern.Turn(), nullptr);
  EXPECT_EQ(Text(lblHint), "beam.turn.csv belongs to another pattern; it is left alone.");
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
  Dialogs.Yes = true;
  SaveAs("/p/beam.lbg");
  EXPECT_EQ(Files.Held["/p/beam.turn.csv"], log);
}

TEST_F(TurnBesideFileTest, ALogThatIsNoneIsNamedAndThePatternIsThere) {
  PutFile("/p/beam.lbg", FileRecord(90));
  Files.Held["/p/beam.turn.csv"] = "not,a,log\r\n";
  Load("/p/beam.lbg");
  EXPECT_THAT(Text(lblHint), testing::StartsWith("beam.turn.csv cannot be read"));
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
  EXPECT_EQ(Text(txtReadingsPlotted), "360");
}

TEST_F(TurnBesideFileTest, SavingOverAPatternWithALogReplacesBoth) {
  Collect();
  SaveAs("/p/beam.lbg");
  HoldBeam();  // nothing is known of its turn
  Dialogs.Yes = true;
  SaveAs("/p/beam.lbg");
  EXPECT_FALSE(HasLog("/p/beam")) << "it was the former pattern's";
}

TEST_F(TurnBesideFileTest, ASaveThatFailsNotesNothing) {
  Collect();
  Files.ReplaceFault = fault::kDiskFull;
  SaveAs("/p/beam.lbg");
  EXPECT_EQ(Pattern.Turn()->Key(turnkey::kSaved), "");
  EXPECT_FALSE(HasLog("/p/beam"));
}

TEST_F(TurnBesideFileTest, ATurnThatWasCutOffIsKnownByItsReadings) {
  At(100, [this] {
    DiskFiles disk;
    Files.Held["/p/cut.lbg"] = disk.Read(TurnFile());
    Files.Held["/p/cut.turn.csv"] = disk.Read(LogPathOf(TurnFile()));
  });
  Collect();
  Load("/p/cut.lbg");
  ASSERT_NE(Pattern.Turn(), nullptr);
  EXPECT_EQ(Pattern.Turn()->Key(turnkey::kEnded), "killed");
  SaveAs("/p/rescued.lbg");
  EXPECT_EQ(OwnerOf(LogAt("/p/rescued.turn.csv"), PatternAt("/p/rescued.lbg")), LogOwner::Saved);
}

TEST_F(TurnBesideFileTest, AfterAnAbandonedStartTheFormerTurnIsKnown) {
  Collect();
  Sound.firstError = "No sound server answers.";
  Collect();
  ASSERT_NE(Pattern.Turn(), nullptr);
  SaveAs("/p/beam.lbg");
  EXPECT_EQ(ChangesAt("/p/beam"), "");
}

/// The first save dialog after a turn was got back would else open where old turns are dropped.
TEST_F(TurnBesideFileTest, AfterAKeptTurnWasLoadedDialogsStartWhereTheyWere) {
  Collect();
  DiskFiles disk;
  const std::string kept = TurnFile();
  Files.Held[kept] = disk.Read(kept);
  Load(kept);
  EXPECT_EQ(Text(txtReadingsPlotted), "360");
  EXPECT_EQ(Shared.WorkingFolder, "/home/ham/");
  SaveAs("/p/mine.lbg");
  EXPECT_EQ(Dialogs.Folders.back(), "/home/ham/");
  EXPECT_EQ(Shared.WorkingFolder, "/p/");
}

TEST_F(TurnBesideFileTest, ElevenTurnsLaterWhatWasSavedAmongTheKeptOnesIsThere) {
  Collect();
  const std::string saved = State.File("turns") + "/turn of mine.lbg";
  std::ofstream(saved) << "kept by the user";
  for (int turn = 0; turn < 11; ++turn) {
    HaltAfter(2);
    Collect();
  }
  EXPECT_TRUE(std::filesystem::exists(saved));
}

}  // namespace
}  // namespace lobegraph
