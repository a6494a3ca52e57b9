#pragma once

#include <QLineEdit>

namespace rostermill {

/// A one-line text box for texts of the cartridge: it takes only characters that fit in one byte
/// (Latin-1), and no more than `max_length` of them are typed. A longer text set by the program
/// stands whole; it can be shortened and not be made longer.
class TextBox : public QLineEdit {
  Q_OBJECT

 public:
  TextBox(const QString& name, int max_length);

  void SetText(const QString& text);
  QString Text() const { return text(); }

 signals:
  void Change();

 private:
  void FollowLength(const QString& text);

  int max_length_;
};

}  // namespace rostermill
