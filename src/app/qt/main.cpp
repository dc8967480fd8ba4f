#include <QApplication>
#include <QTimer>

#include "app/qt/MainWindow.h"
#include "app/qt/SessionEnd.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("Lobegraph");
  QApplication::setDesktopFileName("lobegraph");
  // Controls have fixed places; this style has the same measures on every desktop and follows its colours.
  QApplication::setStyle("Fusion");
  QApplication::setQuitOnLastWindowClosed(false);
  lobegraph::MainWindow window("V" LOBEGRAPH_VERSION);
  const lobegraph::SessionEnd sessionEnd([&window] { window.LeaveNow(); });
  QTimer::singleShot(0, &window, [&window] {
    window.Load();
    window.show();
  });
  return QApplication::exec();
}
