#include "app/qt/print/QtPrinter.h"

#include <QFile>
#include <QFileInfo>
#include <QPrintDialog>

#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr double kTwipsPerPoint = 20.0;
constexpr double kTwipsPerInch = 1440.0;
constexpr double kHiMetricPerUnit = 2540.0 / 96.0;

/// A PDF ends with this mark; without it the disk was full.
bool IsWholePdf(const QString& path) {
  constexpr qint64 kTail = 32;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly) || file.size() < kTail) return false;
  file.seek(file.size() - kTail);
  return file.readAll().contains("%%EOF");
}

}  // namespace

QPrinter& QtPrinter::Printer() const {
  if (!printer_) printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
  return *printer_;
}

std::int16_t QtPrinter::ShowDialog() {
  if (!chosenFile_.isEmpty()) Printer().setOutputFileName(chosenFile_);
  QPrintDialog dialog(&Printer(), &owner_);
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
  if (dialogs_.Run(dialog) != QDialog::Accepted) return kPrintCancelled;
  chosenFile_ = Printer().outputFileName();
  return kPrintConfirmed;
}

Extent QtPrinter::ScaleArea() const {
  const QRectF points = Printer().pageLayout().paintRect(QPageLayout::Point);
  return {points.width() * kTwipsPerPoint, points.height() * kTwipsPerPoint};
}

Extent QtPrinter::CaptureWindow() {
  Picture1_ = picture_.Take();
  const QSizeF units = Picture1_.deviceIndependentSize();
  return {units.width() * kHiMetricPerUnit, units.height() * kHiMetricPerUnit};
}

void QtPrinter::PaintPicture(const Extent& size, const PrintCopy& copy) {
  Begin(copy);
  const double dotsPerTwip = Printer().resolution() / kTwipsPerInch;
  // Without it the letters would have the halos of a photograph.
  painter_.setRenderHint(QPainter::LosslessImageRendering);
  painter_.drawImage(QRectF(0.0, 0.0, size.Width * dotsPerTwip, size.Height * dotsPerTwip), Picture1_);
}

void QtPrinter::Begin(const PrintCopy& copy) {
  Printer().setDocName(owner_.windowTitle());
  copies_ = copy.Of;
  queue_.reset();
  if (Printer().outputFormat() == QPrinter::PdfFormat)
    BeginFile(copy);
  else
    BeginJob();
  if (!painter_.begin(&Printer())) throw RunTimeError(fault::kPrinter, Destination() + " takes no document");
}

void QtPrinter::BeginFile(const PrintCopy& copy) {
  file_ = CopyFileName(chosenFile_.toStdString(), copy);
  Printer().setOutputFileName(QString::fromStdString(file_));
}

void QtPrinter::BeginJob() {
  queue_.emplace(Printer().printerName().toStdString());
  if (!queue_->Note()) throw RunTimeError(fault::kPrinter, "the print system does not answer");
}

void QtPrinter::EndDoc() {
  painter_.end();
  const bool kept = queue_ ? queue_->TookJob() : IsWholePdf(QString::fromStdString(file_));
  if (!kept) throw RunTimeError(fault::kPrinter, Destination() + " did not keep the document");
}

std::string QtPrinter::Destination() const {
  if (queue_) return queue_->Name();
  const QFileInfo file(QString::fromStdString(file_));
  return (copies_ > 1 ? file.absolutePath() : file.absoluteFilePath()).toStdString();
}

}  // namespace lobegraph
