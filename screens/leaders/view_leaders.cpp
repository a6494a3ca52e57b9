#include "screens/leaders/view_leaders.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPrinter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

#include "league/file_access.h"
#include "rules/display_text.h"
#include "rules/leader_export.h"
#include "rules/position_layout.h"
#include "screens/leaders/form_print.h"
#include "toolkit/form_parts.h"
#include "toolkit/messages.h"
#include "toolkit/natural_layout.h"
#include "toolkit/print_lines.h"
#include "toolkit/printer_choice.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

constexpr int rows_on_view = 5;
constexpr int cell_margin = 5;
constexpr const char* print_title = "Print...";
/// Black and white are both readable on it, at 4.5 to 1 or better.
constexpr QColor heading_ground(0x54, 0x7A, 0x96);

}  // namespace

ViewLeaders::ViewLeaders(LeagueSession& session)
    : ChildForm("ViewLeaders", "View Leaders"), session_(session), make_printer_(OpenPrinter) {
  BuildControls();
  LayOut();
  Connect();
  Form_Load();
}

void ViewLeaders::BuildControls() {
  cmbPosition = new DropDownList("cmbPosition");
  cmbPosition->setMinimumContentsLength(18);
  BuildTable();
  scrBar = new QScrollBar(Qt::Vertical);
  scrBar->setObjectName("scrBar");
  scrBar->setAccessibleName("First visible row");
  scrBar->setMinimum(1);
  scrBar->setPageStep(1);
  btnPrint = NewButton("btnPrint", "Print...");
  btnOK = NewButton("btnOK", "OK");
}

