#pragma once

namespace lobegraph {

/// The main window has gone: the program ends when the last of the other windows is closed, or at once when
/// there is none. Never a process without a window.
void EndWithLastWindow();

}  // namespace lobegraph
