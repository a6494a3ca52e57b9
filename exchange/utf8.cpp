#include "exchange/utf8.h"

#include <QStringDecoder>

#include <algorithm>

#include "league/text.h"

namespace rostermill {

std::string Utf8Of(std::string_view latin1) {
  // Nearly every text is ASCII, and lists have thousands.
  if (IsAscii(latin1)) return std::string(latin1);
  return QString::fromLatin1(latin1.data(), static_cast<qsizetype>(latin1.size())).toStdString();
}

std::optional<std::string> Latin1Of(std::string_view utf8) {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString text =
      decoder.decode(QByteArrayView(utf8.data(), static_cast<qsizetype>(utf8.size())));
  constexpr char16_t last_latin1 = 0xFF;
  const bool fits =
      std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() <= last_latin1; });
  if (decoder.hasError() || !fits) return std::nullopt;
  return text.toLatin1().toStdString();
}

bool IsControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || (byte >= 0x7F && byte < 0xA0);
}

}  // namespace rostermill
