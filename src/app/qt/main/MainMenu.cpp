#include "app/qt/main/MainMenu.h"

#include <QShortcut>
#include <map>
#include <utility>

namespace lobegraph {
namespace {

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

bool Switches(const MenuRow& row) {
  if (row.Id) return RowOf(*row.Id).Kind == ControlKind::CheckBox;
  return row.Command == MenuCommand::FullScreen || row.Command == MenuCommand::Figures;
}

bool IsLine(const MenuRow& row) { return !row.Id && row.Command == MenuCommand::None; }

}  // namespace

MainMenu::MainMenu(QWidget& window, MenuFront front) : QMenuBar(&window), front_(std::move(front)) {
  setObjectName("MainMenu");
  setNativeMenuBar(false);
  std::map<std::string_view, QMenu*> menus;
  for (const MenuRow& row : MenuTable()) {
    QMenu*& menu = menus[row.Menu];
    if (menu == nullptr) {
      menu = addMenu(Q(row.Menu));
      connect(menu, &QMenu::aboutToShow, this, [this, menu] { Refresh(*menu); });
      connect(menu, &QMenu::aboutToHide, this, &MainMenu::ReleaseKeys);
    }
    AddEntry(*menu, row);
  }
  connect(new QShortcut(Qt::Key_F10, &window), &QShortcut::activated, this, &MainMenu::Enter);
}

void MainMenu::AddEntry(QMenu& menu, const MenuRow& row) {
  if (IsLine(row)) {
    menu.addSeparator();
    return;
  }
  const QString caption = (row.Id ? Q(RowOf(*row.Id).Caption) : Q(row.Caption)).trimmed();
  QAction* action = menu.addAction(row.KeysElsewhere ? caption + '\t' + Q(row.Keys) : caption);
  action->setObjectName(row.Id ? Q(RowOf(*row.Id).Name) + "Action"
                               : QString(caption).remove('.') + " Action");
  if (!row.KeysElsewhere && !row.Keys.empty()) action->setShortcut(QKeySequence(Q(row.Keys)));
  action->setCheckable(Switches(row));
  // On a desktop that takes words out of menus they would wander into its own.
  action->setMenuRole(QAction::NoRole);
  entries_.push_back({&row, action});
  connect(action, &QAction::triggered, this, [this, &row] { Trigger(row); });
}

void MainMenu::Refresh(const QMenu& menu) {
  for (const auto& [row, action] : entries_) {
    if (!menu.actions().contains(action)) continue;
    action->setVisible(front_.Offered(*row));
    action->setEnabled(front_.Possible(*row));
    if (action->isCheckable()) action->setChecked(front_.On(*row));
  }
}

/// What was greyed while the menu was open may be possible when its keys are pressed.
void MainMenu::ReleaseKeys() {
  for (const auto& [row, action] : entries_) {
    action->setVisible(true);
    action->setEnabled(true);
  }
}

void MainMenu::Trigger(const MenuRow& row) {
  if (front_.Offered(row) && front_.Possible(row)) front_.Do(row);
}

void MainMenu::Enter() {
  setFocus(Qt::MenuBarFocusReason);
  setActiveAction(actions().first());
}

}  // namespace lobegraph
