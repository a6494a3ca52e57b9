#include <QImage>
#include <QList>
#include <QString>

#include <cstdio>
#include <exception>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "tools/portraits/canvas.h"
#include "tools/portraits/colors.h"
#include "tools/portraits/no_picture.h"
#include "tools/portraits/painter.h"
#include "tools/portraits/recipe.h"

namespace rostermill {
namespace {

// Two portraits that differ in fewer pixels than this are too easy to confuse.
constexpr int least_difference = 60;
constexpr int dots_per_meter = 2835;

QImage ImageOf(std::span<const Rgb> colors) {
  QImage image(PictureSize, PictureSize, QImage::Format_Indexed8);
  // The default resolution would be that of the screen on which this runs.
  image.setDotsPerMeterX(dots_per_meter);
  image.setDotsPerMeterY(dots_per_meter);
  QList<QRgb> table;
  for (const Rgb color : colors) table.append(0xff000000u | color);
  image.setColorTable(table);
  return image;
}

QImage PortraitImage(int portrait, const Parts& parts) {
  const Recipe recipe = RecipeOf(portrait, parts);
  const Palette palette = PaletteOf(recipe);
  const Canvas canvas = Paint(recipe, parts);
  QImage image = ImageOf(palette);
  for (int y = 0; y < PictureSize; ++y) {
    for (int x = 0; x < PictureSize; ++x) {
      image.setPixel(x, y, static_cast<uint>(canvas.At(x, y)));
    }
  }
  return image;
}

QImage NoPictureImage(const GrayPicture& picture) {
  const auto grays = Grays();
  QImage image = ImageOf(grays);
  for (int y = 0; y < PictureSize; ++y) {
    for (int x = 0; x < PictureSize; ++x) {
      image.setPixel(x, y, picture[static_cast<std::size_t>(y * PictureSize + x)]);
    }
  }
  return image;
}

bool ShowsBackdrop(const QImage& image, int x, int y) {
  const auto role = static_cast<Role>(image.pixelIndex(x, y));
  return role == Role::Back || role == Role::BackLight;
}

// A different backdrop does not make a different player: pixels where both show theirs don't count.
int Difference(const QImage& a, const QImage& b) {
  int count = 0;
  for (int y = 0; y < PictureSize; ++y) {
    for (int x = 0; x < PictureSize; ++x) {
      if (ShowsBackdrop(a, x, y) && ShowsBackdrop(b, x, y)) continue;
      if (a.pixel(x, y) != b.pixel(x, y)) ++count;
    }
  }
  return count;
}

void CheckDistinct(const std::vector<QImage>& portraits) {
  for (std::size_t i = 0; i < portraits.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      if (Difference(portraits[i], portraits[j]) < least_difference) {
        throw std::runtime_error("portraits " + std::to_string(j) + " and " + std::to_string(i) +
                                 " look alike");
      }
    }
  }
}

void Save(const QImage& image, const QString& folder, const QString& name) {
  const QString path = folder + '/' + name + QStringLiteral(".bmp");
  if (!image.save(path, "BMP")) {
    throw std::runtime_error("cannot write " + path.toStdString());
  }
}

void MakePortraits(const std::string& art_folder, const QString& folder) {
  const Parts parts = ReadParts(art_folder);
  const GrayPicture no_picture = ReadNoPicture(art_folder);
  std::vector<QImage> portraits;
  portraits.reserve(PortraitCount);
  for (int portrait = 0; portrait < PortraitCount; ++portrait) {
    portraits.push_back(PortraitImage(portrait, parts));
  }
  CheckDistinct(portraits);
  int number = 0;
  for (const QImage& portrait : portraits) {
    Save(portrait, folder, QStringLiteral("%1").arg(number++, 2, 16, QLatin1Char('0')).toUpper());
  }
  Save(NoPictureImage(no_picture), folder, QStringLiteral("na"));
}

}  // namespace
}  // namespace rostermill

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: make_portraits ART_FOLDER FOLDER\n", stderr);
    return 1;
  }
  try {
    rostermill::MakePortraits(argv[1], QString::fromLocal8Bit(argv[2]));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
