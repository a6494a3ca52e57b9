#include "screens/leaders/form_print.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QGroupBox>
#include <QVBoxLayout>

#include <filesystem>
#include <system_error>

#include "rules/leader_rows.h"
#include "toolkit/form_parts.h"
#include "toolkit/natural_layout.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

FormPrint::FormPrint(QWidget* parent, LeagueSession& session, int group)
    : DialogForm(parent, "FormPrint", "Print..."), session_(session), group_(group) {
  BuildControls();
  LayOut();
  Connect();
  Form_Load();
}

void FormPrint::BuildControls() {
  radPrinter = new QRadioButton("Printer");
  radPrinter->setObjectName("radPrinter");
  radFile = new QRadioButton("File");
  radFile->setObjectName("radFile");
  lblFile = NewLabel("lblFile", "(Output.txt)");
  btnOK = NewButton("btnOK", "OK");
  btnCancel = NewButton("btnCancel", "Cancel");
}

void FormPrint::LayOut() {
  auto* Frame1 = NewFrame("Frame1", "Print To:");
  auto* file = new QHBoxLayout;
  file->addWidget(radFile);
  file->addWidget(lblFile, 1);
  auto* choices = new QVBoxLayout(Frame1);
  choices->addWidget(radPrinter);
  choices->addLayout(file);

  auto* column = new NaturalColumn(this);
  column->addWidget(Frame1, 1);
  column->addWidget(ButtonRow(btnOK, btnCancel));
}

void FormPrint::Connect() {
  connect(btnOK, &QPushButton::clicked, this, &FormPrint::btnOK_Click);
  connect(btnCancel, &QPushButton::clicked, this, &FormPrint::btnCancel_Click);
}

void FormPrint::Form_Load() {
  radPrinter->setChecked(true);
  radPrinter->setFocus();
  lblFile->setText(FromLatin1(LeaderFileName(group_)));
  const QString path = QDir::toNativeSeparators(FromUtf8(ExportPath(group_)));
  lblFile->setToolTip(PlainToolTip(path));
  radFile->setAccessibleDescription(path);
}

void FormPrint::btnOK_Click() {
  session_.PrintCancelled = 0;
  session_.PrintToPrinter = radPrinter->isChecked() ? -1 : 0;
  accept();
}

void FormPrint::btnCancel_Click() {
  session_.PrintCancelled = 1;
  session_.PrintToPrinter = -1;
  QDialog::reject();
}

std::string ExportPath(int group) {
  // Qt reports the root if the current folder has been removed.
  std::error_code gone;
  const std::filesystem::path folder = std::filesystem::current_path(gone);
  if (gone || folder.empty()) return {};
  return ToUtf8(QDir::current().absoluteFilePath(FromLatin1(LeaderFileName(group))));
}

}  // namespace rostermill