void ViewLeaders::BuildTable() {
  for (int column = 0; column <= LeaderColumnLimit; ++column) {
    ClickLabel* head = lblHead.Add(new ClickLabel);
    head->setAlignment((column == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    head->setMargin(cell_margin);
    QFont bold = head->font();
    bold.setBold(true);
    head->setMinimumWidth(QFontMetrics(bold).averageCharWidth() * (column == 0 ? 24 : 6));
    lblD.emplace_back("lblD" + QString::number(column));
  }
  for (int r = 0; r < rows_on_view; ++r) {
    for (ControlArray<QLabel>& column : lblD) {
      QLabel* label = column.Add(NewNumberLabel({}, "000"));
      label->setMargin(cell_margin);
      label->setMinimumWidth(label->minimumWidth() + 2 * cell_margin);
      KeepRoomWhenHidden(label);
    }
    lblName.Add(new ElidedLabel({}))->setMargin(cell_margin);
    lblName[r]->AskForRoom(LongestPlayerListText);
  }
}

void ViewLeaders::LayOut() {
  auto* grid = new NaturalGrid(this);
  grid->addWidget(NewCaption("Label1", "Position:", cmbPosition), 0, 0);
  grid->addWidget(cmbPosition, 0, 1);
  grid->addWidget(LayOutTable(), 1, 0, 1, 3);
  grid->addWidget(ButtonRow(btnOK, nullptr, {btnPrint}), 2, 0, 1, 3);
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(1, 1);
}

QWidget* ViewLeaders::LayOutTable() {
  auto* Frame1 = NewFrame("Frame1", "Leaders");
  auto* table = new QGridLayout(Frame1);
  for (int column = 0; column <= LeaderColumnLimit; ++column) {
    table->addWidget(lblHead[column], 0, column + 1);
  }
  for (int r = 0; r < rows_on_view; ++r) {
    table->addWidget(lblD[0][r], r + 1, 0);
    table->addWidget(lblName[r], r + 1, 1);
    for (int column = 1; column <= LeaderColumnLimit; ++column) {
      table->addWidget(lblD[static_cast<std::size_t>(column)][r], r + 1, column + 1);
    }
  }
  table->addWidget(scrBar, 1, LeaderColumnLimit + 2, rows_on_view, 1);
  table->setColumnMinimumWidth(0, lblD[0][0]->minimumWidth() + cell_margin);
  table->setColumnStretch(1, 1);
  table->setRowStretch(rows_on_view + 1, 1);
  return Frame1;
}

void ViewLeaders::Connect() {
  connect(cmbPosition, &DropDownList::Click, this, &ViewLeaders::cmbPosition_Click);
  connect(scrBar, &QScrollBar::valueChanged, this, &ViewLeaders::scrBar_Change);
  scrBar->installEventFilter(this);
  btnPrint->installEventFilter(this);
  btnOK->installEventFilter(this);
  for (int index = lblHead.First(); index < lblHead.Next(); ++index) {
    connect(lblHead[index], &ClickLabel::Click, this, [this, index] { lblHead_Click(index); });
  }
  connect(btnPrint, &QPushButton::clicked, this, &ViewLeaders::btnPrint_Click);
  connect(btnOK, &QPushButton::clicked, this, &ViewLeaders::btnOK_Click);
}

void ViewLeaders::Form_Load() {
  cmbPosition->Clear();
  for (int group = 0; group < LeaderGroupCount; ++group) {
    cmbPosition->AddItem(FromLatin1(LeaderGroupTitle(group)));
  }
  cmbPosition->SetListIndex(0);
}

void ViewLeaders::cmbPosition_Click() {
  const int group = cmbPosition->ListIndex();
  SortFlags = {};
  RowCount = FillLeaderRows(session_.League(), group, session_.LeaderRows);
  ColumnCount = LeaderColumnCount(group);
  scrBar->setMaximum(std::max(1, RowCount - rows_on_view + 1));
  scrBar->setValue(1);
  ShowHeadings();
  ShowLeaderRows(1);
}

void ViewLeaders::ShowHeadings() {
  for (int column = 0; column <= LeaderColumnLimit; ++column) {
    const LeaderHeading heading = HeadingOf(cmbPosition->ListIndex(), column);
    lblHead[column]->setText(FromLatin1(heading.Caption));
    lblHead[column]->setToolTip(FromLatin1(heading.FullName));
    lblHead[column]->setAccessibleName(FromLatin1(heading.FullName));
    lblHead[column]->setEnabled(column <= ColumnCount);
    for (QLabel* label : lblD[static_cast<std::size_t>(column)]) {
      label->setVisible(column <= ColumnCount);
      label->setEnabled(column <= ColumnCount);
    }
  }
  ShowSortFlags();
}

void ViewLeaders::ShowSortFlags() {
  for (int column = 0; column <= LeaderColumnLimit; ++column) {
    ClickLabel& head = *lblHead[column];
    QPalette colors = palette();
    colors.setColor(head.foregroundRole(), SortFlags[column] ? Qt::white : Qt::black);
    colors.setColor(head.backgroundRole(), heading_ground);
    head.setPalette(colors);
    QFont font = this->font();
    font.setBold(SortFlags[column]);
    head.setFont(font);
    head.setAutoFillBackground(head.isEnabled());
    head.setAccessibleDescription(SortFlags[column] ? "sorts" : "does not sort");
  }
}

void ViewLeaders::scrBar_Change() {
  ShowLeaderRows(scrBar->value());
}

void ViewLeaders::ShowLeaderRows(int top) {
  for (int r = 0; r < rows_on_view; ++r) {
    const int k = top + r;
    const bool in_use = k <= RowCount;
    lblName[r]->SetText(in_use ? FromLatin1(session_.LeaderRows[k].Name) : QString());
    lblD[0][r]->setText(in_use ? QString::number(k) : QString());
    const QString whose = in_use ? WhoseText(session_.LeaderRows[k]) : QString();
    lblName[r]->setToolTip(whose);
    for (ControlArray<QLabel>& column : lblD) column[r]->setToolTip(whose);
    for (int column = 1; column <= LeaderColumnLimit; ++column) {
      lblD[static_cast<std::size_t>(column)][r]->setText(
          in_use ? FromLatin1(RatingText(session_.LeaderRows[k].Attr[column])) : QString());
    }
  }
}

QString ViewLeaders::WhoseText(const LeaderRow& row) const {
  const LeagueData& league = session_.League();
  return PlainToolTip(
      FromLatin1(row.Name + ", " + TeamTitleText(league, row.Team) + ", " +
                 std::string(SlotLabel(league.TeamData[row.Team].Formation, row.Slot))));
}

void ViewLeaders::lblHead_Click(int Index) {
  ToggleHeading(SortFlags, Index);
  ShowSortFlags();
  SortLeaderRows(session_.LeaderRows, RowCount, SortFlags);
  ShowLeaderRows(scrBar->value());
}

bool ViewLeaders::eventFilter(QObject* watched, QEvent* event) {
  if (watched == scrBar && event->type() == QEvent::Wheel) {
    wheelEvent(static_cast<QWheelEvent*>(event));
    return true;
  }
  // On a button the arrow keys would move the focus.
  if (watched != scrBar && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Up || key == Qt::Key_Down) {
      keyPressEvent(static_cast<QKeyEvent*>(event));
      return true;
    }
  }
  return ChildForm::eventFilter(watched, event);
}

void ViewLeaders::wheelEvent(QWheelEvent* event) {
  wheel_turn_ += event->angleDelta().y() * QApplication::wheelScrollLines();
  const int rows = wheel_turn_ / QWheelEvent::DefaultDeltasPerStep;
  wheel_turn_ -= rows * QWheelEvent::DefaultDeltasPerStep;
  scrBar->setValue(scrBar->value() - rows);
  event->accept();
}

void ViewLeaders::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
      return scrBar->setValue(scrBar->value() - 1);
    case Qt::Key_Down:
      return scrBar->setValue(scrBar->value() + 1);
    case Qt::Key_PageUp:
      return scrBar->setValue(scrBar->value() - rows_on_view);
    case Qt::Key_PageDown:
      return scrBar->setValue(scrBar->value() + rows_on_view);
    case Qt::Key_Home:
      return scrBar->setValue(scrBar->minimum());
    case Qt::Key_End:
      return scrBar->setValue(scrBar->maximum());
    default:
      ChildForm::keyPressEvent(event);
  }
}

