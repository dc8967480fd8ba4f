#pragma once

#include <QProxyStyle>

namespace lobegraph {

/// The same measures on every desktop, which the window's fixed places need, in the desktop's colours. On a
/// dark theme the outlines of boxes and of things to tick are lighter than the ground instead of darker, or
/// an empty one could not be seen.
class OutlinedStyle : public QProxyStyle {
  Q_OBJECT

 public:
  OutlinedStyle() : QProxyStyle("Fusion") {}

  using QProxyStyle::polish;
  /// What stands in an empty box is a faint shade of what is typed there; themes forget it.
  void polish(QPalette& palette) override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

}  // namespace lobegraph
