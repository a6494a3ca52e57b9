#include "toolkit/print_lines.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>

#include <algorithm>

#include "toolkit/form_parts.h"

namespace rostermill {

namespace {

QFont PrinterFont() {
  QFont font("Courier New");
  font.setStyleHint(QFont::TypeWriter);
  font.setFixedPitch(true);
  if (!QFontInfo(font).fixedPitch()) font.setFamily(QFontInfo(FixedFont()).family());
  return font;
}

/// Characters that would break a line or move its columns become blanks.
QString Printable(QString line) {
  for (QChar& c : line) {
    if (!c.isPrint()) c = ' ';
  }
  return line;
}

/// The printer's font, small enough for the widest line, and the height of a line.
QFont FittingFont(QPagedPaintDevice& device, const QStringList& lines) {
  QFont font = PrinterFont();
  double size = font.pointSizeF() > 0 ? font.pointSizeF() : 10;
  constexpr double smallest = 1;
  for (;;) {
    font.setPointSizeF(size);
    const QFontMetricsF metrics(font, &device);
    double widest = 1;
    for (const QString& line : lines) widest = std::max(widest, metrics.horizontalAdvance(line));
    const double scale = std::min(device.width() / widest, device.height() / metrics.lineSpacing());
    if (scale >= 1 || size <= smallest) return font;
    // Glyph widths are rounded, so a size that should fit may be a little too wide.
    size = std::max(smallest, size * std::min(scale, 0.98));
  }
}

}  // namespace

PrintResult PrintLines(QPagedPaintDevice& device, const QStringList& lines) {
  QStringList printable;
  for (const QString& line : lines) printable << Printable(line);
  QPainter painter;
  if (!painter.begin(&device)) return {0, "the printer could not be started."};
  painter.setFont(FittingFont(device, printable));
  const QFontMetricsF metrics = QFontMetricsF(painter.font(), &device);
  const double bottom = device.height();
  int pages = 1;
  double top = 0;
  for (const QString& line : printable) {
    if (top > 0 && top + metrics.height() > bottom) {
      if (!device.newPage()) return {0, "the printer gave no new page."};
      ++pages;
      top = 0;
    }
    painter.drawText(QPointF(0, top + metrics.ascent()), line);
    top += metrics.lineSpacing();
  }
  if (!painter.end()) return {0, "the printer could not finish."};
  return {pages, {}};
}

}  // namespace rostermill
