#pragma once

#include <QLabel>

namespace lobegraph {

/// A line of plain text in a fixed place: what does not fit ends in "..." and is told whole by the tooltip.
/// One that takes the focus shows a frame while it has it.
class ElidingLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  /// The text as it is to be seen.
  QString ShownText() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void PaintFocus(QPainter& painter) const;
};

}  // namespace lobegraph
