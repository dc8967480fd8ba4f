#pragma once

#include <optional>
#include <span>
#include <string>

#include "acquisition/run/CollectionPanel.h"
#include "acquisition/sound/SoundCapture.h"
#include "app/parts/AppParts.h"
#include "app/plot/PlotBoard.h"
#include "app/plot/PlotCommands.h"
#include "app/run/SafetyCopy.h"

namespace lobegraph {

/// The main window as a run sees it.
class RunPanel final : public CollectionPanel {
 public:
  RunPanel(const AppParts& parts, PlotBoard& board, PlotCommands& plot, SafetyCopy& copy, SoundCapture& sound)
      : parts_(parts), board_(board), plot_(plot), copy_(copy), sound_(sound) {}

  bool chkAutoStart() const override { return parts_.View.Checked(Control::chkAutoStart); }
  bool chkAutoStop() const override { return parts_.View.Checked(Control::chkAutoStop); }
  bool chkTrigger() const override { return parts_.View.Checked(Control::chkTrigger); }
  bool chkPlotInDB() const override { return parts_.View.Checked(Control::chkPlotInDB); }
  bool chkCalibrate() const override { return parts_.View.Checked(Control::chkCalibrate); }
  int Slider1() const override { return parts_.View.Value(Control::Slider1); }
  int Slider2() const override { return parts_.View.Value(Control::Slider2); }
  std::string DateTimeText() override;
  std::string OperatorName() const override { return parts_.Shared.UserName; }

  void UncheckCalibrate() override { parts_.View.SetChecked(Control::chkCalibrate, false); }
  void EnableTimer1() override { parts_.View.EnableTimer1(true); }
  void DisableTimer1() override { parts_.View.EnableTimer1(false); }

  void Lock() override;
  void Unlock() override;
  void LockForSweep() override;
  void UnlockAfterSweep() override;
  void PaintCalibrate(StatusColour background, bool bold) override;
  void ShowManualTrigger(bool shown) override { parts_.View.SetVisible(Control::cmdTrigger, shown); }

  float FullScaleRadius() const override { return board_.Geometry().R; }
  void ClearOverlay() override { plot_.EndOverlay(); }
  void ClearPlotFields() override;
  void DrawCircularGrid() override;
  void UsePlotUserColour() override { board_.UsePlotUserColour(); }
  float PrepareAngularStep() override;
  void PlotPoint(float positionDeg, float radius) override { board_.PlotPoint(positionDeg, radius); }

  void ShowLevel(float level) override;
  void PaintLevel(StatusColour background) override;
  void ShowLevelAtRest() override;
  void ShowReadingNumber(const std::string& text) override {
    parts_.View.SetText(Control::txtReadingNumber, text);
  }
  void ShowReadingsPlotted(const std::string& text) override;
  void ShowTrimEnd(const std::string& text) override { parts_.View.SetText(Control::txtTrimEnd, text); }
  void ReadingStored(int index) override;
  void ShowRecordAgain() override;

 private:
  void Enable(std::span<const Control> controls, bool enabled);
  /// The line tells of the run; what it told before comes back when nothing came of the run.
  void BeginHint(const std::string& hint);

  AppParts parts_;
  PlotBoard& board_;
  PlotCommands& plot_;
  SafetyCopy& copy_;
  SoundCapture& sound_;
  bool descriptionWasLoaded_ = false;
  std::string hintBefore_;
  int rotationSeconds_ = 0;
  std::optional<StatusColour> levelShade_;
};

/// The shade of a status colour.
Colour ShadeOf(StatusColour colour);

}  // namespace lobegraph
