#pragma once

#include <QGridLayout>
#include <QVBoxLayout>
#include <QWidget>

#include <algorithm>

namespace rostermill {

/// A form's layout that keeps its content together: in an enlarged window the content stays at its
/// natural size at the upper left, so that captions and buttons stay with what they belong to.
template <typename Layout>
class AtNaturalSize : public Layout {
 public:
  explicit AtNaturalSize(QWidget* form) : Layout(form) {}

  void setGeometry(const QRect& room) override {
    QSize size = room.size().boundedTo(this->sizeHint());
    if (this->hasHeightForWidth()) {
      size.setHeight(
          std::min(room.height(), std::max(size.height(), this->heightForWidth(size.width()))));
    }
    Layout::setGeometry({room.topLeft(), size});
  }
};

using NaturalGrid = AtNaturalSize<QGridLayout>;
using NaturalRow = AtNaturalSize<QHBoxLayout>;
using NaturalColumn = AtNaturalSize<QVBoxLayout>;

}  // namespace rostermill
