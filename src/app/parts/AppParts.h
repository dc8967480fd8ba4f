#pragma once

#include "app/parts/ControlView.h"
#include "app/parts/DesktopAwake.h"
#include "app/parts/EditorView.h"
#include "app/parts/ErrorEdge.h"
#include "app/parts/Globals.h"
#include "app/parts/PrintDevice.h"
#include "app/parts/SystemText.h"
#include "app/parts/UserDialogs.h"
#include "data/base/FileAccess.h"
#include "processing/session/PatternSession.h"

namespace lobegraph {

/// What the handlers of the main window work with; all of it outlives them.
struct AppParts {
  Globals& Shared;
  PatternSession& Pattern;
  ControlView& View;
  UserDialogs& Dialogs;
  SystemText& System;
  FileAccess& Files;
  ProgramEnd& End;
  DesktopAwake* Desktop = nullptr;
  EditorView* frmEditLbg = nullptr;  ///< none: the editor has no window
  PrintDevice* Printer = nullptr;    ///< none: nothing can be printed
};

}  // namespace lobegraph
