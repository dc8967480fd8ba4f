#pragma once

#include "app/ControlView.h"
#include "app/DesktopAwake.h"
#include "app/EditorView.h"
#include "app/ErrorEdge.h"
#include "app/Globals.h"
#include "app/PrintDevice.h"
#include "app/SystemText.h"
#include "app/UserDialogs.h"
#include "data/FileAccess.h"

namespace lobegraph {

/// What the handlers of the main window work with; all of it outlives them.
struct AppParts {
  Globals& Shared;
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
