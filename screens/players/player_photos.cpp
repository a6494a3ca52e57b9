#include "screens/players/player_photos.h"

#include <QDialogButtonBox>
#include <QScreen>

#include "rules/face_paths.h"
#include "screens/players/show_face.h"
#include "toolkit/form_parts.h"
#include "toolkit/grid_walk.h"
#include "toolkit/natural_layout.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

constexpr int columns = 16;
constexpr int page_size = 128;
constexpr int cell_gap = 2;
/// The width of the form with its cells magnified twice, in a usual font.
constexpr int wide_form = 1300;

}  // namespace

PlayerPhotos::PlayerPhotos(QWidget* parent, std::string app_dir)
    : DialogForm(parent, "PlayerPhotos", "Player Photos"), app_dir_(std::move(app_dir)) {
  BuildControls();
  LayOut();
  Connect();
  Form_Load();
}

void PlayerPhotos::BuildControls() {
  const QSize face(FaceSize, FaceSize);
  const int magnification = screen()->availableGeometry().width() >= wide_form ? 2 : 1;
  std::vector<QWidget*> cells;
  for (int index = 0; index < page_size; ++index) {
    cells.push_back(imgFace.Add(new PictureBox({}, face, magnification)));
    imgFace[index]->SetClickable({});
  }
  walk_ = new GridWalk(cells, columns, this);
  radWhite = new QRadioButton("White");
  radWhite->setObjectName("radWhite");
  radWhite->setChecked(true);
  radBlack = new QRadioButton("Black");
  radBlack->setObjectName("radBlack");
  imgNew = new PictureBox("imgNew", face, FaceMagnification);
  btnOK = NewButton("btnOK", "OK");
  btnCancel = NewButton("btnCancel", "Cancel");
}

void PlayerPhotos::LayOut() {
  auto* Frame1 = NewFrame("Frame1", "Photos");
  auto* grid = new QGridLayout(Frame1);
  grid->setSpacing(cell_gap);
  for (int index = 0; index < page_size; ++index) {
    grid->addWidget(imgFace[index], index / columns, index % columns);
  }
  auto* Frame3 = NewFrame("Frame3", "Skin Color");
  auto* pages = new QVBoxLayout(Frame3);
  pages->addWidget(radWhite);
  pages->addWidget(radBlack);
  auto* Frame4 = NewFrame("Frame4", "New Face");
  (new QVBoxLayout(Frame4))->addWidget(imgNew, 0, Qt::AlignCenter);
  auto* Frame2 = ButtonRow(btnOK, btnCancel);
  Frame2->setObjectName("Frame2");
  Frame2->setOrientation(Qt::Vertical);

  auto* side = new QVBoxLayout;
  side->addWidget(Frame3);
  side->addWidget(Frame4);
  side->addStretch();
  side->addWidget(Frame2, 0, Qt::AlignRight | Qt::AlignBottom);
  auto* row = new NaturalRow(this);
  row->addWidget(Frame1);
  row->addLayout(side);
  row->setSizeConstraint(QLayout::SetFixedSize);
}

void PlayerPhotos::Connect() {
  for (int index = 0; index < page_size; ++index) {
    connect(imgFace[index], &PictureBox::Click, this, [this, index] { imgFace_Click(index); });
  }
  walk_->TakeBy(btnOK, [this](int cell) { return SelectedFace == FaceOfCell(cell); });
  connect(radWhite, &QRadioButton::toggled, this, [this](bool on) {
    if (on) radWhite_Click();
  });
  connect(radBlack, &QRadioButton::toggled, this, [this](bool on) {
    if (on) radBlack_Click();
  });
  connect(btnOK, &QPushButton::clicked, this, &PlayerPhotos::btnOK_Click);
  connect(btnCancel, &QPushButton::clicked, this, &PlayerPhotos::btnCancel_Click);
}

void PlayerPhotos::Form_Load() {
  for (int index = 0; index < page_size; ++index) ShowFace(*imgFace[index], app_dir_, index);
  NameCells();
}

void PlayerPhotos::SetFace(int face) {
  imgNew->Load(FromUtf8(FacePath(app_dir_, face)));
  SelectedFace = face;
  // Enter without another pick keeps the current face, even if it is on the other page.
  if (face < page_size) {
    imgFace[face]->setFocus();
  } else {
    radWhite->setFocus();
  }
}

void PlayerPhotos::radWhite_Click() {
  for (int index = 0; index < page_size; ++index) {
    imgFace[index]->Load(FromUtf8(FacePath(app_dir_, index)));
  }
  NameCells();
}

void PlayerPhotos::radBlack_Click() {
  for (int index = 0; index < page_size; ++index) {
    ShowFace(*imgFace[index], app_dir_, page_size + index);
  }
  NameCells();
}

void PlayerPhotos::imgFace_Click(int Index) {
  SelectedFace = FaceOfCell(Index);
  ShowFace(*imgNew, app_dir_, SelectedFace);
}

void PlayerPhotos::btnOK_Click() {
  accept();
}

void PlayerPhotos::btnCancel_Click() {
  reject();
}

int PlayerPhotos::FaceOfCell(int index) const {
  return radBlack->isChecked() ? page_size + index : index;
}

void PlayerPhotos::NameCells() {
  for (int index = 0; index < page_size; ++index) {
    const int face = FaceOfCell(index);
    const QString name = "Face " + QString::number(face);
    imgFace[index]->setAccessibleName(name);
    imgFace[index]->setToolTip(name + ", " + FromUtf8(FaceFileName(face)) + ".bmp");
  }
}

}  // namespace rostermill
