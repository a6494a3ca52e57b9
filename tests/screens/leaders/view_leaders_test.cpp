#include "screens/leaders/view_leaders.h"

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QPrinter>
#include <QProcess>
#include <QScrollBar>
#include <QStandardPaths>
#include <QWheelEvent>

#include "rules/display_text.h"
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
      EXPECT_EQ(head.font().bold(), color == Qt::white) << i;
    }
    return text;
  }

  /// Presses btnPrint and answers FormPrint with the button, after choosing the option. With
  /// `complaint`, a message must follow; its text is given there.
  void Print(const QString& option, const QString& button, QString* complaint = nullptr) {
    OnNextDialog([=](QDialog& dialog) {
      EXPECT_EQ(dialog.objectName(), "FormPrint");
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

  /// Prints the linemen and reads the paper with the tools that read any PDF.
  void ExpectAllLinemenOnPaper() {
    if (QStandardPaths::findExecutable("pdftotext").isEmpty()) GTEST_SKIP() << "no pdftotext";
    Choose(OL);
    Print("radPrinter", "btnOK");
    QProcess reader;
    reader.start("pdftotext", {"-layout", "list.pdf", "-"});
    reader.waitForFinished();
    const QString text = QString(reader.readAllStandardOutput()).simplified();
    for (const std::string& line : LeaderLines(session_->LeaderRows, 140, OL)) {
      EXPECT_TRUE(text.contains(FromLatin1(line).simplified())) << line;
    }
  }

  TempFolder folder;
  QPointer<ViewLeaders> form;
  QString started_in_ = QDir::currentPath();
};

TEST_F(ViewLeadersTest, OpensOnTheQuarterbacksInTeamOrder) {
  EXPECT_EQ(Find<DropDownList>(*form, "cmbPosition").Text(), "Quarterback");
  EXPECT_EQ(Bar().maximum(), 52);
  EXPECT_EQ(WhiteHeadings(), "");
  for (int column = 0; column <= 8; ++column) {
    const LeaderHeading heading = HeadingOf(QB, column);
    const QLabel& head = Label("lblHead", column);
    EXPECT_EQ(head.text(), FromLatin1(heading.Caption));
    EXPECT_EQ(head.toolTip(), FromLatin1(heading.FullName));
    EXPECT_EQ(head.accessibleName(), FromLatin1(heading.FullName));
    EXPECT_EQ(head.accessibleDescription(), "does not sort");
    EXPECT_TRUE(Label("lblD" + QString::number(column), 4).isVisible());
  }
  for (auto& team : League().QBData) team[1].AvoidPassBlock = team[2].AvoidPassBlock = 0;
  League().QBData[5][2].AvoidPassBlock = 15;
  Choose(RB);
  Choose(QB);
  Click(8);
  EXPECT_EQ(Label("lblD8", 0).text(), "100") << "the last column isn't counted";
  Find<QPushButton>(*form, "btnOK").click();
  EXPECT_TRUE(!form || !form->IsOpen());
}

TEST_F(ViewLeadersTest, GroupsHideTheColumnsAndHeadingsTheyDoNotHave) {
  Choose(OL);
  EXPECT_EQ(Bar().maximum(), 136);
  Click(1);
  for (int column = 5; column <= 8; ++column) {
    EXPECT_FALSE(Label("lblD" + QString::number(column), 2).isVisible());
    EXPECT_EQ(Label("lblHead", column).text(), "");
    EXPECT_FALSE(Label("lblHead", column).isEnabled());
    Click(column);
  }
  EXPECT_EQ(WhiteHeadings(), "1") << "a heading of a hidden column was switched";
  Choose(QB);
  EXPECT_TRUE(Label("lblD5", 2).isVisible());
  EXPECT_EQ(WhiteHeadings(), "");
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
  for (const char* part : {"lblD0", "lblName", "lblD6"}) {
    EXPECT_TRUE(Label(part, 0).toolTip().endsWith(
        FromLatin1("&lt;b&gt;&amp;, " + TeamTitleText(League(), 3) + ", K</span>")))
        << Label(part, 0).toolTip().toStdString();
  }
  EXPECT_LT(Label("lblD0", 0).geometry().right(), Label("lblName", 0).geometry().left());
  const auto left = [](const QLabel& label) { return label.geometry().left() + label.margin(); };
  const auto right = [](const QLabel& label) { return label.geometry().right() - label.margin(); };
  EXPECT_EQ(left(Label("lblName", 0)), left(Label("lblHead", 0)));
  for (int column = 1; column <= 6; ++column) {
    EXPECT_EQ(right(Label("lblD" + QString::number(column), 4)), right(Label("lblHead", column)));
  }
  EXPECT_EQ(Row(1), "2 Boot, Ann 19 13 25 31 38 44");
  QTest::keyClick(&Label("lblHead", 0), Qt::Key_Space);
  EXPECT_EQ(WhiteHeadings(), "0");
  EXPECT_EQ(Label("lblHead", 0).accessibleDescription(), "sorts");
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
  EXPECT_EQ(Bar().maximum(), 164);
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

TEST_F(ViewLeadersTest, TheFormOffersThePrinterFirstAndNamesTheFile) {
  Choose(Secondary);
  OnNextDialog([](QDialog& dialog) {
    EXPECT_TRUE(Find<QAbstractButton>(dialog, "radPrinter").isChecked());
    EXPECT_EQ(Find<QLabel>(dialog, "lblFile").text(), "rsm_se.txt");
    const QString path = QDir::toNativeSeparators(QDir::currentPath() + "/rsm_se.txt");
    EXPECT_EQ(Find<QLabel>(dialog, "lblFile").toolTip(), path);
    EXPECT_EQ(Find<QAbstractButton>(dialog, "radFile").accessibleDescription(), path);
    dialog.close();
  });
  session_->PrintCancelled = 0;
  session_->PrintToPrinter = 0;
  Find<QPushButton>(*form, "btnPrint").click();
  EXPECT_EQ(session_->PrintCancelled, 1) << "the close box must be a cancel";
  EXPECT_EQ(session_->PrintToPrinter, -1);
  EXPECT_TRUE(QDir::current().isEmpty());
}

TEST_F(ViewLeadersTest, PrintsTheWholeListOnThePrinterAndReportsThatThereIsNone) {
  form->SetPrinterMaker([](QString&) {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName("list.pdf");
    return printer;
  });
  Print("radPrinter", "btnOK");
  EXPECT_TRUE(Exported("list.pdf").starts_with("%PDF"));
  EXPECT_FALSE(QFileInfo::exists("rsm_qb.txt"));
  ExpectAllLinemenOnPaper();

  QString text;
  QDir().remove("list.pdf");
  QDir().mkdir("list.pdf");
  Print("radPrinter", "btnOK", &text);
  EXPECT_TRUE(text.startsWith("The list could not be printed")) << text.toStdString();
  EXPECT_TRUE(text.endsWith("\n\nTo write the list to rsm_ol.txt instead, choose File."));

  Choose(QB);
  form->SetPrinterMaker([](QString& failure) {
    failure = "this computer has no printer.";
    return nullptr;
  });
  Print("radPrinter", "btnOK", &text);
  EXPECT_EQ(text,
            "The list could not be printed: this computer has no printer.\n\n"
            "To write the list to rsm_qb.txt instead, choose File.");
}

}  // namespace
}  // namespace rostermill::test
