#include <cerrno>
#include <set>

#include "history/data_folder.h"
#include "history/version_store.h"
#include "tests/faults/fault_walk.h"
#include "tests/tools/rsmtool_fixture.h"

namespace rostermill::test {
namespace {

using RsmtoolFaults = RsmtoolTest;

/// A script that takes a file in its place for one that wasn't written, or for one that is safe.
TEST_F(RsmtoolFaults, AFileThatIsWrittenButNotConfirmedIsThree) {
  const QString image = Image("a.nes");
  WriteFile(folder_.Path("p.csv"), std::string("Team,Slot,Number\n1,1,22\n"));
  const std::vector<std::pair<QStringList, QString>> calls{
      {{"export-players", image, Path("out.csv")}, Path("out.csv")},
      {{"resave", "--no-version", image, Path("b.nes")}, Path("b.nes")},
      {{"import-players", "--no-version", image, Path("p.csv")}, image}};
  for (const auto& [call, written] : calls) {
    StartFaults({{"fsync", 2, true, Effect::Error, EIO}});
    const Result result = Run(call);
    StopFaults();
    EXPECT_EQ(result.Code, 3) << call[0].toStdString();
    const std::string line = "rsmtool: " + written.toStdString() +
                             " was written, but the system could not confirm that it is safe: "
                             "Input/output error\n";
    EXPECT_EQ(result.Err.substr(0, line.size()), line);
  }
  EXPECT_EQ(BytesOf(image)[0x6DA], 0x22);
  EXPECT_NE(Run({"import-players", image, Path("p.csv")}).Err.find("nothing to change"),
            std::string::npos);

  StartFaults({{"fsync", 1, true, Effect::Error, EIO}});
  Out({"resave", image, Path("c.nes")}, 2);
  StopFaults();
  EXPECT_FALSE(std::filesystem::exists(folder_.Path("c.nes")));
}

/// A save whose earlier version can't be kept, or is kept by half.
TEST_F(RsmtoolFaults, EveryFailingCallLeavesTheImageAndItsVersionWhole) {
  const QString image = Path("a.nes");
  const QStringList save{"resave", image, image};
  const auto put_back = [&] {
    // With all above it that the program makes.
    std::filesystem::remove_all(qgetenv("XDG_DATA_HOME").toStdString());
    Image("a.nes");
  };
  put_back();
  StartFaults({});
  ASSERT_EQ(Run(save).Code, 0);
  const auto trace = StopFaults();
  const Bytes saved = BytesOf(image);
  std::set<std::string> kept_not;

  const auto expect_whole = [&] {
    const Bytes now = BytesOf(image);
    EXPECT_TRUE(now == SampleBytes() || now == saved) << "neither the old image nor the new";
    const VersionStore store(DataFolder());
    for (const Version& version : store.List(image.toStdString())) {
      EXPECT_EQ(store.Read(image.toStdString(), version.Number).Bytes, SampleBytes());
    }
  };
  const auto failing = [&](const Fault& fault) {
    if (fault.Onward && fault.At > 1) return;
    SCOPED_TRACE(TextOf(fault));
    put_back();
    StartFaults({fault});
    const Result result = Run(save);
    StopFaults();
    expect_whole();
    EXPECT_EQ(BytesOf(image), result.Code == 2 ? SampleBytes() : saved) << result.Err;
    if (result.Code == 2) return;
    const bool told =
        result.Err.find("its earlier version could not be kept: ") != std::string::npos;
    if (told) kept_not.insert(fault.Call);
    EXPECT_TRUE(told || !VersionStore(DataFolder()).List(image.toStdString()).empty())
        << "a version is missing, and nothing says so";
  };
  ForEachFault(trace, Effect::Error, EIO, failing);
  ForEachFault(trace, Effect::Kill, 0, [&](const Fault& fault) {
    SCOPED_TRACE(TextOf(fault));
    put_back();
    EXPECT_TRUE(KilledWhile([&] {
      StartFaults({fault});
      Run(save);
    }));
    expect_whole();
  });
  for (const char* call : {"open", "write", "fsync", "rename"}) {
    EXPECT_TRUE(kept_not.contains(call)) << call << " may fail unnoticed";
  }
}

/// Every way in which commands write, over a file that is there: it is the old one or the new one,
/// and the exit status says which.
TEST_F(RsmtoolFaults, EveryFailingCallOfAnyCommandLeavesTheOldFileOrTheNewOne) {
  const QString base = Image("base.nes"), other = Image("other.nes", {{0x6DA, {0x44}}});
  const QString image = Path("image.nes"), out = Path("out");
  WriteFile(folder_.Path("players.csv"), std::string("Team,Slot,Number\n1,1,22\n"));
  struct Writer {
    QStringList Call;
    QString Written;
  };
  const std::vector<Writer> writers{
      {{"export-players", image, out}, out},
      {{"make-patch", base, other, Path("out.bps")}, Path("out.bps")},
      {{"import-players", "--no-version", image, Path("players.csv")}, image},
      {{"restore", "--no-version", image, "1"}, image}};
  Image("image.nes");
  WriteFile(folder_.Path("number.csv"), std::string("Team,Slot,Number\n1,2,77\n"));
  Out({"import-players", image, Path("number.csv")});
  const Bytes old_image = BytesOf(image);
  const Bytes old_out(50, 'o');

  for (const auto& [call, written] : writers) {
    SCOPED_TRACE(call.join(' ').toStdString());
    const Bytes& old = written == image ? old_image : old_out;
    const std::string path = written.toStdString();
    WriteFile(image.toStdString(), old_image);
    WriteFile(path, old);
    StartFaults({});
    const Result good = Run(call);
    const auto trace = StopFaults();
    ASSERT_EQ(good.Code, 0) << good.Err;
    const Bytes done = FileBytes(path);
    ASSERT_NE(done, old);
    const auto failing = [&, &words = call](const Fault& fault) {
      if (fault.Onward) return;
      SCOPED_TRACE(TextOf(fault));
      WriteFile(path, old);
      StartFaults({fault});
      const Result result = Run(words);
      StopFaults();
      EXPECT_TRUE(FaultStruck());
      EXPECT_EQ(FileBytes(path), result.Code == 2 ? old : done) << result.Err;
      EXPECT_EQ(result.Err == good.Err, result.Code == 0) << result.Err;
    };
    ForEachFault(trace, Effect::Error, EIO, failing);
    ForEachFault(trace, Effect::Short, 0, failing);
  }
}

}  // namespace
}  // namespace rostermill::test
