#include "cli/qt/Toolkit.h"

#include <iostream>

namespace lobegraph {
namespace {

/// The toolkit's remarks about a desktop that is not there are no business of whoever reads standard error.
void OnlyFatal(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtFatalMsg) std::cerr << "lobegraph-cli: " << text.toStdString() << '\n';
}

}  // namespace

void Toolkit::Start() {
  if (QGuiApplication::instance() != nullptr) return;
  static int argc = 1;
  static char name[] = "lobegraph-cli";
  static char* argv[] = {name, nullptr};
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(OnlyFatal);
  application_ = std::make_unique<QGuiApplication>(argc, argv);
}

}  // namespace lobegraph
