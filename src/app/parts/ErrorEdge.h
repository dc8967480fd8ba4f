#pragma once

#include <iostream>
#include <string>
#include <string_view>
#include <utility>

#include "acquisition/core/UserMessages.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {

/// Shows a fault as the run-time error text; what the box does not say (a key, a file) goes to standard
/// error.
/// @param advice a sentence before it, for a slip that the user can mend
inline void ReportFault(UserMessages& messages, const RunTimeError& error, std::string_view procedure,
                        std::string_view form = "Form1", const std::string& advice = "") {
  if (!error.Detail().empty()) std::cerr << "lobegraph: " << error.what() << '\n';
  messages.Show(
      {.Text = (advice.empty() ? "" : advice + "\r\n\r\n") + RunTimeErrorText(error, procedure, form)});
}

/// The edge at which faults end, whatever is thrown: runs a handler; the program lives on.
/// @return false after a fault
template <typename Action>
bool Guarded(UserMessages& messages, std::string_view procedure, std::string_view form, Action&& action) {
  try {
    std::forward<Action>(action)();
    return true;
  } catch (const std::exception& exception) {
    ReportFault(messages, FaultFrom(exception), procedure, form);
    return false;
  }
}

template <typename Action>
bool Guarded(UserMessages& messages, std::string_view procedure, Action&& action) {
  return Guarded(messages, procedure, "Form1", std::forward<Action>(action));
}

/// Ends the process at once, saving nothing: what follows a fault while the window is being made or its grid
/// drawn.
class ProgramEnd {
 public:
  virtual ~ProgramEnd() = default;
  virtual void EndAtOnce() = 0;
  /// Leaves in good order: settings are saved, devices closed.
  virtual void EndProgram() = 0;
};

}  // namespace lobegraph
