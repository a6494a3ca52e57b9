#include <QBitmap>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QTableView>
#include <QTimer>

#include "league/ratings.h"
#include "tests/desktop/contrast.h"
#include "tests/support/main_window.h"

namespace rostermill::test {
namespace {

class AllPlayers : public MainWindow {
 protected:
  AllPlayers() {
    EXPECT_TRUE(window_.OpenImageFile(path_));
    Activate(window_);
    Pick("mToolPlayers");
  }

  QTableView& Grid() { return Find<QTableView>(Form("frmAllPlayers"), "grdPlayers"); }
  QString Count() { return Find<QLabel>(Form("frmAllPlayers"), "lblCount").text(); }
  QLineEdit& Box() { return Find<QLineEdit>(Form("frmAllPlayers"), "txtFind"); }
  int Column(const QString& heading) {
    const QAbstractItemModel& model = *Grid().model();
    for (int column = 0; column < model.columnCount(); ++column) {
      if (model.headerData(column, Qt::Horizontal).toString() == heading) return column;
    }
    ADD_FAILURE() << heading.toStdString();
    return 0;
  }
  QModelIndex Cell(int row, const QString& heading) {
    return Grid().model()->index(row, Column(heading));
  }
  QString Text(int row, const QString& heading) { return Cell(row, heading).data().toString(); }
  void GoTo(const QModelIndex& cell) {
    Grid().selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect);
  }
  /// Types into a cell as a user does.
  void Edit(int row, const QString& heading, const QString& text) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    GoTo(Cell(row, heading));
    Grid().edit(Cell(row, heading));
    auto* editor = Grid().viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
  }
  void Act(const QString& caption) {
    for (QAction* action : Grid().actions()) {
      if (action->text() == caption) action->trigger();
    }
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&Grid(), key, modifiers);
  }
  void Paste(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    Activate(window_);
    Grid().setFocus();
    Key(Qt::Key_V, Qt::ControlModifier);
  }
  void Head(const QString& heading, Qt::KeyboardModifiers modifiers = {}) {
    QHeaderView& head = *Grid().horizontalHeader();
    const int column = Column(heading);
    Grid().scrollTo(Cell(0, heading));
    QTest::mouseClick(head.viewport(), Qt::LeftButton, modifiers,
                      QPoint(head.sectionViewportPosition(column) + 5, head.height() / 2));
  }
};

