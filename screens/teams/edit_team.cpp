#include "screens/teams/edit_team.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QStyle>

#include "league/league_tables.h"
#include "league/team_data.h"
#include "rules/display_text.h"
#include "rules/play_names.h"
#include "rules/working_copies.h"
#include "screens/teams/choose_color.h"
#include "screens/teams/choose_play.h"
#include "screens/teams/team_form_parts.h"
#include "toolkit/form_parts.h"
#include "toolkit/natural_layout.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

constexpr int color_buttons = 4;
constexpr int play_buttons = 8;
constexpr int plays_per_column = 4;

QString UpperCase(const QString& text) {
  return FromLatin1(UpperText(ToLatin1(text)));
}

/// Shows the box's text in upper case with the caret at the end, and returns the text.
std::string UpperCaseBox(TextBox& box) {
  // What the user enters is already in upper case, and could not be undone after a SetText.
  const QString text = UpperCase(box.Text());
  if (text != box.Text()) box.SetText(text);
  box.setCursorPosition(static_cast<int>(text.size()));
  return ToLatin1(text);
}

template <typename Colors>
void ShowChampColors(const ControlArray<ColorBox>& boxes, const LeagueData& league,
                     const Colors& colors) {
  int index = boxes.First();
  for (const int color : colors) ShowColor(*boxes[index++], league, color);
}

}  // namespace

EditTeam::EditTeam(LeagueSession& session) : ChildForm("EditTeam", "Edit Team"), session_(session) {
  BuildControls();
  LayOut();
  Connect();
  Form_Load();
}

void EditTeam::BuildControls() {
  txtCity = new TextBox("txtCity", LongestCity);
  txtName = new TextBox("txtName", LongestCity);
  txtAbbreviation = new TextBox("txtAbbreviation", AbbreviationLength);
  for (TextBox* box : {txtCity, txtName, txtAbbreviation}) box->SetEnteredForm(UpperCase);
  for (int i = 0; i < color_buttons; ++i) {
    ElidedButton* button = btnChange.Add(new ElidedButton("unkown", "Bright Magenta"));
    button->setIconSize(ColorIconSize(SwatchSide));
    button->setAccessibleDescription(
        QStringLiteral("Uniform %1, color %2").arg(i / 2 + 1).arg(i % 2 + 1));
  }
  cmbFormation = new DropDownList("cmbFormation");
  for (const std::string_view name : FormationNames) cmbFormation->AddItem(FromLatin1(name));
  for (int i = 0; i < play_buttons; ++i) {
    auto* button = btnPlay.Add(new ElidedButton("Play 1", "Run and Shoot Sweep Right"));
    const bool run = i < plays_per_column;
    button->setAccessibleDescription(
        QString(run ? "Run slot %1" : "Pass slot %1").arg(i % plays_per_column + 1));
  }
  const int side = style()->pixelMetric(QStyle::PM_SmallIconSize);
  imgTextsTooLong = NewLabel("imgTextsTooLong");
  imgTextsTooLong->setPixmap(
      style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(side, side));
  KeepRoomWhenHidden(imgTextsTooLong);
  lblTextRoom = NewLabel("lblTextRoom");
  btnSave = NewButton("btnSave", "OK");
  btnCancel = NewButton("btnCancel", "Cancel");
  SetDefaultButton(btnSave);
  SetCancelButton(btnCancel);
}

void EditTeam::LayOut() {
  auto* left = new QVBoxLayout;
  left->addWidget(LayOutGeneral());
  left->addWidget(LayOutColors());
  left->addWidget(LayOutPlayBook());
  left->addStretch();
  auto* right = new QVBoxLayout;
  right->addWidget(NewPreviewFrame("Frame1", picJersey, skins_));
  right->addWidget(NewChampFrame(
      {"Frame5", "Division Champ Colors", "Label2", "Label3", {0, 1, 2}, {3, 4}}, picDivChamp));
  right->addWidget(NewChampFrame(
      {"Frame6", "Conference Champ Colors", "Label4", "Label5", {1, 2, 3}, {0}}, picConfChamp));
  right->addStretch();
  auto* grid = new NaturalGrid(this);
  grid->addLayout(left, 0, 0);
  grid->addLayout(right, 0, 1);
  grid->addWidget(ButtonRow(btnSave, btnCancel), 1, 0, 1, 2);
  grid->setColumnStretch(0, 1);
}

