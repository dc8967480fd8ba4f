#pragma once

#include <cstdint>
#include <string>

#include "render/FitToPage.h"

namespace lobegraph {

/// What the print dialog came to; any other number is an error code of the platform's dialog.
inline constexpr std::int16_t kPrintCancelled = 0;
inline constexpr std::int16_t kPrintConfirmed = 1;

/// One of several copies.
struct PrintCopy {
  int Number = 1;  ///< from 1
  int Of = 1;
};

/// A printer with its dialog, and the picture of the window (Picture1) that goes onto its page.
class PrintDevice {
 public:
  virtual ~PrintDevice() = default;

  /// Shows the dialog with what was chosen last; confirmed, the printer is set as chosen.
  virtual std::int16_t ShowDialog() = 0;
  virtual int CopyCount() const = 0;
  virtual void SetCopyCount(int copies) = 0;
  /// The printable area, in twips.
  virtual Extent ScaleArea() const = 0;

  /// Takes the window's inside into Picture1 as the user sees it. @return its size, HiMetric
  virtual Extent CaptureWindow() = 0;
  virtual void ClearPicture() = 0;

  /// Begins a document with Picture1 at the top-left corner of the printable area. @param size twips
  /// @throws RunTimeError 482 when the printer takes no document
  virtual void PaintPicture(const Extent& size, const PrintCopy& copy) = 0;
  /// Ends the document: one print job. @throws RunTimeError 482 when the print system has thrown it away
  virtual void EndDoc() = 0;
  /// The file that this copy is going to be; empty: it goes to a printer.
  virtual std::string FileOf(const PrintCopy& copy) const = 0;
  /// Where the last document went: a queue, or a file.
  virtual std::string Destination() const = 0;
};

/// The file of a copy that is printed into a file: the name chosen when it is the only one, else "-1", "-2"
/// ... before its ending.
std::string CopyFileName(const std::string& chosen, const PrintCopy& copy);

}  // namespace lobegraph
