#pragma once

#include <QMenuBar>
#include <functional>
#include <vector>

#include "app/parts/MenuTable.h"

namespace lobegraph {

/// What the menu asks of the window.
struct MenuFront {
  std::function<void(const MenuRow&)> Do;
  /// Whether the entry would do something now.
  std::function<bool(const MenuRow&)> Possible;
  /// Whether it is to be seen at all now.
  std::function<bool(const MenuRow&)> Offered;
  /// Whether what it switches is on.
  std::function<bool(const MenuRow&)> On;
};

/// The menu bar, made of the table. F10 leads into it. Keys of entries work while no menu is open; an entry
/// that is not possible does nothing.
class MainMenu : public QMenuBar {
  Q_OBJECT

 public:
  MainMenu(QWidget& window, MenuFront front);

 private:
  struct Entry {
    const MenuRow* Row;
    QAction* Action;
  };
  void AddEntry(QMenu& menu, const MenuRow& row);
  void Refresh(const QMenu& menu);
  void ReleaseKeys();
  void Trigger(const MenuRow& row);
  void Enter();

  MenuFront front_;
  std::vector<Entry> entries_;
};

}  // namespace lobegraph
