#pragma once

#include <QLabel>
#include <QRadioButton>

#include "rules/display_text.h"
#include "screens/teams/edit_team.h"
#include "screens/teams/view_teams.h"
#include "tests/screens/screen_fixture.h"
#include "toolkit/qt_strings.h"

namespace rostermill::test {

/// The team viewer and its editor inside a main window, on the sample league.
class TeamForms : public ScreenTest {
 protected:
  TeamForms() {
    area_.resize(1400, 900);
    area_.show();
  }

  void OpenViewer() {
    viewer_ = new ViewTeams(*session_);
    area_.ShowForm(viewer_);
  }
  void OpenEditor(int team) {
    if (!viewer_) OpenViewer();
    GoTo(team);
    Find<QPushButton>(*viewer_, "btnEdit").click();
    editor_ = area_.findChild<EditTeam*>();
    ASSERT_NE(editor_, nullptr);
  }

  DropDownList& Teams() { return Find<DropDownList>(*viewer_, "cmbTeam"); }
  void GoTo(int team) {
    const QString text = FromLatin1(TeamListText(League(), team));
    Teams().SetListIndex(Teams().findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive));
  }
  QString Viewed(const char* label) { return Find<QLabel>(*viewer_, label).text(); }
  TextBox& Box(const char* name) { return Find<TextBox>(*editor_, name); }
  QString Caption(const char* button) { return Find<QPushButton>(*editor_, button).text(); }
  void Press(const QString& button) { Find<QPushButton>(*editor_, button).click(); }
  /// Presses Space on a picture of the editor.
  void PressPicture(const char* picture) {
    QTest::keyClick(&Find<PictureBox>(*editor_, picture), Qt::Key_Space);
  }
  /// The color of a cell of a figure, by its row and column in the pattern, counted from 1.
  QColor Cell(const char* figure, int row, int column) {
    return Find<PictureBox>(*editor_, figure).Picture().pixelColor(3 * column + 1, 3 * row + 1);
  }
  QColor Screen(int index) {
    const PaletteRec& rec = League().PaletteData[index];
    return {rec.Red, rec.Green, rec.Blue};
  }
  QString Named(int index) { return FromUtf8(League().PaletteData[index].Name); }
  /// The picture of a play as the program has it in its folder; slots and choices as in the league.
  static QImage PlayPicture(int slot, int choice) {
    const char kind = slot <= 4 ? 'r' : 'p';
    const QString file = QString("%1%2-%3.bmp").arg(kind).arg((slot - 1) % 4 + 1).arg(choice);
    return QImage(FromUtf8(BinFolder()) + file)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
  }
  TeamRec& Team(int team) { return League().TeamData[team]; }

  QPointer<ViewTeams> viewer_;
  QPointer<EditTeam> editor_;
};

}  // namespace rostermill::test
