#include <QFile>

#include "shell/start_page.h"
#include "tests/desktop/all_forms.h"
#include "tests/desktop/describe.h"
#include "tests/desktop/use_controls.h"

namespace rostermill::test {
namespace {

QString TextIn(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return QString::fromUtf8(file.readAll());
}

// This test writes the file anew when a form has changed. Read the difference before you keep it.
TEST_F(AllForms, ShowAndDoWhatTheFileOfFormsSays) {
  const QStringList expected = TextIn(FORMS_TEXT).trimmed().split("\n\n");
  QStringList shown;
  const auto compare = [&](const QStringList& lines) {
    const QString text = lines.join('\n');
    EXPECT_EQ(text.toStdString(), expected.value(shown.size()).toStdString());
    shown << text;
  };
  LeagueSession session_without_image;
  FRSMform empty(session_without_image, &settings_);
  empty.AddRecentFile("/league.nes");
  for (QWidget* window : {static_cast<QWidget*>(&empty), static_cast<QWidget*>(&window_)}) {
    compare({Described(Find<StartPage>(*window, "StartPage"))});
  }
  VisitAll([&](QWidget& form) {
    const QStringList first{Described(form)};
    compare(first + ChangesByControl(form));
  });
  EXPECT_EQ(shown.size(), expected.size());
  if (!HasFailure()) return;
  WriteFile("forms.txt", shown.join("\n\n").toStdString() + '\n');
  ADD_FAILURE() << "If all is as it should be, copy forms.txt from here to " << FORMS_TEXT;
}

}  // namespace
}  // namespace rostermill::test
