#include <QCoreApplication>

#include <iostream>

#include "tools/rsmtool/rsmtool.h"
#include <unistd.h>

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  std::ios::sync_with_stdio(false);
  rostermill::Console console{
      std::cin,       std::cout,      std::cerr,
      isatty(1) != 0, isatty(2) != 0, QCoreApplication::applicationDirPath().toStdString() + "/"};
  return rostermill::RunRsmtool(QCoreApplication::arguments().mid(1), console);
}
