#include "app/main/Form1.h"

namespace lobegraph {
namespace {

/// The handler's name, as a fault that it lets out names it.
std::string ProcedureOf(Control control) {
  const ControlRow& row = RowOf(control);
  const auto event = [&] {
    switch (row.Kind) {
      case ControlKind::TextBox:
        return "_KeyPress";
      case ControlKind::Slider:
      case ControlKind::DropDown:
        return "_Change";
      case ControlKind::Label:
        return "_DblClick";
      default:
        return "_Click";
    }
  };
  return std::string(row.Name) + event();
}

}  // namespace

Form1::Form1(const Platform& platform, const PlotGeometry& geometry)
    : shared_(platform.Shared),
      globals_(*shared_),
      parts_{globals_,       pattern_,     platform.View,    platform.Dialogs,    platform.System,
             platform.Files, platform.End, platform.Desktop, platform.frmEditLbg, platform.Printer},
      board_(parts_, platform.Surface, geometry),
      display_(parts_, board_),
      plot_(parts_, display_),
      file_(parts_, display_),
      transform_(parts_, display_),
      editor_(parts_, display_),
      analysis_(parts_, board_.Lines()),
      print_(parts_),
      keeper_(platform.StateFolder, platform.VersionText),
      frmDX_Record_(platform.SoundDevice, globals_.Sound),
      sound_(frmDX_Record_, globals_.Sound, platform.Time, platform.Pump),
      watch_(platform.Pump, sound_, globals_.Run, globals_.Meter, platform.Time),
      waiting_(globals_.Run, platform.Dialogs),
      trigger_(platform.Trigger, globals_.Run, watch_, [this] { return panel_.Controls().Triggered; }),
      panel_(parts_, board_, display_, keeper_, platform.Trigger),
      input_({globals_.Settings, globals_.Run, globals_.Sound, globals_.Thresholds, globals_.Meter,
              platform.MeterProgram, watch_, platform.Time, RunWindow().Tell}),
      run_(parts_, RunParts(platform), keeper_),
      shell_(parts_, display_, platform.Store, platform.Devices, frmDX_Record_, sound_),
      settings_(parts_, display_, platform.Store),
      chooseInput_(parts_, platform.Devices, sound_, platform.ShowChooser) {
  globals_.VersionText = platform.VersionText;
  globals_.WorkingFolder = platform.WorkingFolder;
  globals_.TurnsFolder = platform.StateFolder;
  ConnectHandlers();
}

RunFront Form1::RunWindow() {
  return {.Controls = [this] { return panel_.Controls(); },
          .Tell = [this](const RunEvent& event) { panel_.Show(event); }};
}

CollectionParts Form1::RunParts(const Platform& platform) {
  return {.Time = platform.Time,
          .Pump = watch_,
          .Flags = globals_.Run,
          .Record = pattern_.RunRecord(),
          .ReadInputLevel = [this] { return input_.ReadInputLevel(); },
          .WaitForTrigger = [this] { return trigger_.WaitForTrigger(); },
          .Sound = sound_,
          .MSComm1 = platform.MSComm1,
          .Meter = globals_.Meter,
          .Program = platform.MeterProgram,
          .Settings = globals_.Settings,
          .Window = RunWindow(),
          .FullScaleRadius = board_.Geometry().R,
          .Messages = platform.Dialogs,
          .Waiting = waiting_};
}

void Form1::Click(Control control) {
  const auto handler = handlers_.find(control);
  if (handler != handlers_.end()) Guarded(parts_.Dialogs, ProcedureOf(control), handler->second);
}

void Form1::ConnectHandlers() {
  using enum Control;
  handlers_ = {
      {cmdChooseInput, [this] { chooseInput_.cmdChooseInput_Click(); }},
      {cmdCollectData, [this] { run_.cmdCollectData_Click(); }},
      {cmdHaltInput, [this] { run_.cmdHaltInput_Click(); }},
      {cmdTrigger, [this] { run_.cmdTrigger_Click(); }},
      {chkCalibrate, [this] { run_.chkCalibrate_Click(); }},
      {cmdGetData, [this] { file_.cmdGetData_Click(); }},
      {cmdOverlay, [this] { file_.cmdOverlay_Click(); }},
      {cmdSaveData, [this] { file_.cmdSaveData_Click(); }},
      {cmdPrint, [this] { print_.cmdPrint_Click(); }},
      {cmdLinear, [this] { plot_.cmdLinear_Click(); }},
      {cmdLogLin, [this] { plot_.cmdLogLin_Click(); }},
      {chkPlotInDB, [this] { plot_.chkPlotInDB_Click(); }},
      {chk180, [this] { plot_.chk180_Click(); }},
      {chkShow3dB, [this] { plot_.chkShow3dB_Click(); }},
      {Slider1, [this] { plot_.Slider1_Change(); }},
      {Slider2, [this] { shell_.Slider2_Change(); }},
      {txtRotate, [this] { plot_.txtRotate_Enter(); }},
      {txtTrimFront, [this] { plot_.txtRotate_Enter(); }},
      {txtTrimEnd, [this] { plot_.txtRotate_Enter(); }},
      {txtDescription, [this] { file_.txtDescription_Accept(); }},
      {cmdPolarization, [this] { plot_.cmdPolarization_Click(); }},
      {cboElements, [this] { plot_.cboElements_Change(); }},
      {cmdIntegrate, [this] { plot_.cmdIntegrate_Click(); }},
      {cmdSmooth, [this] { transform_.cmdSmooth_Click(); }},
      {cmdReverse, [this] { transform_.cmdReverse_Click(); }},
      {cmdDeSpike, [this] { transform_.cmdDeSpike_Click(); }},
      {cmdRescaleData, [this] { transform_.cmdRescaleData_Click(); }},
      {cmdOriginalData, [this] { transform_.cmdOriginalData_Click(); }},
      {chkEditor, [this] { editor_.chkEditor_Click(); }},
      {cmdPatternAnalysis, [this] { analysis_.cmdPatternAnalysis_Click(); }},
      {cmdClearLeftY, [this] { analysis_.cmdClearLeftY_Click(); }},
      {cmdClearRightY, [this] { analysis_.cmdClearRightY_Click(); }},
      {cmdGrow, [this] { shell_.cmdGrow_Click(); }},
      {cmdShrink, [this] { shell_.cmdShrink_Click(); }},
      {cmdExit, [this] { shell_.cmdExit_Click(); }},
      {lblOperator, [this] { shell_.lblOperator_DblClick(); }},
  };
}

}  // namespace lobegraph
