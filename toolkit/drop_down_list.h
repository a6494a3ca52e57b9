#pragma once

#include <QComboBox>

namespace rostermill {

enum class ListOrder { AsAdded, Sorted };

/// A drop-down list. Its Click signal follows every real change of the
/// selection, by the user or by the program, and nothing else: neither a selection of the entry
/// that is selected already, nor clearing, nor adding.
class DropDownList : public QComboBox {
  Q_OBJECT

 public:
  explicit DropDownList(const QString& name, ListOrder order = ListOrder::AsAdded);

  /// Makes room for this many characters, whatever they are. A longer text is cut in the middle.
  void AskForRoom(int characters);

  /// Empties the list; nothing is selected then.
  void Clear();
  /// A sorted list inserts the entry ignoring ASCII case, after those equal to it.
  void AddItem(const QString& text);
  int ListCount() const { return count(); }
  /// The text of the entry at the index, counted from 0.
  QString List(int index) const { return itemText(index); }
  /// Replaces the text of an entry without moving it.
  void SetList(int index, const QString& text);
  /// The selected entry, counted from 0; -1 for none.
  int ListIndex() const { return currentIndex(); }
  void SetListIndex(int index) { setCurrentIndex(index); }
  /// The text of the selected entry.
  QString Text() const { return currentText(); }

 signals:
  void Click();

 protected:
  /// The wheel changes a list only while it has the focus.
  void wheelEvent(QWheelEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  int PlaceFor(const QString& text) const;

  ListOrder order_;
};

}  // namespace rostermill
