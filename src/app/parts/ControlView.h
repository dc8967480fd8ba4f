#pragma once

#include <string>

#include "app/parts/Controls.h"
#include "render/Colour.h"

namespace lobegraph {

enum class WindowState { Normal, Minimised, Maximised };

/// The main window's controls as the handlers see them. What the program writes never runs a handler: those
/// run on the user's clicks only.
class ControlView {
 public:
  virtual ~ControlView() = default;

  /// Text of a box or a drop-down, caption of anything else. UTF-8, plain.
  virtual std::string Text(Control control) const = 0;
  virtual void SetText(Control control, const std::string& text) = 0;
  /// What a screen reader says of a label with a name of its own, instead of its text, until that changes.
  virtual void SetSpoken(Control label, const std::string& text) = 0;
  virtual void SetToolTip(Control control, const std::string& text) = 0;
  virtual bool Checked(Control control) const = 0;
  virtual void SetChecked(Control control, bool checked) = 0;
  virtual int Value(Control slider) const = 0;
  virtual void SetValue(Control slider, int value) = 0;
  /// The least value stays 1 where the maximum leaves room for it.
  virtual void SetMaximum(Control slider, int maximum) = 0;
  virtual void SetEnabled(Control control, bool enabled) = 0;
  virtual void SetVisible(Control control, bool visible) = 0;
  virtual void SetFocus(Control control) = 0;
  virtual void SetBackground(Control control, Colour colour) = 0;
  virtual void SetBold(Control control, bool bold) = 0;

  virtual void SetCaption(const std::string& caption) = 0;
  /// The background of the plot and of the labels on it.
  virtual void SetWindowBackground(Colour colour) = 0;
  virtual WindowState State() const = 0;
  /// @param twips width of the window's inside, 15 to a unit of the surface
  virtual void SetWidth(int twips) = 0;
  /// Timer1 fires once, at the next turn of the event loop.
  virtual void EnableTimer1(bool enabled) = 0;
  /// What was drawn since the last call reaches the screen when the window is next served.
  virtual void ShowDrawing() = 0;
};

}  // namespace lobegraph
