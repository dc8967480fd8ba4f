#include <gmock/gmock.h>

#include <map>

#include "cli/MemoryFiles.h"
#include "cli/PatternSession.h"
#include "cli/Picture.h"
#include "support/AppFixture.h"

namespace lobegraph {
namespace {

constexpr const char* kPath = "/patterns/beam.lbg";

/// What both fronts are asked to do.
struct Task {
  std::string Name;
  std::string Bytes;
  SessionOptions Options = {};
};

void PrintTo(const Task& task, std::ostream* out) { *out << task.Name; }

Control ButtonOf(Transform transform) {
  static const std::map<Transform, Control> buttons = {{Transform::Smooth, Control::cmdSmooth},
                                                       {Transform::Reverse, Control::cmdReverse},
                                                       {Transform::DeSpike, Control::cmdDeSpike},
                                                       {Transform::Orient, Control::cmdRescaleData},
                                                       {Transform::Original, Control::cmdOriginalData}};
  return buttons.at(transform);
}

/// Does in the window what the options say.
void Operate(AppFixture& window, const Task& task) {
  const SessionOptions& options = task.Options;
  window.Store.Put("PeakInputLevel", SingleText(options.PeakInputLevel));
  window.Store.Put("SpikeDetectLevel", std::to_string(options.SpikeDetectLevel));
  window.Store.Put("LinearMode", options.LinearMode ? "True" : "False");
  window.Start();
  if (options.Scale == PlotScale::Linear) window.Tick(Control::chkPlotInDB, false);
  if (options.Scale == PlotScale::Db50) window.Press(Control::cmdLogLin);
  window.View.Of(Control::chkCalibrate).Checked = options.Calibrate;
  window.Files.Held[kPath] = task.Bytes;
  window.Forget();
  window.Load(kPath);
  if (options.txtRotate) window.Type(Control::txtRotate, *options.txtRotate);
  if (options.txtTrimFront) window.Type(Control::txtTrimFront, *options.txtTrimFront);
  if (options.txtTrimEnd) window.Type(Control::txtTrimEnd, *options.txtTrimEnd);
  if (options.txtRotate || options.txtTrimFront || options.txtTrimEnd) window.Press(Control::txtRotate);
  for (const Transform transform : options.Apply) window.Press(ButtonOf(transform));
}

void ExpectSameRecord(const ReadingsRecord& ours, const ReadingsRecord& theirs) {
  EXPECT_EQ(ours.Readings, theirs.Readings);
  EXPECT_EQ(ours.SavedReadings, theirs.SavedReadings);
  EXPECT_EQ(ours.NumReadings, theirs.NumReadings);
  EXPECT_EQ(ours.ReadingCount, theirs.ReadingCount);
  EXPECT_EQ(ours.ReadingsPlotted, theirs.ReadingsPlotted);
  EXPECT_EQ(ours.TrimFront, theirs.TrimFront);
  EXPECT_EQ(ours.TrimEnd, theirs.TrimEnd);
  EXPECT_EQ(ours.Rotate, theirs.Rotate);
  EXPECT_EQ(ours.PeakLevelDb, theirs.PeakLevelDb);
  EXPECT_EQ(ours.PeakIndex, theirs.PeakIndex);
  EXPECT_EQ(ours.Description, theirs.Description);
  EXPECT_EQ(ours.ScaleSetting, theirs.ScaleSetting);
  EXPECT_EQ(ours.WriterVersion, theirs.WriterVersion);
  EXPECT_EQ(ours.CollectedBy, theirs.CollectedBy);
  EXPECT_EQ(ours.CollectedDate, theirs.CollectedDate);
  EXPECT_EQ(ours.Elements, theirs.Elements);
  EXPECT_EQ(ours.PolarizationHorizontal, theirs.PolarizationHorizontal);
  EXPECT_EQ(ours.Plot180, theirs.Plot180);
  EXPECT_EQ(ours.FileName, theirs.FileName);
}

/// The last picture of a surface, without what only sets pens and fonts.
std::vector<std::string> LastDrawing(const RecordingSurface& surface) {
  std::vector<std::string> drawn;
  for (const std::string& operation : surface.Operations) {
    if (operation == "clear") drawn.clear();
    for (const char* kind : {"line", "dot", "circle", "box", "filled box", "text"})
      if (operation.starts_with(std::string(kind) + " ")) drawn.push_back(operation);
  }
  return drawn;
}

class WindowComparison : public ::testing::TestWithParam<Task> {
 protected:
  void SetUp() override {
    Operate(window_, GetParam());
    MemoryFiles files;
    files.Content[kPath] = GetParam().Bytes;
    session_.Run(files, kPath);
  }
  AppFixture window_;
  PatternSession session_{GetParam().Options};
};

TEST_P(WindowComparison, RecordBoxesAndMessagesAreTheSame) {
  EXPECT_EQ(session_.Messages(), window_.Dialogs.Texts());
  ExpectSameRecord(session_.Record(), window_.Shared.Record);
  EXPECT_EQ(session_.Boxes().txtRotate, window_.Text(Control::txtRotate));
  EXPECT_EQ(session_.Boxes().txtTrimFront, window_.Text(Control::txtTrimFront));
  EXPECT_EQ(session_.Boxes().txtTrimEnd, window_.Text(Control::txtTrimEnd));
  EXPECT_EQ(session_.txtAngle(), window_.Text(Control::txtAngle));
  EXPECT_EQ(session_.txtGain(), window_.Text(Control::txtGain));
  EXPECT_EQ(session_.BeamwidthDeg(), window_.Shared.BeamwidthDeg);
}

TEST_P(WindowComparison, TheIntegratedGainIsWhatItsButtonWouldShow) {
  window_.View.SetText(Control::txtGain, "untouched");
  window_.Press(Control::cmdIntegrate);
  EXPECT_EQ(session_.IntegratedGainText().value_or("untouched"), window_.Text(Control::txtGain));
}

TEST_P(WindowComparison, ThePictureIsTheSame) {
  if (!session_.Plot().PlotDone) return;  // no picture is made of it
  const Picture picture{{{session_, "beam"}}, DefaultColours(), ""};
  RecordingSurface surface;
  DrawGrid(surface, GridOf(picture));
  DrawPatterns(surface, picture, [](std::string_view) {});
  EXPECT_EQ(LastDrawing(surface), LastDrawing(window_.Surface));
}

std::string TextOf(const ReadingsRecord& record) { return WritePatternText(record, "V1.0.0"); }

ReadingsRecord Changed(const std::function<void(ReadingsRecord&)>& change) {
  ReadingsRecord record = AppFixture::FileRecord(70);
  change(record);
  return record;
}

std::vector<Task> Tasks() {
  const std::string beam = TextOf(AppFixture::FileRecord(70));
  const auto with = [](const std::function<void(ReadingsRecord&)>& change) {
    return TextOf(Changed(change));
  };
  std::vector<Task> tasks = {
      {"plain", beam},
      {"cut", beam.substr(0, beam.size() / 2)},
      {"cut_in_the_words", beam.substr(0, beam.size() - 40)},
      {"garbage", "abc\r\n"},
      {"empty", ""},
      {"half_a_turn", with([](auto& r) { r.Plot180 = true; })},
      {"vertical", with([](auto& r) { r.PolarizationHorizontal = false; })},
      {"one_element", with([](auto& r) { r.Elements = "1"; })},
      {"many_elements", with([](auto& r) { r.Elements = " >8"; })},
      {"trimmed", with([](auto& r) { r.TrimFront = 7, r.TrimEnd = 11; })},
      {"bad_trims", with([](auto& r) { r.TrimFront = 400; })},
      {"bad_rotation", with([](auto& r) { r.Rotate = 359.5F; })},
      {"turned", with([](auto& r) { r.Rotate = 12.5F; })},
      {"wide_scale", with([](auto& r) { r.ScaleSetting = 1e30F; })},
      {"zero_reading", with([](auto& r) { r.Readings(5) = 0.F; })},
      {"negative_reading", with([](auto& r) { r.Readings(5) = -1.F; })},
      {"two_readings", with([](auto& r) { r.NumReadings = 1; })},
      {"one_reading", with([](auto& r) { r.NumReadings = 0; })},
      {"short_set", TextOf(BeamRecord(40))},
      {"hundred", TextOf(BeamRecord(100, 20))},
      {"too_many", "400\r\n" + beam.substr(5)},
  };
  const std::vector<SessionOptions> options = {
      {.Scale = PlotScale::Db50},
      {.Scale = PlotScale::Linear},
      {.LinearMode = true},
      {.Calibrate = true},
      {.PeakInputLevel = 300.F},
      {.txtRotate = "200", .txtTrimFront = "3"},
      {.txtRotate = "359.5"},
      {.txtTrimFront = "x", .txtTrimEnd = "999"},
      {.Apply = {Transform::Smooth}},
      {.Apply = {Transform::Reverse}},
      {.txtRotate = "90", .Apply = {Transform::Reverse, Transform::Reverse}},
      {.SpikeDetectLevel = 2, .Apply = {Transform::DeSpike}},
      {.Apply = {Transform::Orient}},
      {.LinearMode = true, .Apply = {Transform::Orient}},
      {.txtTrimEnd = "5", .Apply = {Transform::Smooth, Transform::Orient, Transform::Original}},
      {.Apply = {Transform::Original, Transform::Smooth, Transform::DeSpike, Transform::Orient}}};
  std::vector<Task> all;
  for (const Task& task : tasks) {
    all.push_back(task);
    const bool loads = task.Name.substr(0, 3) != "cut" && task.Name != "garbage" && task.Name != "empty" &&
                       task.Name != "too_many";
    for (std::size_t i = 0; loads && i < options.size(); ++i)
      all.push_back({task.Name + "_" + std::to_string(i), task.Bytes, options[i]});
  }
  return all;
}

INSTANTIATE_TEST_SUITE_P(Patterns, WindowComparison, ::testing::ValuesIn(Tasks()),
                         [](const auto& task) { return task.param.Name; });

}  // namespace
}  // namespace lobegraph
