#include <QDateTime>
#include <QFileInfo>

#include <algorithm>

#include "exchange/json_text.h"
#include "exchange/player_table.h"
#include "history/data_folder.h"
#include "history/version_store.h"
#include "league/quantity_text.h"
#include "league/text.h"
#include "tools/rsmtool/commands.h"
#include "tools/rsmtool/files.h"

namespace rostermill {

namespace {

std::vector<Version> ListVersions(const Arguments& arguments) {
  const QString& image = arguments.Paths[0];
  if (image == "-") throw ToolError(arguments.Command + " needs the image as a file");
  try {
    return VersionStore(DataFolder()).List(image.toStdString());
  } catch (const std::runtime_error& error) {
    throw ToolError("the versions of " + image.toStdString() +
                    " could not be read: " + error.what());
  }
}

QDateTime TimeOf(const Version& version) {
  return QDateTime::fromSecsSinceEpoch(version.When.time_since_epoch().count());
}

std::string NoVersionsText(const QString& image) {
  return "no versions of " + image.toStdString() + " are kept";
}

std::string VersionsAsJson(const std::vector<Version>& versions) {
  Json json = Json::array();
  for (const Version& version : versions) {
    json.push_back({{"number", version.Number},
                    {"time", TimeOf(version).toUTC().toString(Qt::ISODate).toStdString()},
                    {"what", version.What},
                    {"firstState", version.FirstState},
                    {"fileSize", version.FileSize},
                    {"cut", version.Cut}});
  }
  return JsonText(json);
}

/// "12  2026-07-30 21:40:12  before resave" and a line end, the number in a column of this width.
std::string VersionLine(const Version& version, std::size_t width) {
  std::string line = PaddedText(std::to_string(version.Number), width);
  line += "  " + TimeOf(version).toString("yyyy-MM-dd HH:mm:ss").toStdString() + "  ";
  line += (version.FirstState ? "first state, " : "") + version.What;
  if (version.Cut) {
    line += ", only the first " + QuantityText(OpenImage::WholeSize, "byte") + " of " +
            QuantityText(version.FileSize, "byte");
  }
  return line + "\n";
}

/// The version that the user has named.
Version FindVersion(const std::vector<Version>& versions, const Arguments& arguments) {
  const QString& image = arguments.Paths[0];
  if (versions.empty()) throw ToolError(NoVersionsText(image));
  const std::string wanted = arguments.Paths[1].toStdString();
  const auto number = NumberIn(wanted, std::numeric_limits<int>::max());
  const auto found = std::ranges::find(
      versions, number, [](const Version& version) { return std::optional(version.Number); });
  if (found != versions.end()) return *found;
  std::string numbers;
  for (const Version& version : versions) {
    numbers += (numbers.empty() ? "" : ", ") + std::to_string(version.Number);
  }
  throw ToolError(image.toStdString() + " has no version " + wanted + "; it has " + numbers);
}

std::vector<std::uint8_t> ReadVersion(const QString& image, int number) {
  try {
    return VersionStore(DataFolder()).Read(image.toStdString(), number).Bytes;
  } catch (const std::runtime_error& error) {
    throw ToolError("version " + std::to_string(number) + " of " + image.toStdString() +
                    " could not be read: " + error.what());
  }
}

/// Completes the bytes of a cut version by what comes after them in its image, which no save has
/// changed.
void AddRest(const QString& image, std::vector<std::uint8_t>& bytes, Console& console) {
  const std::vector<std::uint8_t> whole = ReadWholeFile(image, console);
  if (whole.size() > bytes.size()) {
    bytes.insert(bytes.end(), whole.begin() + static_cast<std::ptrdiff_t>(bytes.size()),
                 whole.end());
  }
}

}  // namespace

int RunVersions(const Arguments& arguments, Console& console) {
  const QString& image = arguments.Paths[0];
  const std::vector<Version> versions = ListVersions(arguments);
  if (versions.empty()) {
    ReadInput(image, 0, console);  // A name with a mistake in it has no versions either.
    console.Err << "rsmtool: " << NoVersionsText(image) << "\n";
  }
  if (arguments.Json) {
    console.Out << VersionsAsJson(versions);
    return ExitOk;
  }
  std::size_t width = 0;
  for (const Version& version : versions) {
    width = std::max(width, std::to_string(version.Number).size());
  }
  for (const Version& version : versions) console.Out << VersionLine(version, width);
  return ExitOk;
}

int RunRestore(const Arguments& arguments, Console& console) {
  const QString& image = arguments.Paths[0];
  const QString& target = arguments.Paths.size() > 2 ? arguments.Paths[2] : image;
  const Version version = FindVersion(ListVersions(arguments), arguments);
  // Read before anything is kept, which may drop the oldest.
  std::vector<std::uint8_t> bytes = ReadVersion(image, version.Number);
  if (version.Cut && KindOf(image.toStdString()) != PathKind::RegularFile) {
    throw ToolError("version " + std::to_string(version.Number) + " is only the first " +
                    QuantityText(bytes.size(), "byte") + ", and " + image.toStdString() +
                    ", which has the rest, is not there");
  }
  const bool in_place = QFileInfo(image) == QFileInfo(target);
  if (version.Cut && !in_place) AddRest(image, bytes, console);
  const Extent extent = version.Cut && in_place ? Extent::Start : Extent::Whole;
  const int code = WriteImageFile(image, target, bytes, extent, arguments, console);
  if (target != "-") {
    console.Err << "rsmtool: version " << version.Number << " written to " << target.toStdString()
                << "\n";
  }
  return code;
}

}  // namespace rostermill
