#pragma once

#include <QStringList>

#include <memory>

class QPrinter;

namespace rostermill {

/// The printer to use: either its name or the reason why there is none, as the end of a sentence.
struct PrinterChoice {
  QString Name;
  QString Failure;
};

/// The default printer; if none is set (an empty name), the only one of the computer's printers.
PrinterChoice ChoosePrinter(const QString& default_printer, const QStringList& printers);

/// Opens that printer of this computer; null, with the reason in `failure`, if there is none.
std::unique_ptr<QPrinter> OpenPrinter(QString& failure);

}  // namespace rostermill
