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
    {kNone, kNone, Reach::Chin},
    {kStubble, kNone, Reach::JawLine},
    {kHeavyStubble, kNone, Reach::JawLine},
    {kNone, kMoustache, Reach::Chin},
    {kNone, kBroadMoustache, Reach::Chin},
    {kVanDyke, kMoustache, Reach::Chin},
    {kGoatee, kNone, Reach::Chin},
    {kChinPatch, kNone, Reach::Chin},
    {kChinPatch, kPencilMoustache, Reach::Chin},
    {kShortBeard, kMoustache, Reach::JawLine},
    {kFullBeard, kBroadMoustache, Reach::Beyond},
    {kLongBeard, kBroadMoustache, Reach::Beyond},
    {kSideburns, kNone, Reach::Temples},
    {kMuttonChops, kNone, Reach::Temples},
    {kMuttonChops, kBroadMoustache, Reach::Temples},
    {kChinStrap, kNone, Reach::JawLine},
    {kNone, kHandlebar, Reach::Chin},
    {kNone, kHorseshoe, Reach::Chin},
    {kStubble, kMoustache, Reach::JawLine},
    {kChinStrap, kPencilMoustache, Reach::JawLine},
    {kShortBeard, kNone, Reach::JawLine},
};

}  // namespace

std::span<const Whiskers> WhiskerStyles() {
  return kWhiskers;
}

}  // namespace rostermill
