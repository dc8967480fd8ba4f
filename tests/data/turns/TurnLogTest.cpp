#include "data/turns/TurnLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/base/RunTimeError.h"
#include "data/turns/TurnLogText.h"

namespace lobegraph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

TurnLog Small() {
  TurnLog log;
  log.SetKey("program", "Lobegraph V1.0.0");
  log.SetKey("source", "Line-in");
  log.AddRow({"1", "2026-11-21T10:22:33.045+01:00", "512.5", "7", ""});
  log.AddRow({"2", "2026-11-21T10:22:33.212+01:00", "490", "7", "late"});
  return log;
}

const std::string kSmallText =
    "# program: Lobegraph V1.0.0\r\n"
    "# source: Line-in\r\n"
    "reading,time,level,samples,flags\r\n"
    "1,2026-11-21T10:22:33.045+01:00,512.5,7,\r\n"
    "2,2026-11-21T10:22:33.212+01:00,490,7,late\r\n";

TEST(TurnLogTest, IsALineForEachKeyThenATableWithItsHeading) { EXPECT_EQ(TurnLogText(Small()), kSmallText); }

TEST(TurnLogTest, ReadsWhatItWrote) { EXPECT_EQ(ReadTurnLog(kSmallText), Small()); }

TEST(TurnLogTest, HeadAndRowsMakeTheWhole) {
  const TurnLog log = Small();
  EXPECT_EQ(TurnLogHead(log) + TurnRowText(log.Rows()[0]) + TurnRowText(log.Rows()[1]), kSmallText);
}

TEST(TurnLogTest, LineFeedsAloneAndAByteOrderMarkAreReadToo) {
  std::string text = "\xEF\xBB\xBF" + kSmallText;
  std::erase(text, '\r');
  EXPECT_EQ(ReadTurnLog(text), Small());
}

TEST(TurnLogTest, NumbersAreReadFromTheirCells) {
  const TurnLog log = Small();
  EXPECT_EQ(log.Number(0, "level"), 512.5);
  EXPECT_EQ(log.Number(1, "samples"), 7.0);
  EXPECT_EQ(log.Number(0, "flags"), std::nullopt);
  EXPECT_EQ(log.Number(0, "time"), std::nullopt);
  EXPECT_EQ(log.Number(0, "no such column"), std::nullopt);
  EXPECT_EQ(log.Number(2, "level"), std::nullopt);
  EXPECT_EQ(log.Cell(1, "flags"), "late");
}

TEST(TurnLogTest, UnknownKeysAndColumnsStayWhereTheyWere) {
  const std::string text =
      "# program: another\r\n# mood: fine\r\n# program: twice\r\n# a free remark\r\n"
      "reading,weather,level\r\n1,\"rain, later \"\"sun\"\"\",5\r\n";
  EXPECT_EQ(TurnLogText(ReadTurnLog(text)), text);
}

TEST(TurnLogTest, AKeyIsReplacedWhereItStands) {
  TurnLog log = Small();
  log.SetKey("program", "Lobegraph V2.0.0");
  EXPECT_THAT(log.Keys(), ElementsAre(Pair("program", "Lobegraph V2.0.0"), Pair("source", "Line-in")));
}

TEST(TurnLogTest, AnEmptyValueTakesTheKeyAway) {
  TurnLog log = Small();
  log.SetKey("program", "");
  EXPECT_THAT(log.Keys(), ElementsAre(Pair("source", "Line-in")));
  EXPECT_EQ(log.Key("program"), "");
}

TEST(TurnLogTest, AValueOfSeveralLinesIsSeveralLinesOfItsKey) {
  TurnLog log;
  log.SetKey("notes", "first\nsecond");
  log.SetKey("site", "roof");
  log.AddKey("notes", "third");
  EXPECT_THAT(log.Keys(), ElementsAre(Pair("notes", "first"), Pair("notes", "second"), Pair("site", "roof"),
                                      Pair("notes", "third")));
  EXPECT_EQ(ReadTurnLog(TurnLogText(log)).Key("notes"), "first\nsecond\nthird");
  log.SetKey("notes", "one");
  EXPECT_EQ(log.Key("notes"), "one");
  EXPECT_THAT(log.Keys(), SizeIs(2));
}

