#include "app/qt/print/QtPrinter.h"

#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <filesystem>

#include "data/base/ReplaceFile.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr double kTwipsPerPoint = 20.0;
constexpr double kTwipsPerInch = 1440.0;
constexpr double kHiMetricPerUnit = 2540.0 / 96.0;

/// The bytes of a PDF; empty: the disk was full, because it ends with its mark.
QByteArray WholePdf(const QString& path) {
  constexpr qsizetype kTail = 32;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  QByteArray bytes = file.readAll();
  return bytes.right(kTail).contains("%%EOF") ? bytes : QByteArray();
}

bool IsPipe(const QString& path) {
  std::error_code problem;
  return std::filesystem::is_fifo(path.toStdString(), problem);
}

/// The desktop's print dialog, which would open a pipe and wait for a reader of it.
class PlainFileDialog final : public QPrintDialog {
 public:
  using QPrintDialog::QPrintDialog;
  void accept() override {
    const auto* const name = findChild<QLineEdit*>("filename");
    if (name == nullptr || !name->isEnabled() || !IsPipe(name->text())) return QPrintDialog::accept();
    QMessageBox::warning(this, windowTitle(),
                         "This name belongs to a pipe: a document needs a file of its own.");
  }
};

}  // namespace

QPrinter& QtPrinter::Printer() const {
  if (!printer_) printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
  return *printer_;
}

std::int16_t QtPrinter::ShowDialog() {
  if (!chosenFile_.isEmpty()) Printer().setOutputFileName(chosenFile_);
  PlainFileDialog dialog(&Printer(), &owner_);
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
  file_ = FileOf(copy);
  drawn_ = std::make_unique<QTemporaryDir>();
  Printer().setOutputFileName(drawn_->filePath("page.pdf"));
}

void QtPrinter::BeginJob() {
  queue_.emplace(Printer().printerName().toStdString());
  if (!queue_->Note()) throw RunTimeError(fault::kPrinter, "the print system does not answer");
}

void QtPrinter::EndDoc() {
  painter_.end();
  const bool kept = queue_ ? queue_->TookJob() : KeepFile();
  if (!kept) throw RunTimeError(fault::kPrinter, Destination() + " did not keep the document");
}

bool QtPrinter::KeepFile() {
  const QByteArray bytes = WholePdf(Printer().outputFileName());
  Printer().setOutputFileName(chosenFile_);
  drawn_.reset();
  if (bytes.isEmpty()) return false;
  try {
    ReplaceFile(file_, {bytes.data(), static_cast<std::size_t>(bytes.size())});
  } catch (const RunTimeError&) {
    return false;
  }
  return true;
}

std::string QtPrinter::FileOf(const PrintCopy& copy) const {
  return Printer().outputFormat() == QPrinter::PdfFormat ? CopyFileName(chosenFile_.toStdString(), copy) : "";
}

std::string QtPrinter::Destination() const {
  if (queue_) return queue_->Name();
  const QFileInfo file(QString::fromStdString(file_));
  return (copies_ > 1 ? file.absolutePath() : file.absoluteFilePath()).toStdString();
}

}  // namespace lobegraph
