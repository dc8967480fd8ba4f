#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "acquisition/sound/SoundCapture.h"
#include "app/input/frmChooseInput.h"
#include "app/parts/AppParts.h"
#include "support/InputRig.h"

namespace lobegraph::test {

/// The chooser's controls in memory.
class FakeChooserView final : public ChooserView, public ChooserShown {
 public:
  int Closed = 0;
  std::function<void()> OnShow = [] {};

  void Show(const ChooserShown& shown) override {
    static_cast<ChooserShown&>(*this) = shown;
    OnShow();
  }
  void Close() override { ++Closed; }
};

/// A main window of which only what the chooser touches is kept.
class FewControls final : public ControlView {
 public:
  std::map<Control, bool> Enabled, Ticked;
  std::map<Control, std::string> Texts;

  std::vector<std::string> Disabled() const {
    std::vector<std::string> names;
    for (const auto& [control, enabled] : Enabled)
      if (!enabled) names.emplace_back(RowOf(control).Name);
    return names;
  }

  std::string Text(Control control) const override { return Texts.at(control); }
  void SetText(Control control, const std::string& text) override { Texts[control] = text; }
  bool Checked(Control control) const override { return Ticked.at(control); }
  void SetChecked(Control control, bool checked) override { Ticked[control] = checked; }
  void SetEnabled(Control control, bool enabled) override { Enabled[control] = enabled; }
  void SetSpoken(Control, const std::string&) override {}
  void SetToolTip(Control, const std::string&) override {}
  int Value(Control) const override { return 0; }
  void SetValue(Control, int) override {}
  void SetMaximum(Control, int) override {}
  void SetVisible(Control, bool) override {}
  void SetFocus(Control) override {}
  void SetBackground(Control, Colour) override {}
  void SetBold(Control, bool) override {}
  void SetCaption(const std::string&) override {}
  void SetWindowBackground(Colour) override {}
  WindowState State() const override { return WindowState::Normal; }
  void SetWidth(int) override {}
  void EnableTimer1(bool) override {}
  void ShowDrawing() override {}
};

class FewDialogs final : public UserDialogs {
 public:
  std::vector<std::string> Texts;
  void Show(const UserMessage& message) override { Texts.push_back(message.Text); }
  bool AskYesNo(const std::string&) override { return false; }
  std::optional<std::string> InputBox(const std::string&, const std::string&) override { return {}; }
  std::optional<TickedAnswer> InputBoxWithTick(const std::string&, const std::string&,
                                               const std::string&) override {
    return {};
  }
  std::optional<std::string> OpenFile(const std::string&) override { return {}; }
  std::optional<std::string> SaveFile(const std::string&) override { return {}; }
};

class NoSystemText final : public SystemText {
 public:
  std::string OneDecimal(float) const override { return ""; }
  std::string TimeAndDate() const override { return ""; }
  std::string UpperCase(const std::string& text) const override { return text; }
};

class NoEnd final : public ProgramEnd {
 public:
  void EndAtOnce() override {}
  void EndProgram() override {}
};

/// What stands around the chooser.
struct ChooserWorld {
  std::vector<std::string> Log;
  Globals Shared;
  PatternSession Pattern;
  FewControls Window;
  FewDialogs Dialogs;
  NoSystemText System;
  DiskFiles Files;
  NoEnd End;
  AppParts Parts{Shared, Pattern, Window, Dialogs, System, Files, End};
};

class LoggedSound final : public SoundCapture {
 public:
  explicit LoggedSound(std::vector<std::string>& log) : log_(log) {}
  bool StartSoundCapture(SourceMoves) override { return true; }
  void StopSoundCapture() override { log_.emplace_back("stop capture"); }
  std::string SoundFailure() override { return ""; }
  std::string SoundSourceName() const override { return ""; }

 private:
  std::vector<std::string>& log_;
};

}  // namespace lobegraph::test
