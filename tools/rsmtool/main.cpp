#include <QCoreApplication>

#include <cstdio>
#include <iostream>

#include "tools/rsmtool/rsmtool.h"
#ifdef Q_OS_WIN
#include <fcntl.h>
#include <io.h>
#define isatty _isatty
#else
#include <unistd.h>
#endif

int main(int argc, char** argv) {
#ifdef Q_OS_WIN
  _setmode(0, _O_BINARY);
  _setmode(1, _O_BINARY);
#endif
  const QCoreApplication application(argc, argv);
  std::ios::sync_with_stdio(false);
  rostermill::Console console{std::cin, std::cout, std::cerr, isatty(1) != 0, isatty(2) != 0};
  return rostermill::RunRsmtool(QCoreApplication::arguments().mid(1), console);
}