void ViewLeaders::btnPrint_Click() {
  FormPrint(this, session_, cmbPosition->ListIndex()).exec();
  if (session_.PrintCancelled != 0) return;
  if (session_.PrintToPrinter == -1) {
    PrintToPrinter();
  } else {
    WriteExportFile();
  }
}

void ViewLeaders::PrintToPrinter() {
  QString failure;
  const std::unique_ptr<QPrinter> printer = make_printer_(failure);
  if (printer == nullptr) return ShowPrintFailure(failure);
  QStringList lines;
  for (const std::string& line :
       LeaderLines(session_.LeaderRows, RowCount, cmbPosition->ListIndex())) {
    lines << FromLatin1(line);
  }
  printer->setDocName("Rostermill");
  const PrintResult result = PrintLines(*printer, lines);
  failure = result.Failure;
  if (failure.isEmpty() && printer->printerState() == QPrinter::Error) {
    failure = "the printer reports an error.";
  }
  if (!failure.isEmpty()) ShowPrintFailure(failure + '\n' + printer->printerName());
}

void ViewLeaders::ShowPrintFailure(const QString& reason) {
  const QString file = FromLatin1(LeaderFileName(cmbPosition->ListIndex()));
  ShowFailure("The list could not be printed: " + reason + "\n\nTo write the list to " + file +
              " instead, choose File.");
}

void ViewLeaders::WriteExportFile() {
  const int group = cmbPosition->ListIndex();
  const std::string path = ExportPath(group);
  if (path.empty()) {
    return ShowFailure("The list could not be written: the current folder is no longer there.");
  }
  try {
    ReplaceFile(path, ExportBytes(LeaderLines(session_.LeaderRows, RowCount, group)));
  } catch (const FileNotSynced& error) {
    ShowFailure(FromUtf8(NotSyncedText(path, error) + "."));
  } catch (const FileError& error) {
    ShowFailure(FromUtf8(path + " could not be written: " + error.what() + "."));
  }
}

void ViewLeaders::ShowFailure(const QString& text) {
  ShowMessageBox(this, QMessageBox::Warning, text, print_title);
}

void ViewLeaders::btnOK_Click() {
  CloseForm();
}

}  // namespace rostermill
