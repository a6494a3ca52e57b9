#include <filesystem>
#include <optional>

#include "history/data_folder.h"
#include "history/version_store.h"
#include "tests/faults/fault_walk.h"
#include "tests/tools/rsmtool_fixture.h"

namespace rostermill::test {
namespace {

using RsmtoolFaults = RsmtoolTest;

/// Every way in which commands write, over a file that is there: it is the old one or the new one,
/// and the exit status says which, or that the new one may not be safe. A version is whole, or its
/// lack is told.
TEST_F(RsmtoolFaults, EveryFailingCallOfAnyCommandLeavesTheOldFileOrTheNewOne) {
  const QString base = Image("base.nes"), other = Image("other.nes", {{0x6DA, {0x44}}});
  const QString image = Image("image.nes"), out = Path("out"), patch = Path("out.bps");
  WriteFile(folder_.Path("players.csv"), std::string("Team,Slot,Number\n1,1,22\n"));
  WriteFile(folder_.Path("number.csv"), std::string("Team,Slot,Number\n1,2,77\n"));
  Out({"import-players", image, Path("number.csv")});
  const Bytes old_image = BytesOf(image);
  struct Writer {
    QStringList Call;
    QString Written;
  };
  const std::vector<Writer> writers{
      {{"export-players", image, out}, out},
      {{"make-patch", base, other, patch}, patch},
      {{"import-players", "--no-version", image, Path("players.csv")}, image},
      {{"restore", "--no-version", image, "1"}, image},
      {{"resave", image, image}, image}};
  for (const Writer& writer : writers) {
    SCOPED_TRACE(writer.Call.join(' ').toStdString());
    const bool keeps = writer.Call[0] == "resave";
    const std::string path = writer.Written.toStdString();
    const Bytes old = keeps ? SampleBytes() : writer.Written == image ? old_image : Bytes(50, 'o');
    const auto prepare = [&] {
      WriteFile(image.toStdString(), old_image);
      WriteFile(path, old);
      // With all above it that the program makes.
      if (keeps) std::filesystem::remove_all(qgetenv("XDG_DATA_HOME").toStdString());
    };
    Result result{};
    std::optional<Result> good;
    Bytes written;
    bool was_unsafe = false;
    const auto check = [&](bool) {
      const Bytes now = FileBytes(path);
      if (!good) {  // the first time nothing fails
        good = result;
        written = now;
        EXPECT_EQ(result.Code, 0) << result.Err;
        EXPECT_NE(now, old);
      }
      const VersionStore store(DataFolder());
      const auto versions = keeps ? store.List(path) : std::vector<Version>();
      for (const Version& version : versions) EXPECT_EQ(store.Read(path, version).Bytes, old);
      EXPECT_EQ(now, result.Code == 2 ? old : written) << result.Err;
      const std::string unsafe = "rsmtool: " + path +
                                 " was written, but the system could not confirm that it is safe: "
                                 "Input/output error\n";
      EXPECT_EQ(result.Code == 3, result.Err.find(unsafe) != std::string::npos) << result.Err;
      was_unsafe = was_unsafe || result.Code == 3;
      const bool told =
          result.Err.find("its earlier version could not be kept: ") != std::string::npos;
      EXPECT_EQ(result.Err == good->Err, result.Code == 0 && !told) << result.Err;
      EXPECT_TRUE(!keeps || result.Code == 2 || told || !versions.empty())
          << "a version is missing, and nothing says so";
    };
    WalkFaults(
        prepare, [&] { result = Run(writer.Call); }, check, Killing::Never);
    EXPECT_TRUE(was_unsafe);
  }
}

}  // namespace
}  // namespace rostermill::test
