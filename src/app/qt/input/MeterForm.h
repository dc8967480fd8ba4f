#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include "acquisition/core/MeterDisplay.h"

namespace lobegraph {

/// The dB meter window (`frmdBMeter`). Closing it hides it; what the meters write goes on.
class MeterForm final : public QWidget, public MeterDisplay {
  Q_OBJECT

 public:
  MeterForm();

  /// The calibration shown in lblCalAdjust0dB.
  void ShowCalibration(const std::string& lblCalAdjust0dB);

  void ShowWindow() override;
  void HideWindow() override { hide(); }

 Q_SIGNALS:
  /// The window is loaded: it is shown for the first time.
  void FormLoad();
  void cmdCalCurrentClick();

 private:
  void Show(const MeterShown& shown) override;
  QLabel* MakeLabel(const char* name, const char* accessibleName);
  QFrame* MakeShape(const char* name, const char* accessibleName);
  static void Paint(QFrame& shape, std::optional<StatusColour> colour);

  QLabel* lblStatus_;
  QFrame* shapeStatus_;
  QLabel* lblReading_;
  QLabel* lblDownDb_;
  QFrame* shapeLevel_;
  QLabel* lblStateCount_;
  QLabel* lblCalAdjust0dB_;
  QPushButton* cmdCalCurrent_;
  bool loaded_ = false;
};

}  // namespace lobegraph
