#include "app/qt/main/LastWindow.h"

#include <QApplication>
#include <QWidget>
#include <algorithm>
#include <cstdlib>

namespace lobegraph {

void EndWithLastWindow() {
  const auto windows = QApplication::topLevelWidgets();
  const bool any =
      std::any_of(windows.begin(), windows.end(), [](const QWidget* window) { return window->isVisible(); });
  if (!any) return QCoreApplication::exit(EXIT_SUCCESS);
  QApplication::setQuitOnLastWindowClosed(true);
}

}  // namespace lobegraph
