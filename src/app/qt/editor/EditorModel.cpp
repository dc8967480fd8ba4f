#include "app/qt/editor/EditorModel.h"

namespace lobegraph {
namespace {
EditorColumn ColumnOf(const QModelIndex& index) { return static_cast<EditorColumn>(index.column()); }
}  // namespace

void EditorModel::SetCommands(frmEditLbg& commands) {
  beginResetModel();
  commands_ = &commands;
  endResetModel();
}

int EditorModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() || commands_ == nullptr ? 0 : EditorGrid::kRows;
}

int EditorModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : EditorGrid::kColumns;
}

QVariant EditorModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const int row = index.row() + 1;
  switch (role) {
    case Qt::DisplayRole:
      return QString::fromStdString(commands_->Grid().Shown(row, ColumnOf(index)));
    case Qt::EditRole:
      return QString::fromStdString(commands_->Grid().Text(row, ColumnOf(index)));
    case Qt::TextAlignmentRole:
      return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    default:
      return {};
  }
}

bool EditorModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::EditRole || ColumnOf(index) != EditorColumn::Value) return false;
  commands_->EditValue(index.row() + 1, value.toString().toStdString());
  return true;
}

QVariant EditorModel::headerData(int section, Qt::Orientation orientation, int role) const {
  static const QStringList kHeaders{"No.", "Value", "Posn"};
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return kHeaders.value(section);
}

Qt::ItemFlags EditorModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags cell = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  return ColumnOf(index) == EditorColumn::Value ? cell | Qt::ItemIsEditable : cell;
}

}  // namespace lobegraph
