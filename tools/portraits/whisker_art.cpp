#include "tools/portraits/parts.h"

namespace rostermill {
namespace {

constexpr Art kNone = {0, 0, ""};

constexpr Art kStubble = {8, 16, R"(
y..............y
yy............yy
yy............yy
yyy..........yyy
yyyyyyyyyyyyyyyy
yyyyyy....yyyyyy
xyyyyyyyyyyyyyyx
xxyyyyyyyyyyyyxx
xxxyyyyyyyyyyxxx
)"};

constexpr Art kHeavyStubble = {8, 15, R"(
x..............x
xx............xx
xx............xx
xxx..........xxx
xxxy.yxxxxy.yxxx
xxxxxxyyyyxxxxxx
xxxxx......xxxxx
xxxxxxxyyxxxxxxx
xxxxxxxxxxxxxxxx
xxxxxxxxxxxxxxxx
)"};

constexpr Art kSideburns = {8, 11, R"(
hh............hh
hh............hh
h..............h
h..............h
hh............hh
hh............hh
hhh..........hhh
hhh..........hhh
)"};

constexpr Art kMuttonChops = {8, 11, R"(
hh............hh
hh............hh
h..............h
h..............h
hh............hh
hh............hh
hhh..........hhh
hhhh........hhhh
hhhhh......hhhhh
hhhhh......hhhhh
hhhhh......hhhhh
.hhhh......hhhh.
..hhh......hhh..
)"};

constexpr Art kGoatee = {8, 20, R"(
................
................
....h......h....
.....hhhhhh.....
.....hhhhhh.....
)"};

constexpr Art kVanDyke = {8, 20, R"(
....h......h....
....h......h....
....hh....hh....
....hhhhhhhh....
.....hhhhhh.....
......hhhh......
)"};

constexpr Art kChinPatch = {8, 23, R"(
.......hh.......
......hhhh......
)"};

constexpr Art kShortBeard = {8, 14, R"(
h..............h
h..............h
hh............hh
hh............hh
hhh..........hhh
hhhh........hhhh
hhhhh......hhhhh
hhhhh......hhhhh
hhhhhh....hhhhhh
hhhhhhhhhhhhhhhh
hhhhhhhhhhhhhhhh
)"};

constexpr Art kFullBeard = {7, 13, R"(
.h..............h.
.hh............hh.
.hh............hh.
.hhh..........hhh.
.hhhh........hhhh.
.hhhhh......hhhhh.
.hhhhhh....hhhhhh.
.hhhhh......hhhhh.
.hhhhh......hhhhh.
.hhhhhh....hhhhhh.
..hhhhhhhhhhhhhh..
..hhhhhhhhhhhhhh..
....hhhhhhhhhh....
)"};

constexpr Art kLongBeard = {7, 13, R"(
.h..............h.
.hh............hh.
.hh............hh.
.hhh..........hhh.
.hhhh........hhhh.
.hhhhh......hhhhh.
.hhhhhh....hhhhhh.
.hhhhh......hhhhh.
.hhhhh......hhhhh.
.hhhhhh....hhhhhh.
..hhhhhhhhhhhhhh..
..hhhhhhhhhhhhhh..
...hhhhhhhhhhhh...
....hhhhhhhhhh....
.....hhhhhhhh.....
......hhhhh.......
)"};

constexpr Art kChinStrap = {8, 12, R"(
hh............hh
hh............hh
hh............hh
hh............hh
hh............hh
hh............hh
hh............hh
hhh..........hhh
hhh..........hhh
.hhh........hhh.
..hhh......hhh..
...hhhhhhhhhh...
....hhhhhhhh....
)"};

constexpr Art kMoustache = {12, 19, R"(
..hhhh..
.hhhhhh.
)"};

constexpr Art kBroadMoustache = {11, 19, R"(
..hhhhhh..
.hhhhhhhh.
.hh....hh.
)"};

constexpr Art kPencilMoustache = {12, 20, R"(
.bbb.bb.
)"};

constexpr Art kHandlebar = {10, 18, R"(
............
h..hhhhhh..h
.hhhhhhhhhh.
..hh....hh..
)"};

constexpr Art kHorseshoe = {11, 19, R"(
..hhhhhh..
.hhhhhhhh.
.hh....hh.
.hh....hh.
.hh....hh.
)"};

constexpr Whiskers kWhiskers[] = {
    {kNone, kNone, false, false},
    {kStubble, kNone, false, false},
    {kHeavyStubble, kNone, false, false},
    {kNone, kMoustache, false, false},
    {kNone, kBroadMoustache, false, false},
    {kVanDyke, kMoustache, true, false},
    {kGoatee, kNone, false, false},
    {kChinPatch, kNone, false, false},
    {kChinPatch, kPencilMoustache, false, false},
    {kShortBeard, kMoustache, false, false},
    {kFullBeard, kBroadMoustache, true, false},
    {kLongBeard, kBroadMoustache, true, false},
    {kSideburns, kNone, false, true},
    {kMuttonChops, kNone, false, true},
    {kMuttonChops, kBroadMoustache, false, true},
    {kChinStrap, kNone, false, false},
    {kNone, kHandlebar, false, false},
    {kNone, kHorseshoe, false, false},
    {kStubble, kMoustache, false, false},
    {kChinStrap, kPencilMoustache, false, false},
    {kShortBeard, kNone, false, false},
};

}  // namespace

std::span<const Whiskers> WhiskerStyles() {
  return kWhiskers;
}

}  // namespace rostermill
