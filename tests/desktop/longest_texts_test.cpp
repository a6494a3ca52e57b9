#include <QComboBox>
#include <QLineEdit>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>
#include <QTableWidget>

#include "tests/desktop/all_forms.h"
#include "toolkit/elided_button.h"
#include "toolkit/elided_label.h"

namespace rostermill::test {
namespace {

/// The sample league with the longest and widest texts that the editors allow.
class LongestTexts : public AllForms {
 protected:
  LongestTexts() {
    const std::string widest(15, 'W');
    for (int team = 1; team <= 28; ++team) {
      LeagueOf(session_).TeamData[team].City = LeagueOf(session_).TeamData[team].Nickname = widest;
      LeagueOf(session_).TeamData[team].Abbreviation = "WWWW";
      for (NameRec& name : LeagueOf(session_).NameData[team]) name = {"ww", widest.substr(2), "88"};
    }
    // Half of the teams play against themselves in the first week.
    ScheduleWeek& week = LeagueOf(session_).ScheduleData[0];
    week.GameCount = 14;
    for (int game = 0; game < 14; ++game) {
      week.Games[game].AwayTeam = week.Games[game].HomeTeam = static_cast<std::int16_t>(game);
    }
    window_.resize(1120, 800);
  }
};

/// The width in pixels that a control has for its text.
int RoomIn(const QWidget& control) {
  if (auto* list = qobject_cast<const QComboBox*>(&control)) {
    QStyleOptionComboBox option;
    option.initFrom(list);
    const int field =
        list->style()
            ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, list)
            .width();
    return field - 2;
  }
  if (auto* label = qobject_cast<const QLabel*>(&control)) {
    return label->contentsRect().width() - 2 * label->margin();
  }
  auto& box = dynamic_cast<const QLineEdit&>(control);
  QStyleOptionFrame option;
  option.initFrom(&box);
  option.lineWidth = box.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &box);
  return box.style()->subElementRect(QStyle::SE_LineEditContents, &option, &box).width() - 4;
}

/// Checks the texts of a visible form, and returns how many of them are among the longest.
int ExpectNothingCut(QWidget& form) {
  int long_texts = 0;
  const auto expect_room = [&](const QWidget& control, const QString& text) {
    const QString what = control.objectName() + " \"" + text + '"';
    EXPECT_LE(control.fontMetrics().horizontalAdvance(text), RoomIn(control)) << what.toStdString();
    if (text.contains("WWWW", Qt::CaseInsensitive)) ++long_texts;
  };
  for (QLabel* label : form.findChildren<QLabel*>()) {
    if (!label->isVisibleTo(&form)) continue;
    if (label->wordWrap()) {
      EXPECT_LE(label->heightForWidth(label->width()), label->height())
          << label->objectName().toStdString();
    } else {
      expect_room(*label, label->text());
    }
  }
  for (QComboBox* list : form.findChildren<QComboBox*>()) {
    if (!list->isVisibleTo(&form)) continue;
    for (int index = 0; index < list->count(); ++index) expect_room(*list, list->itemText(index));
  }
  for (QLineEdit* box : form.findChildren<QLineEdit*>()) {
    if (box->isVisibleTo(&form)) expect_room(*box, box->text());
  }
  for (QTableWidget* grid : form.findChildren<QTableWidget*>()) {
    for (QTableWidgetItem* cell : grid->findItems(".", Qt::MatchRegularExpression)) {
      EXPECT_LT(grid->fontMetrics().horizontalAdvance(cell->text()),
                grid->columnWidth(cell->column()))
          << cell->text().toStdString();
    }
  }
  return long_texts;
}

TEST_F(LongestTexts, NoTextIsCutOff) {
  int long_texts = 0;
  VisitAll([&](QWidget& form) { long_texts += ExpectNothingCut(form); });
  EXPECT_GT(long_texts, 100) << "the longest texts were not shown";
}

}  // namespace
}  // namespace rostermill::test
