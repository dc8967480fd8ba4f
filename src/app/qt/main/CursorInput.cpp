#include "app/qt/main/CursorInput.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <map>
#include <utility>

namespace lobegraph {
namespace {
constexpr const char* kHowTo = "The Left and Right keys read the pattern off, reading by reading";
}  // namespace

CursorInput::CursorInput(CursorCommands& commands, PlotWidget& plot,
                         std::function<void(const std::function<void()>&)> run)
    : commands_(commands), plot_(plot), run_(std::move(run)) {
  plot_.setObjectName("Plot");
  plot_.setAccessibleName("Plot");
  plot_.setAccessibleDescription(kHowTo);
  plot_.setFocusPolicy(Qt::TabFocus);
  plot_.setMouseTracking(true);
  plot_.installEventFilter(this);
}

bool CursorInput::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseMove: {
      const SurfacePoint at = plot_.UnitsAt(static_cast<const QMouseEvent*>(event)->position());
      run_([&] { commands_.PointAt(at); });
      return false;
    }
    case QEvent::Leave:
    case QEvent::FocusOut:
      run_([&] { commands_.Leave(); });
      return false;
    case QEvent::FocusIn:
      return KeyPress(0), false;
    case QEvent::KeyPress:
      return KeyPress(static_cast<const QKeyEvent*>(event)->key());
    default:
      return false;
  }
}

bool CursorInput::KeyPress(int key) {
  static const std::map<int, int> kReadings{
      {0, 0}, {Qt::Key_Left, -1}, {Qt::Key_Right, 1}, {Qt::Key_PageUp, -10}, {Qt::Key_PageDown, 10}};
  const auto readings = kReadings.find(key);
  if (readings == kReadings.end()) return false;
  run_([&] { commands_.Step(readings->second); });
  plot_.setAccessibleDescription(
      QString::fromStdString(commands_.Said().empty() ? kHowTo : commands_.Said()));
  return true;
}

}  // namespace lobegraph
