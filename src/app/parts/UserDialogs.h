#pragma once

#include <optional>
#include <string>

#include "acquisition/core/UserMessages.h"

namespace lobegraph {

/// What an input box with a box to tick gives.
struct TickedAnswer {
  std::string Text;
  bool Ticked = false;
};

/// Every box that stops and asks. Each is part of the main window: closing one is no activation of it.
class UserDialogs : public UserMessages {
 public:
  void ShowText(const std::string& text) { Show(UserMessage{.Text = text}); }
  /// A question with Yes and No; closing the box is No.
  virtual bool AskYesNo(const std::string& text) = 0;
  /// @return what was typed (also nothing), or none when the box was cancelled
  virtual std::optional<std::string> InputBox(const std::string& prompt, const std::string& title) = 0;
  /// The same with a box to tick below, which is clear at first.
  virtual std::optional<TickedAnswer> InputBoxWithTick(const std::string& prompt, const std::string& title,
                                                       const std::string& tick) = 0;
  /// A file to read or write; a name that does not exist can be chosen in both. @param folder where it starts
  /// @return the path as chosen, its ending not yet completed; none when the dialog was cancelled
  virtual std::optional<std::string> OpenFile(const std::string& folder) = 0;
  virtual std::optional<std::string> SaveFile(const std::string& folder) = 0;
};

/// The filter of both file dialogs, entry by entry.
inline constexpr const char* kPatternFilter = "Lobegraph Files (*.lbg)|*.lbg|All Files (*.*)|*.*";

}  // namespace lobegraph