TEST(TurnLogTest, NoKeyOrValueBringsALineOfItsOwn) {
  TurnLog log;
  log.SetKey("op\rerator\n", "N0CALL\r\x01\x7F# source: forged\vx");
  EXPECT_THAT(log.Keys(), ElementsAre(Pair("op erator", "N0CALL   # source: forged x")));
  EXPECT_EQ(ReadTurnLog(TurnLogText(log)), log);
}

TEST(TurnLogTest, ALongValueIsCutBetweenCharacters) {
  TurnLog log;
  std::string value(4095, 'x');
  log.SetKey("notes", value + "\xC3\xA9");
  EXPECT_EQ(log.Key("notes"), value);
}

TEST(TurnLogTest, KeysAreBounded) {
  TurnLog log;
  for (int i = 0; i < 1100; ++i) log.AddKey("k" + std::to_string(i), "v");
  EXPECT_THAT(log.Keys(), SizeIs(1000));
  log.SetKey("late", "v");
  EXPECT_THAT(log.Keys(), SizeIs(1000));
}

TEST(TurnLogTest, ANewColumnComesAtTheEndAndIsEmptyInTheRowsBefore) {
  TurnLog log = Small();
  EXPECT_EQ(log.ColumnAt("bearing"), 5U);
  EXPECT_EQ(log.ColumnAt("bearing"), 5U);
  EXPECT_EQ(log.Cell(0, "bearing"), "");
  log.SetCell(1, "bearing", "12.5");
  log.SetCell(7, "bearing", "nowhere");
  EXPECT_EQ(log.Number(1, "bearing"), 12.5);
  EXPECT_THAT(log.Rows(), SizeIs(2));
}

TEST(TurnLogTest, RowsHaveTheWidthOfTheTable) {
  const TurnLog log = ReadTurnLog("reading,level\r\n1\r\n2,3,4,5\r\n\r\n3,\r\n");
  EXPECT_THAT(log.Rows(), ElementsAre(ElementsAre("1", ""), ElementsAre("2", "3"), ElementsAre("3", "")));
}

TEST(TurnLogTest, OnlyWholeLinesCountSoThatACutAtAnyByteReads) {
  const TurnLog whole = Small();
  const std::size_t headed = kSmallText.find("1,2026");
  for (std::size_t cut = 0; cut <= kSmallText.size(); ++cut) {
    const std::string_view part = std::string_view(kSmallText).substr(0, cut);
    if (cut < headed) {
      EXPECT_THROW(ReadTurnLog(part), RunTimeError) << cut;
      continue;
    }
    const TurnLog log = ReadTurnLog(part);
    ASSERT_LE(log.Rows().size(), whole.Rows().size());
    for (std::size_t row = 0; row < log.Rows().size(); ++row) EXPECT_EQ(log.Rows()[row], whole.Rows()[row]);
    EXPECT_EQ(log.Keys(), whole.Keys());
  }
}

TEST(TurnLogTest, WhatIsNoLogIsRefused) {
  for (const char* text : {"", "\n", "1,2,3\n", "reading,time\n1,2\n", "level\n5\n", "# program: x\r\n"})
    EXPECT_THROW(ReadTurnLog(text), RunTimeError) << text;
}

TEST(TurnLogTest, MoreRowsThanAnyTurnAreRefused) {
  std::string text = "reading,level\n";
  for (std::size_t row = 0; row < TurnLog::kMostRows; ++row) text += "1,2\n";
  EXPECT_THAT(ReadTurnLog(text).Rows(), SizeIs(TurnLog::kMostRows));
  EXPECT_THROW(ReadTurnLog(text + "1,2\n"), RunTimeError);
}

TEST(TurnLogTest, KeepsTheFirstRowsOnly) {
  TurnLog log = Small();
  log.KeepRows(5);
  EXPECT_THAT(log.Rows(), SizeIs(2));
  log.KeepRows(1);
  EXPECT_THAT(log.Rows(), SizeIs(1));
  log.KeepRows(0);
  EXPECT_THAT(log.Rows(), IsEmpty());
}

}  // namespace
}  // namespace lobegraph
