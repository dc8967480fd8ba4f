#include "data/turns/TurnDigest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/base/Numbers.h"
#include "data/formats/PatternFile.h"
#include "support/TestRecord.h"

namespace lobegraph {
namespace {

ReadingsRecord Three() {
  ReadingsRecord record;
  record.NumReadings = 2;
  record.Readings(0) = 1.F;
  record.Readings(1) = .5F;
  record.Readings(2) = 1000.F;
  return record;
}

TurnLog LogOfLevels(const ReadingsRecord& record, int count) {
  TurnLog log;
  for (int i = 0; i < count; ++i)
    log.AddRow({std::to_string(i + 1), "", SingleText(record.Readings(i)), "1", ""});
  return log;
}

TEST(TurnDigestTest, IsThatOfTheReadingsAsAFileWritesThem) {
  // printf '1\n.5\n1000\n' | sha256sum
  EXPECT_EQ(DigestOf(Three()), "sha256:468573394257633ab7970f7ba4c3b97689521ba12453d43fee5299fc90f516d4");
}

TEST(TurnDigestTest, SurvivesBeingSavedAndLoaded) {
  ReadingsRecord record = BeamRecord();
  record.Readings(7) = 123.456789F;
  ReadingsRecord loaded;
  ReadPatternText(WritePatternText(record, "V1.0.0"), {}, loaded);
  EXPECT_NE(loaded.Readings(7), record.Readings(7));
  EXPECT_EQ(DigestOf(loaded), DigestOf(record));
}

TEST(TurnDigestTest, EveryReadingCountsTrimsAndWordsDoNot) {
  ReadingsRecord record = Three();
  record.TrimFront = 1;
  record.Rotate = 12.F;
  record.Description = "another";
  EXPECT_EQ(DigestOf(record), DigestOf(Three()));
  record.Readings(2) = 999.F;
  EXPECT_NE(DigestOf(record), DigestOf(Three()));
  record = Three();
  record.NumReadings = 1;
  EXPECT_NE(DigestOf(record), DigestOf(Three()));
}

TEST(TurnDigestTest, ACountBeyondTheReadingsIsNoFault) {
  ReadingsRecord record;
  for (const int count : {-5, -1, 360, 400, 32767}) {
    record.NumReadings = static_cast<std::int16_t>(count);
    EXPECT_EQ(DigestOf(record).size(), 7U + 64U) << count;
  }
}

TEST(TurnDigestTest, TheCollectedReadingsOwnTheLog) {
  TurnLog log;
  NoteCollected(log, Three());
  EXPECT_EQ(OwnerOf(log, Three()), LogOwner::Collected);
  ReadingsRecord other = Three();
  other.Readings(0) = 2.F;
  EXPECT_EQ(OwnerOf(log, other), LogOwner::Another);
}

TEST(TurnDigestTest, SavedReadingsOwnItWithWhatWasDoneToThem) {
  TurnLog log;
  NoteCollected(log, Three());
  ReadingsRecord smoothed = Three();
  smoothed.Readings(1) = .6F;
  NoteSaved(log, smoothed, "smoothed, reversed");
  EXPECT_EQ(OwnerOf(log, smoothed), LogOwner::Saved);
  EXPECT_EQ(CommandsOf(log, smoothed), "smoothed, reversed");
  EXPECT_EQ(OwnerOf(log, Three()), LogOwner::Collected);
  EXPECT_EQ(CommandsOf(log, Three()), "");
}

TEST(TurnDigestTest, ASecondSaveOfTheSameReadingsIsNotedOnce) {
  TurnLog log;
  NoteSaved(log, Three(), "smoothed");
  NoteSaved(log, Three(), "smoothed twice");
  EXPECT_EQ(CommandsOf(log, Three()), "smoothed twice");
  EXPECT_EQ(log.Keys().size(), 1U);
}

TEST(TurnDigestTest, TheLastTwentySavesAreKnown) {
  TurnLog log;
  ReadingsRecord record = Three();
  for (int i = 0; i < 25; ++i) {
    record.Readings(0) = static_cast<float>(i);
    NoteSaved(log, record, "");
  }
  EXPECT_EQ(log.Keys().size(), 20U);
  EXPECT_EQ(OwnerOf(log, record), LogOwner::Saved);
  record.Readings(0) = 4.F;
  EXPECT_EQ(OwnerOf(log, record), LogOwner::Another);
}

TEST(TurnDigestTest, AKilledTurnIsKnownByItsLevels) {
  const ReadingsRecord record = Three();
  EXPECT_EQ(OwnerOf(LogOfLevels(record, 3), record), LogOwner::Unfinished);
  EXPECT_EQ(OwnerOf(LogOfLevels(record, 2), record), LogOwner::Unfinished) << "the row in hand is missing";
  EXPECT_EQ(OwnerOf(LogOfLevels(record, 4), record), LogOwner::Unfinished)
      << "the reading in hand is missing";
  EXPECT_EQ(OwnerOf(LogOfLevels(record, 1), record), LogOwner::Another);
  EXPECT_EQ(OwnerOf(TurnLog(), record), LogOwner::Another);
  ReadingsRecord other = record;
  other.Readings(1) = .4F;
  EXPECT_EQ(OwnerOf(LogOfLevels(record, 3), other), LogOwner::Another);
}

TEST(TurnDigestTest, AnotherProgramsFormOfANumberIsTheSameLevel) {
  const ReadingsRecord record = Three();
  TurnLog log = LogOfLevels(record, 3);
  log.SetCell(1, "level", "0.50");
  EXPECT_EQ(OwnerOf(log, record), LogOwner::Unfinished);
}

TEST(TurnDigestTest, AFinishedLogIsNotKnownByItsLevels) {
  TurnLog log = LogOfLevels(Three(), 3);
  ReadingsRecord collected = Three();
  collected.Readings(2) = 5.F;
  NoteCollected(log, collected);
  EXPECT_EQ(OwnerOf(log, Three()), LogOwner::Another);
}

}  // namespace
}  // namespace lobegraph