QWidget* EditTeam::LayOutGeneral() {
  auto* Frame4 = NewFrame("Frame4", "General Information");
  auto* grid = new QGridLayout(Frame4);
  grid->addWidget(NewCaption(MemberName("lblData", 1), "City:", txtCity), 0, 0);
  grid->addWidget(txtCity, 0, 1);
  grid->addWidget(NewCaption(MemberName("lblData", 2), "Name:", txtName), 1, 0);
  grid->addWidget(txtName, 1, 1);
  grid->addWidget(NewCaption(MemberName("lblData", 5), "Abbreviation:", txtAbbreviation), 2, 0);
  grid->addWidget(txtAbbreviation, 2, 1);
  auto* room = new QHBoxLayout;
  room->addStretch();
  room->addWidget(imgTextsTooLong);
  room->addWidget(lblTextRoom);
  grid->addLayout(room, 3, 0, 1, 2);
  return Frame4;
}

QWidget* EditTeam::LayOutColors() {
  auto* Frame3 = NewFrame("Frame3", "Jersey Colors");
  auto* grid = new QGridLayout(Frame3);
  for (int uniform = 0; uniform < 2; ++uniform) {
    grid->addWidget(btnChange[2 * uniform], uniform, 0);
    grid->addWidget(NewLabel(MemberName("lblData", 3 + uniform), "and"), uniform, 1);
    grid->addWidget(btnChange[2 * uniform + 1], uniform, 2);
  }
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(2, 1);
  return Frame3;
}

QWidget* EditTeam::LayOutPlayBook() {
  auto* Frame2 = NewFrame("Frame2", "Play Book");
  auto* grid = new QGridLayout(Frame2);
  auto* formation = new QHBoxLayout;
  formation->addWidget(NewCaption("Label1", "Formation:", cmbFormation));
  formation->addWidget(cmbFormation, 1);
  grid->addLayout(formation, 0, 0, 1, 3);
  for (int i = 0; i < play_buttons; ++i) {
    grid->addWidget(btnPlay[i], 1 + i % plays_per_column, i < plays_per_column ? 0 : 2);
  }
  auto* Line1 = new QFrame;
  Line1->setObjectName("Line1");
  Line1->setFrameStyle(QFrame::VLine | QFrame::Sunken);
  grid->addWidget(Line1, 1, 1, plays_per_column, 1);
  return Frame2;
}

void EditTeam::Connect() {
  connect(txtCity, &TextBox::Change, this, &EditTeam::txtCity_Change);
  connect(txtName, &TextBox::Change, this, &EditTeam::txtName_Change);
  connect(txtAbbreviation, &TextBox::Change, this, &EditTeam::txtAbbreviation_Change);
  const auto connect_all = [this](const auto& controls, auto signal,
                                  void (EditTeam::*handler)(int)) {
    int index = controls.First();
    for (auto* control : controls) {
      connect(control, signal, this, [this, handler, index] { (this->*handler)(index); });
      ++index;
    }
  };
  connect_all(btnChange, &QPushButton::clicked, &EditTeam::btnChange_Click);
  connect_all(btnPlay, &QPushButton::clicked, &EditTeam::btnPlay_Click);
  connect_all(skins_.Option1, &QRadioButton::clicked, &EditTeam::Option1_Click);
  connect_all(skins_.Option2, &QRadioButton::clicked, &EditTeam::Option2_Click);
  connect_all(skins_.Option3, &QRadioButton::clicked, &EditTeam::Option3_Click);
  connect_all(picDivChamp, &PictureBox::Click, &EditTeam::picDivChamp_Click);
  connect_all(picConfChamp, &PictureBox::Click, &EditTeam::picConfChamp_Click);
  connect(btnSave, &QPushButton::clicked, this, &EditTeam::btnSave_Click);
  connect(btnCancel, &QPushButton::clicked, this, &EditTeam::btnCancel_Click);
}

void EditTeam::Form_Load() {
  session_.EditTeamOpen = true;
  LoadTeam();
}

void EditTeam::Form_Unload() {
  session_.EditTeamOpen = false;
}

void EditTeam::LoadTeam() {
  FillWorkingCopies(session_);
  cmbFormation->SetListIndex(session_.League().TeamData[session_.ViewTeam].Formation);
  txtCity->SetText(FromLatin1(session_.PreviewCity));
  txtName->SetText(FromLatin1(session_.PreviewName));
  txtAbbreviation->SetText(FromLatin1(session_.PreviewAbbreviation));
  FillEditTeam();
  filled_ = Values();
}

QStringList EditTeam::Values() const {
  QStringList values{txtCity->Text(), txtName->Text(), txtAbbreviation->Text(),
                     cmbFormation->Text()};
  for (const auto& uniform : session_.PreviewColors) {
    for (const int color : uniform) values << QString::number(color);
  }
  for (const int play : session_.PreviewPlays) values << QString::number(play);
  return values;
}

