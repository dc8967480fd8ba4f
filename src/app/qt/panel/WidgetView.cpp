#include "app/qt/panel/WidgetView.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSlider>
#include <algorithm>

#include "app/qt/panel/ControlWidgets.h"
#include "app/qt/panel/WindowLayout.h"
#include "app/qt/parts/FontFace.h"
#include "data/record/ScaleSetting.h"
#include "render/qt/QtColour.h"

namespace lobegraph {
namespace {

constexpr int kQuickestTurn = 1;
constexpr int kSlowestTurn = 1200;

template <typename Kind>
Kind& As(QWidget& widget) {
  return static_cast<Kind&>(widget);
}

/// A text that is longer than its box shows how it begins; under the user's cursor nothing moves.
void SetBoxText(QLineEdit& box, const QString& text) {
  const int cursor = box.hasFocus() ? box.cursorPosition() : 0;
  box.setText(text);
  box.setCursorPosition(cursor);
}

/// Shows any text, one that a file brought included.
void SetDropDownText(QComboBox& box, const QString& text) {
  const int known = static_cast<int>(ElementItems().size());
  while (box.count() > known) box.removeItem(known);
  int index = box.findText(text);
  if (index < 0 && !text.isEmpty()) {
    box.addItem(text);
    index = known;
  }
  box.setCurrentIndex(index);
}

}  // namespace

WidgetView::WidgetView(QWidget& window, PlotWidget& plot, QWidget& panel, ImageSurface& surface)
    : window_(window), plot_(plot), panel_(panel), surface_(surface) {
  MakeControls();
  timer1_.setSingleShot(true);
  timer1_.setInterval(0);
}

void WidgetView::MakeControls() {
  for (const ControlRow& row : ControlTable()) {
    QWidget& parent = OnPlot(row.Id) ? static_cast<QWidget&>(plot_) : panel_;
    widgets_.at(static_cast<std::size_t>(row.Id)) = MakeWidget(row, parent);
  }
  for (std::size_t i = 1; i < widgets_.size(); ++i) QWidget::setTabOrder(widgets_[i - 1], widgets_[i]);
  for (const Control label : {Control::lblCollectTitle, Control::lblCollectedBy, Control::lblCollectedDate})
    As<QLabel>(Widget(label)).setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  As<QLabel>(Widget(Control::lblTrim)).setAlignment(Qt::AlignCenter);
  As<QSlider>(Widget(Control::Slider1)).setRange(scale_setting::kLeast, scale_setting::kMost);
  As<QSlider>(Widget(Control::Slider2)).setRange(kQuickestTurn, kSlowestTurn);
  for (const Control box : {Control::chkPlotInDB, Control::chkShow3dB}) SetChecked(box, true);
  for (const Control box : {Control::txtTrimFront, Control::txtTrimEnd, Control::txtRotate})
    SetText(box, "0");
  SetEnabled(Control::cmdHaltInput, false);
  for (const Control hidden : AnalysisControls()) SetVisible(hidden, false);
  for (const Control hidden : {Control::cmdTrigger, Control::cmdGrow, Control::cmdPatternAnalysis})
    SetVisible(hidden, false);
  FitFonts();
}

void WidgetView::FitFonts() {
  const QString face = MenuFontFace();
  const auto fits = [](const QFont& font) {
    return std::all_of(ControlTable().begin(), ControlTable().end(),
                       [&](const ControlRow& row) { return CaptionFits(row, font); });
  };
  QFont font(face);
  font.setPixelSize(LargestFittingSize(face, fits));
  window_.setFont(font);
  for (QWidget* widget : widgets_) widget->setFont(font);
}

std::string WidgetView::Text(Control control) const {
  QWidget& widget = Widget(control);
  switch (RowOf(control).Kind) {
    case ControlKind::Label:
      return As<QLabel>(widget).text().toStdString();
    case ControlKind::DropDown:
      return As<QComboBox>(widget).currentText().toStdString();
    case ControlKind::Button:
    case ControlKind::CheckBox:
      return As<QAbstractButton>(widget).text().toStdString();
    default:
      return As<QLineEdit>(widget).text().toStdString();
  }
}

void WidgetView::SetText(Control control, const std::string& text) {
  QWidget& widget = Widget(control);
  const QString shown = QString::fromStdString(text);
  const QSignalBlocker quiet(widget);
  switch (RowOf(control).Kind) {
    case ControlKind::Label:
      // A label with a name of its own says its words to a screen reader as its description.
      if (RowOf(control).AccessibleName.empty())
        widget.setAccessibleName(shown);
      else
        widget.setAccessibleDescription(shown);
      return As<QLabel>(widget).setText(shown);
    case ControlKind::DropDown:
      return SetDropDownText(As<QComboBox>(widget), shown);
    case ControlKind::Button:
    case ControlKind::CheckBox:
      if (RowOf(control).AccessibleName.empty()) widget.setAccessibleName(QString(shown).remove('&'));
      return As<QAbstractButton>(widget).setText(shown);
    default:
      SetBoxText(As<QLineEdit>(widget), shown);
  }
}

void WidgetView::SetSpoken(Control label, const std::string& text) {
  Widget(label).setAccessibleDescription(QString::fromStdString(text));
}

void WidgetView::SetToolTip(Control control, const std::string& text) {
  Widget(control).setToolTip(QString::fromStdString(text));
}

bool WidgetView::Checked(Control control) const { return As<QAbstractButton>(Widget(control)).isChecked(); }

void WidgetView::SetChecked(Control control, bool checked) {
  const QSignalBlocker quiet(Widget(control));
  As<QAbstractButton>(Widget(control)).setChecked(checked);
}

int WidgetView::Value(Control slider) const { return As<QSlider>(Widget(slider)).value(); }

void WidgetView::SetValue(Control slider, int value) {
  const QSignalBlocker quiet(Widget(slider));
  As<QSlider>(Widget(slider)).setValue(value);
}

void WidgetView::SetMaximum(Control slider, int maximum) {
  const QSignalBlocker quiet(Widget(slider));
  As<QSlider>(Widget(slider)).setRange(std::min(kQuickestTurn, maximum), maximum);
}

void WidgetView::SetBackground(Control control, Colour colour) {
  QWidget& widget = Widget(control);
  QPalette palette = widget.palette();
  const QColor ground = ToQt(colour);
  const QColor text = ToQt(ReadableOn(colour));
  for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button}) palette.setColor(role, ground);
  for (const auto role : {QPalette::WindowText, QPalette::Text}) palette.setColor(role, text);
  widget.setPalette(palette);
  widget.setAutoFillBackground(true);
}

