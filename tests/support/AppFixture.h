#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <string>
#include <string_view>

#include "app/main/Form1.h"
#include "data/formats/PatternFile.h"
#include "support/AppEditor.h"
#include "support/AppPlatform.h"
#include "support/AppPrinter.h"
#include "support/FakeClock.h"
#include "support/InputRig.h"
#include "support/SoundFakes.h"
#include "support/TemporaryFolder.h"
#include "support/TestRecord.h"

namespace lobegraph {

/// Colours of an empty store, as operations name them.
inline constexpr const char* kTraceColour = "#800000";
inline constexpr const char* kOverlayTraceColour = "#008000";
inline constexpr const char* kUserColour = "#000080";
inline constexpr const char* kUserOverlayColour = "#ffff00";

/// A real Form1 among doubles, operated like the window: a disabled control cannot be pressed. The sound
/// source delivers one block of Heard at every yield.
class AppFixture {
 public:
  AppLog Log;
  FakeControlView View{Log};
  FakeDialogs Dialogs{Log};
  FakeSystemText System;
  FakeFiles Files{Log};
  FakeProgramEnd End{Log};
  AppSurface Surface{Log};
  AppStore Store{Log};
  FakeClock Time;
  FakePump Pump;
  test::FakeDevice Sound;
  std::shared_ptr<Globals> AllShared = std::make_shared<Globals>();
  test::InputRig Inputs{*AllShared, Log, Store, Time};
  TemporaryFolder State;
  FakeEditor Editor;
  FakePrinter Printer{Log};
  Form1 Form{{.View = View,
              .Dialogs = Dialogs,
              .System = System,
              .Files = Files,
              .End = End,
              .Surface = Surface,
              .Store = Store,
              .Time = Time,
              .Pump = Pump,
              .SoundDevice = Sound,
              .Devices = Inputs.Devices,
              .MSComm1 = Inputs.MSComm1,
              .MeterProgram = Inputs.Program,
              .Trigger = Inputs.Line,
              .VersionText = "V2.1.0",
              .WorkingFolder = "/home/ham/",
              .StateFolder = State.File("turns"),
              .Shared = AllShared,
              .frmEditLbg = &Editor,
              .Printer = &Printer},
             PlotGeometry{}};
  Globals& Shared = Form.Shared();
  PatternSession& Pattern = Form.Pattern();

  std::function<float()> Heard = [] { return 300.F; };  ///< level of the next block
  bool Silent = false;                                  ///< the source delivers nothing
  std::function<void()> OnYield;                        ///< the user, while a run is on

  AppFixture() {
    Pump.OnYield = [this](int) { Deliver(); };
    Sound.description.clear();  // nothing was opened yet
  }

  /// Start-up with a call sign given before; nothing of it stays in the logs.
  void Start() {
    Store.Put("Username", "N0CALL");
    Form.Shell().Form_Load();
    Forget();
  }
  void Forget() {
    Log.clear();
    Surface.Operations.clear();
    Dialogs.Messages.clear();
  }

  void Press(Control control) {
    ASSERT_TRUE(View.Of(control).Enabled && View.Of(control).Visible) << RowOf(control).Name;
    Form.Click(control);
  }
  void Tick(Control box, bool checked) {
    View.Of(box).Checked = checked;
    Press(box);
  }
  void Slide(Control slider, int value) {
    View.Of(slider).Value = value;
    Press(slider);
  }
  /// Types without pressing Enter.
  void Type(Control box, const std::string& text) { View.Of(box).Text = text; }
  void Enter(Control box, const std::string& text) {
    Type(box, text);
    Press(box);
  }
  void Choose(const std::string& elements) { Enter(Control::cboElements, elements); }

  /// Get File, with that path chosen.
  void Load(const std::string& path) {
    Dialogs.FileToOpen = path;
    Press(Control::cmdGetData);
  }
  void Overlay(const std::string& path) {
    Dialogs.FileToOpen = path;
    Press(Control::cmdOverlay);
  }
  void SaveAs(const std::string& path) {
    Dialogs.FileToSave = path;
    Press(Control::cmdSaveData);
  }
  /// A file of the record at the path.
  void PutFile(const std::string& path, const ReadingsRecord& record) {
    Files.Held[path] = WritePatternText(record, "V1.0.0");
  }
  void LoadRecord(const ReadingsRecord& record, const std::string& path = "/patterns/beam.lbg") {
    PutFile(path, record);
    Load(path);
  }
  /// A 360-reading beam is held and drawn; the logs are empty.
  void HoldBeam(int at = 0) {
    LoadRecord(FileRecord(at));
    Forget();
  }
  /// The same of a beam that was changed before it was saved.
  void HoldChanged(const std::function<void(ReadingsRecord&)>& change, int at = 0) {
    ReadingsRecord record = FileRecord(at);
    change(record);
    LoadRecord(record);
    Forget();
  }
  /// A second beam lies over a first one.
  void HoldPair() {
    HoldBeam();
    PutFile("/patterns/second.lbg", FileRecord(90));
    Overlay("/patterns/second.lbg");
  }
  const ReadingsRecord& Record() const { return Pattern.Record(); }
  static ReadingsRecord FileRecord(int at = 0) {
    ReadingsRecord record = BeamRecord(360, at);
    record.ReadingsPlotted = 360;
    record.PeakIndex = static_cast<std::int16_t>(at);
    record.ScaleSetting = 40.F;
    record.Description = "Three elements";
    record.CollectedBy = "K1AB";
    record.CollectedDate = "12:00 01/02/2020";
    record.Elements = "  3";
    return record;
  }

  void Activate() { Form.Shell().Form_Activate(); }
  int ReadingsDone() const { return std::atoi(View.Of(Control::txtReadingNumber).Text.c_str()); }

  std::string Text(Control control) const { return View.Of(control).Text; }
  bool Logged(const std::string& call) const { return PlaceOf(call) >= 0; }
  long CountOf(const std::string& call) const { return std::count(Log.begin(), Log.end(), call); }
  /// Place of the first such call in the log; -1 for none.
  long PlaceOf(const std::string& call) const {
    const auto found = std::find(Log.begin(), Log.end(), call);
    return found == Log.end() ? -1 : found - Log.begin();
  }
  /// The calls that begin so, in order.
  AppLog Only(const std::string& beginning) const {
    AppLog result;
    for (const std::string& call : Log)
      if (call.starts_with(beginning)) result.push_back(call);
    return result;
  }
  long Grids() const { return static_cast<long>(Surface.Only("clear").size()); }

 private:
  void Deliver() {
    if (Sound.ring && !Silent) {
      constexpr float kStepsPerLevel = 32.F;
      Sound.ring->Write(test::BlockOf(static_cast<std::int16_t>(Heard() * kStepsPerLevel)));
      Sound.Deliver();
    }
    if (OnYield) OnYield();
  }
};

}  // namespace lobegraph
