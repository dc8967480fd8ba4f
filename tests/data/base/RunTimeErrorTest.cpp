#include "data/base/RunTimeError.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "data/record/ReadingsRecord.h"

namespace lobegraph {
namespace {

TEST(RunTimeErrorTest, TheTextNamesNumberDescriptionRealLineProcedureAndForm) {
  const unsigned line = __LINE__ + 1;
  const RunTimeError error(11);
  EXPECT_EQ(RunTimeErrorText(error, "ReDraw"), "Error 11 (Division by zero) in line " + std::to_string(line) +
                                                   " of procedure ReDraw of Form Form1");
  EXPECT_EQ(RunTimeErrorText(error, "cmdUpdate_Click", "frmEditLbg"),
            "Error 11 (Division by zero) in line " + std::to_string(line) +
                " of procedure cmdUpdate_Click of Form frmEditLbg");
}

TEST(RunTimeErrorTest, AnAdviceStandsAboveTheText) {
  const unsigned line = __LINE__ + 1;
  const RunTimeError error(13, Advice{"Give a number."});
  EXPECT_EQ(RunTimeErrorText(error, "ReDraw"), "Give a number.\r\nError 13 (Type mismatch) in line " +
                                                   std::to_string(line) +
                                                   " of procedure ReDraw of Form Form1");
  EXPECT_STREQ(error.what(), "Error 13 (Type mismatch): Give a number.");
  EXPECT_EQ(RunTimeError(13, "a file").AdviceText(), "");
}

TEST(RunTimeErrorTest, EachNumberHasItsDescription) {
  const std::pair<int, const char*> cases[] = {{5, "Invalid procedure call or argument"},
                                               {6, "Overflow"},
                                               {9, "Subscript out of range"},
                                               {11, "Division by zero"},
                                               {13, "Type mismatch"},
                                               {53, "File not found"},
                                               {57, "Device I/O error"},
                                               {61, "Disk full"},
                                               {62, "Input past end of file"},
                                               {75, "Path/File access error"},
                                               {76, "Path not found"},
                                               {482, "Printer error"},
                                               {999, "Application-defined or object-defined error"}};
  for (const auto& [number, description] : cases) EXPECT_EQ(RunTimeError(number).Description(), description);
}

TEST(ReadingsRecordTest, AnIndexOutside0To360IsASubscriptError) {
  ReadingsRecord record;
  record.Readings(0) = 1.F;
  record.Readings(360) = 2.F;
  for (const int index : {-1, 361, 32767}) {
    try {
      record.Readings(index) = 1.F;
      FAIL() << index;
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.Number(), 9);
    }
  }
}

TEST(ReadingsRecordTest, TheSavedCopyBringsBackAll361ReadingsAndKnowsItsCount) {
  ReadingsRecord record;
  record.NumReadings = 200;
  record.Readings(0) = 1.F;
  record.Readings(360) = 2.F;
  record.SaveReadings();
  record.Readings(0) = 5.F;
  record.Readings(360) = 5.F;
  record.NumReadings = 10;
  record.RestoreReadings();
  EXPECT_EQ(record.Readings(0), 1.F);
  EXPECT_EQ(record.Readings(360), 2.F);
  EXPECT_EQ(record.SavedNumReadings, 200);
}

TEST(RunTimeErrorTest, AnyExceptionIsAFaultWithANumber) {
  EXPECT_EQ(FaultFrom(RunTimeError(fault::kDiskFull)).Number(), 61);
  EXPECT_EQ(std::string(FaultFrom(std::bad_alloc()).what()).substr(0, 23), "Error 7 (Out of memory)");
  const RunTimeError odd = FaultFrom(std::out_of_range("map::at"));
  EXPECT_EQ(odd.Number(), 51);
  EXPECT_EQ(odd.Description(), "Internal error");
  EXPECT_EQ(odd.Detail(), "map::at");
}

TEST(ReadingsRecordTest, WhatSaysThatThereIsNoDescriptionIsNone) {
  for (const char* none : {"", "No description", "no description"}) EXPECT_FALSE(IsDescription(none)) << none;
  for (const char* words : {"Dipole", "No description yet"}) EXPECT_TRUE(IsDescription(words)) << words;
}

TEST(ReadingsRecordTest, ReadingsAreHeldWhenTheCountIsAbove0) {
  ReadingsRecord record;
  EXPECT_FALSE(record.HasReadings());
  record.ReadingCount = 1;
  EXPECT_TRUE(record.HasReadings());
  record.ReadingCount = -1;
  EXPECT_FALSE(record.HasReadings());
}

}  // namespace
}  // namespace lobegraph
