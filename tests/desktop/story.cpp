#include "tests/desktop/story.h"

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QRegularExpression>
#include <QStatusBar>

#include "exchange/league_json.h"
#include "tests/desktop/describe.h"
#include "tests/support/expected_text.h"

namespace rostermill::test {

namespace {

QString OneLine(QString text) {
  return text.replace('\n', "\\n");
}

QString DescribedDialog(QWidget& dialog) {
  if (const auto* box = qobject_cast<QMessageBox*>(&dialog)) {
    const QString text = QString(box->text()).replace(qVersion(), "(version)");
    return box->windowTitle() + ": " + OneLine(text + ' ' + box->informativeText());
  }
  // What else it shows is Qt's.
  if (const auto* files = qobject_cast<QFileDialog*>(&dialog)) {
    return files->windowTitle() + ": " + files->nameFilters().join(" | ");
  }
  return Described(dialog);
}

}  // namespace

Story::Story(FRSMform& window, const LeagueSession& session, QString folder)
    : window_(window), session_(session), folder_(std::move(folder)), before_(Parts()) {}

void Story::Tell(const QString& title) {
  const LinesOfParts now = Parts();
  QString told = OneLine(title).replace(folder_, "(folder)");
  for (const auto& [name, lines] : now.asKeyValueRange()) {
    const QStringList changed = NewLines(before_.value(name), lines);
    if (!changed.isEmpty()) told += "\n  " + name + "\n    " + changed.join("\n    ");
  }
  for (const auto& [name, lines] : before_.asKeyValueRange()) {
    if (!now.contains(name)) told += "\n  " + name + " is closed";
  }
  before_ = now;
  sections_ << told;
}

Story::LinesOfParts Story::Parts() {
  LinesOfParts parts;
  QStringList window{window_.windowTitle()};
  for (const QLabel* label : window_.statusBar()->findChildren<QLabel*>()) {
    window << label->objectName() + ' ' + label->text() + " (tip " + label->toolTip() + ')';
  }
  window << "message " + window_.statusBar()->currentMessage();
  for (const QAction* action : window_.findChildren<QAction*>(QRegularExpression("^m"))) {
    window << action->objectName() + ' ' + action->text() + (action->isEnabled() ? "" : ", gray");
  }
  parts["the window"] = window;
  if (!league_ || *league_ != session_.League()) {
    league_ = session_.League();
    league_hash_ =
        ShortHash(QString::fromStdString(WriteLeagueJson(*league_, JsonLayout::Compact)));
  }
  parts["the league"] = {league_hash_};
  if (QWidget* dialog = QApplication::activeModalWidget()) {
    parts["dialog"] = DescribedDialog(*dialog).split('\n');
  }
  for (QMdiSubWindow* frame : window_.findChildren<QMdiSubWindow*>()) {
    if (frame->widget() == nullptr || !frame->isVisible()) continue;
    parts[frame->widget()->objectName()] = Described(*frame->widget()).split('\n');
  }
  // These differ from run to run.
  static const QRegularExpression time("(\\d\\d\\d\\d-\\d\\d-\\d\\d )?\\d\\d:\\d\\d");
  for (QStringList& lines : parts) {
    lines.replaceInStrings(time, "(time)").replaceInStrings(folder_, "(folder)");
  }
  return parts;
}

}  // namespace rostermill::test
