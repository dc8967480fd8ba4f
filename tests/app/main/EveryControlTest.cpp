// Every control is pressed in every state: no exception leaves a handler, and no box comes twice for one
// cause.
#include <gmock/gmock.h>

#include <set>

#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using enum Control;

/// A window that is started and brought into a state.
struct State {
  const char* Name;
  void (*Enter)(AppFixture&);
};

void LoadBytes(AppFixture& window, const std::string& bytes) {
  window.Files.Held["/patterns/damaged.lbg"] = bytes;
  window.Load("/patterns/damaged.lbg");
}

std::string Whole() { return WritePatternText(AppFixture::FileRecord(), "V1.0.0"); }

std::string Shares(int percent) {
  return Whole().substr(0, Whole().size() * static_cast<std::size_t>(percent) / 100);
}

void LoadChanged(AppFixture& window, void (*change)(ReadingsRecord&)) { window.HoldChanged(change); }

const State kStates[] = {
    {"NothingHeld", [](AppFixture&) {}},
    {"Held", [](AppFixture& window) { window.HoldBeam(90); }},
    {"HeldIn180Degrees", [](AppFixture& window) { LoadChanged(window, [](auto& r) { r.Plot180 = true; }); }},
    {"Rectangular",
     [](AppFixture& window) {
       window.HoldBeam(90);
       window.Press(cmdLinear);
       window.Press(cmdPatternAnalysis);
     }},
    {"TooManyReadingsClaimed", [](AppFixture& window) { LoadBytes(window, "400" + Whole().substr(3)); }},
    {"NegativeCount", [](AppFixture& window) { LoadBytes(window, "-5\r\n"); }},
    {"CountBeyond16Bits", [](AppFixture& window) { LoadBytes(window, "40000\r\n"); }},
    {"Empty", [](AppFixture& window) { LoadBytes(window, ""); }},
    {"CutInTheReadings", [](AppFixture& window) { LoadBytes(window, Shares(40)); }},
    {"CutInTheWords", [](AppFixture& window) { LoadBytes(window, Shares(99)); }},
    {"ZeroReading", [](AppFixture& window) { LoadChanged(window, [](auto& r) { r.Readings(100) = 0.F; }); }},
    {"NegativeReading",
     [](AppFixture& window) { LoadChanged(window, [](auto& r) { r.Readings(100) = -1.F; }); }},
    {"ThirtyReadings", [](AppFixture& window) { LoadChanged(window, [](auto& r) { r.NumReadings = 29; }); }},
    {"361Readings", [](AppFixture& window) { LoadChanged(window, [](auto& r) { r.NumReadings = 360; }); }},
    {"OneReading", [](AppFixture& window) { LoadChanged(window, [](auto& r) { r.NumReadings = 0; }); }},
    {"WildTrims",
     [](AppFixture& window) { LoadChanged(window, [](auto& r) { r.TrimFront = r.TrimEnd = 32767; }); }},
    {"Overlay", [](AppFixture& window) { window.HoldPair(); }},
    {"DamagedOverlay",
     [](AppFixture& window) {
       window.HoldBeam();
       window.Files.Held["/patterns/damaged.lbg"] = Shares(40);
       window.Overlay("/patterns/damaged.lbg");
     }},
    {"EditorOpen",
     [](AppFixture& window) {
       window.HoldBeam();
       window.Tick(chkEditor, true);
     }},
    {"PeakInputLevel0",
     [](AppFixture& window) {
       window.HoldBeam();
       window.Shared.Settings.PeakInputLevel = 0.F;
     }},
};

/// What a user can do to a control: a box gets each of these texts.
std::vector<std::string> Uses(const ControlRow& row) {
  if (row.Kind == ControlKind::TextBox) return {"", "abc", "-1", "5", "359.5", "99999", "1e999"};
  if (row.Kind == ControlKind::DropDown) return {"  1", "  3", "  > 8!", "99999999999"};
  return {""};
}

void Use(AppFixture& window, const ControlRow& row, const std::string& text) {
  if (row.Kind == ControlKind::TextBox || row.Kind == ControlKind::DropDown) window.Type(row.Id, text);
  if (row.Kind == ControlKind::CheckBox) window.View.Of(row.Id).Checked = !window.View.Of(row.Id).Checked;
  if (row.Id == txtDescription) window.Form.File().txtDescription_Change();
  EXPECT_NO_THROW(window.Form.Click(row.Id)) << row.Name << " " << text;
}

