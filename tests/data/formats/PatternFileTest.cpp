#include "data/formats/PatternFile.h"

#include <gtest/gtest.h>

#include "data/base/TextEncoding.h"

namespace lobegraph {
namespace {

ReadingsRecord SmallRecord() {
  ReadingsRecord record;
  record.NumReadings = 2;
  record.ReadingCount = 3;
  record.Readings(0) = .5F;
  record.Readings(1) = 900.F;
  record.Readings(2) = 33.33333F;
  record.ReadingsPlotted = 3;
  record.TrimEnd = 7;
  record.Rotate = -.25F;
  record.PeakLevelDb = 1.5F;
  record.PeakIndex = 1;
  record.TrimFront = 4;
  record.Description = "A beam, 3 el.";
  record.ScaleSetting = 35.F;
  record.CollectedBy = "N0CALL";
  record.CollectedDate = "10:22 21.11.26";
  record.Elements = "  3";
  return record;
}

const char* const kSmallText =
    "2\r\n.5\r\n900\r\n33.33333\r\n3\r\n7\r\n-.25\r\n1.5\r\n1\r\n4\r\n\"A beam, 3 "
    "el.\"\r\n35\r\n\"V1.2.3\"\r\n"
    "\"N0CALL\"\r\n\"10:22 21.11.26\"\r\n\"  3\"\r\n\"Horizontal\"\r\n\"Not 180 plot\"\r\n";

int ErrorOf(std::string_view text) {
  ReadingsRecord record;
  const LoadOutcome outcome = ReadPatternText(text, {}, record);
  return outcome.Error ? outcome.Error->Number() : 0;
}

std::string Replaced(std::string text, std::string_view what, std::string_view by) {
  return text.replace(text.find(what), what.size(), by);
}

TEST(PatternFileTest, EveryFieldStandsOnItsOwnLineInTheOrderThatInterchanges) {
  EXPECT_EQ(WritePatternText(SmallRecord(), "V1.2.3"), kSmallText);
}

TEST(PatternFileTest, TrimEndStandsBeforeTrimFrontOnPurpose) {
  ReadingsRecord record;
  ReadPatternText(kSmallText, {}, record);
  EXPECT_EQ(record.TrimEnd, 7);
  EXPECT_EQ(record.TrimFront, 4);
}

TEST(PatternFileTest, EveryFieldComesBack) {
  ReadingsRecord record;
  const LoadOutcome outcome = ReadPatternText(kSmallText, {}, record);
  EXPECT_FALSE(outcome.Error.has_value());
  EXPECT_TRUE(outcome.Messages.empty());
  EXPECT_TRUE(outcome.DescriptionRead);
  EXPECT_EQ(record.NumReadings, 2);
  EXPECT_EQ(record.ReadingCount, 2.0) << "the count after a load is the last index";
  EXPECT_EQ(record.Readings, SmallRecord().Readings);
  EXPECT_EQ(record.ReadingsPlotted, 3);
  EXPECT_EQ(record.Rotate, -.25F);
  EXPECT_EQ(record.PeakLevelDb, 1.5F);
  EXPECT_EQ(record.PeakIndex, 1);
  EXPECT_EQ(record.Description, "A beam, 3 el.");
  EXPECT_EQ(record.ScaleSetting, 35.F);
  EXPECT_EQ(record.WriterVersion, "V1.2.3");
  EXPECT_EQ(record.CollectedBy, "N0CALL");
  EXPECT_EQ(record.CollectedDate, "10:22 21.11.26");
  EXPECT_EQ(record.Elements, "  3");
  EXPECT_TRUE(record.PolarizationHorizontal);
  EXPECT_FALSE(record.Plot180);
}

TEST(PatternFileTest, FormerReadingsAreClearedButNumber360IsKeptOnPurpose) {
  ReadingsRecord record;
  record.Readings(100) = 5.F;
  record.Readings(359) = 6.F;
  record.Readings(360) = 7.F;
  ReadPatternText(kSmallText, {}, record);
  EXPECT_EQ(record.Readings(100), 0.F);
  EXPECT_EQ(record.Readings(359), 0.F);
  EXPECT_EQ(record.Readings(360), 7.F);
}

TEST(PatternFileTest, OlderNumberFormsLoadAsWell) {
  const std::string text = Replaced(Replaced(kSmallText, ".5", "  0.5  "), "900", "9E+02");
  ReadingsRecord record;
  EXPECT_FALSE(ReadPatternText(text, {}, record).Error);
  EXPECT_EQ(record.Readings(0), .5F);
  EXPECT_EQ(record.Readings(1), 900.F);
}

TEST(PatternFileTest, CommasAndBareLineFeedsSeparateFieldsToo) {
  std::string text = Replaced(kSmallText, ".5\r\n900\r\n", ".5,900\n");
  ReadingsRecord record;
  EXPECT_FALSE(ReadPatternText(text, {}, record).Error);
  EXPECT_EQ(record.Readings, SmallRecord().Readings);
  text.erase(text.size() - 2);
  EXPECT_EQ(ErrorOf(text), 0) << "the last line end may be missing";
}

TEST(PatternFileTest, AnUnquotedWordIsReadToTheNextCommaOrLineEnd) {
  ReadingsRecord record;
  EXPECT_FALSE(ReadPatternText(Replaced(kSmallText, "\"N0CALL\"", "N0CALL"), {}, record).Error);
  EXPECT_EQ(record.CollectedBy, "N0CALL");
}

TEST(PatternFileTest, AnyTextButExactlyHorizontalIsVertical) {
  for (const char* text : {"\"horizontal\"", "\"Vertical\"", "\"\"", "\"Horizontal \""}) {
    ReadingsRecord record;
    ReadPatternText(Replaced(kSmallText, "\"Horizontal\"", text), {}, record);
    EXPECT_FALSE(record.PolarizationHorizontal) << text;
  }
}

TEST(PatternFileTest, AnyTextButExactly180PlotIsA360DegreeSet) {
  for (const char* text : {"\"180 Plot\"", "\"180plot\"", "\"\""}) {
    ReadingsRecord record;
    ReadPatternText(Replaced(kSmallText, "\"Not 180 plot\"", text), {}, record);
    EXPECT_FALSE(record.Plot180) << text;
  }
}

TEST(PatternFileTest, A180DegreeSetLoadsWithRotation0WhateverTheFileHeld) {
  ReadingsRecord record;
  ReadPatternText(Replaced(kSmallText, "\"Not 180 plot\"", "\"180 plot\""), {}, record);
  EXPECT_TRUE(record.Plot180);
  EXPECT_EQ(record.Rotate, 0.F);
}

TEST(PatternFileTest, AnOverlayKeepsTheScaleOfThePatternBeneath) {
  ReadingsRecord record;
  record.ScaleSetting = 20.F;
  ReadPatternText(kSmallText, {.Overlay = true}, record);
  EXPECT_EQ(record.ScaleSetting, 20.F);
  EXPECT_EQ(record.WriterVersion, "V1.2.3");
}

TEST(PatternFileTest, APatternAboveThePeakSettingLoadsWithAWarning) {
  ReadingsRecord record;
  const LoadOutcome outcome = ReadPatternText(kSmallText, {.PeakInputLevel = 899.5F}, record);
  ASSERT_EQ(outcome.Messages.size(), 1U);
  EXPECT_EQ(outcome.Messages[0],
            "LBG030 Warning - this file contains a peak input level value of 900\r\n"
            "This is higher than your sound card setup for peak input level of 899.5\r\n"
            "Automatic orientation of the plot and -3dB points may be incorrect.\r\n"
            "Increase your peak input level value in the Settings screen to see\r\n"
            "the plot without any distortion.");
  EXPECT_FALSE(outcome.Error);
  EXPECT_EQ(record.WriterVersion, "V1.2.3");
  EXPECT_TRUE(ReadPatternText(kSmallText, {.PeakInputLevel = 900.F}, record).Messages.empty());
}

TEST(PatternFileTest, EachDamageHasItsNumber) {
  EXPECT_EQ(ErrorOf(""), 62);
  EXPECT_EQ(ErrorOf("2\r\n.5\r\n"), 62);
  EXPECT_EQ(ErrorOf(Replaced(kSmallText, ".5", "half")), 13);
  EXPECT_EQ(ErrorOf(Replaced(kSmallText, ".5", "5dB")), 13);
  EXPECT_EQ(ErrorOf(Replaced(kSmallText, ".5\r\n", "\r\n")), 13);
  EXPECT_EQ(ErrorOf(Replaced(kSmallText, "2\r\n", "40000\r\n")), 6);
  EXPECT_EQ(ErrorOf(Replaced(kSmallText, "900", "1E39")), 6);
  EXPECT_EQ(ErrorOf(Replaced(kSmallText, "1.5\r\n1\r\n", "1.5\r\n361\r\n")), 9) << "the peak lies nowhere";
  EXPECT_EQ(ErrorOf(Replaced(kSmallText, "1.5\r\n1\r\n", "1.5\r\n-1\r\n")), 9);
  std::string tooMany = "361\r\n";
  for (int i = 0; i < 362; ++i) tooMany += "1\r\n";
  EXPECT_EQ(ErrorOf(tooMany), 9);
}

TEST(PatternFileTest, TheFieldsBeforeTheDamageStay) {
  ReadingsRecord record;
  record.CollectedBy = "former";
  const LoadOutcome outcome = ReadPatternText(Replaced(kSmallText, "\r\n35\r\n", "\r\nx\r\n"), {}, record);
  EXPECT_EQ(outcome.Error->Number(), 13);
  EXPECT_TRUE(outcome.DescriptionRead);
  EXPECT_EQ(record.Readings(1), 900.F);
  EXPECT_EQ(record.Description, "A beam, 3 el.");
  EXPECT_EQ(record.CollectedBy, "former");
}

TEST(PatternFileTest, AFileCutAtAnyByteIsAnsweredAndKeepsWhatWasRead) {
  const std::string whole = kSmallText;
  for (std::size_t length = 0; length + 2 < whole.size(); ++length) {
    ReadingsRecord record;
    const LoadOutcome outcome = ReadPatternText(whole.substr(0, length), {}, record);
    ASSERT_TRUE(outcome.Error.has_value()) << "cut at " << length;
    EXPECT_TRUE(outcome.Error->Number() == 62 || outcome.Error->Number() == 13 ||
                outcome.Error->Number() == 9)
        << "cut at " << length;
    if (length > whole.find("33.3")) {
      EXPECT_EQ(record.Readings(1), 900.F);
    }
  }
}

TEST(PatternFileTest, AFileWithoutADescriptionSaysSoInLowerCase) {
  ReadingsRecord record;
  record.Description = "former";
  ReadPatternText("2\r\n1\r\n", {}, record);
  EXPECT_EQ(record.Description, "no description");
}

TEST(PatternFileTest, QuotesAndLineBreaksNeverReachTheFile) {
  ReadingsRecord record = SmallRecord();
  record.Description = "a \"beam\"\r\nof mine";
  record.CollectedBy = "N0\"CALL\n";
  ReadingsRecord back;
  EXPECT_FALSE(ReadPatternText(WritePatternText(record, "V1"), {}, back).Error);
  EXPECT_EQ(back.Description, "a beamof mine");
  EXPECT_EQ(back.CollectedBy, "N0CALL");
}

TEST(PatternFileTest, ASetOf361ReadingsIsCappedInTheRecordToo) {
  ReadingsRecord record;
  record.NumReadings = 360;
  CapForFile(record);
  EXPECT_EQ(record.NumReadings, 359);
  const std::string text = WritePatternText(record, "V1");
  EXPECT_EQ(text.substr(0, 5), "359\r\n");
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1 + 360 + 6 + 8);
  record.NumReadings = 12;
  CapForFile(record);
  EXPECT_EQ(record.NumReadings, 12);
}

TEST(PatternFileTest, DescriptionsInAnyScriptComeBack) {
  for (const char* description : {"Dipol über Grund", "Антенна", "5 € – “best”", "Ã¼", "plain"}) {
    ReadingsRecord record = SmallRecord();
    record.Description = description;
    ReadingsRecord back;
    ReadPatternText(WritePatternText(record, "V1"), {}, back);
    EXPECT_EQ(back.Description, description);
  }
}

TEST(TextEncodingTest, OneByteTextIsWrittenWhereItFitsAndCannotBeMistaken) {
  EXPECT_EQ(EncodeText("über"),
            "\xFC"
            "ber");
  EXPECT_EQ(EncodeText("€"), "\x80");
  EXPECT_EQ(EncodeText("Ω"), "Ω") << "does not fit";
  EXPECT_EQ(EncodeText("Ã¼"), "Ã¼") << "one byte each would read as a valid two-byte character";
}

TEST(TextEncodingTest, BytesThatAreNoUtf8AreReadAsWindows1252) {
  EXPECT_EQ(DecodeText("\xFC"
                       "ber \x80\x9F\x81"),
            "über €Ÿ\xC2\x81");
  EXPECT_EQ(DecodeText("über"), "über");
  EXPECT_EQ(DecodeText("\xEF\xBB\xBF"
                       "12"),
            "12");
  EXPECT_EQ(EncodeText(DecodeText("\x81\x8D\xFF")), "\x81\x8D\xFF");
}

}  // namespace
}  // namespace lobegraph
