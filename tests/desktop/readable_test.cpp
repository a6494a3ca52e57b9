#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScopeGuard>
#include <QStyleOptionGroupBox>
#include <QTreeView>

#include "tests/desktop/all_forms.h"
#include "tests/desktop/contrast.h"
#include "toolkit/click_label.h"
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
  for (const QRgb ground : {0xFFFFFFU, 0x808080U, 0x606060U, 0xFF0000U, 0x00A000U, 0x4040FFU, 0U}) {
    for (const QRgb color : {0xA0C0E0U, 0x203040U, 0x40A040U}) {
      const QRgb standing_out = StandingOut(QColor(color), QColor(ground), 4).rgb();
      EXPECT_GE(Contrast(standing_out, ground), 3.9) << std::hex << ground << " " << color;
      const bool stood_out = Contrast(color, ground) >= 4;
      EXPECT_LE(Contrast(standing_out, ground), stood_out ? 21 : 4.6) << "no more than needed";
    }
  }
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

TEST_F(AllForms, FormsOpenAtTheSizeOfTheirContentInsideTheWindowWithALargeFontToo) {
  const QFont standard = QApplication::font();
  const auto put_back = qScopeGuard([&standard] { QApplication::setFont(standard); });
  window_.resize(1120, 800);
  for (const double size : {1.0, 1.5}) {
    QFont font = standard;
    font.setPointSizeF(standard.pointSizeF() * size);
    QApplication::setFont(font);
    Pick("mWinCloseAll");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    VisitAll([this](QWidget& form) {
      EXPECT_GE(form.width(), form.minimumSizeHint().width());
      EXPECT_GE(form.height(), form.minimumSizeHint().height());
      for (const QTreeView* list : form.findChildren<QTreeView*>()) {
        EXPECT_GT(list->height(), 8 * list->fontMetrics().height());
        EXPECT_GT(list->width(), 60 * list->fontMetrics().averageCharWidth());
        for (int column = 0; column < list->model()->columnCount(); ++column) {
          EXPECT_GT(list->columnWidth(column), 6 * list->fontMetrics().averageCharWidth());
        }
      }
      if (auto* frame = qobject_cast<QMdiSubWindow*>(form.parentWidget())) {
        EXPECT_TRUE(Area().viewport()->rect().contains(frame->geometry()));
      } else {
        EXPECT_LE(form.height(), window_.height());
        EXPECT_LE(form.width(), window_.width());
      }
    });
  }
}

}  // namespace
}  // namespace rostermill::test
