#pragma once

#include <QLabel>

namespace lobegraph {

/// A line of plain text in a fixed place: what does not fit ends in "..." and is told whole by the tooltip.
/// One that takes the focus shows a frame while it has it, and one with a placeholder keeps a place that can
/// be seen while it has no text.
class ElidingLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  void SetPlaceholder(const QString& placeholder) { placeholder_ = placeholder; }
  /// The text as it is to be seen, or the placeholder.
  QString ShownText() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  bool Empty() const { return text().trimmed().isEmpty(); }
  void PaintFocus(QPainter& painter) const;

  QString placeholder_;
};

}  // namespace lobegraph
