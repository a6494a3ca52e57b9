#include "screens/leaders/view_leaders.h"

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QPrinter>
#include <QProcess>
#include <QScrollBar>
#include <QStandardPaths>
#include <QWheelEvent>

#include "rules/leader_export.h"
#include "tests/screens/screen_fixture.h"
#include "toolkit/qt_strings.h"

namespace rostermill::test {
namespace {

enum Group { QB, RB, WR, TE, OL, DL, LB, Secondary, Kicker, Punter };

/// The sample league with the form open, in a folder of its own.
class ViewLeadersTest : public ScreenTest {
 protected:
  ViewLeadersTest() {
    QDir::setCurrent(FromUtf8(folder.Path()));
    area_.resize(900, 500);
    area_.show();
    area_.OpenOrRaise(form, [this] { return new ViewLeaders(*session_); });
  }
  ~ViewLeadersTest() override { QDir::setCurrent(started_in_); }

  QLabel& Label(const QString& name, int index) {
    return Find<QLabel>(*form, MemberName(name, index));
  }
  std::string Row(int r) {
    std::string text = ToUtf8(Label("lblD0", r).text() + " " + Label("lblName", r).text());
    for (int column = 1; column <= 8; ++column) {
      QLabel& label = Label("lblD" + QString::number(column), r);
      if (label.isVisible()) text += " " + ToUtf8(label.text());
    }
    return text;
  }
  QScrollBar& Bar() { return Find<QScrollBar>(*form, "scrBar"); }
  void Choose(int group) { Find<DropDownList>(*form, "cmbPosition").SetListIndex(group); }
  void Click(int heading) { QTest::mouseClick(&Label("lblHead", heading), Qt::LeftButton); }
  /// The headings that are white, by index.
  std::string WhiteHeadings() {
    std::string text;
    for (int i = 0; i <= 8; ++i) {
      const QLabel& head = Label("lblHead", i);
      const QColor color = head.palette().color(head.foregroundRole());
      EXPECT_TRUE(color == Qt::white || color == Qt::black) << i;
      if (color == Qt::white) text += std::to_string(i);
    }
    return text;
  }

  /// Presses btnPrint and answers FormPrint with the button, after choosing the option. With
  /// `complaint`, a message must follow; its text is given there.
  void Print(const QString& option, const QString& button, QString* complaint = nullptr) {
    OnNextDialog([=](QDialog& dialog) {
      Find<QAbstractButton>(dialog, option).click();
      Find<QPushButton>(dialog, button).click();
    });
    if (complaint != nullptr) AnswerNextMessage("OK", complaint);
    Find<QPushButton>(*form, "btnPrint").click();
  }
  std::string Exported(const std::string& name) {
    const auto bytes = FileBytes(folder.Path(name));
    return {bytes.begin(), bytes.end()};
  }
  /// Names two kickers and their ratings, for a list to be known whole.
  void NameKickers() {
    const KickRec weak{0, 0, 0, 0, 0, 0, 0};
    for (int team = 1; team <= TeamCount; ++team) {
      League().NameData[team][29] = {"x", "FILLER", "01"};
      League().KickData[team][1] = weak;
    }
    League().NameData[1][29] = {"ann", "BOOT", "01"};
    League().NameData[3][29] = {"<b>&", "TOE", "01"};
    League().KickData[1][1] = {1, 2, 3, 4, 0, 5, 6};
    League().KickData[3][1] = {15, 15, 14, 15, 0, 15, 15};
  }

