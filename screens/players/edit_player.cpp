#include "screens/players/edit_player.h"

#include <QDialogButtonBox>
#include <QGridLayout>

#include <algorithm>
#include <charconv>

#include "league/league_tables.h"
#include "league/ratings.h"
#include "rules/display_text.h"
#include "screens/players/attribute_panel.h"
#include "screens/players/player_form_parts.h"
#include "screens/players/player_photos.h"
#include "screens/players/show_face.h"
#include "toolkit/elided_label.h"
#include "toolkit/form_parts.h"
#include "toolkit/natural_layout.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

constexpr int number_buttons = 8;  // index of the pair that steps the uniform number
constexpr int highest_number = 99;

/// The leading decimal digits as a number; none counts as 0.
int LeadingNumber(const std::string& text) {
  int value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return std::max(value, 0);
}

}  // namespace

EditPlayer::EditPlayer(LeagueSession& session)
    : ChildForm("EditPlayer", "Edit Player Statstistics"), session_(session) {
  BuildControls();
  LayOut();
  Connect();
  Form_Load();
}

void EditPlayer::BuildControls() {
  lblTeam = new ElidedLabel("lblTeam");
  txtPlayer = new TextBox("txtPlayer", LongestPlayerText);
  lblNumber = NewPlayerNumber();
  imgFace = new PictureBox("imgFace", QSize(FaceSize, FaceSize), FaceMagnification);
  imgFace->SetClickable("Photo, choose another");
  lblFace = NewLabel("lblFace", "Label4");
  lblFace->setParent(this);
  lblFace->hide();
  Frame1 = new AttributePanel(btnMinus, btnPlus);
  btnMinus.Add(NewStepButton("-"))->setAccessibleName("Lower uniform number");
  btnPlus.Add(NewStepButton(" +"))->setAccessibleName("Raise uniform number");
  chkKick = new QCheckBox("Starting Kick Returner");
  chkKick->setObjectName("chkKick");
  chkPunt = new QCheckBox("Starting Punt Returner");
  chkPunt->setObjectName("chkPunt");
  btnSavePlayer = NewButton("btnSavePlayer", "Save Player");
  btnClose = NewButton("btnClose", "Close");
  SetDefaultButton(btnSavePlayer);
}

void EditPlayer::LayOut() {
  auto* number = new QHBoxLayout;
  number->addWidget(btnMinus[number_buttons]);
  number->addWidget(lblNumber);
  number->addWidget(btnPlus[number_buttons]);
  auto* number_row = new QWidget;
  number->setContentsMargins(0, 0, 0, 0);
  number_row->setLayout(number);

  auto* Frame2 = NewFrame("Frame2", "Miscellaneous");
  auto* checks = new QHBoxLayout(Frame2);
  checks->addWidget(chkKick);
  checks->addWidget(chkPunt);

  auto* grid = new NaturalGrid(this);
  grid->addWidget(NewCaption("Label1", "Team:"), 0, 0);
  grid->addWidget(lblTeam, 0, 1);
  grid->addWidget(NewCaption(MemberName("Label2", 0), "Player:", txtPlayer), 1, 0);
  grid->addWidget(txtPlayer, 1, 1);
  grid->addLayout(FaceBesideAttributes(imgFace, number_row, Frame1), 2, 0, 1, 2);
  grid->addWidget(Frame2, 3, 0, 1, 2);
  grid->addWidget(ButtonRow(btnSavePlayer, btnClose), 4, 0, 1, 2);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(2, 1);
}

void EditPlayer::Connect() {
  connect(imgFace, &PictureBox::MouseDown, this, &EditPlayer::imgFace_MouseDown);
  for (int index = btnMinus.First(); index < btnMinus.Next(); ++index) {
    connect(btnMinus[index], &QPushButton::clicked, this, [this, index] { btnMinus_Click(index); });
    connect(btnPlus[index], &QPushButton::clicked, this, [this, index] { btnPlus_Click(index); });
  }
  connect(btnSavePlayer, &QPushButton::clicked, this, &EditPlayer::btnSavePlayer_Click);
  connect(btnClose, &QPushButton::clicked, this, &EditPlayer::btnClose_Click);
  AddSlotKeys(this, [this](int step) { emit SlotStepped(step); });
}

void EditPlayer::Form_Load() {
  session_.EditPlayerOpen = true;
  FillEditPlayer();
}

void EditPlayer::Form_Unload() {
  session_.EditPlayerOpen = false;
}

void EditPlayer::FillEditPlayer() {
  const LeagueData& league = session_.League();
  const int team = session_.CurTeam;
  const int slot = session_.CurSlot;
  ShowTeamTitle();
  txtPlayer->SetText(FromLatin1(PlayerEditText(league, team, slot)));
  lblNumber->setText(FromLatin1(NumberCaption(league, team, slot)));
  for (QCheckBox* box : {chkPunt, chkKick}) {
    box->setChecked(false);
    box->setEnabled(false);
  }
  const int face = FaceOf(league, team, slot);
  lblFace->setText(QString::number(face));
  ShowFace(*imgFace, session_.AppDir, face);
  Frame1->ShowPlayer(league, team, slot);
  if (GroupOfSlot(slot) == PositionGroup::Skill) {
    const SkillRec& rec = league.SkillData[team][TableIndexOfSlot(slot)];
    chkPunt->setEnabled(true);
    chkKick->setEnabled(true);
    chkPunt->setChecked(rec.PuntReturner == 1);
    chkKick->setChecked(rec.KickReturner == 1);
  }
  filled_ = Values();
}