bool InReach(const AppFixture& window, const ControlRow& row) {
  return window.View.Of(row.Id).Enabled && window.View.Of(row.Id).Visible && row.Kind != ControlKind::Label &&
         row.Kind != ControlKind::ReadOnlyBox;
}

void ExpectNoBoxTwice(const AppFixture& window, const std::string& what) {
  std::set<std::string> seen;
  for (const std::string& text : window.Dialogs.Texts())
    EXPECT_TRUE(seen.insert(text).second) << what << ": " << text;
}

class EveryControlTest : public testing::TestWithParam<State> {};

TEST_P(EveryControlTest, LetsNothingOutAndShowsNoBoxTwice) {
  for (const ControlRow& row : ControlTable())
    for (const std::string& text : Uses(row)) {
      AppFixture window;
      window.Start();
      GetParam().Enter(window);
      if (!InReach(window, row)) continue;
      window.Forget();
      Use(window, row, text);
      ExpectNoBoxTwice(window, std::string(row.Name) + " " + text);
      EXPECT_EQ(window.End.AtOnce, 0) << row.Name;
    }
}

INSTANTIATE_TEST_SUITE_P(States, EveryControlTest, testing::ValuesIn(kStates),
                         [](const auto& state) { return state.param.Name; });

/// All that is in reach in the middle of a run, once each.
class ControlsInARunTest : public testing::Test, protected AppFixture {
 protected:
  ControlsInARunTest() {
    Start();
    HoldBeam(90);
    View.Of(Slider2).Value = 36;
  }
  void UseAll() {
    for (const ControlRow& row : ControlTable())
      if (InReach(*this, row) && row.Id != cmdHaltInput && row.Id != chkCalibrate && row.Id != cmdCollectData)
        for (const std::string& text : Uses(row)) Use(*this, row, text);
    EXPECT_THAT(Dialogs.Texts(), testing::IsEmpty()) << "a box would stop the run";
  }
};

TEST_F(ControlsInARunTest, LetNothingOutOfATurn) {
  bool used = false;
  OnYield = [&] {
    if (used || ReadingsDone() < 5) return;
    used = true;
    UseAll();
    Press(cmdHaltInput);
  };
  Press(cmdCollectData);
  EXPECT_TRUE(used);
  EXPECT_GE(Record().NumReadings, 4);
}

TEST_F(ControlsInARunTest, LetNothingOutOfASweep) {
  int yields = 0;
  OnYield = [&] {
    if (!Shared.Run.IsSweeping || ++yields != 20) return;
    UseAll();
    View.Of(chkCalibrate).Checked = false;
  };
  Tick(chkCalibrate, true);
  Form.Run().Timer1_Timer();
  EXPECT_GE(yields, 20);
}

/// The editor's buttons beside every state.
TEST_P(EveryControlTest, TheEditorsButtonsLetNothingOutEither) {
  using Handler = void (frmEditLbg::*)();
  for (const Handler handler : {&frmEditLbg::cmdGetDataFromPlot_Click, &frmEditLbg::cmdGetDataFromFile_Click,
                                &frmEditLbg::cmdInsert_Click, &frmEditLbg::cmdDelete_Click,
                                &frmEditLbg::cmdUpdate_Click, &frmEditLbg::Command1_Click})
    for (const char* value : {"", "0", "abc", "-1", "1e999", "7"}) {
      AppFixture window;
      window.Start();
      GetParam().Enter(window);
      window.Form.Editor().cmdGetDataFromPlot_Click();
      window.Form.Editor().EditValue(3, value);
      window.Forget();
      EXPECT_NO_THROW((window.Form.Editor().*handler)()) << value;
      ExpectNoBoxTwice(window, value);
    }
}

/// Each box of the settings dialog and its buttons.
TEST_P(EveryControlTest, TheSettingsLetNothingOutEither) {
  for (const SettingsBoxRow& row : SettingsBoxes())
    for (const char* text : {"", "abc", "-1", "99999", "1e999", "2"}) {
      AppFixture window;
      window.Start();
      GetParam().Enter(window);
      frmSettings& settings = window.Form.Settings();
      settings.Form_Load();
      window.Forget();
      settings.Dialog().SetText(row.Id, text);
      EXPECT_NO_THROW({
        settings.Validate(row.Id);
        settings.cmdDefault_Click();
        settings.cmdTextOnOff_Click();
        settings.cmdOK_Click();
        settings.Closed();
      }) << row.Name
         << text;
      ExpectNoBoxTwice(window, std::string(row.Name) + text);
    }
}

}  // namespace
}  // namespace lobegraph
