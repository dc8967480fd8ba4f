#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "app/parts/ControlView.h"
#include "support/RecordingSurface.h"

namespace lobegraph {

/// What the doubles around a Form1 were asked to do, in order, one text a call.
using AppLog = std::vector<std::string>;

/// The main window's controls in memory. The program's writes go to the log: "txtRotate=0", "chk180 ticked",
/// "Slider1=35", "Slider2 maximum 120", "cmdPrint disabled", "cmdGrow hidden", "cmdHaltInput focus",
/// "txtChan1 background #ffff00", "chkCalibrate bold", "caption ...", "window background #e0e0e0",
/// "width 11370", "Timer1 on". What a test does to a control is not logged.
class FakeControlView final : public ControlView {
 public:
  struct Shown {
    std::string Text;
    bool Checked = false;
    int Value = 0;
    int Minimum = 0;
    int Maximum = 0;
    bool Enabled = true;
    bool Visible = true;
    bool Bold = false;
    std::optional<Colour> Background;
  };

  explicit FakeControlView(AppLog& log) : log_(log) {
    for (const ControlRow& row : ControlTable()) Of(row.Id).Text = row.Caption;
    Of(Control::Slider1).Minimum = Of(Control::Slider1).Value = 10;
    Of(Control::Slider1).Maximum = 100;
    Of(Control::Slider2).Minimum = Of(Control::Slider2).Value = 1;
    Of(Control::Slider2).Maximum = 1200;
    Of(Control::chkPlotInDB).Checked = Of(Control::chkShow3dB).Checked = true;
    Of(Control::cmdHaltInput).Enabled = false;
    for (const Control box : {Control::txtTrimFront, Control::txtTrimEnd, Control::txtRotate})
      Of(box).Text = "0";
    for (const Control hidden : {Control::cmdTrigger, Control::cmdGrow, Control::cmdPatternAnalysis})
      Of(hidden).Visible = false;
    for (const Control hidden : AnalysisControls()) Of(hidden).Visible = false;
  }

  /// A control as the user finds it; a test writes to it what the user does.
  Shown& Of(Control control) { return controls_.at(static_cast<std::size_t>(control)); }
  const Shown& Of(Control control) const { return controls_.at(static_cast<std::size_t>(control)); }
  std::vector<Control> Disabled() const {
    std::vector<Control> result;
    for (const ControlRow& row : ControlTable())
      if (!Of(row.Id).Enabled) result.push_back(row.Id);
    return result;
  }

  std::string Caption;
  std::optional<Colour> WindowBackground;
  WindowState Window = WindowState::Normal;
  std::optional<int> WidthTwips;
  std::optional<Control> Focus;
  bool Timer1 = false;
  int TimesShown = 0;  ///< calls of ShowDrawing

  std::string Text(Control control) const override { return Of(control).Text; }
  void SetText(Control control, const std::string& text) override {
    Of(control).Text = text;
    Add(control, "=" + text);
  }
  void SetSpoken(Control label, const std::string& text) override { Add(label, " spoken " + text); }
  void SetToolTip(Control control, const std::string& text) override { Add(control, " tooltip " + text); }
  bool Checked(Control control) const override { return Of(control).Checked; }
  void SetChecked(Control control, bool checked) override {
    Of(control).Checked = checked;
    Add(control, checked ? " ticked" : " unticked");
  }
  int Value(Control slider) const override { return Of(slider).Value; }
  void SetValue(Control slider, int value) override {
    Shown& state = Of(slider);
    state.Value = std::min(std::max(value, state.Minimum), state.Maximum);
    Add(slider, "=" + std::to_string(value));
  }
  void SetMaximum(Control slider, int maximum) override {
    Shown& state = Of(slider);
    state.Maximum = maximum;
    state.Minimum = std::min(1, maximum);
    state.Value = std::clamp(state.Value, state.Minimum, maximum);
    Add(slider, " maximum " + std::to_string(maximum));
  }
  void SetEnabled(Control control, bool enabled) override {
    Of(control).Enabled = enabled;
    Add(control, enabled ? " enabled" : " disabled");
  }
  void SetVisible(Control control, bool visible) override {
    Of(control).Visible = visible;
    Add(control, visible ? " shown" : " hidden");
  }
  void SetFocus(Control control) override {
    if (!Of(control).Enabled) throw std::logic_error("a disabled control cannot have the focus");
    Focus = control;
    Add(control, " focus");
  }
  void SetBackground(Control control, Colour colour) override {
    Of(control).Background = colour;
    Add(control, " background " + OperationColour(colour));
  }
  void SetBold(Control control, bool bold) override {
    Of(control).Bold = bold;
    Add(control, bold ? " bold" : " not bold");
  }

  void SetCaption(const std::string& caption) override {
    Caption = caption;
    log_.push_back("caption " + caption);
  }
  void SetWindowBackground(Colour colour) override {
    WindowBackground = colour;
    log_.push_back("window background " + OperationColour(colour));
  }
  WindowState State() const override { return Window; }
  void SetWidth(int twips) override {
    WidthTwips = twips;
    log_.push_back("width " + std::to_string(twips));
  }
  void EnableTimer1(bool enabled) override {
    Timer1 = enabled;
    log_.emplace_back(enabled ? "Timer1 on" : "Timer1 off");
  }
  void ShowDrawing() override { ++TimesShown; }

 private:
  void Add(Control control, const std::string& what) {
    log_.push_back(std::string(RowOf(control).Name) + what);
  }

  AppLog& log_;
  std::array<Shown, static_cast<std::size_t>(Control::kCount)> controls_;
};

}  // namespace lobegraph