TEST_F(AllPlayers, WordsAndConditionsFindPlayers) {
  EXPECT_EQ(Grid().horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
  EXPECT_EQ(Grid().verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
  EXPECT_GE(Grid().viewport()->height(), 18 * Grid().rowHeight(0));
  const auto found = [this](const char* text) {
    Box().setText(text);
    return Count().section(' ', 0, 0).toInt();
  };
  const std::vector<std::pair<const char*, int>> texts{
      {"plover sparrow", 1},   {"qb1 #01 harb", 1},    {"kr=yes", 28},
      {"KR=yes PR=yes", 1},    {"pc>=0", 56},          {"RS<=6 team!=x", 18},
      {"teamno>27 slot<3", 2}, {"no>=0 photo>=0", 840}};
  for (const auto& [text, count] : texts) EXPECT_EQ(found(text), count) << text;
  const int below = found("RS<38"), equal = found("RS=38"), above = found("RS>38");
  EXPECT_TRUE(below > 0 && equal > 0 && above > 0);
  EXPECT_EQ(below + equal + above, 840);
  EXPECT_EQ(found("RS<=38"), below + equal);
  EXPECT_EQ(found("RS>=38"), above + equal);
  EXPECT_EQ(found("RS!=38"), below + above);
  EXPECT_EQ(found("RS<>38"), below + above);
  EXPECT_EQ(found("RS==38"), equal);
  const QString before = Count();
  const QColor ground = Box().palette().color(QPalette::Base);
  const std::vector<std::pair<const char*, const char*>> wrong{
      {"XX>1", "\"XX>1\": there is no such column"},
      {"RS>", "\"RS>\": a number has to follow"},
      {"RS=>1", "\"RS=>1\": the signs are = != < <= > >="},
      {"Last<5", "\"Last<5\": this column has no numbers"}};
  for (const auto& [text, why] : wrong) {
    Box().setText(text);
    EXPECT_EQ(Box().toolTip(), why);
    EXPECT_EQ(Count(), before) << "the list stays";
    EXPECT_NE(Box().palette().color(QPalette::Base), ground);
  }
  Box().clear();
  EXPECT_EQ(Count(), "840 of 840 players");
  EXPECT_EQ(Box().palette().color(QPalette::Base), ground);
  QTest::keyClicks(&Box(), "otters");
  Grid().setFocus();
  Pick("mToolPlayers");
  QTest::keyClicks(QApplication::focusWidget(), "plover");
  EXPECT_EQ(Box().text(), "plover") << "Ctrl+F begins anew";
}

TEST_F(AllPlayers, ARatingsBarIsAsLongAsItsShare) {
  GoTo(Cell(0, "Team"));
  Grid().scrollTo(Cell(1, "RS"));
  QCoreApplication::processEvents();
  const auto length = [this](int code) {
    LeagueOf(session_).QBData[1][2].RunningSpeed = static_cast<std::int16_t>(code);
    const QRect cell = Grid().visualRect(Cell(1, "RS"));
    const QImage shown = Grid().viewport()->grab(cell).toImage();
    int end = 0;  // of the pixels above the text that differ from the cell's last one
    for (int x = 1; x < shown.width() - 1; ++x) {
      if (shown.pixel(x, 3) != shown.pixel(shown.width() - 1, 3)) end = x;
    }
    return static_cast<double>(end) / shown.width();
  };
  EXPECT_NEAR(length(15), 0.97, 0.06);
  EXPECT_NEAR(length(7), 0.5, 0.06);
  EXPECT_NEAR(length(1), 0.1, 0.06);
  const QRect name = Grid().visualRect(Cell(1, "Last"));
  const int quarter = name.height() / 4;
  EXPECT_GT(InkContrast(*Grid().viewport(), name.adjusted(0, quarter, 0, -quarter)), 4.5);
  const QImage capitals = Grid().viewport()->grab(name.adjusted(2, 2, -2, -2)).toImage();
  const QImage ink = capitals.createMaskFromColor(capitals.pixel(0, 0), Qt::MaskOutColor);
  const int middle = QRegion(QBitmap::fromImage(ink)).boundingRect().center().y();
  EXPECT_NEAR(middle, capitals.rect().center().y(), 2);
}

TEST_F(AllPlayers, AMenuOfTheHeadingsHidesAndShowsColumns) {
  for (const bool hides : {true, false}) {
    QTimer::singleShot(0, [&] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      for (int column = 0; column < Grid().model()->columnCount(); ++column) {
        const QAction* action = menu->actions().at(column);
        EXPECT_TRUE(action->isCheckable());
        EXPECT_EQ(action->isChecked(), !Grid().isColumnHidden(column));
        EXPECT_EQ(action->isEnabled(), action->text() != "Last Name");
      }
      menu->actions().at(Column("Photo"))->trigger();
      menu->close();
    });
    if (hides) {
      QWidget& head = *Grid().horizontalHeader()->viewport();
      QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, head.mapToGlobal(QPoint(5, 5)));
      QApplication::sendEvent(&head, &event);
    } else {
      Act("Choose Columns...");
    }
    EXPECT_EQ(Grid().isColumnHidden(Column("Photo")), hides);
  }
}

