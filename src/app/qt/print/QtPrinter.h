#pragma once

#include <QImage>
#include <QPainter>
#include <QPrinter>
#include <QTemporaryDir>
#include <memory>
#include <optional>
#include <string>

#include "app/parts/PrintDevice.h"
#include "app/qt/boxes/QtDialogs.h"
#include "app/qt/print/PrintQueue.h"
#include "app/qt/print/WindowPicture.h"

namespace lobegraph {

/// The desktop's printers, and files in PDF. With no printer at all the dialog still offers the file.
class QtPrinter final : public PrintDevice {
 public:
  /// Both outlive it. @param owner the window over which the dialog opens
  QtPrinter(QWidget& owner, QtDialogs& dialogs, const WindowPicture& picture)
      : owner_(owner), dialogs_(dialogs), picture_(picture) {}

  std::int16_t ShowDialog() override;
  int CopyCount() const override { return Printer().copyCount(); }
  void SetCopyCount(int copies) override { Printer().setCopyCount(copies); }
  Extent ScaleArea() const override;
  Extent CaptureWindow() override;
  void ClearPicture() override { Picture1_ = {}; }
  void PaintPicture(const Extent& size, const PrintCopy& copy) override;
  void EndDoc() override;
  std::string FileOf(const PrintCopy& copy) const override;
  std::string Destination() const override;

  /// What was chosen last. Made at the first call: asking for printers takes its time.
  QPrinter& Printer() const;

 private:
  void Begin(const PrintCopy& copy);
  void BeginFile(const PrintCopy& copy);
  void BeginJob();
  /// The drawn page becomes the file. @return false: it is as it was
  bool KeepFile();

  QWidget& owner_;
  QtDialogs& dialogs_;
  WindowPicture picture_;
  mutable std::unique_ptr<QPrinter> printer_;
  QImage Picture1_;  ///< there only while it is printed
  QPainter painter_;
  std::optional<PrintQueue> queue_;  ///< none: the document goes to file_
  QString chosenFile_;
  std::unique_ptr<QTemporaryDir> drawn_;  ///< where the page is drawn, out of everybody else's reach
  std::string file_;
  int copies_ = 1;
};

}  // namespace lobegraph
