#pragma once

#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>
#include <gtest/gtest.h>

#include "screens/players/display_text.h"
#include "screens/players/edit_player.h"
#include "screens/players/view_player.h"
#include "tests/support/dialogs.h"
#include "tests/support/sample.h"
#include "toolkit/drop_down_list.h"
#include "toolkit/qt_strings.h"
#include "toolkit/text_box.h"

namespace rostermill::test {

/// The player viewer and its editor in the inside of a main window, on the sample league.
class PlayerForms : public testing::Test {
 protected:
  PlayerForms() { area_.resize(1200, 900); }

  void OpenViewer() {
    viewer_ = new ViewPlayer(*session_);
    area_.ShowForm(viewer_);
  }

  void OpenEditor() {
    Find<QPushButton>(*viewer_, "btnEdit").click();
    for (QMdiSubWindow* window : area_.subWindowList()) {
      if (auto* form = qobject_cast<EditPlayer*>(window->widget())) editor_ = form;
    }
    ASSERT_NE(editor_, nullptr);
  }

  void OpenBoth() {
    OpenViewer();
    OpenEditor();
  }

  DropDownList& List(const char* name) { return Find<DropDownList>(*viewer_, name); }
  QString Viewed(const char* label) { return Find<QLabel>(*viewer_, label).text(); }
  QString Edited(const char* label) { return Find<QLabel>(*editor_, label).text(); }
  TextBox& NameBox() { return Find<TextBox>(*editor_, "txtPlayer"); }
  void Press(const char* button, int times = 1) {
    for (int time = 0; time < times; ++time) Find<QPushButton>(*editor_, button).click();
  }
  void GoTo(int team, int slot) {
    List("cmbTeam").SetListIndex(List("cmbTeam").findText(
        FromLatin1(TeamListText(LeagueOf(*session_), team)), Qt::MatchExactly));
    List("cmbPosition").SetListIndex(slot - 1);
  }
  NameRec& Name(int team, int slot) { return LeagueOf(*session_).NameData[team][slot]; }

  std::unique_ptr<LeagueSession> session_ = SampleSession();
  ChildArea area_;
  QPointer<ViewPlayer> viewer_;
  QPointer<EditPlayer> editor_;
};

}  // namespace rostermill::test
