#pragma once

#include <chrono>
#include <stdexcept>
#include <string>

struct addrinfo;

namespace lobegraph {

/// Says what is wrong with the connection.
class LinkError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A connection to a radio's daemon: one line asked, one line answered, each within a time limit.
class RadioLink {
 public:
  /// @throws LinkError when nobody answers at host and port within the limit
  RadioLink(const std::string& host, int port, std::chrono::milliseconds limit);
  ~RadioLink();
  RadioLink(const RadioLink&) = delete;
  RadioLink& operator=(const RadioLink&) = delete;

  /// @return the answer without its line end. @throws LinkError when none comes in time or the daemon has
  /// gone
  std::string Ask(const std::string& line);

 private:
  using Moment = std::chrono::steady_clock::time_point;
  void Connect(const std::string& host, int port);
  bool TryConnect(const addrinfo& address, Moment until);
  void Await(short events, Moment until) const;

  std::chrono::milliseconds limit_;
  int handle_ = -1;
  std::string received_;
};

}  // namespace lobegraph
