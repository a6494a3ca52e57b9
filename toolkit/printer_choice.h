#pragma once

#include <QStringList>

#include <memory>

class QPrinter;

namespace rostermill {

/// What to print on: either the printer's name or why there is none, as a sentence's end.
struct PrinterChoice {
  QString Name;
  QString Failure;
};

/// The default printer; where none is set (an empty name), the only one of the computer's printers.
PrinterChoice ChoosePrinter(const QString& default_printer, const QStringList& printers);

/// That printer of this computer; null, with the reason in `failure`, where there is none.
std::unique_ptr<QPrinter> OpenPrinter(QString& failure);

}  // namespace rostermill
