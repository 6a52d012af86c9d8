#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace qt_desktop {

/// UTF-8, with CR LF for the line ends of Qt.
inline std::string Utf8(QString text) {
  text.replace("\r\n", "\n");
  text.replace('\n', "\r\n");
  return text.toStdString();
}

/// The same in UTF-16.
inline std::u16string Wide(QString text) {
  text.replace("\r\n", "\n");
  text.replace('\n', "\r\n");
  return text.toStdU16String();
}

}  // namespace qt_desktop
