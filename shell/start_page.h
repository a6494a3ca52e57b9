#pragma once

#include <QString>
#include <QWidget>

#include <vector>

class QAction;
class QLabel;
class QVBoxLayout;

namespace rostermill {

class ChildArea;

/// What the empty main window shows: what can be done next, as links. Lies on the background of the
/// area, and is seen only while no form is.
class StartPage : public QWidget {
  Q_OBJECT

 public:
  struct Link {
    QString Text;
    QString ToolTip;
    QAction* Item;  ///< the command that the link picks
  };

  explicit StartPage(ChildArea& area);

  /// Shows a heading, a line of text, and the links under their caption, with the shortcuts of
  /// their commands.
  void Show(const QString& heading, const QString& text, const QString& links_caption,
            const std::vector<Link>& links);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  /// Covers the background while no form does.
  void FollowForms();
  void ColorLinks();

  ChildArea& area_;
  QLabel* heading_ = nullptr;
  QLabel* text_ = nullptr;
  QVBoxLayout* list_place_ = nullptr;
  QWidget* list_ = nullptr;  ///< the caption and the links
};

}  // namespace rostermill
