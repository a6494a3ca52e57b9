#include "tools/portraits/parts.h"

namespace rostermill {
namespace {

constexpr Art kNecks[] = {
    {11, 19, R"(
3333333222
3333333222
3333332221
4333322211
4322222111
3322211111
3332222111
4333332221
4333333221
)"},
    {10, 19, R"(
333333332222
333333332222
333333322221
433333222211
433222222111
432222111111
333222222111
.4333333221.
.4333333221.
)"},
    {9, 19, R"(
33333333332222
33333333332222
33333333322221
43333322222211
43333222221111
43322221111111
43332222222111
..4333333221..
..4333333221..
)"},
};

constexpr Art kShoulders[] = {
    {0, 25, R"(
..........JJJJJJJJJJJJ..........
......JJJJJJJJJJJJJJJJJJJJ......
...JJJJJJJJJJJJJJJJJJJJJJJJJJ...
.JJJJJJJJJJJJJJJJJJJJJJJJJJJJJJ.
JJJJJJJJJJJJJJJJJJJJJJJJJJJJJJJJ
JJJJJJJJJJJJJJJJJJJJJJJJJJJJJJJJ
JJJJJJJJJJJJJJJJJJJJJJJJJJJJJJJJ
)"},
    {0, 25, R"(
........JJJJJJJJJJJJJJJJ........
..JJJJJJJJJJJJJJJJJJJJJJJJJJJJ..
JJJJJJJJJJJJJJJJJJJJJJJJJJJJJJJJ
JJJJJJJJJJJJJJJJJJJJJJJJJJJJJJJJ
JJJJJJJJJJJJJJJJJJJJJJJJJJJJJJJJ
JJJJJJJJJJJJJJJJJJJJJJJJJJJJJJJJ
JJJJJJJJJJJJJJJJJJJJJJJJJJJJJJJJ
)"},
    {0, 25, R"(
...........JJJJJJJJJJ...........
........JJJJJJJJJJJJJJJJ........
.....JJJJJJJJJJJJJJJJJJJJJJ.....
...JJJJJJJJJJJJJJJJJJJJJJJJJJ...
..JJJJJJJJJJJJJJJJJJJJJJJJJJJJ..
.JJJJJJJJJJJJJJJJJJJJJJJJJJJJJJ.
.JJJJJJJJJJJJJJJJJJJJJJJJJJJJJJ.
)"},
};

constexpr Art kCollars[] = {
    // V-neck.
    {8, 25, R"(
.TT..........TS.
..TT........TS..
...TT333322TS...
....TT4332TS....
.....TT32TS.....
......TTTS......
.......SS.......
)"},
    // Crew neck.
    {8, 25, R"(
..T..........S..
..UT........TS..
...UTT....TTS...
....SUTTTTTS....
......SSSS......
)"},
    // High collar.
    {8, 24, R"(
..T..........S..
..UTT......TSS..
..UTTTTTTTTTSS..
...STTTTTTTSS...
....SSSSSSSS....
)"},
    // Laced.
    {8, 25, R"(
.DC..........CB.
..DC........CB..
...DC333322CB...
....DC.33.CB....
.....DTAATB.....
......ATTA......
......TAAT......
)"},
    // Scooped.
    {8, 25, R"(
.T............S.
..T..........S..
..TT33333322TS..
...TT433322TS...
....TTT32TTS....
......TTTS......
)"},
    // Placket.
    {8, 25, R"(
.UTT........TTS.
..UTTT....TTTS..
...STTTTTTTTS...
.....STRTTS.....
.......R........
......TRT.......
.......R........
)"},
};

constexpr Art kPatterns[] = {
    {0, 0, ""},
    // Shoulder stripes.
    {0, 25, R"(
................................
...UU......................TS...
..UU..UU................TT..TS..
.TT..UU..................TT..TS.
TT..TT....................TT..TS
T..TT......................TT..S
..TT........................TT..
)"},
    // Sleeves in the second colour.
    {0, 25, R"(
................................
..UUUU....................TTSS..
UUUUT......................TTSSS
UTTT........................TTSS
TTTT........................TTSS
TTT..........................TTS
TTT..........................TTS
)"},
    // Yoke.
    {0, 25, R"(
........UUUUTTTTTTTTTTSS........
..UUUUUUUTTTTTTTTTTTTTTTTTTSSS..
UUUUTTTTTTTTTTTTTTTTTTTTTTTTSSSS
TTTSSS....................SSSSSS
SSS..........................SSS
)"},
    // Piping along the seams.
    {0, 25, R"(
................................
.......U................T.......
......U..................T......
......T...................S.....
.....T....................S.....
.....T.....................S....
.....T.....................S....
)"},
    // Chest stripe.
    {0, 29, R"(
.UUUUUUUTTTTTTTTTTTTTTTTTTSSSSS.
UUUTTTTTTTTTTTTTTTTTTTTTTTTTSSSS
)"},
    // Upper edge of a number.
    {0, 29, R"(
..........UUUTT...TTTS..........
..........TTTTT...TTTS..........
.............TT...T.TS..........
)"},
};

}  // namespace

std::span<const Art> Necks() {
  return kNecks;
}
std::span<const Art> Shoulders() {
  return kShoulders;
}
std::span<const Art> Collars() {
  return kCollars;
}
std::span<const Art> Patterns() {
  return kPatterns;
}

}  // namespace rostermill
