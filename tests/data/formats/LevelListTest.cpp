#include "data/formats/LevelList.h"

#include <gmock/gmock.h>

namespace lobegraph {
namespace {

TEST(LevelList, IsOneLevelALine) {
  ReadingsRecord record;
  record.NumReadings = 2;
  record.Readings(0) = 1.5F;
  record.Readings(1) = 0.25F;
  record.Readings(2) = 1000.F;
  EXPECT_EQ(WriteLevels(record, "V1"), "1.5\r\n.25\r\n1000\r\n");
}

TEST(LevelList, EndsAtItsLastLevelThatIsNotZero) {
  ReadingsRecord record;
  EXPECT_FALSE(ReadLevels("Value\n5,0,7,0,0\n", {}, record).Error);
  EXPECT_EQ(record.NumReadings, 3) << "the heading reads as 0";
  EXPECT_EQ(record.ReadingCount, 3);
  EXPECT_EQ(record.Readings(1), 5.F);
  EXPECT_EQ(record.Readings(3), 7.F);
}

TEST(LevelList, ATextWithoutALevelIsRefused) {
  for (const char* text : {"", "0\n0\n", "hello\nworld\n"}) {
    ReadingsRecord record;
    EXPECT_EQ(ReadLevels(text, {}, record).Error.value().Number(), fault::kTypeMismatch) << text;
  }
}

}  // namespace
}  // namespace lobegraph
