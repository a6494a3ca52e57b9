// Runs the formation code of a saved image in a simulator of the processor.

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/league/image_bytes.h"

namespace rostermill::test {
namespace {

/// A piece of code in a bank that the cartridge has at 0x8000, and the addresses of its ways out.
struct Piece {
  int Bank;  // its offset in the file
  int Address;
  std::vector<int> WaysOut;
};
const Piece piece_a{0x20010, 0x9632, {0x9650}};
const Piece piece_b{0x30010, 0x8FE8, {0x8FFE, 0x9004, 0x900A}};

class FormationCode : public testing::Test {
 protected:
  /// The first team for which the piece does not do what it should; 0 if there is none.
  int WrongTeam(const Bytes& image, const Piece& piece, const LeagueData& league) {
    constexpr int header = 12, driver = 0x7F00, bank_size = 0x2000;
    Bytes program = FileBytes(FORMATION_DRIVER);
    EXPECT_EQ(program.size(), header + 0x100u);
    constexpr int its_case = header + 0xC0;
    PutWord(program, its_case, piece.Address);
    program[its_case + 2] = piece.WaysOut.size() > 1;
    for (int team = 1; team <= TeamCount; ++team) {
      program[static_cast<std::size_t>(its_case + 2 + team)] = league.TeamData[team].Formation;
    }
    Bytes bank = BytesAt(image, piece.Bank, bank_size);
    int exit = driver;
    for (const int way : piece.WaysOut) {
      bank[static_cast<std::size_t>(way - 0x8000)] = 0x4C;  // JMP
      PutWord(bank, way - 0x8000 + 1, exit);
      exit += 3;
    }
    program.insert(program.end(), bank.begin(), bank.end());
    WriteFile(folder_.Path("program"), program);
    const int status =
        std::system((SIM65 " -x 100000 " + folder_.Path("program") + " 2>&1").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  TempFolder folder_;
};

TEST_F(FormationCode, GivesEachTeamItsFormation) {
  for (int shift = 0; shift <= 2; ++shift) {
    LeagueData league = SampleLeague();
    for (int team = 1; team <= TeamCount; ++team) {
      league.TeamData[team].Formation = static_cast<std::uint8_t>((team + shift) % 3);
    }
    Bytes saved = SavedBytes(league);
    EXPECT_EQ(WrongTeam(saved, piece_a, league), 0) << shift;
    EXPECT_EQ(WrongTeam(saved, piece_b, league), 0) << shift;

    // The simulation notices a wrong table and wrong code.
    saved[0x21FE0 + 4] ^= 1;
    saved[0x31E80 + 27] ^= 1;
    EXPECT_EQ(WrongTeam(saved, piece_a, league), 5);
    EXPECT_EQ(WrongTeam(saved, piece_b, league), 28);
    saved[0x21648] = saved[0x30FFE] = 0xEA;  // X is not given back
    EXPECT_EQ(WrongTeam(saved, piece_a, league), 1);
    EXPECT_EQ(WrongTeam(saved, piece_b, league), 1);
  }
}

}  // namespace
}  // namespace rostermill::test
