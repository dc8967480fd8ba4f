#pragma once

#include <QObject>
#include <functional>

#include "app/qt/panel/WidgetView.h"

class QKeyEvent;
class QShortcutEvent;

namespace lobegraph {

/// What keys and clicks do to the controls beyond the toolkit's own ways: a key presses a button at once, a
/// held one presses it once, a box that gets the focus is selected whole, and the operator's name takes Enter
/// and a double-click.
class ControlKeys : public QObject {
  Q_OBJECT

 public:
  /// @param view outlives it @param click runs the handler of a control
  ControlKeys(WidgetView& view, std::function<void(Control)> click);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static bool ClicksByKey(QObject& watched, const QShortcutEvent& key);
  bool SwallowsKey(QObject& watched, const QKeyEvent& key);

  WidgetView& view_;
  std::function<void(Control)> click_;
};

}  // namespace lobegraph
