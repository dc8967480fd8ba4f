#pragma once

#include <QGuiApplication>
#include <memory>

namespace lobegraph {

/// The toolkit without a screen, started when the first picture is drawn: reports need none of it.
class Toolkit {
 public:
  void Start();

 private:
  std::unique_ptr<QGuiApplication> application_;
};

}  // namespace lobegraph
