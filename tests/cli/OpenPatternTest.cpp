#include "cli/OpenPattern.h"

#include <gmock/gmock.h>

#include "cli/MemoryFiles.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kPath = "folder/beam.lbg";

OpenedPattern Open(const std::string& bytes, const PatternOptions& options = {},
                   std::optional<int> overScale = std::nullopt) {
  MemoryFiles files;
  files.Content[kPath] = bytes;
  return OpenPattern(files, kPath, options, overScale);
}

OpenedPattern Open(const ReadingsRecord& record, const PatternOptions& options = {}) {
  return Open(StoredText(record), options);
}

TEST(OpenPattern, AFileIsLoadedAndPlotted) {
  const OpenedPattern pattern = Open(StoredBeam());
  EXPECT_THAT(pattern.Messages, IsEmpty());
  EXPECT_FALSE(pattern.Error());
  EXPECT_TRUE(pattern.Session.Plot().PlotDone);
  EXPECT_EQ(pattern.Session.Record().Description, "test beam");
  EXPECT_EQ(pattern.RotateText, "0");
}

TEST(OpenPattern, ARotationBeyondEveryPlaceIsAMessageOfThisFile) {
  for (const char* rotation : {"1e30", "-1e30", "1e999"}) {
    const OpenedPattern pattern = Open(StoredBeam(), {.Rotate = rotation});
    EXPECT_FALSE(pattern.Messages.empty() && !pattern.Error()) << rotation;
    Open(StoredBeam(), {.TrimFront = rotation});
    Open(StoredBeam(), {.TrimEnd = rotation});
  }
}

TEST(OpenPattern, AMissingFileIsAnErrorWithItsMessage) {
  MemoryFiles files;
  const OpenedPattern pattern = OpenPattern(files, "nowhere.lbg", {.Rotate = "10"});
  ASSERT_TRUE(pattern.Error());
  EXPECT_EQ(pattern.Error()->Number(), fault::kFileNotFound);
  EXPECT_THAT(pattern.Messages, ElementsAre(HasSubstr("of procedure cmdGetData_Click of Form Form1")));
  EXPECT_EQ(pattern.RotateText, "0");
}

TEST(OpenPattern, NothingIsDoneToACutFile) {
  const OpenedPattern pattern =
      Open(StoredText(StoredBeam()).substr(0, 600), {.Rotate = "10", .Apply = {Transform::Smooth}});
  ASSERT_TRUE(pattern.Error());
  EXPECT_EQ(pattern.Error()->Number(), fault::kInputPastEnd);
  EXPECT_EQ(pattern.Messages.size(), 1U);
  EXPECT_EQ(pattern.Session.Record().NumReadings, 359);
  EXPECT_FALSE(pattern.Session.Plot().PlotDone);
}

TEST(OpenPattern, NumbersAreTypedAfterTheLoad) {
  const OpenedPattern pattern =
      Open(StoredBeam(), {.Rotate = "33 degrees", .TrimFront = "2", .TrimEnd = "3.5"});
  EXPECT_EQ(pattern.Session.Record().Rotate, 33.F);
  EXPECT_EQ(pattern.Session.Record().TrimFront, 2);
  EXPECT_EQ(pattern.Session.Record().TrimEnd, 4);
  EXPECT_EQ(pattern.RotateText, "33");
}

TEST(OpenPattern, ANumberThatWasNotTypedKeepsWhatTheFileBrought) {
  ReadingsRecord record = StoredBeam();
  record.TrimFront = 5;
  record.Rotate = 20.F;
  const OpenedPattern pattern = Open(record, {.TrimEnd = "1"});
  EXPECT_EQ(pattern.Session.Record().TrimFront, 5);
  EXPECT_EQ(pattern.Session.Record().Rotate, 20.F);
  EXPECT_EQ(pattern.Session.Record().TrimEnd, 1);
}

TEST(OpenPattern, ARefusedRotationIs0AndOneThatWasNotLookedAtStaysAsTyped) {
  const OpenedPattern refused = Open(StoredBeam(), {.Rotate = "359.5"});
  EXPECT_THAT(refused.Messages, ElementsAre("LBG007 Value for Rotate must be in the range 1 - 359"));
  EXPECT_EQ(refused.RotateText, "0");
  EXPECT_FALSE(refused.Error()) << "a refusal is no fault";
  EXPECT_EQ(Open(StoredBeam(), {.Rotate = "33 degrees", .TrimEnd = "305"}).RotateText, "33 degrees");
}

TEST(OpenPattern, StyleAndRulesCountFromTheLoadOn) {
  for (const auto scale : {PlotScale::Logarithmic, PlotScale::Db50, PlotScale::Linear})
    EXPECT_EQ(Open(StoredBeam(), {.Style = {.Scale = scale}}).Session.Plot().Scale, scale);
  EXPECT_THAT(Open(StoredBeam(), {.Rules = {.PeakInputLevel = 500.F}}).Messages,
              ElementsAre(HasSubstr("LBG030")));
  EXPECT_THAT(Open(StoredBeam(36)).Messages, ElementsAre(HasSubstr("LBG011")));
  EXPECT_TRUE(Open(StoredBeam(36), {.Rules = {.AnyLength = true}}).Session.Plot().PlotDone);
}

TEST(OpenPattern, APatternOverAnotherKeepsTheOthersScale) {
  EXPECT_EQ(Open(StoredText(StoredBeam()), {}, 20).Session.Style().ScaleSetting, 20);
}

TEST(OpenPattern, EachCommandIsAppliedInTheOrderGiven) {
  const auto level = [](std::vector<Transform> commands) {
    return Open(StoredBeam(), {.Apply = std::move(commands)}).Session.Record().Readings(100);
  };
  EXPECT_NE(level({Transform::Smooth, Transform::Reverse}), level({Transform::Reverse, Transform::Smooth}));
  EXPECT_EQ(level({Transform::Smooth, Transform::Original}), StoredBeam().Readings(100));
  const OpenedPattern oriented = Open(StoredBeam(), {.Apply = {Transform::Orient}});
  EXPECT_EQ(oriented.Session.Record().Rotate, 320.F);
  EXPECT_EQ(oriented.RotateText, "320");
  ReadingsRecord spiked = StoredBeam();
  spiked.Readings(200) += 60.F;
  EXPECT_LT(Open(spiked, {.Apply = {Transform::DeSpike}}).Session.Record().Readings(200),
            spiked.Readings(200) - 50.F);
}

TEST(OpenPattern, AFaultIsAnErrorUntilACommandMendsIt) {
  ReadingsRecord record = StoredBeam();
  record.Readings(100) = 0.F;
  const OpenedPattern faulty = Open(record);
  ASSERT_TRUE(faulty.Error());
  EXPECT_THAT(faulty.Messages, ElementsAre(HasSubstr("of procedure ReDraw of Form Form1")));
  const OpenedPattern mended = Open(record, {.Apply = {Transform::Smooth}});
  EXPECT_FALSE(mended.Error());
  EXPECT_EQ(mended.Messages.size(), 1U);
}

}  // namespace
}  // namespace lobegraph
