#pragma once

#include <QWidget>
#include <string_view>

#include "acquisition/qt/PulseCapture.h"
#include "acquisition/qt/QtEventPump.h"
#include "acquisition/qt/SystemClock.h"
#include "app/main/Form1.h"
#include "app/qt/boxes/QtDialogs.h"
#include "app/qt/editor/frmEditLbgWindow.h"
#include "app/qt/input/Meters.h"
#include "app/qt/main/AnalysisInput.h"
#include "app/qt/main/SettingsRetry.h"
#include "app/qt/panel/ControlPanel.h"
#include "app/qt/panel/WidgetView.h"
#include "app/qt/parts/DBusAwake.h"
#include "app/qt/parts/QtSystemText.h"
#include "app/qt/plot/PlotWidget.h"
#include "app/qt/print/QtPrinter.h"
#include "render/ReplaySurface.h"
#include "render/qt/ImageSurface.h"
#include "settings/FileSettingsStore.h"

class QShortcutEvent;

namespace lobegraph {

/// The main window: the real parts put together, and the way from a click to its handler.
class MainWindow : public QWidget, private ProgramEnd {
  Q_OBJECT

 public:
  /// @param versionText "V1.2.3"
  explicit MainWindow(const std::string& versionText);

  /// Start-up; the window is shown afterwards.
  void Load();
  /// Leaves in good order: at once when idle, else as soon as the run has ended.
  void Leave();
  /// Leave, whatever box is open: the desktop session ends or the process was asked to.
  void LeaveNow();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Platform MakePlatform(const std::string& versionText);
  void Connect();
  void ConnectControl(const ControlRow& row);
  /// Runs a handler, which lets nothing out; a close that was asked for in the middle of its run happens
  /// after it.
  void Run(std::string_view procedure, const std::function<void()>& handler);
  void Click(Control control) {
    Run(RowOf(control).Name, [this, control] { form_.Click(control); });
  }
  void LeaveWithModuleOpen();
  void ShowChooser();
  bool ShowLine(const std::string& hint);
  QSize FittingSize() const;
  void PlaceSurface();
  void DrawFinely();
  void OpenSettings(SettingsWay way);
  static bool ClicksByKey(QObject& watched, const QShortcutEvent& key);
  bool SwallowsKey(QObject& watched, const QKeyEvent& key);

  void EndAtOnce() override;
  void EndProgram() override;

  QWidget surfaceFrame_;
  ImageSurface surface_;
  ReplaySurface drawing_;
  PlotWidget plot_;
  PanelArea panelArea_;
  WidgetView view_;
  QtDialogs dialogs_;
  frmEditLbgWindow editor_;
  QtPrinter printer_;
  QtSystemText system_;
  DiskFiles files_;
  FileSettingsStore store_;
  SystemClock clock_;
  DBusAwake awake_;
  QtEventPump pump_;
  PulseCapture sound_{&pump_.Gate()};
  std::shared_ptr<Globals> shared_ = std::make_shared<Globals>();
  Meters meters_;
  Form1 form_;
  AnalysisInput analysis_;
  SettingsRetry retry_;
  bool leavePending_ = false;
  bool left_ = false;
  bool leavingNow_ = false;  ///< the process was asked to end: no window stays
  bool loaded_ = false;
  int boxesBefore_ = 0;  ///< opened before the window last became active
  int depth_ = 0;
};

}  // namespace lobegraph
