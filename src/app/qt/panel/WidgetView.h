#pragma once

#include <QTimer>
#include <QWidget>
#include <array>

#include "app/parts/ControlView.h"
#include "app/qt/plot/PlotWidget.h"

namespace lobegraph {

/// The controls of the main window as widgets: what the handlers write reaches the widget and no handler.
class WidgetView final : public ControlView {
 public:
  WidgetView(QWidget& window, PlotWidget& plot, QWidget& panel, ImageSurface& surface);

  QWidget& Widget(Control control) const { return *widgets_.at(static_cast<std::size_t>(control)); }
  QTimer& Timer1() { return timer1_; }
  bool Grown() const { return grown_; }

  std::string Text(Control control) const override;
  void SetText(Control control, const std::string& text) override;
  void SetSpoken(Control label, const std::string& text) override;
  void SetToolTip(Control control, const std::string& text) override;
  bool Checked(Control control) const override;
  void SetChecked(Control control, bool checked) override;
  int Value(Control slider) const override;
  void SetValue(Control slider, int value) override;
  void SetMaximum(Control slider, int maximum) override;
  void SetEnabled(Control control, bool enabled) override { Widget(control).setEnabled(enabled); }
  void SetVisible(Control control, bool visible) override { Widget(control).setVisible(visible); }
  void SetFocus(Control control) override { Widget(control).setFocus(Qt::OtherFocusReason); }
  void SetBackground(Control control, Colour colour) override;
  void SetBold(Control control, bool bold) override;
  void SetCaption(const std::string& caption) override;
  void SetWindowBackground(Colour colour) override;
  WindowState State() const override;
  void SetWidth(int twips) override;
  void EnableTimer1(bool enabled) override;
  void ShowDrawing() override { plot_.ShowDrawing(); }

 private:
  void MakeControls();
  void FitFonts();

  QWidget& window_;
  PlotWidget& plot_;
  QWidget& panel_;
  ImageSurface& surface_;
  std::array<QWidget*, static_cast<std::size_t>(Control::kCount)> widgets_{};
  QTimer timer1_;
  bool grown_ = true;
};

}  // namespace lobegraph
