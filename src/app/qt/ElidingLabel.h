#pragma once

#include <QLabel>

namespace lobegraph {

/// A line of plain text in a fixed place: what does not fit ends in "..." and is told whole by the tooltip.
class ElidingLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  /// The text as it is to be seen.
  QString ShownText() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;
};

}  // namespace lobegraph
