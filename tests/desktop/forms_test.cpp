#include "shell/start_page.h"
#include "tests/desktop/all_forms.h"
#include "tests/desktop/describe.h"
#include "tests/desktop/use_controls.h"
#include "tests/support/expected_text.h"

namespace rostermill::test {
namespace {

TEST_F(AllForms, ShowAndDoWhatTheFileOfFormsSays) {
  LeagueSession session_without_image;
  FRSMform empty(session_without_image, &settings_);
  empty.AddRecentFile("/league.nes");
  QStringList shown;
  for (QWidget* window : {static_cast<QWidget*>(&empty), static_cast<QWidget*>(&window_)}) {
    shown << Described(Find<StartPage>(*window, "StartPage"));
  }
  VisitAll([&shown](QWidget& form) {
    shown << Described(form);
    if (const QStringList changes = ChangesByControl(form); !changes.isEmpty()) {
      shown.back() += '\n' + changes.join('\n');
    }
  });
  ExpectTextOfFile("desktop/forms.txt", shown);
}

}  // namespace
}  // namespace rostermill::test
