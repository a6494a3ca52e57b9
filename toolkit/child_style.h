#pragma once

#include <QProxyStyle>

namespace rostermill {

/// The application's style with title bars and frames of child windows that can be told apart in
/// every color scheme. In dark ones a style may draw the signs of inactive windows in black.
class ChildStyle : public QProxyStyle {
  Q_OBJECT

 public:
  explicit ChildStyle(QObject* parent);

  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

}  // namespace rostermill