TEST_F(AllPlayers, ThePlayerStaysThroughASortAndTheFirstOneComesWithAFilter) {
  const QHeaderView& head = *Grid().horizontalHeader();
  EXPECT_EQ(head.sortIndicatorSection(), -1);
  GoTo(Cell(31, "First"));
  Head("RP");
  EXPECT_EQ(head.sortIndicatorSection(), Column("RP"));
  EXPECT_EQ(Text(Grid().currentIndex().row(), "Last"), "BRACKEN");
  EXPECT_EQ(Grid().currentIndex().column(), Column("RP"));
  EXPECT_EQ(Grid().selectionModel()->selectedIndexes().size(), 1) << "and not the column";
  EXPECT_TRUE(Grid().viewport()->rect().contains(Grid().visualRect(Grid().currentIndex())));
  Act("Sort &Within by This Column");
  EXPECT_EQ(head.sortIndicatorOrder(), Qt::DescendingOrder);
  session_.Change("another", [](LeagueData& league) { league.NameData[1][1].LastName = "ABBOT"; });
  EXPECT_EQ(Text(Grid().currentIndex().row(), "Last"), "BRACKEN");
  Box().setText("sparrows");
  EXPECT_EQ(Grid().currentIndex().row(), 0);
  Box().setText("nobody of that name");
  EXPECT_EQ(Count(), "0 of 840 players");
  for (const char* button : {"btnSet", "btnShow"}) {
    EXPECT_FALSE(Find<QPushButton>(Form("frmAllPlayers"), button).isEnabled()) << button;
  }
}

TEST_F(AllPlayers, ADoubleClickShowsThePlayerOrEditsTheCell) {
  for (const char* heading : {"Team", "Pos", "First", "Last", "No", "RS", "KR"}) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    session_.CurSlot = 0;
    GoTo(Cell(4, heading));
    emit Grid().doubleClicked(Cell(4, heading));
    const bool edits = Grid().viewport()->findChild<QLineEdit*>() != nullptr;
    const bool shows = session_.CurSlot == 5;
    EXPECT_EQ(shows, QStringList({"Team", "Pos", "First", "Last"}).contains(heading)) << heading;
    EXPECT_EQ(edits, !shows) << heading;
    Pick("mToolPlayers");
  }
}

TEST_F(AllPlayers, HeadingsSortAndShiftSortsWithin) {
  Head("RP");
  const auto rating = [&](int row) { return Text(row, "RP").toInt(); };
  Head("Last", Qt::ShiftModifier);
  for (int row = 1; row < 840; ++row) {
    ASSERT_LE(rating(row - 1), rating(row)) << row;
    if (rating(row - 1) == rating(row)) {
      ASSERT_LE(Text(row - 1, "Last"), Text(row, "Last")) << row;
    }
  }
  GoTo(Cell(0, "No"));
  Act("&Sort by This Column");
  for (int row = 1; row < 840; ++row) ASSERT_LE(Text(row - 1, "No"), Text(row, "No")) << row;
  Act("&Sort by This Column");
  for (int row = 1; row < 840; ++row) ASSERT_GE(Text(row - 1, "No"), Text(row, "No")) << row;
  const auto move = [&](const QString& caption) {
    Act(caption);
    return Grid().horizontalHeader()->visualIndex(Column("No"));
  };
  for (const int place : {3, 2, 1, 0, 0}) EXPECT_EQ(move("Move Column &Left"), place);
  for (int place = 1; place < 22; ++place) ASSERT_EQ(move("Move Column &Right"), place);
  EXPECT_EQ(move("Move Column &Right"), 21);
  EXPECT_EQ(move("Move Column &Left"), 20);
}

TEST_F(AllPlayers, CellsAreEditedByTheRulesOfAnImport) {
  Edit(0, "PS", "60");
  EXPECT_EQ(session_.League().QBData[1][1].PassingSpeed, 9);
  EXPECT_EQ(Text(0, "PS"), "63");
  EXPECT_EQ(window_.statusBar()->currentMessage(), "There is no rating of 60; the nearest is 63");
  Edit(0, "Last", "9lives");
  EXPECT_EQ(Text(0, "Last"), "PLOVER");
  EXPECT_EQ(
      window_.statusBar()->currentMessage(),
      "SPARROWS QB 1 sam 9LIVES, Name: the last name \"9LIVES\" must begin with a letter from "
      "A to Z");
  Edit(2, "KR", "yes");
  EXPECT_EQ(session_.League().SkillData[1][1].KickReturner, 1);
  EXPECT_EQ(Text(8, "KR"), "") << "who had it";
  Edit(2, "KR", "no");
  EXPECT_EQ(session_.League().SkillData[1][1].KickReturner, 1);
  GoTo(Cell(0, "PS"));
  Key(Qt::Key_Plus);
  Key(Qt::Key_Plus);
  Key(Qt::Key_Minus);
  EXPECT_EQ(Text(0, "PS"), "69");
  Key(Qt::Key_Delete);
  EXPECT_EQ(Text(0, "PS"), "69");
}

