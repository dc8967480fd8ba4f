#include "app/qt/editor/EditorTable.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>

namespace lobegraph {

EditorTable::EditorTable(QWidget* parent) : QTableView(parent) {
  setSelectionMode(QAbstractItemView::ContiguousSelection);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
  horizontalHeader()->setHighlightSections(false);
  // Tab leaves the table: the buttons can be reached without a mouse.
  setTabKeyNavigation(false);
}

void EditorTable::keyPressEvent(QKeyEvent* event) {
  if (!Handles(*event)) QTableView::keyPressEvent(event);
}

bool EditorTable::Handles(const QKeyEvent& key) {
  if (key.matches(QKeySequence::Copy)) {
    CopySelection();
  } else if (key.matches(QKeySequence::Paste)) {
    PasteAtSelection();
  } else if (key.key() == Qt::Key_Delete && key.modifiers() == Qt::NoModifier) {
    const QItemSelectionRange cells = Selected();
    if (cells.isValid()) commands_->ClearValues(cells.top() + 1, cells.bottom() + 1);
  } else if ((key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) && state() != EditingState) {
    GoDown();
  } else {
    return false;
  }
  return true;
}

void EditorTable::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  QTableView::closeEditor(editor, hint);
  if (hint == QAbstractItemDelegate::SubmitModelCache) GoDown();
}

void EditorTable::GoDown() {
  const QModelIndex current = currentIndex();
  const QModelIndex below = current.siblingAtRow(current.row() + 1);
  if (below.isValid()) setCurrentIndex(below);
}

QItemSelectionRange EditorTable::Selected() const {
  const QItemSelection cells = selectionModel()->selection();
  return cells.isEmpty() ? QItemSelectionRange(currentIndex()) : cells.first();
}

void EditorTable::CopySelection() const {
  const QItemSelectionRange cells = Selected();
  if (!cells.isValid()) return;
  const std::string text =
      commands_->Grid().Copy(cells.top() + 1, cells.bottom() + 1, static_cast<EditorColumn>(cells.left()),
                             static_cast<EditorColumn>(cells.right()));
  QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

void EditorTable::PasteAtSelection() {
  const QItemSelectionRange cells = Selected();
  const int row = cells.isValid() ? cells.top() + 1 : 1;
  const auto column = cells.isValid() ? static_cast<EditorColumn>(cells.left()) : EditorColumn::Value;
  commands_->Paste(row, column, QGuiApplication::clipboard()->text().toStdString());
}

}  // namespace lobegraph
