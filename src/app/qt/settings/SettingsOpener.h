#pragma once

#include <QObject>
#include <QWidget>
#include <functional>

#include "app/settings/frmSettings.h"

namespace lobegraph {

/// The ways to the settings dialog: a double-click on the plot, its context menu, and Ctrl+comma in the
/// window.
class SettingsOpener : public QObject {
  Q_OBJECT

 public:
  /// @param open called with the way that was taken
  SettingsOpener(QWidget& window, QWidget& plot, std::function<bool()> mouseMayOpen,
                 std::function<void(SettingsWay)> open);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowMenu(const QPoint& where);

  QWidget& plot_;
  std::function<bool()> mouseMayOpen_;
  std::function<void(SettingsWay)> open_;
};

}  // namespace lobegraph
