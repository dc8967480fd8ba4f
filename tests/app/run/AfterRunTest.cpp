// What is said after a run.
#include "app/run/AfterRun.h"

#include <gmock/gmock.h>

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string Hint(const RunReport& report, const std::string& copyFailure = "") {
  return HintAfterRun(report, {.Copy = copyFailure, .Log = ""}).Shown();
}

TEST(HintAfterRunTest, SaysTheMostUrgentFirst) {
  RunReport report;
  report.ReadingsTaken = 360;
  EXPECT_EQ(Hint(report), "360 readings. Rescale turns the beam up; then Save File.");
  report.Late = {3, 9, 20};
  EXPECT_EQ(Hint(report), "3 readings came late, the first is No. 10.");
  report.Late.Count = 1;
  EXPECT_EQ(Hint(report), "One reading came late, No. 10.");
  report.Suspended = {1, 123, 11'600};
  EXPECT_EQ(
      Hint(report),
      "The computer slept for 12 s in reading No. 124: from there on the bearings are wrong if the antenna "
      "turned on.");
  report.OneValue = {237, 123, 359};
  EXPECT_EQ(Hint(report), "Readings 124 to 360 are one value: look whether the meter program runs.");
  report.OneValue.Count = 200;
  EXPECT_EQ(Hint(report),
            "200 of the readings 124 to 360 repeat one value: look whether the meter program runs.");
  report.NothingHeard = true;
  EXPECT_EQ(Hint(report), "Nothing was heard: check cable, volume and input.");
  EXPECT_EQ(Hint(report, "Disk full"), "Save File now: the safety copy failed (Disk full).");
  report.ReadingsTaken = 0;
  EXPECT_EQ(Hint(report, "Disk full"), "No reading was taken.");
}

TEST(HintAfterRunTest, AHaltedTurnAndOneWithoutItsSourceSaySo) {
  RunReport report;
  report.ReadingsTaken = 100;
  report.Ended = TurnEnding::Halted;
  EXPECT_EQ(Hint(report), "Halted after 100 readings. Rescale turns the beam up; then Save File.");
  report.Ended = TurnEnding::AutoStop;
  EXPECT_EQ(Hint(report), "100 readings. Rescale turns the beam up; then Save File.");
  report.Ended = TurnEnding::SourceLost;
  EXPECT_EQ(Hint(report), "The source broke off: the pattern ends with reading No. 100.");
  report.Late = {1, 9, 9};
  EXPECT_EQ(Hint(report), "The source broke off: the pattern ends with reading No. 100.");
}

TEST(HintAfterRunTest, ASilentMeterIsToldInTheLineAsWell) {
  RunReport report;
  report.ReadingsTaken = 360;
  report.Silent = {260, 100, 359};
  report.Late = {1, 9, 9};
  EXPECT_THAT(Hint(report), ::testing::StartsWith("The meter had no fresh value for 260 readings"));
}

TEST(HintAfterRunTest, ALogThatCouldNotBeKeptComesBehindTheCopyAndBeforeAllElse) {
  RunReport report;
  report.ReadingsTaken = 360;
  report.Ended = TurnEnding::SourceLost;
  EXPECT_EQ(HintAfterRun(report, {.Copy = "", .Log = "Disk full"}).Shown(),
            "Save File now: the turn's log could not be kept (Disk full).");
  EXPECT_EQ(HintAfterRun(report, {.Copy = "Disk full", .Log = "Disk full"}).Shown(),
            "Save File now: the safety copy failed (Disk full).");
}

TEST(HintAfterRunTest, KeepsWhatIsLessUrgentForTheLog) {
  RunReport report;
  report.ReadingsTaken = 360;
  report.Late = {1, 9, 9};
  EXPECT_EQ(HintAfterRun(report, {.Copy = "Disk full", .Log = ""}).All().size(), 3U);
}

std::vector<std::string> Texts(const RunReport& report) {
  std::vector<std::string> texts;
  for (const UserMessage& box : BoxesAfterRun(report)) texts.push_back(box.Text);
  return texts;
}

TEST(BoxesAfterRunTest, NameTheReadingsThatMustNotBeTrusted) {
  RunReport report;
  EXPECT_THAT(Texts(report), IsEmpty());
  report.Silent = {260, 100, 359};
  EXPECT_THAT(
      Texts(report),
      ElementsAre("The meter had no fresh value for 260 readings, the first is No. 101. Check the meter and "
                  "its cable; then choose the input again."));
  report.Silent.Count = 1;
  EXPECT_THAT(
      Texts(report),
      ElementsAre("The meter had no fresh value for 1 reading, the first is No. 101. Check the meter and its "
                  "cable; then choose the input again."));
}

TEST(BoxesAfterRunTest, TellOfATriggersPortThatVanished) {
  RunReport report;
  report.TriggerPortGone = true;
  EXPECT_THAT(Texts(report),
              ElementsAre("The trigger's port has gone. Plug it in and choose the input again."));
}

}  // namespace
}  // namespace lobegraph
