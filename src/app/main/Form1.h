#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "acquisition/run/ChosenInput.h"
#include "acquisition/trigger/RotatorTrigger.h"
#include "app/editor/frmEditLbg.h"
#include "app/file/FileCommands.h"
#include "app/input/InputCommands.h"
#include "app/main/ShellCommands.h"
#include "app/plot/AnalysisCommands.h"
#include "app/plot/PlotBoard.h"
#include "app/plot/PlotCommands.h"
#include "app/plot/TransformCommands.h"
#include "app/print/PrintCommands.h"
#include "app/run/RunCommands.h"
#include "app/run/RunPanel.h"
#include "app/settings/frmSettings.h"
#include "data/turns/TurnKeeper.h"

namespace lobegraph {

/// The platform under the main window: one real implementation of each, one double in tests.
struct Platform {
  ControlView& View;
  UserDialogs& Dialogs;
  SystemText& System;
  FileAccess& Files;
  ProgramEnd& End;
  DrawingSurface& Surface;
  SettingsStore& Store;
  Clock& Time;
  EventPump& Pump;
  CaptureDevice& SoundDevice;
  InputDevices& Devices;
  SCom& MSComm1;
  ExternalMeter& MeterProgram;
  RotatorLine& Trigger;
  std::string VersionText;          ///< "V1.2.3"
  std::string WorkingFolder;        ///< the current directory with its separator
  std::string StateFolder;          ///< where turns are kept
  DesktopAwake* Desktop = nullptr;  ///< none: there is no desktop to ask
  /// Shared with the meters, which are made before the window.
  std::shared_ptr<Globals> Shared = std::make_shared<Globals>();
  /// Shows the input chooser until it is closed.
  std::function<void()> ShowChooser = [] {};
  EditorView* frmEditLbg = nullptr;
  PrintDevice* Printer = nullptr;
};

/// The main window without its looks: owns what the program shares, and every handler.
class Form1 {
 public:
  Form1(const Platform& platform, const PlotGeometry& geometry);
  Form1(const Form1&) = delete;
  Form1& operator=(const Form1&) = delete;

  /// Runs the handler of a control that the user pressed, ticked, moved or chose from; nothing for one
  /// without handler.
  void Click(Control control);

  PatternDisplay& Display() { return display_; }
  FileCommands& File() { return file_; }
  TransformCommands& Transform() { return transform_; }
  frmEditLbg& Editor() { return editor_; }
  AnalysisCommands& Analysis() { return analysis_; }
  RunCommands& Run() { return run_; }
  ShellCommands& Shell() { return shell_; }
  frmSettings& Settings() { return settings_; }
  const PictureLayer& Axis() const { return board_.Axis(); }
  Globals& Shared() { return globals_; }
  PatternSession& Pattern() { return pattern_; }
  const AppParts& Parts() const { return parts_; }

 private:
  RunFront RunWindow();
  CollectionParts RunParts(const Platform& platform);
  void ConnectHandlers();

  const std::shared_ptr<Globals> shared_;
  Globals& globals_;
  PatternSession pattern_;
  AppParts parts_;
  PlotBoard board_;
  PatternDisplay display_;
  PlotCommands plot_;
  FileCommands file_;
  TransformCommands transform_;
  frmEditLbg editor_;
  AnalysisCommands analysis_;
  PrintCommands print_;
  TurnKeeper keeper_;
  frmDX_Record frmDX_Record_;
  SoundCardCapture sound_;
  SourceWatch watch_;
  DeviceMessages waiting_;
  RotatorTrigger trigger_;
  RunPanel panel_;
  ChosenInput input_;
  RunCommands run_;
  ShellCommands shell_;
  frmSettings settings_;
  InputCommands chooseInput_;
  std::map<Control, std::function<void()>> handlers_;
};

}  // namespace lobegraph