void WidgetView::SetBold(Control control, bool bold) {
  QFont font = Widget(control).font();
  font.setBold(bold);
  Widget(control).setFont(font);
}

void WidgetView::SetCaption(const std::string& caption) {
  window_.setWindowTitle(QString::fromStdString(caption));
}

void WidgetView::SetWindowBackground(Colour colour) {
  surface_.SetBackgroundColour(colour);
  QPalette palette = plot_.palette();
  palette.setColor(QPalette::Window, ToQt(colour));
  plot_.setPalette(palette);
  plot_.setAutoFillBackground(true);
  for (const Control label : LabelsOnPlot()) SetBackground(label, colour);
  for (const Control label : {Control::lblLeftButtonValue, Control::lblRightButtonValue})
    SetBackground(label, colour);
}

WindowState WidgetView::State() const {
  if (window_.isMinimized()) return WindowState::Minimised;
  return window_.isMaximized() || window_.isFullScreen() ? WindowState::Maximised : WindowState::Normal;
}

void WidgetView::SetWidth(int twips) {
  const int width = twips / kTwipsPerUnit;
  grown_ = width > kPlotWidth;
  panel_.setVisible(grown_);
  window_.setMinimumWidth(width);
  window_.resize(width, window_.height());
}

void WidgetView::EnableTimer1(bool enabled) { enabled ? timer1_.start() : timer1_.stop(); }

}  // namespace lobegraph
