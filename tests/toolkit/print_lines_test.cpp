#include "toolkit/print_lines.h"

#include <QBuffer>
#include <QPdfWriter>
#include <QPrinter>
#include <gtest/gtest.h>

#include "toolkit/printer_choice.h"

namespace rostermill::test {
namespace {

TEST(PrintLines, PagesFollowThePaperAndNarrowPaperTakesSmallerLettersAndFailuresAreReported) {
  const auto pages = [](QSizeF paper, int count, int length) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPageSize(QPageSize(paper, QPageSize::Millimeter));
    writer.setPageMargins(QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter);
    return PrintLines(writer, QStringList(count, QString(length, 'W'))).Pages;
  };
  const QSizeF a4(210, 297);
  EXPECT_EQ(pages(a4, 1, 68), 1);
  const int whole = pages(a4, 141, 68);
  EXPECT_GE(whole, 2);
  EXPECT_LE(whole, 4);
  EXPECT_GT(pages(QSizeF(210, 148), 141, 68), whole) << "half the height must make more pages";
  EXPECT_LT(pages(QSizeF(70, 297), 141, 68), whole)
      << "lines wider than the paper must be shrunk, not cut";
  EXPECT_GE(pages(QSizeF(70, 24), 20, 20'000), 2) << "letters have a smallest size";
  for (const double height : {21, 22, 23, 24}) {
    EXPECT_EQ(pages(QSizeF(210, height), 6, 68), 6) << "a page as high as one line takes one line";
  }

  QPdfWriter writer("/no such folder/list.pdf");
  EXPECT_EQ(PrintLines(writer, {"a line"}).Failure, "the printer could not be started.");
  class Jammed : public QPdfWriter {
   public:
    using QPdfWriter::QPdfWriter;
    bool newPage() override { return false; }
  };
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  Jammed jammed(&buffer);
  const PrintResult result = PrintLines(jammed, QStringList(500, "a line"));
  EXPECT_EQ(result.Failure, "the printer gave no new page.");
  EXPECT_EQ(result.Pages, 0);
}

TEST(Printers, TakesTheDefaultOrTheOnlyPrinterAndOtherwiseNamesThem) {
  EXPECT_EQ(ChoosePrinter("Office", {"Attic", "Office"}).Name, "Office");
  EXPECT_EQ(ChoosePrinter("", {"Attic"}).Name, "Attic");
  EXPECT_EQ(ChoosePrinter("", {}).Failure, "this computer has no printer.");
  const PrinterChoice two = ChoosePrinter("", {"Attic", "Office"});
  EXPECT_EQ(two.Name, "");
  EXPECT_TRUE(two.Failure.contains("Attic, Office.")) << two.Failure.toStdString();
  EXPECT_TRUE(two.Failure.contains("\"lpoptions -d Attic\"")) << two.Failure.toStdString();
  QStringList many;
  for (int number = 1; number <= 200; ++number) many << QString("P%1").arg(number);
  EXPECT_TRUE(ChoosePrinter("", many).Failure.contains("P9, P10 and 190 more."));

  qputenv("CUPS_SERVER", "localhost:1");  // has none
  QString failure;
  EXPECT_EQ(OpenPrinter(failure), nullptr);
  EXPECT_EQ(failure, "this computer has no printer.");
}

}  // namespace
}  // namespace rostermill::test
