#include "app/qt/figures/FiguresView.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>

namespace lobegraph {
namespace {
constexpr int kMargin = 12;
constexpr int kColumnGap = 16;
constexpr int kRowGap = 5;
}  // namespace

FiguresView::FiguresView(QWidget& owner) : QWidget(&owner), owner_(owner), grid_(new QGridLayout(this)) {
  setObjectName("Figures");
  setWindowTitle("Lobegraph - Figures");
  setAccessibleName("Figures");
  setAutoFillBackground(true);
  grid_->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  grid_->setHorizontalSpacing(kColumnGap);
  grid_->setVerticalSpacing(kRowGap);
  auto* heading = new QLabel("Figures", this);
  QFont bold = heading->font();
  bold.setBold(true);
  heading->setFont(bold);
  grid_->addWidget(heading, 0, 0, 1, 2);
  MakeRows(FigureRows({}));
  hide();
}

void FiguresView::MakeRows(const std::vector<FigureRow>& rows) {
  int line = 1;
  for (const FigureRow& row : rows) {
    auto* name = new QLabel(QString::fromStdString(row.Name), this);
    auto* value = new QLabel(this);
    value->setAlignment(Qt::AlignRight);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    value->setFocusPolicy(Qt::NoFocus);
    for (QLabel* label : {name, value}) label->setToolTip(QString::fromStdString(row.Definition));
    name->setAccessibleDescription(QString::fromStdString(row.Definition));
    grid_->addWidget(name, line, 0);
    grid_->addWidget(value, line++, 1);
    values_.push_back(value);
  }
  // The longest value keeps its room, so that nothing jumps.
  grid_->setColumnMinimumWidth(1, fontMetrics().horizontalAdvance("-999.9 degrees"));
  grid_->setRowStretch(line, 1);
}

void FiguresView::ShowRecord(const ReadingsRecord& record, bool drawable) {
  if (shown_ == record && drawable_ == drawable) return;
  shown_ = record;
  drawable_ = drawable;
  rows_ = FigureRows(drawable ? FiguresOfRecord(record) : CutFigures{});
  for (std::size_t index = 0; index < rows_.size(); ++index) {
    values_[index]->setText(QString::fromStdString(rows_[index].Value));
    values_[index]->setAccessibleName(QString::fromStdString(rows_[index].Name + ": " + rows_[index].Value));
  }
}

QString FiguresView::Text() const { return QString::fromStdString(FigureText(rows_)); }

void FiguresView::Dock(QWidget& part, const QRect& place) {
  if (parentWidget() != &part || isWindow()) {
    setParent(&part, Qt::Widget);
    show();
  }
  setGeometry(place);
  setVisible(true);
}

void FiguresView::Float() {
  if (!isWindow()) {
    setParent(&owner_, Qt::Tool);
    adjustSize();
  }
  setVisible(true);
}

void FiguresView::closeEvent(QCloseEvent* event) {
  event->accept();
  emit Closed();
}

}  // namespace lobegraph
