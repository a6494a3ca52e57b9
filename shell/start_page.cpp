#include "shell/start_page.h"

#include <QAction>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPainter>
#include <QPushButton>

#include <algorithm>

#include "shell/window_icon.h"
#include "toolkit/control_array.h"
#include "toolkit/form.h"
#include "toolkit/form_parts.h"
#include "toolkit/readable_color.h"

namespace rostermill {

namespace {

constexpr int icon_side = 64;
constexpr int column_gap = 24;

QLabel* NewHeading() {
  QLabel* heading = NewLabel("lblStart");
  QFont large = heading->font();
  large.setPointSizeF(large.pointSizeF() * 1.3);
  heading->setFont(large);
  return heading;
}

/// A button that looks like a link. Styles show no focus on a flat button.
class LinkButton : public QPushButton {
 public:
  using QPushButton::QPushButton;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QPushButton::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::ButtonText), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
  }
};

/// Picks the item when the press is over, since a load replaces the links.
QPushButton* NewLink(const QString& name, const StartPage::Link& link) {
  auto* button = new LinkButton(QString(link.Text).replace("&", "&&"));
  button->setObjectName(name);
  button->setFlat(true);
  button->setAutoDefault(true);
  button->setCursor(Qt::PointingHandCursor);
  button->setToolTip(link.ToolTip);
  button->setAccessibleName(link.Text);
  QFont font = button->font();
  font.setUnderline(true);
  button->setFont(font);
  constexpr int around = 12;  // a focus frame around the text
  button->setFixedWidth(QFontMetrics(font).horizontalAdvance(link.Text) + around);
  QObject::connect(button, &QPushButton::clicked, link.Item, &QAction::trigger,
                   Qt::QueuedConnection);
  return button;
}

}  // namespace

StartPage::StartPage(ChildArea& area) : QWidget(area.viewport()), area_(area) {
  setObjectName("StartPage");
  auto* middle = new QVBoxLayout(this);
  auto* icon = NewLabel("imgStart");
  icon->setPixmap(IconOfSizes({icon_side, 2 * icon_side}).pixmap(icon_side));
  heading_ = NewHeading();
  text_ = NewLabel("lblStartText");
  middle->addStretch(2);
  for (QLabel* label : {icon, heading_, text_}) middle->addWidget(label, 0, Qt::AlignHCenter);
  list_place_ = new QVBoxLayout;
  middle->addLayout(list_place_);
  middle->addStretch(3);
  area.viewport()->installEventFilter(this);
  connect(&area, &QMdiArea::subWindowActivated, this, &StartPage::FollowForms);
  FollowForms();
}

void StartPage::Show(const QString& heading, const QString& text, const QString& links_caption,
                     const std::vector<Link>& links) {
  heading_->setText(heading);
  text_->setText(text);
  text_->setVisible(!text.isEmpty());
  if (list_ != nullptr) {
    list_->hide();
    list_->deleteLater();
    list_ = nullptr;
  }
  if (links.empty()) return;
  list_ = new QWidget;
  auto* grid = new QGridLayout(list_);
  grid->setHorizontalSpacing(column_gap);
  grid->setVerticalSpacing(0);
  if (!links_caption.isEmpty()) grid->addWidget(NewLabel("lblLinks", links_caption), 0, 0);
  int row = 0;
  for (const Link& link : links) {
    grid->addWidget(NewLink(MemberName("btnLink", row), link), row + 1, 0, Qt::AlignLeft);
    const QString keys = link.Item->shortcut().toString(QKeySequence::NativeText);
    if (!keys.isEmpty()) grid->addWidget(NewLabel({}, keys), row + 1, 1);
    ++row;
  }
  ColorLinks();
  list_place_->addWidget(list_, 0, Qt::AlignHCenter);
  list_->show();
}

void StartPage::ColorLinks() {
  if (list_ == nullptr) return;
  QPalette colors = palette();
  const QColor on_area = StandingOut(colors.color(QPalette::Link), area_.background().color());
  colors.setColor(QPalette::ButtonText, StandingOut(on_area, colors.color(QPalette::Window)));
  for (QPushButton* link : list_->findChildren<QPushButton*>()) link->setPalette(colors);
}

void StartPage::FollowForms() {
  const QList<QMdiSubWindow*> windows = area_.subWindowList();
  const bool empty = std::none_of(windows.begin(), windows.end(),
                                  [](const QMdiSubWindow* window) { return window->isVisible(); });
  setVisible(empty);
  if (!empty) return;
  setGeometry(area_.viewport()->rect());
  lower();
}

bool StartPage::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) setGeometry(area_.viewport()->rect());
  return QWidget::eventFilter(watched, event);
}

void StartPage::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) ColorLinks();
}

}  // namespace rostermill
