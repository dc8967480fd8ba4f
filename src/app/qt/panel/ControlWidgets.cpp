#include "app/qt/panel/ControlWidgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontMetrics>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>

#include "app/qt/parts/ElidingLabel.h"
#include "data/record/ReadingsRecord.h"

namespace lobegraph {
namespace {

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QWidget* MakeButton(const ControlRow& row, QWidget& parent) {
  auto* button = new QPushButton(Q(row.Caption), &parent);
  button->setAutoDefault(true);  // Enter presses the button that has the focus
  return button;
}

QWidget* MakeLabel(const ControlRow& row, QWidget& parent) {
  auto* label = new ElidingLabel(&parent);
  label->setTextFormat(Qt::PlainText);
  label->setText(Q(row.Caption));
  // What is double-clicked has to be seen without a name in it as well.
  if (row.Id == Control::lblOperator) label->SetPlaceholder("(no operator)");
  return label;
}

QWidget* MakeTextBox(const ControlRow& row, QWidget& parent) {
  auto* box = new QLineEdit(Q(row.Caption), &parent);
  box->setReadOnly(row.Kind == ControlKind::ReadOnlyBox);
  // These two have no label beside them.
  if (row.Id == Control::txtX) box->setPlaceholderText("Angle");
  if (row.Id == Control::txtY) box->setPlaceholderText("Level");
  if (row.Id == Control::txtDescription) box->setPlaceholderText(kNoDescription);
  // What only shows a value is no stop on the way through the window by keyboard.
  // A file dropped on a box is dropped on the window.
  box->setAcceptDrops(false);
  if (box->isReadOnly()) box->setFocusPolicy(Qt::ClickFocus);
  return box;
}

QWidget* MakeSlider(QWidget& parent) {
  auto* slider = new QSlider(Qt::Horizontal, &parent);
  slider->setPageStep(10);
  return slider;
}

QWidget* MakeDropDown(QWidget& parent) {
  auto* box = new QComboBox(&parent);
  for (const auto item : ElementItems()) box->addItem(Q(item));
  box->setCurrentIndex(-1);
  return box;
}

QWidget* MakeBare(const ControlRow& row, QWidget& parent) {
  switch (row.Kind) {
    case ControlKind::Button:
      return MakeButton(row, parent);
    case ControlKind::CheckBox:
      return new QCheckBox(Q(row.Caption).trimmed(), &parent);
    case ControlKind::Label:
      return MakeLabel(row, parent);
    case ControlKind::Slider:
      return MakeSlider(parent);
    case ControlKind::DropDown:
      return MakeDropDown(parent);
    default:
      return MakeTextBox(row, parent);
  }
}

/// What the frame of a control takes beside its caption.
int FrameWidth(ControlKind kind) {
  switch (kind) {
    case ControlKind::DropDown:
      return 26;
    case ControlKind::CheckBox:
      return 20;
    case ControlKind::Label:
      return 2;
    default:
      return 10;
  }
}

/// The widest text that a control shows at run time, where it is not its caption. Names and descriptions have
/// no widest text: their labels end in dots, their boxes scroll.
QString WidestText(const ControlRow& row) {
  switch (row.Id) {
    case Control::txtChan1:
      return "1,000.0";
    case Control::lblRotationTime:
      return "1200";
    case Control::txtReadingNumber:
    case Control::txtTrimFront:
    case Control::txtTrimEnd:
    case Control::txtRotate:
    case Control::txtReadingsPlotted:
      return "360";
    case Control::cboElements:
      return "  > 8!";
    case Control::txtAngle:
      return "179.99";
    case Control::txtGain:
      return "-9.99 dBi";
    default:
      return Q(row.Caption).remove('&').trimmed();
  }
}

}  // namespace

QWidget* MakeWidget(const ControlRow& row, QWidget& parent) {
  QWidget* widget = MakeBare(row, parent);
  widget->setObjectName(Q(row.Name));
  widget->setToolTip(Q(row.ToolTip));
  widget->setAccessibleName(row.AccessibleName.empty() ? Q(row.Caption).remove('&').trimmed()
                                                       : Q(row.AccessibleName));
  return widget;
}

bool CaptionFits(const ControlRow& row, const QFont& font, int width) {
  return QFontMetrics(font).horizontalAdvance(WidestText(row)) + FrameWidth(row.Kind) <= width;
}

}  // namespace lobegraph
