#pragma once

#include <QAbstractTableModel>

#include "app/editor/frmEditLbg.h"

namespace lobegraph {

/// The editor's grid as a table: three columns, a row for each reading. A cell shows its short form and is
/// edited and copied in its full one.
class EditorModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  /// Until then the table has no rows. @param commands outlives the model
  void SetCommands(frmEditLbg& commands);
  /// All cells may have changed.
  void Refresh() { emit dataChanged(index(0, 0), index(rowCount() - 1, EditorGrid::kColumns - 1)); }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  frmEditLbg* commands_ = nullptr;
};

}  // namespace lobegraph
