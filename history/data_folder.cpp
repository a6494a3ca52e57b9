#include "history/data_folder.h"

#include <QDir>
#include <QStandardPaths>

namespace rostermill {

std::string DataFolder() {
  QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  // A relative XDG_DATA_HOME is invalid, and would name another folder wherever a program starts.
  if (QDir::isRelativePath(folder)) folder = QDir::homePath() + "/.local/share";
  return (folder + "/rostermill/versions").toStdString();
}

}  // namespace rostermill
