#include "app/qt/input/MeterForm.h"

#include <QGridLayout>
#include <QLocale>

#include "app/run/RunPanel.h"

namespace lobegraph {
namespace {

QString OneDecimal(float value) {
  QLocale locale = QLocale::system();
  locale.setNumberOptions(QLocale::OmitGroupSeparator);
  return locale.toString(static_cast<double>(value), 'f', 1);
}

/// Called at every value of a meter: a text that is there already costs nothing. A screen reader says the
/// name and then the words.
void SetText(QLabel& label, const QString& text) {
  if (label.text() == text) return;
  label.setText(text);
  label.setAccessibleDescription(text);
}

}  // namespace

MeterForm::MeterForm()
    : lblStatus_(MakeLabel("lblStatus", "Meter status")),
      shapeStatus_(MakeShape("shpStatus", "Meter status colour")),
      lblReading_(MakeLabel("lblReading", "Meter reading")),
      lblDownDb_(MakeLabel("lblDownDb", "dB down")),
      shapeLevel_(MakeShape("shpLevel", "Level colour")),
      lblStateCount_(MakeLabel("lblStateCount", "Trigger polls in the last second")),
      lblCalAdjust0dB_(MakeLabel("lblCalAdjust0dB", "Calibration")),
      cmdCalCurrent_(new QPushButton("Calibrate the current reading as 0dB", this)) {
  setObjectName("frmdBMeter");
  setWindowTitle("Lobegraph - dB Meter");
  // It reports; the focus stays where the user works.
  setAttribute(Qt::WA_ShowWithoutActivating);
  cmdCalCurrent_->setObjectName("cmdCalCurrent");
  auto* grid = new QGridLayout(this);
  lblStatus_->setWordWrap(true);
  lblStatus_->setMinimumSize(280, 40);
  grid->addWidget(shapeStatus_, 0, 0);
  grid->addWidget(lblStatus_, 0, 1, 1, 2);
  const auto addRow = [&](int row, const char* name, const QString& caption, QWidget* value) {
    auto* label = new QLabel(caption, this);
    label->setObjectName(name);
    grid->addWidget(label, row, 0, 1, 2);
    grid->addWidget(value, row, 2);
  };
  addRow(1, "lblReadingTitle", "Meter reading", lblReading_);
  addRow(2, "lblDownDbTitle", "dB down", lblDownDb_);
  addRow(3, "lblLevelTitle", "Level", shapeLevel_);
  addRow(4, "lblStateCountTitle", "Trigger polls in the last second", lblStateCount_);
  addRow(5, "lblAdjust0dBm", "0 dB calibration, tenths of a dB", lblCalAdjust0dB_);
  auto* hint = new QLabel("Full scale is 600 (60 dB)", this);
  hint->setObjectName("lblAdjust10dBm");
  grid->addWidget(hint, 6, 0, 1, 3);
  grid->addWidget(cmdCalCurrent_, 7, 0, 1, 3);
  connect(cmdCalCurrent_, &QPushButton::clicked, this, &MeterForm::cmdCalCurrentClick);
}

QLabel* MeterForm::MakeLabel(const char* name, const char* accessibleName) {
  auto* label = new QLabel(this);
  label->setObjectName(name);
  label->setAccessibleName(accessibleName);
  label->setTextFormat(Qt::PlainText);
  return label;
}

QFrame* MeterForm::MakeShape(const char* name, const char* accessibleName) {
  auto* shape = new QFrame(this);
  shape->setObjectName(name);
  shape->setAccessibleName(accessibleName);
  shape->setFrameStyle(QFrame::Box | QFrame::Plain);
  shape->setAutoFillBackground(true);
  shape->setFixedSize(28, 18);
  return shape;
}

void MeterForm::ShowWindow() {
  if (!loaded_) Q_EMIT FormLoad();
  loaded_ = true;
  show();
}

void MeterForm::ShowCalibration(const std::string& text) {
  SetText(*lblCalAdjust0dB_, QString::fromStdString(text));
}

void MeterForm::Show(const MeterShown& shown) {
  const auto* dbm = std::get_if<float>(&shown.Reading);
  SetText(*lblReading_,
          dbm ? OneDecimal(*dbm) : QString::fromStdString(std::get<std::string>(shown.Reading)));
  SetText(*lblDownDb_, shown.DownDb ? OneDecimal(*shown.DownDb) : "");
  SetText(*lblStatus_, QString::fromStdString(shown.Status));
  SetText(*lblStateCount_, QString::fromStdString(shown.StateCount));
  Paint(*shapeStatus_, shown.StatusShape);
  Paint(*shapeLevel_, shown.LevelIndicator);
}

void MeterForm::Paint(QFrame& shape, std::optional<StatusColour> colour) {
  if (!colour) return shape.setPalette({});
  const Colour shade = ShadeOf(*colour);
  const QColor wanted(shade.Red, shade.Green, shade.Blue);
  QPalette palette = shape.palette();
  if (palette.color(QPalette::Window) == wanted) return;
  palette.setColor(QPalette::Window, wanted);
  shape.setPalette(palette);
}

}  // namespace lobegraph
