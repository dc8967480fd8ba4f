#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <string>

#include "acquisition/rotator/LineCutter.h"
#include "rotator/DeviceThread.h"

namespace lobegraph {

/// One user of one rotator: lines in, lines out, and the antenna stopped when its user falls silent, goes, or
/// the process is asked to end. Serves both ends and never waits for the device.
class Session {
 public:
  static constexpr double kHeartbeatS =
      1;                               ///< without a line from the user while the antenna was set in motion
  static constexpr double kHungS = 1;  ///< a call that stands in the way of a stop for so long hangs
  static constexpr double kLastStopsS = 60;  ///< how long a stop is tried after the user has gone

  /// The device hangs where the antenna must be stopped: somebody else has to stop it. Does not return.
  using Rescue = std::function<void(const RotatorChoice&)>;

  /// @param in lines from the user; its end is the user's end. @param out lines to the user
  /// @param ends readable when the process is asked to end; -1 for none
  Session(RotatorDevice& device, int in, int out, int ends, Rescue rescue);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Until the user goes or the process is asked to end. @return whether everything stands that was set in
  /// motion
  bool Run();

 private:
  void Say(const RotatorNews& news);
  void Flush();
  void Await();
  void Hear();
  void WatchTheUser();
  void TellOfACall();
  bool StoppedLast();
  void RescueFromHang();

  int in_, out_, ends_;
  int wake_;  ///< something is to be told
  Rescue rescue_;
  LineCutter lines_;
  double heardS_;
  double toldOfCallS_ = 0;
  bool stopsItself_ = false;
  bool leaving_ = false;
  double leavingSinceS_ = 0;
  std::mutex mutex_;
  std::string toTell_;
  DeviceThread thread_;
};

}  // namespace lobegraph
