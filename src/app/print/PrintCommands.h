#pragma once

#include "app/parts/AppParts.h"

namespace lobegraph {

/// Printing the window as it is shown, plot and controls together.
class PrintCommands {
 public:
  explicit PrintCommands(const AppParts& parts) : parts_(parts) {}

  /// Asks for printer and copies and sends one job for each copy; the printer itself is left at one copy. A
  /// copy that fails is told, and no further one is tried: it would fail in the same way.
  void cmdPrint_Click();

 private:
  void PrintCopies();
  /// The user named one file: what has the number of a copy is replaced by consent only.
  bool MayReplace(int copies);
  /// @return false after a fault
  bool Print(const PrintCopy& copy);
  PrintDevice& Printer() const { return *parts_.Printer; }

  AppParts parts_;
};

}  // namespace lobegraph
