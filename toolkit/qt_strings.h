#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace rostermill {

/// Texts of the cartridge are Latin-1, one byte per character; paths and messages are UTF-8.
inline QString FromLatin1(std::string_view text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}
/// A character that Latin-1 does not have becomes "?"; text boxes do not accept one.
inline std::string ToLatin1(const QString& text) {
  return text.toLatin1().toStdString();
}

inline QString FromUtf8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string ToUtf8(const QString& text) {
  return text.toStdString();
}

}  // namespace rostermill
