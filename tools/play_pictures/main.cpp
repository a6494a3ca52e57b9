#include <QImage>
#include <QString>

#include <cstdio>
#include <string>
#include <vector>

#include "tools/play_pictures/play_drawing.h"
#include "tools/play_pictures/play_parser.h"

namespace {

bool WritePictures(const std::vector<rostermill::Play>& plays, const std::string& folder) {
  for (const rostermill::Play& play : plays) {
    const std::string file_name = folder + "/" + play.key + ".bmp";
    if (!rostermill::DrawPlay(play).save(QString::fromLocal8Bit(file_name.c_str()), "BMP")) {
      std::fprintf(stderr, "%s: can't be written\n", file_name.c_str());
      return false;
    }
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: %s PLAYS.TXT FOLDER\n", argv[0]);
    return 1;
  }
  try {
    return WritePictures(rostermill::ReadPlays(argv[1]), argv[2]) ? 0 : 1;
  } catch (const rostermill::PlayTextError& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
