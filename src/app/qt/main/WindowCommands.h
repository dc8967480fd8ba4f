#pragma once

#include <QWidget>
#include <functional>

#include "app/main/Form1.h"
#include "app/qt/figures/FiguresView.h"
#include "app/qt/main/MainMenu.h"
#include "app/qt/panel/WidgetView.h"
#include "render/qt/picture/QtPictureFiles.h"

namespace lobegraph {

/// What the menu does: presses the controls, hidden ones included, and does what has no control.
class WindowCommands : public QObject {
  Q_OBJECT

 public:
  /// What it works on; all of it outlives it.
  struct Parts {
    QWidget& Window;
    WidgetView& View;
    Form1& Form;
    FiguresView& Figures;
    QtPictureFiles& Pictures;
    /// Runs a handler under a name.
    std::function<void(const char*, const std::function<void()>&)> Run;
    std::function<void()> OpenSettings;
    /// The parts of the window have to be placed anew.
    std::function<void()> Place;
  };
  explicit WindowCommands(Parts parts);

  /// The menu bar's side of it.
  MenuFront Front();
  /// The user wants to see the figures.
  bool FiguresShown() const { return figuresShown_; }

 private:
  void Press(Control control);
  void Do(MenuCommand command);
  bool Possible(const MenuRow& row) const;
  bool Offered(const MenuRow& row) const;
  bool On(const MenuRow& row) const;
  void ToggleFullScreen();
  void ShowFigures(bool shown);
  void CopyPicture();
  void CopyFigures();
  void ShowAbout();
  void Hint(const std::string& text) { parts_.View.SetText(Control::lblHint, text); }

  Parts parts_;
  bool figuresShown_ = false;
  bool wasMaximised_ = false;
};

}  // namespace lobegraph
