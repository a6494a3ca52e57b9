#include <QAccessible>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QRadioButton>
#include <QTreeWidget>

#include <algorithm>

#include "tests/desktop/all_forms.h"
#include "toolkit/up_down.h"

namespace rostermill::test {
namespace {

std::string NameOf(const QWidget* widget) {
  return widget == nullptr
             ? "nothing"
             : widget->objectName().toStdString() + " (" + widget->metaObject()->className() + ")";
}

/// The usable controls that take the focus, by Tab at least, except those inside other controls.
QList<QWidget*> Controls(QWidget& form, int policies = Qt::StrongFocus) {
  QList<QWidget*> controls;
  for (QWidget* widget : form.findChildren<QWidget*>()) {
    if (widget->isVisibleTo(&form) && widget->isEnabled() && widget->focusProxy() == nullptr &&
        (widget->focusPolicy() & policies) != 0) {
      controls << widget;
    }
  }
  return controls;
}

/// The controls that Tab visits, beginning with `first`, until it leaves the form or one repeats.
QList<QWidget*> TabWalk(QWidget& form, QWidget* first) {
  QList<QWidget*> walk;
  first->setFocus(Qt::TabFocusReason);
  while (QApplication::focusWidget() != nullptr && !walk.contains(QApplication::focusWidget()) &&
         form.isAncestorOf(QApplication::focusWidget())) {
    walk << QApplication::focusWidget();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  return walk;
}

/// The places of the two widgets, or of their ancestors, within the same parent.
std::pair<QRect, QRect> PlacesSideBySide(QWidget* a, QWidget* b) {
  while (!a->parentWidget()->isAncestorOf(b)) a = a->parentWidget();
  while (b->parentWidget() != a->parentWidget()) b = b->parentWidget();
  return {a->geometry(), b->geometry()};
}

/// Whether reading comes to `after` later: down or to the right, as in the next column.
bool IsRead(QWidget* before, QWidget* after) {
  const auto [a, b] = PlacesSideBySide(before, after);
  return b.left() > a.right() || b.top() > a.bottom();
}

TEST_F(AllForms, TabReachesEverythingInReadingOrder) {
  VisitAll([](QWidget& form) {
    const QList<QWidget*> stops = Controls(form, Qt::TabFocus);
    // Forms that only show texts have no controls.
    if (form.focusPolicy() != Qt::NoFocus || form.objectName() == "Loading") return;
    ASSERT_FALSE(stops.isEmpty());
    EXPECT_TRUE(stops.contains(QApplication::focusWidget())) << "no control has the focus at first";
    QList<QWidget*> walk = TabWalk(form, stops.constFirst());
    const auto reached = [&](QWidget* stop) {
      if (qobject_cast<QRadioButton*>(stop) == nullptr) return walk.contains(stop);
      // Tab reaches one button of a group, and the arrow keys the others.
      return std::any_of(walk.begin(), walk.end(), [stop](QWidget* other) {
        return qobject_cast<QRadioButton*>(other) && other->parent() == stop->parent();
      });
    };
    for (QWidget* stop : stops) EXPECT_TRUE(reached(stop)) << NameOf(stop);
    const auto upper_left = [](QWidget* a, QWidget* b) { return IsRead(a, b) && !IsRead(b, a); };
    const auto head = std::min_element(walk.begin(), walk.end(), upper_left);
    std::rotate(walk.begin(), head, walk.end());
    for (int at = 1; at < walk.size(); ++at) {
      EXPECT_TRUE(IsRead(walk[at - 1], walk[at]))
          << NameOf(walk[at - 1]) << " is followed by " << NameOf(walk[at]);
    }
  });
}

/// The middle row and the middle column of a control, with # where the focus changes a pixel.
std::pair<std::string, std::string> FocusMarks(QWidget& control) {
  control.setFocus(Qt::TabFocusReason);
  const QImage focused = control.grab().toImage();
  control.clearFocus();
  const QImage plain = control.grab().toImage();
  const auto sign_at = [&](int x, int y) {
    return focused.pixel(x, y) == plain.pixel(x, y) ? ' ' : '#';
  };
  std::string across, down;
  for (int x = 0; x < plain.width(); ++x) across += sign_at(x, plain.height() / 2);
  for (int y = 0; y < plain.height(); ++y) down += sign_at(plain.width() / 2, y);
  return {across, down};
}

TEST_F(AllForms, WhatThisProgramPaintsMarksItsFocusEvenlyAllAround) {
  VisitAll([](QWidget& form) {
    for (QWidget* control : Controls(form)) {
      const bool pressed = qobject_cast<QLabel*>(control) || qobject_cast<PictureBox*>(control);
      if (!pressed && !qobject_cast<UpDown*>(control)) continue;
      const auto [across, down] = FocusMarks(*control);
      for (const std::string& marks : {across, down}) {
        EXPECT_NE(marks.find('#'), std::string::npos) << NameOf(control);
        EXPECT_EQ(marks, std::string(marks.rbegin(), marks.rend())) << NameOf(control);
      }
      EXPECT_EQ(control->cursor().shape() == Qt::PointingHandCursor, pressed) << NameOf(control);
    }
    for (const QTreeWidget* list : form.findChildren<QTreeWidget*>()) {
      EXPECT_TRUE(list->columnCount() == 1 || list->allColumnsShowFocus()) << NameOf(list);
    }
  });
}

TEST_F(AllForms, EveryControlHasANameAndEveryFieldACaptionOrANameOfItsOwn) {
  VisitAll([](QWidget& form) {
    QList<QWidget*> controls = Controls(form);
    for (PictureBox* picture : form.findChildren<PictureBox*>()) controls << picture;
    for (QWidget* control : controls) {
      QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(control);
      ASSERT_NE(spoken, nullptr) << NameOf(control);
      EXPECT_FALSE(spoken->text(QAccessible::Name).trimmed().isEmpty()) << NameOf(control);
    }
    QMap<QWidget*, QLabel*> captions;
    for (QLabel* label : form.findChildren<QLabel*>()) {
      EXPECT_FALSE(captions.contains(label->buddy())) << NameOf(label->buddy());
      if (label->buddy() != nullptr) captions.insert(label->buddy(), label);
    }
    for (const auto& [field, caption] : captions.asKeyValueRange()) {
      const QRect left(caption->mapTo(&form, QPoint()), caption->size());
      const QRect right(field->mapTo(&form, QPoint()), field->size());
      EXPECT_TRUE(caption->isVisibleTo(&form)) << NameOf(field);
      EXPECT_LT(left.right(), right.left()) << NameOf(field);
      int room = 0;  // for the widest caption above or below
      for (QLabel* other : captions) {
        if (other->mapTo(&form, QPoint()).x() != left.left()) continue;
        room = std::max({room, other->sizeHint().width(), other->minimumWidth()});
      }
      EXPECT_LE(left.width(), room) << NameOf(field);
      EXPECT_GE(left.center().y(), right.top()) << NameOf(field);
      EXPECT_LE(left.center().y(), right.bottom()) << NameOf(field);
    }
    for (QWidget* field : Controls(form, Qt::TabFocus)) {
      if (!qobject_cast<QComboBox*>(field) && !qobject_cast<QLineEdit*>(field)) continue;
      EXPECT_TRUE(captions.contains(field) || !field->accessibleName().isEmpty()) << NameOf(field);
    }
  });
}

// A busy window is disabled, which takes the focus from its controls.
TEST_F(AllForms, TheFocusSurvivesASaveAndALoad) {
  Pick("mViePlayerData");
  auto& teams = Find<QComboBox>(Form("ViewPlayer"), "cmbTeam");
  teams.setFocus();
  AnswerNextMessage("Yes");
  Pick("mFilSaveROM");
  Activate(window_);
  EXPECT_EQ(QApplication::focusWidget(), &teams) << NameOf(QApplication::focusWidget());
  EXPECT_TRUE(window_.OpenImageFile(path_));
  QCoreApplication::processEvents();
  EXPECT_EQ(QApplication::focusWidget(), &teams) << NameOf(QApplication::focusWidget());
}

TEST_F(AllForms, ChildWindowShortcutsWork) {
  Pick("mVieTeamData");
  Pick("mViePlayerData");
  const auto active = [this] {
    return Area().activeSubWindow()->widget()->objectName().toStdString();
  };
  ASSERT_EQ(active(), "ViewPlayer");
  AnswerNextMessage("No");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_W, Qt::ControlModifier);
  Activate(window_);
  ASSERT_EQ(active(), "ViewPlayer");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F4, Qt::ControlModifier);
  QCoreApplication::processEvents();
  EXPECT_EQ(active(), "ViewTeams");
  EXPECT_EQ(Area().subWindowList().size(), 1);
}

/// Drops a file on the main window or on a control in it; returns whether it was accepted.
bool Drop(QWidget& window, const QString& path) {
  QMimeData file;
  file.setUrls({QUrl::fromLocalFile(path)});
  file.setText(path);  // as file managers do
  const QPoint place(2, 2);
  QDragEnterEvent enter(place, Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
  enter.setAccepted(false);
  QCoreApplication::sendEvent(&window, &enter);
  if (!enter.isAccepted()) return false;
  QDropEvent drop(place, Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&window, &drop);
  QCoreApplication::processEvents();
  return drop.isAccepted();
}

TEST_F(AllForms, ADroppedImageIsLoadedLikeOneFromTheMenu) {
  const QString palette = QString::fromStdString(BinFolder() + "colors.txt");
  const QString images[] = {QString::fromStdString(folder_.Path("OTHER.NES")),
                            QString::fromStdString(path_)};
  WriteFile(images[0].toStdString(), SampleBytes());
  Pick("mSchEdit");
  Pick("mnuEditGameSettings");
  const auto boxes = window_.findChildren<QLineEdit*>();
  EXPECT_EQ(boxes.size(), 28 + 4);
  int drops = 0;
  for (QWidget* target : QList<QWidget*>{&window_, boxes.first(), boxes.last()}) {
    const auto* box = qobject_cast<QLineEdit*>(target);
    const QString before = box != nullptr ? box->text() : QString();
    const QString image = images[drops++ % 2];
    EXPECT_FALSE(Drop(*target, palette));
    EXPECT_TRUE(Drop(*target, image));
    EXPECT_EQ(session_.ImagePath, image.toStdString());
    EXPECT_EQ(window_.GetRecentFiles()[0], image);
    EXPECT_EQ(box != nullptr ? box->text() : QString(), before) << NameOf(target);
  }
  window_.setEnabled(false);
  EXPECT_FALSE(Drop(window_, images[1])) << "while it is busy";
  window_.setEnabled(true);

  const QString bad = QString::fromStdString(folder_.Path("text.nes"));
  WriteFile(bad.toStdString(), std::string("no image"));
  AnswerNextMessage("OK");
  EXPECT_TRUE(Drop(window_, bad));
  QTest::qWait(50);
  EXPECT_EQ(window_.GetRecentFiles()[0], images[0]);
}

}  // namespace
}  // namespace rostermill::test
