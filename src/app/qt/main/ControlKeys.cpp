#include "app/qt/main/ControlKeys.h"

#include <QAbstractButton>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QShortcutEvent>
#include <QTimer>
#include <utility>

namespace lobegraph {

ControlKeys::ControlKeys(WidgetView& view, std::function<void(Control)> click)
    : QObject(&view.Widget(Control::lblOperator)), view_(view), click_(std::move(click)) {
  for (const ControlRow& row : ControlTable()) view_.Widget(row.Id).installEventFilter(this);
}

bool ControlKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && SwallowsKey(*watched, static_cast<const QKeyEvent&>(*event)))
    return true;
  if (event->type() == QEvent::Shortcut && ClicksByKey(*watched, static_cast<const QShortcutEvent&>(*event)))
    return true;
  if (event->type() == QEvent::MouseButtonDblClick && watched == &view_.Widget(Control::lblOperator))
    return click_(Control::lblOperator), true;  // the plot below takes a double-click for the settings
  if (event->type() == QEvent::FocusIn) {
    auto* box = qobject_cast<QLineEdit*>(watched);
    if (box != nullptr && watched != &view_.Widget(Control::txtDescription))
      QTimer::singleShot(0, box, &QLineEdit::selectAll);
  }
  return QObject::eventFilter(watched, event);
}

/// At once: the toolkit would click a tenth of a second later, when a turn that has begun meanwhile has
/// locked the button.
bool ControlKeys::ClicksByKey(QObject& watched, const QShortcutEvent& key) {
  auto* button = qobject_cast<QAbstractButton*>(&watched);
  if (button == nullptr || key.isAmbiguous()) return false;
  button->click();
  return true;
}

bool ControlKeys::SwallowsKey(QObject& watched, const QKeyEvent& key) {
  const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
  // A held Enter on Collect Data must not press Halt, which gets the focus next.
  if (key.isAutoRepeat() && (enter || key.key() == Qt::Key_Space) && qobject_cast<QAbstractButton*>(&watched))
    return true;
  if (&watched == &view_.Widget(Control::txtDescription)) return key.text() == "\"";
  if (&watched != &view_.Widget(Control::lblOperator) || !enter) return false;
  click_(Control::lblOperator);
  return true;
}

}  // namespace lobegraph
