#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QStyleOptionGroupBox>

#include "tests/desktop/all_forms.h"
#include "tests/desktop/contrast.h"
#include "toolkit/click_label.h"
#include "toolkit/flex_grid.h"
#include "toolkit/readable_color.h"

namespace rostermill::test {
namespace {

/// The text that a control shows; empty if it shows none.
QString TextOf(const QWidget* control) {
  if (auto* label = qobject_cast<const QLabel*>(control)) return label->text();
  if (auto* button = qobject_cast<const QAbstractButton*>(control)) return button->text();
  if (auto* box = qobject_cast<const QLineEdit*>(control)) return box->text();
  if (auto* list = qobject_cast<const QComboBox*>(control)) return list->currentText();
  if (auto* box = qobject_cast<const QGroupBox*>(control)) return box->title();
  return qobject_cast<const QAbstractItemView*>(control) ? "cells" : QString();
}

/// Where a control shows its text: everything inside its frame, or the title of a group box.
QRect TextPart(const QWidget* control) {
  if (auto* box = qobject_cast<const QGroupBox*>(control)) {
    QStyleOptionGroupBox option;
    option.initFrom(box);
    option.subControls = QStyle::SC_GroupBoxLabel;
    option.text = box->title();
    option.lineWidth = 1;
    return box->style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel,
                                        box);
  }
  const int rim = qobject_cast<const QLabel*>(control) ? 0 : 3;
  return control->rect().adjusted(rim, rim, -rim, -rim);
}

void ExpectReadable(QWidget& form) {
  for (QWidget* control : form.findChildren<QWidget*>()) {
    const bool shown = control->isVisibleTo(&form) && control->isEnabled();
    if (!shown || TextOf(control).trimmed().isEmpty()) continue;
    const auto what = control->objectName() + " \"" + TextOf(control) + '"';
    EXPECT_GE(InkContrast(*control, TextPart(control)), 4.5) << what.toStdString();
    auto* box = qobject_cast<QLineEdit*>(control);
    if (box == nullptr) continue;
    box->selectAll();
    EXPECT_GE(InkContrast(*box, TextPart(box)), 4.5) << what.toStdString() << " selected";
    box->deselect();
  }
}

/// Checks the items of a menu and of all menus in it, highlighted and not. Returns their number.
int ExpectReadableItems(QMenu& menu) {
  int looked = 0;
  menu.popup({0, 0});
  for (QAction* item : menu.actions()) {
    if (item->isSeparator() || !item->isVisible() || !item->isEnabled()) continue;
    const std::string caption = item->text().toStdString();
    menu.setActiveAction(nullptr);
    EXPECT_GE(InkContrast(menu, menu.actionGeometry(item)), 4.5) << caption;
    menu.setActiveAction(item);
    EXPECT_GE(InkContrast(menu, menu.actionGeometry(item)), 4.5) << caption << " highlighted";
    ++looked;
    if (item->menu() != nullptr) looked += ExpectReadableItems(*item->menu());
  }
  menu.close();
  return looked;
}

TEST(StandingOut, ChangesAColorOnlyWhereItDoesNotStandOut) {
  EXPECT_EQ(StandingOut(QColor(0x20, 0x40, 0x60), Qt::white).name(), "#204060");
  EXPECT_GE(Contrast(StandingOut(QColor(0xA0, 0xC0, 0xE0), Qt::white).rgb(), 0xFFFFFF), 4.5);
}

/// Sets the palette before there is a window, as a desktop does.
class Scheme : public testing::WithParamInterface<bool> {
 protected:
  Scheme() {
    if (GetParam()) QApplication::setPalette(driver::DarkPalette());
  }
  ~Scheme() override { QApplication::setPalette(standard_); }

 private:
  QPalette standard_ = QApplication::palette();
};

class InAScheme : public Scheme, public AllForms {
 protected:
  InAScheme() {
    EXPECT_EQ(GetParam(), IsDark(window_));
    for (QMenu* menu : window_.findChildren<QMenu*>()) EXPECT_EQ(GetParam(), IsDark(*menu));
  }

  LeagueSession session_without_image_;

