#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QStyleOptionTitleBar>

#include <algorithm>

#include "tests/desktop/all_forms.h"
#include "tests/desktop/contrast.h"

namespace rostermill::test {
namespace {

/// The places of the visible controls on a form.
QMap<const QWidget*, QRect> Places(const QWidget& form) {
  QMap<const QWidget*, QRect> places;
  for (const QWidget* control : form.findChildren<QWidget*>()) {
    if (control->isVisibleTo(&form)) {
      places.insert(control, QRect(control->mapTo(&form, QPoint()), control->size()));
    }
  }
  return places;
}

TEST_F(AllForms, AnEnlargedFormKeepsItsContentTogetherOrGrowsIt) {
  window_.resize(1440, 860);
  const QStringList growing{"ViewTeams",     "ViewSchedule",   "frmVersions", "frmChoosePlayer",
                            "frmAllPlayers", "frmCheckLeague", "frmCompare",  "Loading"};
  QStringList kept;
  VisitAll([&](QWidget& form) {
    const bool grows = growing.contains(form.objectName());
    QWidget* frame = qobject_cast<QMdiSubWindow*>(form.parentWidget());
    if (frame == nullptr) frame = &form;
    const auto before = Places(form);
    frame->resize(frame->size() * 2);
    QCoreApplication::processEvents();
    for (const auto& [control, place] : Places(form).asKeyValueRange()) {
      const auto* label = qobject_cast<const QLabel*>(control);
      if (grows && (label == nullptr || label->buddy() == nullptr)) continue;
      const QRect old = before.value(control);
      EXPECT_EQ(place.size(), old.size()) << control->objectName().toStdString();
      if (grows) continue;
      EXPECT_EQ(place, old) << control->objectName().toStdString();
    }
    if (!grows) kept << form.objectName();
    frame->resize(frame->size() / 2);
  });
  EXPECT_GE(kept.size(), 12);

  Pick("mWinCloseAll");
  Pick("mVieTeamData");
  auto& play = Find<PictureBox>(Form("ViewTeams"), "picRun(7)");
  QWidget& frame = *Form("ViewTeams").parentWidget();
  const QSize small = play.contentsRect().size();
  const auto& general = Find<QGroupBox>(Form("ViewTeams"), "Frame3");
  const int height = general.height();
  EXPECT_EQ(small, QSize(112, 84));
  for (const auto& [factor, size] : {std::pair(2, QSize(980, 700)), std::pair(3, QSize(1460, 900)),
                                     std::pair(1, QSize(1460, 500))}) {
    frame.resize(size);
    QCoreApplication::processEvents();
    EXPECT_EQ(play.contentsRect().size(), small * factor);
    EXPECT_EQ(general.height(), height);
    const auto& ok = Find<QPushButton>(Form("ViewTeams"), "btnOK");
    EXPECT_GT(ok.mapTo(&Form("ViewTeams"), QPoint()).y(),
              play.mapTo(&Form("ViewTeams"), play.rect().bottomLeft()).y());
  }
}

TEST_F(AllForms, FormsOpenSideBySideAndLeaveTheButtonsOfOthersFree) {
  const auto place = [this](const char* form) { return Form(form).parentWidget()->geometry(); };
  window_.resize(1440, 860);
  QCoreApplication::processEvents();
  Pick("mVieTeamData");
  Press("ViewTeams", "btnEdit");
  EXPECT_FALSE(place("ViewTeams").intersects(place("EditTeam")));
  Press("ViewTeams", "btnOK");
  for (const char* item : {"mViePlayerData", "mVieLeaders", "mnuEditGameSettings"}) Pick(item);
  Press("ViewPlayer", "btnEdit");
  EXPECT_FALSE(place("ViewPlayer").intersects(place("EditPlayer")));
  QList<QMdiSubWindow*> windows = Area().subWindowList(QMdiArea::StackingOrder);
  for (QMdiSubWindow* below : windows) {
    for (QMdiSubWindow* above : windows.mid(windows.indexOf(below) + 1)) {
      const auto& row = *below->findChild<QDialogButtonBox*>();
      const QRect buttons(row.mapTo(Area().viewport(), QPoint()), row.size());
      EXPECT_FALSE(above->geometry().intersects(buttons)) << below->windowTitle().toStdString();
    }
  }
}

TEST_F(AllForms, CtrlPageKeysStepThroughTheSlotsFromViewerAndEditor) {
  Pick("mViePlayerData");
  auto& positions = Find<QComboBox>(Form("ViewPlayer"), "cmbPosition");
  positions.setCurrentIndex(0);
  Press("ViewPlayer", "btnEdit");
  const auto press = [](Qt::Key key) {
    QTest::keyClick(QApplication::focusWidget(), key, Qt::ControlModifier);
  };
  press(Qt::Key_PageUp);
  EXPECT_EQ(positions.currentIndex(), 0);
  press(Qt::Key_PageDown);
  press(Qt::Key_PageDown);
  EXPECT_EQ(positions.currentIndex(), 2);
  Area().ShowForm(static_cast<ChildForm*>(&Form("ViewPlayer")));
  press(Qt::Key_PageUp);
  EXPECT_EQ(positions.currentIndex(), 1);
  positions.setCurrentIndex(29);
  press(Qt::Key_PageDown);
  EXPECT_EQ(positions.currentIndex(), 29);
}

// The table of leaders has no heading over the ranks, and its rows end before the scroll bar.
TEST_F(AllForms, RowsOfAGridReachBothEdgesAndNoTwoItemsShareACell) {
  VisitAll([](QWidget& form) {
    for (const QGridLayout* grid : form.findChildren<QGridLayout*>()) {
      QMap<int, QList<int>> rows;
      int last = 0;
      for (int item = 0; item < grid->count(); ++item) {
        int row = 0, column = 0, height = 0, width = 0;
        grid->getItemPosition(item, &row, &column, &height, &width);
        last = std::max(last, column + width - 1);
        for (int cell = 0; cell < height * width; ++cell) {
          QList<int>& columns = rows[row + cell / width];
          EXPECT_FALSE(columns.contains(column + cell % width)) << "row " << row;
          columns << column + cell % width;
        }
      }
      if (form.objectName() == "ViewLeaders") continue;
      for (const auto& [row, columns] : rows.asKeyValueRange()) {
        EXPECT_TRUE(columns.contains(0) && columns.contains(last)) << "row " << row;
      }
    }
  });
}

// Styles may draw the signs of inactive windows in black, whatever the color scheme.
TEST_F(AllForms, ADarkInactiveWindowShowsItsSignsAndItsFrame) {
  const QPalette standard = QApplication::palette();
  QApplication::setPalette(driver::DarkPalette());
  Pick("mViePlayerData");
  Pick("mVieLeaders");
  QWidget& frame = *Form("ViewPlayer").parentWidget();
  const QImage shown = frame.grab().toImage();
  const QColor area = Area().background().color();
  EXPECT_GE(Contrast(shown.pixel(shown.width() / 2, shown.height() - 1), area.rgb()), 3);
  EXPECT_GE(Contrast(shown.pixel(0, shown.height() / 2), area.rgb()), 3);
  const int bar = frame.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &frame);
  for (int button = 1; button <= 3; ++button) {
    const QRect sign(frame.width() - button * bar + 6, 8, bar - 12, bar - 12);
    EXPECT_GE(InkContrast(frame, sign), 4.5) << button;
  }
  QApplication::setPalette(standard);
}

TEST_F(AllForms, ALightWindowHasTheFrameOfTheDesktopsStyle) {
  Pick("mViePlayerData");
  Pick("mVieLeaders");
  for (const char* form : {"ViewPlayer", "ViewLeaders"}) {
    QWidget& frame = *Form(form).parentWidget();
    const QImage shown = frame.grab().toImage();
    frame.setStyle(QApplication::style());
    EXPECT_EQ(shown, frame.grab().toImage()) << form;
  }
}

}  // namespace
}  // namespace rostermill::test
