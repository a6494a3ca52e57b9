#include <cerrno>

#include "tests/faults/system_calls.h"
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
      {{"resave", image, Path("b.nes")}, Path("b.nes")},
      {{"import-players", image, Path("p.csv")}, image}};
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
  const Result result = Run({"resave", image, Path("c.nes")});
  StopFaults();
  EXPECT_EQ(result.Code, 2);
  EXPECT_FALSE(std::filesystem::exists(folder_.Path("c.nes")));
}

}  // namespace
}  // namespace rostermill::test
