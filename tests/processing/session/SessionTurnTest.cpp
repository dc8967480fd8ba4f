// The log of the turn goes with the readings.
#include "data/turns/TurnDigest.h"
#include "support/SessionFixture.h"

namespace lobegraph {
namespace {

class SessionTurn : public SessionFixture {
 protected:
  SessionTurn() {
    Load(Beam());
    TurnLog log;
    log.SetKey(turnkey::kEnded, "whole");
    NoteCollected(log, Session.Record());
    Session.KnowTurn(log);
  }
  /// What a log saved now says was done to the readings.
  std::string Changes() const { return CommandsOf(Session.TurnToSave().value(), Session.Record()); }
};

TEST_F(SessionTurn, SaysOfTheReadingsThatTheyAreItsOwn) {
  Session.Smooth();
  EXPECT_EQ(OwnerOf(*Session.Turn(), Session.Record()), LogOwner::Another) << "before they are saved";
  EXPECT_EQ(OwnerOf(*Session.TurnToSave(), Session.Record()), LogOwner::Saved);
}

TEST_F(SessionTurn, EachChangeOfTheReadingsIsNotedInItsWord) {
  EXPECT_EQ(Changes(), "");
  Session.Smooth();
  Session.Reverse();
  ReadingArray readings = Session.Record().Readings;
  readings(100) = 999.F;
  Session.Update(readings);
  EXPECT_EQ(Changes(), "smoothed, reversed, edited");
  Session.DeSpike();
  EXPECT_EQ(Changes(), "smoothed, reversed, edited, despiked");
}

TEST_F(SessionTurn, TurningAndTrimmingChangeNoReading) {
  Session.Orient();
  Placed({.TrimFront = 3, .TrimEnd = 8});
  Session.Update(Session.Record().Readings);
  EXPECT_EQ(Changes(), "");
}

TEST_F(SessionTurn, UndoAndOriginalTakeTheWordsBack) {
  Session.Smooth();
  Session.Reverse();
  Session.Undo();
  EXPECT_EQ(Changes(), "smoothed");
  Session.Redo();
  EXPECT_EQ(Changes(), "smoothed, reversed");
  Session.Original();
  EXPECT_EQ(Changes(), "");
}

TEST_F(SessionTurn, WhatALogAlreadySaysWasDoneCountsOn) {
  Session.Smooth();
  Session.SavedAs("/p/a.lbg");
  Session.KnowTurn(*Session.Turn());
  Session.Reverse();
  EXPECT_EQ(Changes(), "smoothed, reversed");
  Session.Original();
  EXPECT_EQ(Changes(), "smoothed") << "as the file has it, to whose readings Original returns";
}

TEST_F(SessionTurn, ASaveIsRememberedForTheNext) {
  Session.Smooth();
  const ReadingsRecord smoothed = Session.Record();
  Session.SavedAs("/p/a.lbg");
  Session.Reverse();
  EXPECT_EQ(CommandsOf(*Session.TurnToSave(), smoothed), "smoothed");
}

TEST_F(SessionTurn, AnotherPatternHasAnotherTurn) {
  Load(Beam(90));
  EXPECT_EQ(Session.Turn(), nullptr);
  EXPECT_FALSE(Session.TurnToSave());
  Session.Undo();
  EXPECT_NE(Session.Turn(), nullptr);
}

TEST_F(SessionTurn, ACollectionHasAnotherTurnUnlessItIsAbandoned) {
  Session.Smooth();
  Session.BeginCollection("N0CALL", "now");
  EXPECT_EQ(Session.Turn(), nullptr);
  Session.AbandonRun();
  EXPECT_NE(Session.Turn(), nullptr);
  EXPECT_EQ(Changes(), "smoothed");
}

TEST_F(SessionTurn, KnowingATurnIsNoStepToTakeBack) {
  const ReadingsRecord before = Session.Record();
  Session.KnowTurn(*Session.Turn());
  Session.Undo();
  EXPECT_NE(Session.Record(), before) << "the load is what is taken back";
}

}  // namespace
}  // namespace lobegraph
