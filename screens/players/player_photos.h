#pragma once

#include <QRadioButton>

#include <string>

#include "toolkit/control_array.h"
#include "toolkit/form.h"
#include "toolkit/picture_box.h"

namespace rostermill {

class GridWalk;

/// "Player Photos": picks one of the 256 faces from two pages of 128 pictures. The high bit of a
/// face's number is its page. It changes nothing; its caller takes SelectedFace when it is
/// accepted.
class PlayerPhotos : public DialogForm {
  Q_OBJECT

 public:
  /// `app_dir` is the parent of the faces folder, with a separator at its end.
  PlayerPhotos(QWidget* parent, std::string app_dir);

  /// Shows the player's own face, 0 to 255, as the one that btnOK would take.
  void SetFace(int face);

  int SelectedFace = 0;  ///< 0 to 255

 private:
  void BuildControls();
  void LayOut();
  void Connect();

  void Form_Load();
  void radWhite_Click();
  void radBlack_Click();
  void imgFace_Click(int Index);
  void btnOK_Click();
  void btnCancel_Click();

  /// The face of a cell on the page that is shown.
  int FaceOfCell(int index) const;
  /// Sets the cells' tool tips and accessible names to the faces of the page.
  void NameCells();

  std::string app_dir_;
  ControlArray<PictureBox> imgFace{"imgFace"};
  GridWalk* walk_ = nullptr;
  QRadioButton* radWhite = nullptr;
  QRadioButton* radBlack = nullptr;
  PictureBox* imgNew = nullptr;
  QPushButton* btnOK = nullptr;
  QPushButton* btnCancel = nullptr;
};

}  // namespace rostermill
