#include "app/qt/main/UndoKeys.h"

#include <QLineEdit>
#include <QShortcut>
#include <utility>

namespace lobegraph {

UndoKeys::UndoKeys(QWidget& window, std::function<void()> undo, std::function<void()> redo)
    : QObject(&window), window_(window) {
  Connect(QKeySequence(Qt::CTRL | Qt::Key_Z), std::move(undo));
  Connect(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), redo);
  Connect(QKeySequence(Qt::CTRL | Qt::Key_Y), std::move(redo));
}

void UndoKeys::Connect(const QKeySequence& keys, std::function<void()> action) {
  connect(new QShortcut(keys, &window_), &QShortcut::activated, this, [this, action = std::move(action)] {
    // A box takes only the keys that the desktop calls undo and redo; Ctrl+Y may be none of them.
    const auto* box = qobject_cast<const QLineEdit*>(window_.focusWidget());
    if (box == nullptr || box->isReadOnly()) action();
  });
}

}  // namespace lobegraph
