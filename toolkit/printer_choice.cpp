#include "toolkit/printer_choice.h"

#include <QPrinter>
#include <QPrinterInfo>

namespace rostermill {

namespace {

constexpr int names_at_most = 10;

}  // namespace

PrinterChoice ChoosePrinter(const QString& default_printer, const QStringList& printers) {
  if (!default_printer.isEmpty()) return {default_printer, {}};
  if (printers.size() == 1) return {printers.constFirst(), {}};
  if (printers.isEmpty()) return {{}, "this computer has no printer."};
  QString names = printers.mid(0, names_at_most).join(", ");
  if (printers.size() > names_at_most) {
    names += QString(" and %1 more").arg(printers.size() - names_at_most);
  }
  return {{},
          QString("none of this computer's printers is set as the default one. There are: %1.\n\n"
                  "Set one in the system's printer settings, or with \"lpoptions -d %2\".")
              .arg(names, printers.constFirst())};
}

std::unique_ptr<QPrinter> OpenPrinter(QString& failure) {
  const PrinterChoice choice =
      ChoosePrinter(QPrinterInfo::defaultPrinterName(), QPrinterInfo::availablePrinterNames());
  failure = choice.Failure;
  if (!failure.isEmpty()) return nullptr;
  return std::make_unique<QPrinter>(QPrinterInfo::printerInfo(choice.Name),
                                    QPrinter::HighResolution);
}

}  // namespace rostermill
