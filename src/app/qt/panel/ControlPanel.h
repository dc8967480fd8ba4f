#pragma once

#include <QScrollArea>
#include <QWidget>
#include <functional>

#include "app/parts/Controls.h"

namespace lobegraph {

/// Lays the controls of the panel out in rows, with a line between two groups. Whatever the window's height,
/// the rows stand together at the top.
/// @param panel gets the layout and the width @param widget of a control, a child of the panel
void LayOutPanel(QWidget& panel, int width, int rowHeight, const std::function<QWidget&(Control)>& widget);

/// Holds the panel, and lets the user scroll to what a small screen has no room for.
class PanelArea : public QScrollArea {
  Q_OBJECT

 public:
  explicit PanelArea(QWidget* parent);

  QWidget& Panel() const { return *widget(); }
  /// As wide as the panel, and the bar beside it where it has to scroll. @param height of the area
  int WidthFor(int height) const;
};

}  // namespace lobegraph
