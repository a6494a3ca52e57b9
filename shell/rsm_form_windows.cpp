#include <QFileInfo>
#include <QMdiSubWindow>
#include <QPointer>
#include <QScreen>

#include "shell/rsm_form.h"
#include "shell/start_page.h"
#include "toolkit/control_array.h"
#include "toolkit/form_parts.h"
#include "toolkit/keep_setting.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

constexpr QSize opening_size(1440, 860);
constexpr QSize least_size(320, 240);
constexpr double part_of_screen = 0.95;
constexpr const char* size_key = "Window/Size";
constexpr int longest_link = 60;  // characters

/// The screens that the start page offers, in the order of their keys.
constexpr std::array screen_items{"mViePlayerData", "mVieTeamData", "mSchEdit",
                                  "mVieLeaders",    "mDatProbowl",  "mnuEditGameSettings",
                                  "mToolPlayers"};

}  // namespace

void FRSMform::PlaceWindow() {
  const QRect room = screen()->availableGeometry();
  const QSize stored = settings_.value(size_key).toSize();
  const QSize wanted = stored.isValid() ? stored.expandedTo(least_size) : opening_size;
  resize(wanted.boundedTo(room.size() * part_of_screen));
  QRect place = geometry();
  place.moveCenter(room.center());
  move(place.topLeft());
}

void FRSMform::closeEvent(QCloseEvent* event) {
  KeepSetting(settings_, size_key, isMaximized() ? normalGeometry().size() : size());
  QMainWindow::closeEvent(event);
}

void FRSMform::ShowStartPage() {
  std::vector<StartPage::Link> links;
  if (session_.ImageLoaded == 0) {
    const RecentFiles::List files = GetRecentFiles();
    for (int index = 0; index < RecentFiles::Count; ++index) {
      const QString& path = files[static_cast<std::size_t>(index)];
      if (path.isEmpty() || path == "None") continue;
      QAction* item = menu_.Item(MemberName("mnuFileRecent", index));
      const int room = fontMetrics().averageCharWidth() * longest_link;
      links.push_back(
          {fontMetrics().elidedText(path, Qt::ElideMiddle, room), PlainToolTip(path), item});
    }
    start_page_->Show("Drop a .nes file here, or press Ctrl+O", {},
                      links.empty() ? QString() : "Recent files", links);
    return;
  }
  for (const char* name : screen_items) {
    QAction* item = menu_.Item(name);
    links.push_back({item->text().remove('&'), {}, item});
  }
  const QString file = QFileInfo(FromUtf8(session_.ImagePath)).fileName();
  start_page_->Show(file, QString("%1 teams").arg(TeamCount), {}, links);
}

void FRSMform::FollowForms() {
  const bool any = !area_->subWindowList().isEmpty();
  for (const char* name : {"mWinTile", "mWinCascade", "mWinCloseAll"}) {
    menu_.Item(name)->setEnabled(any);
  }
}

void FRSMform::ListForms() {
  QMenu& menu = *menu_.Item("mWindow")->menu();
  for (QAction* item : form_items_) delete item;
  form_items_.clear();
  // Ctrl+Tab goes from the latest to the earlier ones.
  const QList<QMdiSubWindow*> windows = area_->subWindowList(QMdiArea::ActivationHistoryOrder);
  for (auto at = windows.rbegin(); at != windows.rend(); ++at) {
    const int number = static_cast<int>(form_items_.size()) + 1;
    const QString digit = number <= 9 ? QString("&%1 ").arg(number) : QString();
    QAction* item = menu.addAction(digit + (*at)->widget()->windowTitle().replace("&", "&&"));
    item->setObjectName(MemberName("mWinForm", number - 1));
    item->setCheckable(true);
    item->setChecked(*at == area_->activeSubWindow());
    auto* form = qobject_cast<ChildForm*>((*at)->widget());
    connect(item, &QAction::triggered, form, [this, form] { area_->ShowForm(form); });
    form_items_ << item;
  }
}

void FRSMform::mWinTile_Click() {
  area_->tileSubWindows();
}

void FRSMform::mWinCascade_Click() {
  area_->cascadeSubWindows();
}

void FRSMform::mWinCloseAll_Click() {
  // A viewer closes its editor.
  QList<QPointer<QMdiSubWindow>> windows;
  for (QMdiSubWindow* window : area_->subWindowList()) windows << window;
  for (const auto& window : windows) {
    if (window) window->close();
  }
}

}  // namespace rostermill
