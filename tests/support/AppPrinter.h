#pragma once

#include <string>

#include "app/parts/PrintDevice.h"
#include "data/base/RunTimeError.h"
#include "render/FitToPage.h"
#include "support/AppControlView.h"
#include "support/RecordingSurface.h"

namespace lobegraph {

/// A printer in memory; its calls stand in the common log.
class FakePrinter final : public PrintDevice {
 public:
  explicit FakePrinter(AppLog& log) : log_(log) {}

  std::int16_t Answer = kPrintConfirmed;  ///< of the dialog
  int Copies = 1;                         ///< chosen in the dialog
  Extent Area{11520, 16000};
  int PaintFault = 0;
  int EndFault = 0;
  bool HoldsPicture = false;

  std::int16_t ShowDialog() override {
    log_.emplace_back("print dialog");
    return Answer;
  }
  int CopyCount() const override { return Copies; }
  void SetCopyCount(int copies) override {
    log_.push_back("copies " + std::to_string(copies));
    Copies = copies;
  }
  Extent ScaleArea() const override { return Area; }
  Extent CaptureWindow() override {
    log_.emplace_back("capture");
    HoldsPicture = true;
    return {2000, 1000};
  }
  void ClearPicture() override {
    log_.emplace_back("clear picture");
    HoldsPicture = false;
  }
  void PaintPicture(const Extent& size, const PrintCopy& copy) override {
    if (PaintFault != 0) throw RunTimeError(PaintFault);
    log_.push_back("paint " + std::to_string(copy.Number) + " of " + std::to_string(copy.Of) + " " +
                   OperationNumber(TwipsToHiMetric(size.Width)) + "x" +
                   OperationNumber(TwipsToHiMetric(size.Height)));
  }
  void EndDoc() override {
    log_.emplace_back("end document");
    if (EndFault != 0) throw RunTimeError(EndFault);
  }
  std::string File;  ///< chosen in the dialog; none: a printer
  std::string FileOf(const PrintCopy& copy) const override {
    return File.empty() ? "" : CopyFileName(File, copy);
  }
  std::string Destination() const override { return "laser"; }

 private:
  AppLog& log_;
};

}  // namespace lobegraph
