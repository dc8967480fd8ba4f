#pragma once

#include <QObject>
#include <functional>

#include "app/plot/CursorCommands.h"
#include "app/qt/plot/PlotWidget.h"

namespace lobegraph {

/// Brings the pointer over the plot, and the arrow keys while the plot has the focus, to the cursor. Left and
/// Right go by one reading, Page Up and Page Down by ten.
class CursorInput : public QObject {
  Q_OBJECT

 public:
  /// All of them outlive it. @param run runs each handler
  CursorInput(CursorCommands& commands, PlotWidget& plot,
              std::function<void(const std::function<void()>&)> run);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool KeyPress(int key);

  CursorCommands& commands_;
  PlotWidget& plot_;
  std::function<void(const std::function<void()>&)> run_;
};

}  // namespace lobegraph