TEST_F(AllPlayers, ABlockIsPastedWholeOrNotAtAll) {
  GoTo(Cell(0, "First"));
  // As LibreOffice Calc and Excel put cells on the clipboard.
  Paste("al\tHERON\r\n\"bo\"\tTERN\r\n");
  EXPECT_EQ(Text(0, "First") + Text(0, "Last") + Text(1, "First") + Text(1, "Last"),
            "alHERONboTERN");
  EXPECT_EQ(Item("mnuEditUndo").text(), "&Undo Paste 4 Cells");
  const LeagueData before = session_.League();
  QString told;
  AnswerNextMessage("OK", &told);
  Paste("zed\t9\n\"two\nlines\"\tX\n");
  EXPECT_EQ(
      told,
      "Nothing was changed:\n\nSPARROWS QB 1 zed 9, Name: the last name \"9\" must begin with "
      "a letter from A to Z\nSPARROWS QB 2 two\\x0Alines X, Name: \"two\\x0AlinesX\" holds a "
      "control character");
  EXPECT_TRUE(session_.League() == before);
  Paste("jon\r\n\r\n");
  EXPECT_EQ(Text(0, "First"), "jon");
  EXPECT_EQ(Text(1, "First"), "bo") << "an empty last line is not a cell";
  Paste("\"bo\" x\n");
  EXPECT_EQ(Text(0, "First"), "\"bo\" x") << "as Excel writes it";
  Pick("mnuEditUndo");
  Pick("mnuEditUndo");
  GoTo(Cell(2, "KR"));
  AnswerNextMessage("OK", &told);
  Paste("yes\nyes\n");
  EXPECT_TRUE(told.contains("another of the team is to have it as well")) << told.toStdString();
  GoTo(Cell(839, "PR"));
  AnswerNextMessage("OK");
  Paste("a\tb\n");
  EXPECT_TRUE(session_.League() == before);
  GoTo(Cell(29, "No"));
  Paste("7\t200\t50\n8\t3\t94\n");
  const LeagueData& league = session_.League();
  EXPECT_EQ(league.NameData[1][30].JerseyNumber + league.NameData[2][1].JerseyNumber, "0708");
  EXPECT_EQ(FaceOf(league, 1, 30), 200);
  EXPECT_EQ(FaceOf(league, 2, 1), 3);
  EXPECT_EQ(Text(29, "RS") + Text(30, "RS"), "5094");

  Grid().clearSelection();
  Grid().selectionModel()->select(QItemSelection(Cell(2, "RS"), Cell(4, "RP")),
                                  QItemSelectionModel::Select);
  Paste("100");
  EXPECT_EQ(Text(2, "RS") + Text(4, "RP") + Text(3, "RS"), "100100100");
  EXPECT_NE(Text(5, "RS"), "100");
  Paste("99");
  EXPECT_EQ(window_.statusBar()->currentMessage(),
            "6 ratings do not exist; the nearest were taken");
}

