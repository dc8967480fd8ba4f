#include "bench/FilePattern.h"

#include <gmock/gmock.h>

#include <map>

#include "data/formats/PatternFile.h"

namespace lobegraph {
namespace {

ReadingsRecord RecordOf(const std::vector<float>& levels) {
  ReadingsRecord record;
  for (std::size_t i = 0; i < levels.size(); ++i) record.Readings(static_cast<int>(i)) = levels[i];
  record.NumReadings = static_cast<std::int16_t>(static_cast<int>(levels.size()) - 1);
  return record;
}

class OneFile final : public FileAccess {
 public:
  explicit OneFile(std::string bytes) : bytes_(std::move(bytes)) {}
  std::string Read(const std::string& path) override {
    if (path != "a.lbg") throw RunTimeError(fault::kFileNotFound);
    return bytes_;
  }
  bool Exists(const std::string& path) override { return path == "a.lbg"; }
  void Replace(const std::string&, std::string_view) override {}
  void Remove(const std::string&) override {}

 private:
  std::string bytes_;
};

TEST(FilePattern, ReadingsAreSpreadOverTheTurnAndHeldUntilTheNext) {
  const VoltagePattern pattern = PatternOf(RecordOf({100, 400, 200, 0}));
  const std::map<double, double> expected{{0, 0.25},  {89.9, 0.25}, {90, 1},    {179.9, 1},
                                          {180, 0.5}, {270, 0},     {359.9, 0}, {360, 0.25},
                                          {-1, 0},    {-270.0, 1},  {450, 1}};
  for (const auto& [bearing, voltage] : expected) EXPECT_DOUBLE_EQ(pattern(bearing), voltage) << bearing;
}

TEST(FilePattern, ANegativeReadingIsSilence) { EXPECT_EQ(PatternOf(RecordOf({100, -5}))(270), 0); }

TEST(FilePattern, ASetWithoutAnyLevelIsRefused) {
  EXPECT_THROW(PatternOf(RecordOf({})), RunTimeError);
  EXPECT_THROW(PatternOf(RecordOf({0, 0})), RunTimeError);
}

TEST(FilePattern, APatternFileIsPlayedAsItWasTaken) {
  ReadingsRecord record = RecordOf({100, 400, 200, 300});
  record.ReadingsPlotted = 4;
  OneFile file(WritePatternText(record, "test"));
  const VoltagePattern pattern = PatternFromFile(file, "a.lbg");
  EXPECT_DOUBLE_EQ(pattern(0), 0.25);
  EXPECT_DOUBLE_EQ(pattern(90), 1);
  EXPECT_DOUBLE_EQ(pattern(300), 0.75);
}

TEST(FilePattern, AFileThatCannotBeReadSaysWhy) {
  OneFile cut("359\r\n");
  EXPECT_THROW(PatternFromFile(cut, "a.lbg"), RunTimeError);
  EXPECT_THROW(PatternFromFile(cut, "other.lbg"), RunTimeError);
}

}  // namespace
}  // namespace lobegraph
