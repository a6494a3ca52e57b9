#include "toolkit/child_style.h"

#include <QApplication>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOptionTitleBar>

#include "toolkit/readable_color.h"

namespace rostermill {

namespace {

bool IsDark(const QPalette& palette) {
  constexpr int middle = 128;
  return palette.color(QPalette::Window).lightness() < middle;
}

/// The color of an inactive title bar, on which the white signs of an active one are drawn.
QColor QuietBar(const QPalette& palette) {
  return StandingOut(palette.color(QPalette::Window).lighter(200), Qt::white);
}

}  // namespace

ChildStyle::ChildStyle(QObject* parent)
    : QProxyStyle(QStyleFactory::create(QApplication::style()->name())) {
  setParent(parent);
}

void ChildStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
  const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
  const bool inactive = bar != nullptr && (bar->titleBarState & State_Active) == 0;
  if (control != CC_TitleBar || !inactive || !IsDark(option->palette)) {
    return QProxyStyle::drawComplexControl(control, option, painter, widget);
  }
  QStyleOptionTitleBar drawn = *bar;
  drawn.titleBarState |= State_Active;
  drawn.state |= State_Active;
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    drawn.palette.setColor(group, QPalette::Highlight, QuietBar(option->palette));
    drawn.palette.setColor(group, QPalette::HighlightedText, Qt::white);
  }
  QProxyStyle::drawComplexControl(control, &drawn, painter, widget);
}

void ChildStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  if (element != PE_FrameWindow || !IsDark(option->palette)) return;
  const QColor ground = option->palette.color(QPalette::Window);
  painter->setPen(StandingOut(QuietBar(option->palette), ground, FrameContrast));
  painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
}

}  // namespace rostermill