TEST_F(AllPlayers, WholeRowsAreCopiedWithHeadingsAndPastedBack) {
  Grid().selectRow(0);
  Grid().setFocus();
  Key(Qt::Key_C, Qt::ControlModifier);
  const QString copied = QGuiApplication::clipboard()->text();
  EXPECT_EQ(
      copied,
      "Team\tPos\tFirst\tLast\tNo\tPhoto\tRS\tRP\tMS\tHP\tPS\tPC\tPA\tAPB\tBC\tR\tPI\tQ\tKA\t"
      "AKB\tKR\tPR\nHARBORTON SPARROWS\tQB 1\tsam\tPLOVER\t01\t99\t38\t63\t13\t6\t44\t44\t69\t"
      "44\t\t\t\t\t\t\t\t\n");
  const LeagueData before = session_.League();
  Paste(copied);
  EXPECT_TRUE(session_.League() == before);
  Paste(QString(copied).replace("\t01\t", "\t77\t"));
  EXPECT_EQ(session_.League().NameData[1][1].JerseyNumber, "77");
  // In their visual order and without hidden columns; part of a row is copied without headings.
  Grid().horizontalHeader()->moveSection(Column("No"), 0);
  Grid().setColumnHidden(Column("Last"), true);
  Grid().selectionModel()->select(QItemSelection(Cell(0, "First"), Cell(1, "No")),
                                  QItemSelectionModel::ClearAndSelect);
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "77\tsam\n17\ttad\n");
  GoTo(Cell(0, "No"));
  Paste("78\tHARBORTON SPARROWS\tQB 1\tal\t98\n");
  EXPECT_EQ(Text(0, "No") + Text(0, "First") + Text(0, "Last") + Text(0, "Photo"), "78alPLOVER98");
  Grid().clearSelection();
  Paste("99");
  EXPECT_EQ(Text(0, "No"), "78") << "nothing is selected";
}

TEST_F(AllPlayers, RatingsAreSetForManyAtOnce) {
  Box().setText("qb1 harborton");
  Grid().selectAll();
  Box().setText("qb");
  Grid().selectAll();
  EXPECT_EQ(Count(), "56 of 840 players, 56 selected");
  const LeagueData before = session_.League();
  QStringList effects;
  OnNextDialog([&](QDialog& dialog) {
    const auto effect = [&] { effects << Find<QLabel>(dialog, "lblEffect").text(); };
    Find<QCheckBox>(dialog, "chkRating(3)").click();
    Find<QRadioButton>(dialog, "radPercent").click();
    Find<QSpinBox>(dialog, "spnPercent").setValue(-100);
    effect();
    Find<QRadioButton>(dialog, "radValue").click();
    Find<QComboBox>(dialog, "cmbValue").setCurrentText("100");
    effect();
    Find<QPushButton>(dialog, "btnOK").click();
  });
  Press("frmAllPlayers", "btnSet");
  EXPECT_TRUE(effects[0].endsWith(" at the bottom already")) << effects[0].toStdString();
  EXPECT_EQ(effects[1], "56 players, 56 ratings change");
  EXPECT_EQ(Item("mnuEditUndo").text(), "&Undo Set 56 Ratings");
  EXPECT_EQ(session_.League().QBData[28][2].HittingPower, 15);
  Pick("mnuEditUndo");
  EXPECT_TRUE(session_.League() == before);
}

TEST_F(AllPlayers, APlayerIsShownAndTheColumnsAreKept) {
  GoTo(Cell(31, "RS"));
  Press("frmAllPlayers", "btnShow");
  EXPECT_EQ(session_.CurTeam, 2);
  EXPECT_EQ(session_.CurSlot, 2);
  EXPECT_TRUE(IsOpen("ViewPlayer"));
  Grid().scrollToTop();
  QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {},
                    Grid().visualRect(Cell(2, "Last")).center());
  QTest::mouseDClick(Grid().viewport(), Qt::LeftButton, {},
                     Grid().visualRect(Cell(2, "Last")).center());
  EXPECT_EQ(session_.CurSlot, 3) << "a double click on a name shows the player";
  QTest::mouseRelease(Grid().viewport(), Qt::LeftButton);  // the double click leaves it pressed
  Grid().setColumnHidden(Column("Photo"), true);
  Grid().horizontalHeader()->moveSection(0, 3);
  Press("frmAllPlayers", "btnOK");
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  Pick("mToolPlayers");
  EXPECT_TRUE(Grid().isColumnHidden(Column("Photo")));
  EXPECT_EQ(Grid().horizontalHeader()->visualIndex(0), 3);
}

}  // namespace
}  // namespace rostermill::test
