#include <algorithm>

#include "exchange/changes.h"
#include "exchange/other_bytes.h"
#include "exchange/patch.h"
#include "league/load_image.h"
#include "league/quantity_text.h"
#include "tools/rsmtool/commands.h"
#include "tools/rsmtool/files.h"

namespace rostermill {

namespace {

using Bytes = std::vector<std::uint8_t>;

LeagueData LeagueOf(const Bytes& bytes) {
  OpenImage image(bytes);
  return ReadLeague(image);
}

/// The messages of patches are sentences; those of rsmtool are not.
[[noreturn]] void FailAsTool(const std::string& name, const PatchError& error) {
  std::string text = error.what();
  if (text.ends_with('.')) text.pop_back();
  throw ToolError(name + ": " + text);
}

Bytes Patched(const Bytes& image, const QString& path, Console& console) {
  const Bytes patch = ReadWholeFile(path, console);
  try {
    Bytes patched = ApplyPatch(image, patch);
    const FileStart start{patched, patched.size()};
    if (const std::string fault = ImageFault(start); !fault.empty()) {
      throw ToolError(InputName(path) + ": it would leave a file that is " + fault);
    }
    return patched;
  } catch (const PatchError& error) {
    FailAsTool(InputName(path), error);
  }
}

void PrintChanges(const Bytes& from, const Bytes& to, std::ostream& out) {
  for (const Change& change : FindChanges(LeagueOf(from), LeagueOf(to))) out << ChangeLine(change);
  if (const std::size_t count = CountOtherBytes(from, to); count > 0) {
    out << "Also: " << QuantityText(count, "byte") << " outside the league\n";
  }
}

}  // namespace

int RunMakePatch(const Arguments& arguments, Console& console) {
  const QString& path = arguments.Paths[2];
  const auto format = PatchFormatOfName(path.toStdString());
  if (!format) throw ToolError("the name of a patch ends with .bps or .ips");
  const Bytes base = ReadWholeFile(arguments.Paths[0], console);
  const Bytes target = ReadWholeFile(arguments.Paths[1], console);
  try {
    const Bytes patch = MakePatch(*format, base, target);
    const int code = WriteOtherFile(path, patch, console);
    console.Err << "rsmtool: " << path.toStdString() << " written, "
                << QuantityText(patch.size(), "byte") << "\n";
    return code;
  } catch (const PatchError& error) {
    FailAsTool(path.toStdString(), error);
  }
}

int RunApplyPatch(const Arguments& arguments, Console& console) {
  const QString& source = arguments.Paths[0];
  const QString out = arguments.Paths.value(2, source);
  const Bytes image = ReadImageFile(source, console);
  const Bytes patched = Patched(image, arguments.Paths[1], console);
  if (arguments.DryRun) {
    PrintChanges(image, patched, console.Out);
    return ExitOk;
  }
  if (patched == image && out == source) {
    console.Err << "rsmtool: nothing to change; " << out.toStdString() << " stays as it is\n";
    return ExitOk;
  }
  const int code = WriteImageFile(source, out, patched, Extent::Whole, arguments, console);
  PrintChanges(image, patched, out == "-" ? console.Err : console.Out);
  console.Err << "rsmtool: " << InputName(out) << " written\n";
  return code;
}

}  // namespace rostermill
