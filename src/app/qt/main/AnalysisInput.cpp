#include "app/qt/main/AnalysisInput.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <map>
#include <utility>

namespace lobegraph {
namespace {

constexpr const char* kSide = "analysisSide";

unsigned ButtonsOf(Qt::MouseButtons buttons) {
  return (buttons.testFlag(Qt::LeftButton) ? kLeftButton : kNoButton) |
         (buttons.testFlag(Qt::RightButton) ? kRightButton : kNoButton);
}

}  // namespace

AnalysisInput::AnalysisInput(AnalysisCommands& commands, WidgetView& view, PlotWidget& plot,
                             std::function<void(const std::function<void()>&)> run)
    : commands_(commands), view_(view), plot_(plot), run_(std::move(run)) {
  plot_.setMouseTracking(true);
  plot_.installEventFilter(this);
  plot_.AddLayer(commands_.Layer());
  for (const Control control : {Control::txtLeftY, Control::cmdClearLeftY})
    Watch(control, AnalysisSide::Upper);
  for (const Control control : {Control::txtRightY, Control::cmdClearRightY})
    Watch(control, AnalysisSide::Lower);
}

void AnalysisInput::Watch(Control control, AnalysisSide side) {
  QWidget& widget = view_.Widget(control);
  widget.setProperty(kSide, static_cast<int>(side));
  widget.setFocusPolicy(Qt::StrongFocus);
  widget.setAccessibleDescription("The Up and Down keys move the line");
  widget.installEventFilter(this);
}

bool AnalysisInput::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &plot_) return MouseEvent(*event);
  return event->type() == QEvent::KeyPress && KeyPress(*watched, static_cast<QKeyEvent*>(event)->key());
}

bool AnalysisInput::MouseEvent(const QEvent& event) {
  constexpr SurfacePoint kNowhere{-1.F, -1.F};
  const auto& mouse = static_cast<const QMouseEvent&>(event);
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      run_([&] { commands_.MouseDown(ButtonsOf(mouse.buttons()), plot_.UnitsAt(mouse.position())); });
      Move(plot_.UnitsAt(mouse.position()));  // the level beneath the pointer is known without a move
      return true;
    case QEvent::MouseMove:
      Move(plot_.UnitsAt(mouse.position()));
      return true;
    case QEvent::MouseButtonRelease:
      run_([&] { commands_.MouseUp(ButtonsOf(mouse.button()), plot_.UnitsAt(mouse.position())); });
      return true;
    case QEvent::Leave:
      Move(kNowhere);
      return false;
    default:
      return false;
  }
}

void AnalysisInput::Move(SurfacePoint at) {
  run_([&] {
    const bool cross = commands_.MouseMove(at);
    if (cross)
      plot_.setCursor(Qt::CrossCursor);
    else
      plot_.unsetCursor();
  });
}

bool AnalysisInput::KeyPress(const QObject& watched, int key) {
  static const std::map<int, int> kUnits{
      {Qt::Key_Up, -1}, {Qt::Key_Down, 1}, {Qt::Key_PageUp, -10}, {Qt::Key_PageDown, 10}};
  const auto units = kUnits.find(key);
  if (units == kUnits.end()) return false;
  const auto side = static_cast<AnalysisSide>(watched.property(kSide).toInt());
  run_([&] { commands_.Step(side, units->second); });
  return true;
}

}  // namespace lobegraph
