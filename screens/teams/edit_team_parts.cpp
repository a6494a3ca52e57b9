#include "screens/teams/edit_team_parts.h"

#include <QGridLayout>
#include <QGroupBox>

#include "screens/teams/team_form_parts.h"
#include "toolkit/form_parts.h"

namespace rostermill {

namespace {

constexpr QSize champ_box_size(30, 22);
/// The form has to fit a small screen.
constexpr int close_spacing = 4;

QGroupBox* NewSkinFrame(int index, SkinOptions& options) {
  auto* frame =
      NewFrame(MemberName("frmSkin", index), QStringLiteral("Skin Color #%1").arg(index + 1));
  auto* column = new QVBoxLayout(frame);
  column->setSpacing(close_spacing);
  column->addWidget(options.Option1.Add(new QRadioButton("Light")));
  column->addWidget(options.Option2.Add(new QRadioButton("Medium")));
  column->addWidget(options.Option3.Add(new QRadioButton("Dark")));
  return frame;
}

}  // namespace

void SkinOptions::Show(int index, int skin) {
  if (skin == LightSkin) Option1[index]->setChecked(true);
  if (skin == MediumSkin) Option2[index]->setChecked(true);
  if (skin == DarkSkin) Option3[index]->setChecked(true);
}

QGroupBox* NewPreviewFrame(const QString& name, ControlArray<PictureBox>& figures,
                           SkinOptions& options) {
  QGroupBox* frame = NewFrame(name, "Preview");
  auto* grid = new QGridLayout(frame);
  int column = 0;
  for (const char* uniform : {"First uniform", "Second uniform"}) {
    PictureBox* figure = figures.Add(new PictureBox({}, FigureSize, FigureMagnification));
    figure->setAccessibleName(uniform);
    grid->addWidget(figure, 0, column, Qt::AlignHCenter);
    grid->addWidget(NewSkinFrame(column, options), 1, column);
    ++column;
  }
  return frame;
}

QGroupBox* NewChampFrame(const ChampFrame& frame, ControlArray<ColorBox>& boxes) {
  const std::size_t count = frame.Jersey.size() + frame.Helmet.size();
  for (std::size_t i = 0; i < count; ++i) boxes.Add(new ColorBox({}, champ_box_size));
  QGroupBox* group = NewFrame(frame.Name, frame.Title);
  auto* row = new QHBoxLayout(group);
  constexpr int as_usual = -1;
  row->setContentsMargins(as_usual, close_spacing, as_usual, close_spacing);
  const auto add_part = [&](const QString& label, const QString& text,
                            const std::vector<int>& indices) {
    row->addWidget(NewCaption(label, text, boxes[indices.front()]));
    int number = 0;
    for (const int index : indices) {
      const QString spoken = frame.Title + ", " + text + " color " + QString::number(++number);
      boxes[index]->SetClickable(QString(spoken).remove(':').toLower());
      row->addWidget(boxes[index]);
    }
  };
  add_part(frame.JerseyLabel, "Jersey:", frame.Jersey);
  row->addSpacing(8);
  add_part(frame.HelmetLabel, "Helmet:", frame.Helmet);
  row->addStretch();
  return group;
}

}  // namespace rostermill
