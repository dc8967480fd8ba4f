#pragma once

#include <QPointer>
#include <functional>
#include <utility>
#include <vector>

namespace lobegraph {

/// Keeps the notices of devices back while only the window is served; all on the window's thread.
class NoticeGate {
 public:
  using Notice = std::function<void()>;

  /// Gives a notice out after those that were kept back before it, or keeps it back; it goes with its
  /// receiver.
  void Pass(QObject& receiver, Notice notice) {
    held_.emplace_back(&receiver, std::move(notice));
    if (!closed_) GiveOut();
  }
  /// What was kept back, in its order.
  void GiveOut() {
    for (const auto& [receiver, notice] : std::exchange(held_, {}))
      if (receiver) notice();
  }

  /// Nothing is given out while it lives, nor by its end.
  class Closed {
   public:
    explicit Closed(NoticeGate& gate) : gate_(gate) { gate_.closed_ = true; }
    ~Closed() { gate_.closed_ = false; }
    Closed(const Closed&) = delete;
    Closed& operator=(const Closed&) = delete;

   private:
    NoticeGate& gate_;
  };

 private:
  bool closed_ = false;
  std::vector<std::pair<QPointer<QObject>, Notice>> held_;
};

}  // namespace lobegraph
