#include "app/qt/panel/ControlPanel.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QVBoxLayout>

#include "app/qt/panel/PanelRows.h"

namespace lobegraph {
namespace {

/// What is hidden keeps its place: nothing moves under the pointer when a button comes.
void GiveShare(QWidget& widget, int rowHeight) {
  QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  policy.setRetainSizeWhenHidden(true);
  widget.setSizePolicy(policy);
  widget.setFixedHeight(rowHeight);
  widget.setMinimumWidth(1);
}

QHBoxLayout* MakeRow(const PanelRow& row, int rowHeight, const std::function<QWidget&(Control)>& widget) {
  auto* line = new QHBoxLayout;
  line->setSpacing(kCellGap);
  for (const PanelCell& cell : row) {
    if (!cell.Id) {
      line->addStretch(cell.Share);
      continue;
    }
    GiveShare(widget(*cell.Id), rowHeight);
    line->addWidget(&widget(*cell.Id), cell.Share);
  }
  return line;
}

QFrame* MakeLine(QWidget& panel, int number) {
  auto* line = new QFrame(&panel);
  line->setObjectName(QString("Line%1").arg(number));
  line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
  line->setFixedHeight(2);
  return line;
}

}  // namespace

void LayOutPanel(QWidget& panel, int width, int rowHeight, const std::function<QWidget&(Control)>& widget) {
  auto* rows = new QVBoxLayout(&panel);
  rows->setContentsMargins(kPanelMargin, kPanelMargin, kPanelMargin, kPanelMargin);
  rows->setSpacing(kRowGap);
  int number = 0;
  for (const PanelGroup& group : PanelGroups()) {
    if (number > 0) {
      rows->addSpacing(kGroupGap - kRowGap);
      rows->addWidget(MakeLine(panel, number));
      rows->addSpacing(kGroupGap - kRowGap);
    }
    ++number;
    for (const PanelRow& row : group) rows->addLayout(MakeRow(row, rowHeight, widget));
  }
  rows->addStretch(1);
  panel.setFixedWidth(width);
}

PanelArea::PanelArea(QWidget* parent) : QScrollArea(parent) {
  setWidget(new QWidget);
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
}

int PanelArea::WidthFor(int height) const {
  const bool scrolls = widget()->minimumSizeHint().height() > height;
  return widget()->minimumWidth() + (scrolls ? verticalScrollBar()->sizeHint().width() : 0);
}

}  // namespace lobegraph
