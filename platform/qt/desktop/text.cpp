#include "platform/qt/desktop/text.h"

namespace qt {

QString WithoutMnemonics(const QString& text) {
  QString shown;
  shown.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    const bool isMark = text[i] == u'&' && i + 1 < text.size();
    shown += isMark ? text[++i] : text[i];
  }
  return shown;
}

}  // namespace qt