  static bool IsDark(const QWidget& widget) {
    return widget.palette().window().color().lightness() < 128;
  }
};

INSTANTIATE_TEST_SUITE_P(LightAndDark, InAScheme, testing::Bool(),
                         [](const auto& scheme) { return scheme.param ? "Dark" : "Light"; });

TEST_P(InAScheme, EveryTextIsReadable) {
  ExpectReadable(window_);
  VisitAll([](QWidget& form) { ExpectReadable(form); });
  FRSMform empty(session_without_image_, &settings_);
  empty.AddRecentFile("/a.nes");
  empty.show();
  EXPECT_EQ(Find<QPushButton>(empty, "btnLink(0)").text(), "/a.nes");
  ExpectReadable(empty);
  Pick("mViePlayerData");
  auto& list = Find<QComboBox>(Form("ViewPlayer"), "cmbTeam");
  list.showPopup();
  for (const int row : {list.currentIndex(), list.currentIndex() + 1}) {
    const QRect part = list.view()->visualRect(list.model()->index(row, 0));
    EXPECT_GE(InkContrast(*list.view()->viewport(), part), 4.5) << row;
  }
  list.hidePopup();
  auto& find = Find<QLineEdit>(Form("frmAllPlayers"), "txtFind");
  find.setText("no such condition>1");
  const QPalette& wrong = find.palette();
  EXPECT_GE(Contrast(wrong.base().color().rgb(), wrong.text().color().rgb()), 4.5);
  for (const char* name : {"lblHead(1)", "lblHead(3)"}) {
    auto& heading = Find<ClickLabel>(Form("ViewLeaders"), name);
    for (const char* order : {" down", " up"}) {
      emit heading.Click();
      EXPECT_GE(InkContrast(heading, heading.rect()), 4.5) << name << order;
    }
  }
}

TEST_P(InAScheme, MenusAreReadable) {
  QMenuBar& bar = *window_.menuBar();
  int looked = 0;
  for (QAction* item : bar.actions()) {
    EXPECT_GE(InkContrast(bar, bar.actionGeometry(item)), 4.5) << item->text().toStdString();
    if (item->isEnabled()) looked += ExpectReadableItems(*item->menu());
  }
  EXPECT_GT(looked, 28) << "each team has an item";
}

/// Sets the font's size, where 1.5 is a user's large font; the window keeps its size.
class WithAFont : public AllForms, public testing::WithParamInterface<double> {
 protected:
  WithAFont() {
    QFont font = standard_;
    font.setPointSizeF(standard_.pointSizeF() * GetParam());
    QApplication::setFont(font);
    QCoreApplication::processEvents();
  }
  ~WithAFont() override { QApplication::setFont(standard_); }

 private:
  QFont standard_ = QApplication::font();
};

INSTANTIATE_TEST_SUITE_P(Sizes, WithAFont, testing::Values(1.0, 1.5),
                         [](const auto& size) { return size.param > 1 ? "Large" : "Standard"; });

TEST_P(WithAFont, FormsOpenAtTheSizeOfTheirContentInsideTheWindow) {
  window_.resize(1120, 800);
  VisitAll([this](QWidget& form) {
    EXPECT_GE(form.width(), form.minimumSizeHint().width());
    EXPECT_GE(form.height(), form.minimumSizeHint().height());
    auto* frame = qobject_cast<QMdiSubWindow*>(form.parentWidget());
    if (frame == nullptr) {
      EXPECT_LE(form.height(), window_.height());
      EXPECT_LE(form.width(), window_.width());
      return;
    }
    const QRect room = Area().viewport()->rect();
    const QRect place = frame->geometry();
    for (const FlexGrid* grid : form.findChildren<FlexGrid*>()) {
      for (const QTableWidgetItem* game : grid->findItems(" @ ", Qt::MatchContains)) {
        EXPECT_LT(grid->fontMetrics().horizontalAdvance(game->text()),
                  grid->columnWidth(game->column()));
      }
    }
    EXPECT_TRUE(room.contains(place))
        << place.x() << ',' << place.y() << ' ' << place.width() << 'x' << place.height() << " in "
        << room.width() << 'x' << room.height();
  });
}

TEST_P(WithAFont, CascadeAndTileShrinkNoFormTooFar) {
  for (const char* item : {"mViePlayerData", "mVieTeamData", "mVieLeaders", "mDatProbowl"}) {
    Pick(item);
  }
  const auto expect_whole = [this](const char* order) {
    QCoreApplication::processEvents();
    for (QMdiSubWindow* frame : Area().subWindowList()) {
      // Qt counts the frame of an inactive window as one pixel thicker.
      const QSize least = frame->widget()->minimumSizeHint() - QSize(1, 1);
      EXPECT_EQ(frame->widget()->size().expandedTo(least), frame->widget()->size())
          << order << ' ' << frame->widget()->objectName().toStdString();
    }
  };
  Area().cascadeSubWindows();
  expect_whole("cascade");
  Area().tileSubWindows();
  expect_whole("tile");
}

}  // namespace
}  // namespace rostermill::test