  TempFolder folder;
  QPointer<ViewLeaders> form;
  QString started_in_ = QDir::currentPath();
};

TEST_F(ViewLeadersTest, ColumnsThatAGroupDoesNotHaveComeBackWithTheNextAndSortThen) {
  for (auto& team : League().QBData) team[1].AvoidPassBlock = team[2].AvoidPassBlock = 0;
  League().QBData[5][2].AvoidPassBlock = 15;
  Choose(OL);
  Click(1);
  for (int column = 5; column <= 8; ++column) Click(column);
  EXPECT_EQ(WhiteHeadings(), "1") << "a heading of a hidden column was switched";
  Choose(QB);
  EXPECT_TRUE(Label("lblD5", 2).isVisible());
  EXPECT_EQ(WhiteHeadings(), "");
  Click(8);
  EXPECT_EQ(Label("lblD8", 0).text(), "100") << "the last column isn't counted";
  Find<QPushButton>(*form, "btnOK").click();
  EXPECT_TRUE(!form || !form->IsOpen());
}

TEST_F(ViewLeadersTest, AHeadingSortsWithoutScrollingAndANewGroupStartsAfresh) {
  NameKickers();
  Choose(Kicker);
  EXPECT_EQ(Row(0), "1 Boot, Ann 19 13 25 31 38 44");
  Bar().setValue(24);
  Click(3);
  EXPECT_EQ(Bar().value(), 24);
  EXPECT_EQ(Row(4), "28 Filler, X 6 6 6 6 6 6");
  Bar().setValue(1);
  EXPECT_EQ(Row(0), "1 Toe, <b>& 100 100 94 100 100 100");
  EXPECT_TRUE(Label("lblD6", 0).toolTip().contains("&lt;b&gt;&amp;, Copperfield Foxes, K<"));
  const auto left = [](const QLabel& label) { return label.geometry().left() + label.margin(); };
  const auto right = [](const QLabel& label) { return label.geometry().right() - label.margin(); };
  EXPECT_EQ(left(Label("lblName", 0)), left(Label("lblHead", 0)));
  for (int column = 1; column <= 6; ++column) {
    EXPECT_EQ(right(Label("lblD" + QString::number(column), 4)), right(Label("lblHead", column)));
  }
  EXPECT_EQ(Row(1), "2 Boot, Ann 19 13 25 31 38 44");
  QTest::keyClick(&Label("lblHead", 0), Qt::Key_Space);
  EXPECT_EQ(WhiteHeadings(), "0");
  EXPECT_EQ(Row(0), "1 Boot, Ann 19 13 25 31 38 44");
  Choose(Punter);
  EXPECT_EQ(WhiteHeadings(), "");
  EXPECT_EQ(Bar().value(), 1);
}

TEST_F(ViewLeadersTest, AFewRowsAreNotFollowedByStaleOnes) {
  for (TeamRec& team : League().TeamData) team.Formation = 1;
  League().TeamData[9].Formation = 0;
  League().NameData[9][11] = {"al", "END", "01"};
  League().NameData[9][12] = {"bo", "ABLE", "01"};
  Choose(TE);
  EXPECT_EQ(Bar().maximum(), 1);
  Click(0);
  EXPECT_EQ(Label("lblName", 0).text(), "Able, Bo");
  EXPECT_EQ(Label("lblName", 1).text(), "End, Al");
  EXPECT_EQ(Row(2), "       ") << "rows of the earlier group came into view";
  League().TeamData[9].Formation = 1;
  Choose(WR);
  Choose(TE);
  Click(1);
  EXPECT_EQ(Row(0), "       ");
  Print("radFile", "btnOK");
  EXPECT_EQ(Exported("rsm_te.txt"), "     Name                   RS  RP  MS  HP  BC  R  \r\n");
}

TEST_F(ViewLeadersTest, KeysAndWheelScrollTheTable) {
  const auto after = [this](Qt::Key key) {
    QTest::keyClick(&Label("lblHead", 0), key);
    return Bar().value();
  };
  EXPECT_EQ(after(Qt::Key_Down), 2);
  EXPECT_EQ(after(Qt::Key_PageDown), 7);
  EXPECT_EQ(after(Qt::Key_End), 52);
  EXPECT_EQ(after(Qt::Key_PageUp), 47);
  EXPECT_EQ(after(Qt::Key_Up), 46);
  EXPECT_EQ(after(Qt::Key_Home), 1);
  // On a button the arrow keys scroll as well, and the focus stays.
  for (const char* name : {"btnPrint", "btnOK"}) {
    auto& button = Find<QPushButton>(*form, name);
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Down);
    QTest::keyClick(&button, Qt::Key_Down);
    QTest::keyClick(&button, Qt::Key_Up);
    EXPECT_EQ(Bar().value(), 2) << name;
    EXPECT_EQ(form->focusWidget(), &button);
    Bar().setValue(1);
  }
  const auto after_turn_over = [this](QWidget& under) {
    QWheelEvent turn(QPointF(1, 1), under.mapToGlobal(QPointF(1, 1)), {}, QPoint(0, -120), {}, {},
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(&under, &turn);
    return Bar().value();
  };
  const int lines = QApplication::wheelScrollLines();
  EXPECT_EQ(after_turn_over(*form), 1 + lines);
  EXPECT_EQ(after_turn_over(Bar()), 1 + 2 * lines);
  EXPECT_EQ(Label("lblD0", 0).text().toInt(), Bar().value());
}

TEST_F(ViewLeadersTest, TheFileHasTheOrderOnTheScreenAndReplacesAnOldOneOrSaysWhyNot) {
  NameKickers();
  Choose(Kicker);
  Click(3);
  WriteFile(folder.Path("rsm_k.txt"), std::string("old\n"));
  WriteFile(folder.Path("rsm_p.txt"), std::string("another group's\n"));
  Print("radFile", "btnCancel");
  session_->PrintCancelled = 0;
  session_->PrintToPrinter = 0;
  OnNextDialog([](QDialog& dialog) { dialog.close(); });
  Find<QPushButton>(*form, "btnPrint").click();
  EXPECT_EQ(Exported("rsm_k.txt"), "old\n");
  Print("radFile", "btnOK");
  const std::string start =
      "     Name                   RS  RP  MS  HP  KA  AKB  \r\n"
      "  1. Toe, <b>&              100  100  94  100  100  100  \r\n"
      "  2. Boot, Ann              19  13  25  31  38  44  \r\n"
      "  3. Filler, X               6   6   6   6   6   6  \r\n";
  EXPECT_EQ(Exported("rsm_k.txt").substr(0, start.size()), start);
  EXPECT_TRUE(Exported("rsm_k.txt")
                  .ends_with("\r\n 28. Filler, X               6   6   6   6   6   6  \r\n"));
  EXPECT_EQ(Exported("rsm_p.txt"), "another group's\n");

  QDir().remove("rsm_k.txt");
  QDir().mkdir("rsm_k.txt");
  QString text;
  Print("radFile", "btnOK", &text);
  EXPECT_TRUE(text.startsWith(QDir::currentPath() + "/rsm_k.txt could not be written: "))
      << text.toStdString();
  EXPECT_TRUE(QFileInfo("rsm_k.txt").isDir());
}

TEST_F(ViewLeadersTest, PrintsTheWholeListOnThePrinterAndReportsThatThereIsNone) {
  QString text;
  form->SetPrinterMaker([](QString& failure) {
    failure = "this computer has no printer.";
    return nullptr;
  });
  Print("radPrinter", "btnOK", &text);
  EXPECT_EQ(text,
            "The list could not be printed: this computer has no printer.\n\n"
            "To write the list to rsm_qb.txt instead, choose File.");

  form->SetPrinterMaker([](QString&) {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName("list.pdf");
    return printer;
  });
  Choose(OL);
  QDir().mkdir("list.pdf");
  Print("radPrinter", "btnOK", &text);
  EXPECT_TRUE(text.startsWith("The list could not be printed")) << text.toStdString();
  QDir().rmdir("list.pdf");
  Print("radPrinter", "btnOK");
  EXPECT_TRUE(Exported("list.pdf").starts_with("%PDF"));
  EXPECT_FALSE(QFileInfo::exists("rsm_ol.txt"));
  if (QStandardPaths::findExecutable("pdftotext").isEmpty()) GTEST_SKIP() << "no pdftotext";
  QProcess reader;
  reader.start("pdftotext", {"-layout", "list.pdf", "-"});
  reader.waitForFinished();
  const QString paper = QString(reader.readAllStandardOutput()).simplified();
  for (const std::string& line : LeaderLines(session_->LeaderRows, 140, OL)) {
    EXPECT_TRUE(paper.contains(FromLatin1(line).simplified())) << line;
  }
}

}  // namespace
}  // namespace rostermill::test
