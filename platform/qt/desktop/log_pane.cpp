#include "platform/qt/desktop/log_pane.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>

#include "app/window/control_table.h"
#include "platform/qt/desktop/text.h"
#include "platform/qt/desktop/text_fields.h"

namespace qt {

namespace {

// A line's end counts as two units; Qt counts one.
std::size_t UnitsIn(const QPlainTextEdit& log) {
  const QTextDocument& document = *log.document();
  const int lineEnds = document.blockCount() - 1;
  return static_cast<std::size_t>(document.characterCount() - 1 + lineEnds);
}

}  // namespace

void LogPane::Append(std::u16string_view text, app::LogColor color, std::size_t most) {
  QPlainTextEdit* const log = controls_.Log();
  if (log == nullptr) return;
  if (UnitsIn(*log) > most) log->clear();

  QTextCharFormat format;
  if (color == app::LogColor::Red) red_ = true;
  if (red_) format.setForeground(QColor(255, 0, 0));
  if (color != app::LogColor::AsBefore) log->textCursor().mergeCharFormat(format);

  QTextCursor cursor(log->document());
  cursor.movePosition(QTextCursor::End);
  const int room = app::kLogPaneLimit - static_cast<int>(UnitsIn(*log));
  cursor.insertText(CutToUnits(QtLines(text), room), format);
  log->setTextCursor(cursor);
  log->verticalScrollBar()->setValue(log->verticalScrollBar()->maximum());
}

bool LogPane::HasFocus() const {
  const QPlainTextEdit* const log = controls_.Log();
  return log != nullptr && log->hasFocus();
}

void LogPane::SelectAll() {
  QPlainTextEdit* const log = controls_.Log();
  if (log == nullptr) return;
  log->selectAll();
  // Where what is selected can be pasted with the middle button, Qt sees to that for its own keys only.
  QClipboard* const clipboard = QGuiApplication::clipboard();
  if (clipboard->supportsSelection()) clipboard->setText(log->toPlainText(), QClipboard::Selection);
}

}  // namespace qt
