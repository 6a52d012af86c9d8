#pragma once

// Texts and paths between the application and Qt.

#include <QFile>
#include <QString>

#include <filesystem>
#include <string>
#include <string_view>

namespace qt {

inline QString QtText(std::u16string_view text) {
  return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

/// UTF-8.
inline QString QtText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Text of several lines, which Qt ends with LF.
inline QString QtLines(std::u16string_view text) {
  return QtText(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

/// Lines of a widget, ended by CR LF.
inline std::u16string WideLines(QString text) {
  return text.replace(QChar(u'\n'), QStringLiteral("\r\n")).toStdU16String();
}

inline std::filesystem::path PathOf(const QString& name) {
  return QFile::encodeName(name).toStdString();
}

inline QString QtPath(const std::filesystem::path& path) {
  return QFile::decodeName(path.c_str());
}

/// A text without the marks of the letters that serve as keys: "&&" is an "&", and another "&" is not shown.
QString WithoutMnemonics(const QString& text);

}  // namespace qt
