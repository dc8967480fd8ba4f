#pragma once

#include <QObject>
#include <QWidget>
#include <functional>

namespace lobegraph {

/// Ctrl+Z, and Ctrl+Shift+Z or Ctrl+Y, in a window. In a box that the user types in they are the box's own.
class UndoKeys : public QObject {
  Q_OBJECT

 public:
  UndoKeys(QWidget& window, std::function<void()> undo, std::function<void()> redo);

 private:
  void Connect(const QKeySequence& keys, std::function<void()> action);

  QWidget& window_;
};

}  // namespace lobegraph