QStringList EditTeam::NotStored() const {
  if (Values() == filled_) return {};
  return {"Edit Team (" + FromLatin1(TeamTitleText(session_.League(), session_.ViewTeam)) + ")"};
}

void EditTeam::FillEditTeam() {
  ShowJerseyColors();
  ShowTextRoom();
  const TeamRec& team = session_.League().TeamData[session_.ViewTeam];
  ShowChampColors(picDivChamp, session_.League(), team.DivChampColors);
  ShowChampColors(picConfChamp, session_.League(), team.ConfChampColors);
  for (int i = 0; i < play_buttons; ++i) {
    btnPlay[i]->SetCaption(FromLatin1(PlayName(i + 1, session_.PreviewPlays[i + 1])));
  }
}

void EditTeam::ShowJerseyColors() {
  for (int i = 0; i < color_buttons; ++i) {
    const int color = JerseyColor(session_, i);
    btnChange[i]->SetCaption(ColorName(session_.League(), color));
    btnChange[i]->setIcon(
        ColorIcon(ScreenColor(session_.League(), color), SwatchSide, devicePixelRatioF()));
  }
  for (int uniform = 1; uniform <= 2; ++uniform) {
    PaintFigure(*picJersey[uniform + 1], session_, uniform);
    skins_.Show(uniform - 1, session_.PreviewColors[uniform][2]);
  }
}

void EditTeam::ShowTextRoom() {
  const int bytes_free = TeamTextBytesFree(session_);
  lblTextRoom->setText(FromLatin1(TeamTextRoom(bytes_free)));
  QFont font = this->font();
  font.setBold(bytes_free < 0);
  lblTextRoom->setFont(font);
  imgTextsTooLong->setVisible(bytes_free < 0);
}

void EditTeam::txtCity_Change() {
  session_.PreviewCity = UpperCaseBox(*txtCity);
  ShowTextRoom();
}

void EditTeam::txtName_Change() {
  session_.PreviewName = UpperCaseBox(*txtName);
  ShowTextRoom();
}

void EditTeam::txtAbbreviation_Change() {
  session_.PreviewAbbreviation = UpperCaseBox(*txtAbbreviation);
}

void EditTeam::btnChange_Click(int Index) {
  session_.ColorSlot = static_cast<std::uint16_t>(Index);
  ChooseColor(this, session_).exec();
  FillEditTeam();
}

void EditTeam::btnPlay_Click(int Index) {
  session_.PlaySlot = static_cast<std::int16_t>(Index);
  if (ChoosePlay(this, session_).exec() == QDialog::Accepted) FillEditTeam();
}

void EditTeam::SetSkin(int Index, int skin) {
  session_.PreviewColors[Index + 1][2] = static_cast<std::int16_t>(skin);
  FillEditTeam();
}

void EditTeam::Option1_Click(int Index) {
  SetSkin(Index, LightSkin);
}

void EditTeam::Option2_Click(int Index) {
  SetSkin(Index, MediumSkin);
}

void EditTeam::Option3_Click(int Index) {
  SetSkin(Index, DarkSkin);
}

template <typename Colors>
void EditTeam::ChooseChampColor(Colors TeamRec::*colors, int color, const std::string& step) {
  session_.ColorSlot = NoColor;
  const int team = session_.ViewTeam;
  ChooseColor(this, session_, (session_.League().TeamData[team].*colors)[color]).exec();
  if (session_.ColorChoice == NoColor) return;
  session_.Change(step + ": " + TeamTitleText(session_.League(), team), [&](LeagueData& league) {
    (league.TeamData[team].*colors)[color] = static_cast<std::uint8_t>(session_.ColorChoice);
  });
  FillEditTeam();
}

void EditTeam::picDivChamp_Click(int Index) {
  ChooseChampColor(&TeamRec::DivChampColors, Index + 1, "Division Champion Color");
}

void EditTeam::picConfChamp_Click(int Index) {
  ChooseChampColor(&TeamRec::ConfChampColors, Index + 1, "Conference Champion Color");
}

void EditTeam::btnSave_Click() {
  const std::string list_text =
      UpperText(ToLatin1(txtCity->Text())) + " " + UpperText(ToLatin1(txtName->Text()));
  session_.Change("Save Team: " + list_text, [this](LeagueData& league) {
    StoreWorkingCopies(session_, league);
    if (cmbFormation->ListIndex() >= 0) {
      league.TeamData[session_.ViewTeam].Formation =
          static_cast<std::uint8_t>(cmbFormation->ListIndex());
    }
  });
  emit TeamSaved(FromLatin1(list_text));
}

void EditTeam::btnCancel_Click() {
  CloseForm();
}

}  // namespace rostermill
