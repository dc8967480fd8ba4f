#pragma once

#include <QTableView>

#include "app/editor/frmEditLbg.h"

namespace lobegraph {

/// A table with the habits of a spreadsheet: typing replaces a value, Enter goes down, columns are copied and
/// pasted, Delete empties the slots that are selected.
class EditorTable : public QTableView {
  Q_OBJECT

 public:
  explicit EditorTable(QWidget* parent);
  void SetCommands(frmEditLbg& commands) { commands_ = &commands; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

 private:
  bool Handles(const QKeyEvent& key);
  void GoDown();
  void CopySelection() const;
  void PasteAtSelection();
  /// First row, last row, first column, last column; the current cell when nothing else is selected.
  QItemSelectionRange Selected() const;

  frmEditLbg* commands_ = nullptr;
};

}  // namespace lobegraph
