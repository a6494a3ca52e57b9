#include "toolkit/form_parts.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QGroupBox>
#include <QLayout>
#include <QSizePolicy>

#include <algorithm>

namespace rostermill {

namespace {

/// Texts of a damaged image can be of any length.
constexpr int longest_tool_tip = 400;

QChar WidestCharacter(const QFontMetrics& metrics) {
  QChar widest = ' ';
  for (ushort code = '!'; code <= 0xFF; ++code) {
    const QChar c(code);
    if (c.isPrint() && metrics.horizontalAdvance(c) > metrics.horizontalAdvance(widest)) widest = c;
  }
  return widest;
}

}  // namespace

QFont FixedFont() {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSizeF(std::max(font.pointSizeF(), QApplication::font().pointSizeF()));
  return font;
}

int RoomFor(const QFontMetrics& metrics, int characters) {
  if (characters == 0) return 0;
  // Layouts ask again and again for the same few.
  struct Known {
    QFontMetrics Metrics;
    int Characters;
    int Room;
  };
  thread_local QList<Known> known;
  for (const Known& room : known) {
    if (room.Characters == characters && room.Metrics == metrics) return room.Room;
  }
  if (known.size() == 8) known.removeFirst();
  known.append({metrics, characters,
                metrics.horizontalAdvance(QString(characters, WidestCharacter(metrics)))});
  return known.last().Room;
}

QLabel* NewLabel(const QString& name, const QString& text) {
  auto* label = new QLabel(text);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

QLabel* NewNumberLabel(const QString& name, const QString& widest) {
  QLabel* label = NewLabel(name);
  label->setFont(FixedFont());
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  label->setMinimumWidth(QFontMetrics(label->font()).horizontalAdvance(widest));
  return label;
}

QLabel* NewCaption(const QString& name, const QString& text, QWidget* buddy) {
  QLabel* label = NewLabel(name, text);
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  if (buddy != nullptr) {
    label->setBuddy(buddy);
    QString spoken = text;
    if (spoken.endsWith(':')) spoken.chop(1);
    // A label is known by its own text.
    if (qobject_cast<QLabel*>(buddy) == nullptr) buddy->setAccessibleName(spoken);
  }
  return label;
}

QPushButton* NewButton(const QString& name, const QString& text) {
  auto* button = new QPushButton(text);
  button->setObjectName(name);
  return button;
}

QPushButton* NewStepButton(const QString& text) {
  auto* button = new QPushButton(text);
  const int side = button->fontMetrics().height() + 8;
  button->setFixedSize(side, side);
  button->setAutoRepeat(true);
  return button;
}

QGroupBox* NewFrame(const QString& name, const QString& title) {
  auto* frame = new QGroupBox(title);
  frame->setObjectName(name);
  return frame;
}

QDialogButtonBox* ButtonRow(QPushButton* accept, QPushButton* reject,
                            std::initializer_list<QPushButton*> actions) {
  auto* row = new QDialogButtonBox;
  if (accept != nullptr) row->addButton(accept, QDialogButtonBox::AcceptRole);
  if (reject != nullptr) row->addButton(reject, QDialogButtonBox::RejectRole);
  for (QPushButton* action : actions) row->addButton(action, QDialogButtonBox::ActionRole);
  // The platform decides the order of the buttons; the Tab key follows it.
  QWidget* previous = nullptr;
  for (int place = 0; place < row->layout()->count(); ++place) {
    QWidget* button = row->layout()->itemAt(place)->widget();
    if (previous != nullptr && button != nullptr) QWidget::setTabOrder(previous, button);
    if (button != nullptr) previous = button;
  }
  return row;
}

QString PlainToolTip(const QString& whole) {
  QString text = whole.left(longest_tool_tip);
  if (!Qt::mightBeRichText(text)) return text;
  return "<span style='white-space: pre'>" + text.toHtmlEscaped() + "</span>";
}

void OutlineTicks(QWidget& list) {
  QPalette palette = list.palette();
  constexpr int dark = 128;
  if (palette.color(QPalette::Window).lightness() >= dark) return;
  palette.setColor(QPalette::Window, palette.color(QPalette::PlaceholderText));
  list.setPalette(palette);
}

void KeepRoomWhenHidden(QWidget* widget) {
  QSizePolicy policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
}

}  // namespace rostermill