void EditPlayer::ShowTeamTitle() {
  lblTeam->SetText(FromLatin1(TeamTitleText(session_.League(), session_.CurTeam)));
}

QStringList EditPlayer::Values() const {
  QStringList values{txtPlayer->Text(), lblNumber->text(), lblFace->text()};
  for (int place = 0; place < PlacesInUse(GroupOfSlot(session_.CurSlot)); ++place) {
    values << Frame1->Value(place);
  }
  for (const QCheckBox* box : {chkPunt, chkKick}) values << (box->isChecked() ? "1" : "0");
  return values;
}

QStringList EditPlayer::NotStored() const {
  if (Values() == filled_) return {};
  const std::string name = PlayerEditText(session_.League(), session_.CurTeam, session_.CurSlot);
  return {"Edit Player (" + FromLatin1(name) + ")"};
}

void EditPlayer::imgFace_MouseDown(Qt::MouseButtons buttons) {
  if (!buttons.testFlag(Qt::LeftButton)) return;
  PlayerPhotos photos(this, session_.AppDir);
  photos.SetFace(lblFace->text().toInt());
  if (photos.exec() != QDialog::Accepted) return;
  lblFace->setText(QString::number(photos.SelectedFace));
  ShowFace(*imgFace, session_.AppDir, photos.SelectedFace);
}

void EditPlayer::btnMinus_Click(int Index) {
  if (Index == number_buttons) {
    StepNumber(-1);
  } else {
    StepRating(Index, -1);
  }
}

void EditPlayer::btnPlus_Click(int Index) {
  if (Index == number_buttons) {
    StepNumber(+1);
  } else {
    StepRating(Index, +1);
  }
}

void EditPlayer::StepRating(int place, int direction) {
  const auto code = RatingToCode(ToLatin1(Frame1->Value(place)));
  if (!code) return;
  const int stepped = std::clamp(*code + direction, RatingValues.first, RatingValues.last);
  Frame1->SetValue(place, FromLatin1(RatingText(stepped)));
}

void EditPlayer::StepNumber(int direction) {
  const int number = LeadingNumber(ToLatin1(lblNumber->text().mid(1)));
  lblNumber->setText("#" + QString::number(std::clamp(number + direction, 0, highest_number)));
}

void EditPlayer::btnSavePlayer_Click() {
  const bool named = txtPlayer->Text().contains(' ');
  if (!named) {
    txtPlayer->SetText(
        FromLatin1(PlayerEditText(session_.League(), session_.CurTeam, session_.CurSlot)));
  }
  session_.Change("Save Player: " + ToLatin1(txtPlayer->Text()), [&](LeagueData& league) {
    if (named) StoreName(league);
    league.NameData[session_.CurTeam][session_.CurSlot].JerseyNumber =
        ToLatin1(lblNumber->text().mid(1));
    StoreRatingsAndFace(league);
    StoreReturners(league);
  });
  session_.PendingTeamName = LowerText(ToLatin1(lblTeam->text()));
  session_.PendingPlayerName = LowerText(ToLatin1(txtPlayer->Text()));
  emit PlayerSaved();
}

void EditPlayer::StoreName(LeagueData& league) {
  NameRec& name = league.NameData[session_.CurTeam][session_.CurSlot];
  const std::string text = ToLatin1(txtPlayer->Text());
  const std::size_t blank = text.find(' ');
  name.LastName = UpperText(text.substr(blank + 1));
  name.FirstName = LowerText(text.substr(0, blank));
}

void EditPlayer::StoreRatingsAndFace(LeagueData& league) {
  const int team = session_.CurTeam;
  const int slot = session_.CurSlot;
  for (int place = 0; place < PlacesInUse(GroupOfSlot(slot)); ++place) {
    if (const auto code = RatingToCode(ToLatin1(Frame1->Value(place)))) {
      SetPlaceCode(league, team, slot, place, *code);
    }
  }
  SetFace(league, team, slot, lblFace->text().toInt());
}

void EditPlayer::StoreReturners(LeagueData& league) {
  if (GroupOfSlot(session_.CurSlot) != PositionGroup::Skill) return;
  auto& team = league.SkillData[session_.CurTeam];
  SkillRec& player = team[TableIndexOfSlot(session_.CurSlot)];
  const auto store = [&](std::int16_t SkillRec::*flag, bool ticked) {
    if (ticked) {
      for (SkillRec& mate : team) mate.*flag = 0;
    }
    player.*flag = ticked ? 1 : 0;
  };
  store(&SkillRec::PuntReturner, chkPunt->isChecked());
  store(&SkillRec::KickReturner, chkKick->isChecked());
}

void EditPlayer::btnClose_Click() {
  CloseForm();
}

}  // namespace rostermill
