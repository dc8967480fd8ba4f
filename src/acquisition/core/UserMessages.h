#pragma once

#include <string>
#include <utility>
#include <vector>

#include "acquisition/core/RunFlags.h"

namespace lobegraph {

/// A message box with an OK button.
struct UserMessage {
  std::string Text;  ///< line breaks are CR LF
  std::string Title = {};
  bool Exclamation = false;  ///< with the exclamation icon

  bool operator==(const UserMessage&) const = default;
};

/// Shows message boxes; returns when the user has closed the box.
class UserMessages {
 public:
  virtual ~UserMessages() = default;
  virtual void Show(const UserMessage& message) = 0;
};

/// What devices have to say. A box that opens in the middle of a turn would stop the turn, so during a run
/// their messages wait until the window is unlocked.
class DeviceMessages {
 public:
  DeviceMessages(const RunFlags& flags, UserMessages& shown) : flags_(flags), shown_(shown) {}

  /// Shows at once when no run is on, else keeps the message for ShowWaiting.
  void Post(UserMessage message) {
    waiting_.push_back(std::move(message));
    if (!flags_.Running()) ShowWaiting();
  }

  /// Shows what waits, in the order in which it came.
  void ShowWaiting() {
    for (const UserMessage& message : std::exchange(waiting_, {})) shown_.Show(message);
  }

 private:
  const RunFlags& flags_;
  UserMessages& shown_;
  std::vector<UserMessage> waiting_;
};

}  // namespace lobegraph
