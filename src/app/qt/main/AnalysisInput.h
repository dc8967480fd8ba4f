#pragma once

#include <QObject>
#include <functional>

#include "app/plot/AnalysisCommands.h"
#include "app/qt/panel/WidgetView.h"

namespace lobegraph {

/// Brings the mouse over the plot, and the arrow keys in the boxes and buttons of a line, to the analysis
/// lines. Up and Down move a line by one unit, Page Up and Page Down by ten.
class AnalysisInput : public QObject {
  Q_OBJECT

 public:
  /// All of them outlive it. @param run runs each handler
  AnalysisInput(AnalysisCommands& commands, WidgetView& view, PlotWidget& plot,
                std::function<void(const std::function<void()>&)> run);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Watch(Control control, AnalysisSide side);
  void Move(SurfacePoint at);
  bool MouseEvent(const QEvent& event);
  bool KeyPress(const QObject& watched, int key);

  AnalysisCommands& commands_;
  WidgetView& view_;
  PlotWidget& plot_;
  std::function<void(const std::function<void()>&)> run_;
};

}  // namespace lobegraph
