#include <QApplication>
#include <QTimer>

#include "app/qt/help/HelpOpener.h"
#include "app/qt/main/MainWindow.h"
#include "app/qt/main/SessionEnd.h"
#include "app/qt/parts/OutlinedStyle.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("Lobegraph");
  QApplication::setDesktopFileName("lobegraph");
  QApplication::setStyle(new lobegraph::OutlinedStyle);
  QApplication::setQuitOnLastWindowClosed(false);
  lobegraph::MainWindow window("V" LOBEGRAPH_VERSION);
  const lobegraph::SessionEnd sessionEnd([&window] { window.LeaveNow(); });
  new lobegraph::HelpOpener(application, QApplication::applicationDirPath() + '/' + lobegraph::kHelpFileName);
  QTimer::singleShot(0, &window, [&window] {
    window.Load();
    window.show();
  });
  return QApplication::exec();
}
