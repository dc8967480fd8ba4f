#pragma once

#include <QWidget>
#include <optional>
#include <vector>

#include "data/record/ReadingsRecord.h"
#include "processing/FigureList.h"

class QGridLayout;
class QLabel;

namespace lobegraph {

/// Every figure of the pattern that is shown, each with its definition as its tooltip: beside the controls
/// where the window has room, else in a window of its own.
class FiguresView : public QWidget {
  Q_OBJECT

 public:
  /// @param owner the main window
  explicit FiguresView(QWidget& owner);

  /// Shows the figures of a record; the same record again costs nothing. @param drawable whether the record
  /// has figures at all
  void ShowRecord(const ReadingsRecord& record, bool drawable);
  /// As text, a line each.
  QString Text() const;
  /// In a part of the main window. @param place in that part
  void Dock(QWidget& part, const QRect& place);
  /// In a window of its own.
  void Float();

 protected:
  void closeEvent(QCloseEvent* event) override;

 signals:
  /// The user closed the window of its own.
  void Closed();

 private:
  void MakeRows(const std::vector<FigureRow>& rows);

  QWidget& owner_;
  QGridLayout* grid_;
  std::vector<QLabel*> values_;
  std::vector<FigureRow> rows_;
  std::optional<ReadingsRecord> shown_;
  bool drawable_ = false;
};

}  // namespace lobegraph
