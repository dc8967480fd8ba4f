#include "app/qt/settings/SettingsOpener.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QShortcut>

namespace lobegraph {
namespace {
const QKeySequence kKeys(Qt::CTRL | Qt::Key_Comma);
}  // namespace

SettingsOpener::SettingsOpener(QWidget& window, QWidget& plot, std::function<bool()> mouseMayOpen,
                               std::function<void(SettingsWay)> open)
    : QObject(&window), plot_(plot), mouseMayOpen_(std::move(mouseMayOpen)), open_(std::move(open)) {
  plot.installEventFilter(this);
  plot.setToolTip("Double-click, or Ctrl+comma, for the settings");
  connect(new QShortcut(kKeys, &window), &QShortcut::activated, this,
          [this] { open_(SettingsWay::Keyboard); });
}

bool SettingsOpener::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonDblClick &&
      static_cast<const QMouseEvent*>(event)->button() == Qt::LeftButton && mouseMayOpen_()) {
    open_(SettingsWay::Mouse);
    return true;
  }
  if (event->type() == QEvent::ContextMenu && mouseMayOpen_()) {
    ShowMenu(static_cast<const QContextMenuEvent*>(event)->globalPos());
    return true;
  }
  return QObject::eventFilter(watched, event);
}

void SettingsOpener::ShowMenu(const QPoint& where) {
  auto* menu = new QMenu(&plot_);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  QAction* settings = menu->addAction("Settings...");
  settings->setShortcut(kKeys);
  connect(settings, &QAction::triggered, this, [this] { open_(SettingsWay::Mouse); });
  menu->popup(where);
}

}  // namespace lobegraph
