#include "tools/portraits/colors.h"

#include <iterator>

namespace rostermill {
namespace {

struct SkinTones {
  Rgb line, deep, shade, base, light;
  Rgb mouth, lip, lip_light;
  Rgb eye_shade, eye_white;
};

constexpr SkinTones skins[] = {
    // Light complexion.
    {0x6a342e, 0xb06a5c, 0xd99a86, 0xf2c2aa, 0xffe2d0, 0x84332f, 0xc9756a, 0xe39a8c, 0xcfc4c4,
     0xfbf7f0},
    {0x6b3a26, 0xae6f4a, 0xd69b72, 0xeec39b, 0xfde4c4, 0x803726, 0xc2745a, 0xdd987c, 0xcdc3b8,
     0xfaf5ea},
    {0x63301f, 0xa6603f, 0xcf8b62, 0xe8b088, 0xfad4b0, 0x782f20, 0xb86450, 0xd48a70, 0xcbbfb2,
     0xf8f2e6},
    {0x5c341f, 0x9c6540, 0xc69165, 0xdfb487, 0xf3d5af, 0x702f20, 0xae6350, 0xca8870, 0xc8bcac,
     0xf6f0e2},
    {0x54301c, 0x8f5f3c, 0xb98559, 0xd6a97c, 0xebca9f, 0x662a1c, 0xa25a45, 0xc08064, 0xc4b8a6,
     0xf4ecdc},
    {0x692c24, 0xac5a4b, 0xd48870, 0xebae93, 0xfcd3bc, 0x822c2a, 0xc4655c, 0xdf8b7e, 0xcec0bc,
     0xfaf4ec},
    // Dark complexion.
    {0x40210f, 0x744426, 0x95603a, 0xb1774a, 0xcf9a6a, 0x4f1d16, 0x8f4c3c, 0xae6b56, 0xb8aa98,
     0xefe6d6},
    {0x3a1c10, 0x673a21, 0x855030, 0xa0683f, 0xc0895a, 0x481a15, 0x824436, 0xa1624f, 0xb4a694,
     0xece2d2},
    {0x31170d, 0x59301c, 0x744227, 0x8f5734, 0xb0764c, 0x3e1513, 0x743c32, 0x93594a, 0xaea08e,
     0xe8decd},
    {0x2a130c, 0x4b2717, 0x633721, 0x7b482d, 0x9b6544, 0x351112, 0x67342e, 0x865046, 0xa89a89,
     0xe4d9c8},
    {0x230f0a, 0x3e2016, 0x532e1f, 0x693e2b, 0x895a42, 0x2d0e10, 0x5c2f2b, 0x794842, 0xa29484,
     0xe0d5c4},
    {0x20110f, 0x3a221d, 0x4f312a, 0x654239, 0x875f52, 0x270d10, 0x553030, 0x714947, 0x9c9084,
     0xdcd2c4},
};

struct Ramp {
  Rgb line, shade, base, light;
};

constexpr Ramp hairs[] = {
    {0x101118, 0x1d1f29, 0x2c2f3b, 0x494f61}, {0x140e0b, 0x251a16, 0x392923, 0x59443c},
    {0x20120b, 0x382313, 0x523520, 0x755338}, {0x2e1a0d, 0x4f3018, 0x734a28, 0x9a6d42},
    {0x36170c, 0x5c2c15, 0x854422, 0xae683d}, {0x3d140b, 0x6c2714, 0x983d1f, 0xc3663c},
    {0x561f0a, 0x8e4013, 0xbf6423, 0xe4934c}, {0x493212, 0x785920, 0xa6823e, 0xd0b069},
    {0x634a1a, 0x9a7a2e, 0xcda94c, 0xf0d884}, {0x665332, 0x968154, 0xc6b07c, 0xeadbae},
    {0x2c3036, 0x535860, 0x7f858d, 0xb0b5bc},
};

static_assert(std::size(hairs) == HairColorCount);

constexpr Rgb irises[] = {0x5a3519, 0x3f2a1c, 0x3d6f9c, 0x4f7d55, 0x7a6a35, 0x64748a};

struct Kit {
  Ramp jersey, trim;
};

constexpr Ramp navy = {0x10182f, 0x1b2a52, 0x294078, 0x4763a4};
constexpr Ramp crimson = {0x3a0a14, 0x6d1424, 0x9f2236, 0xcb4a58};
constexpr Ramp forest = {0x0c2a1c, 0x174b30, 0x256d45, 0x469564};
constexpr Ramp gold = {0x5c3d0a, 0x9c6d16, 0xd69c2a, 0xf4c860};
constexpr Ramp chalk = {0x5c6270, 0xa9aebb, 0xdcdfe6, 0xf8f9fb};
constexpr Ramp plum = {0x281035, 0x472059, 0x683480, 0x8f59a8};
constexpr Ramp teal = {0x08302f, 0x115553, 0x1c7c78, 0x43a8a0};
constexpr Ramp rust = {0x471a08, 0x7d3411, 0xb3521f, 0xdd7d43};
constexpr Ramp slate = {0x1b2026, 0x323a44, 0x4e5864, 0x76828f};
constexpr Ramp sky = {0x1c4463, 0x3a78a3, 0x62a8d1, 0x9acdea};
constexpr Ramp cocoa = {0x24140c, 0x402618, 0x5e3b27, 0x835a40};
constexpr Ramp coal = {0x101114, 0x1f2126, 0x32353c, 0x535862};
constexpr Ramp lime = {0x33480e, 0x5f8120, 0x8fb639, 0xbfdd70};
constexpr Ramp rose = {0x5a2038, 0x9a4060, 0xcf6a88, 0xeb9fb2};

constexpr Kit kits[] = {
    {navy, gold},   {crimson, chalk}, {forest, chalk},  {chalk, navy},  {plum, gold},
    {teal, rust},   {rust, cocoa},    {slate, crimson}, {sky, navy},    {coal, lime},
    {gold, coal},   {chalk, teal},    {cocoa, sky},     {navy, rose},   {crimson, gold},
    {lime, forest}, {teal, chalk},    {coal, sky},      {forest, gold}, {rose, plum},
};

struct Backdrop {
  Rgb base, light;
};

constexpr Backdrop backdrops[] = {
    {0x7d93ab, 0x95a9be}, {0x8aa58c, 0xa1b8a2}, {0xb0a07c, 0xc4b697}, {0xa78c9c, 0xbca5b3},
    {0x74a0a2, 0x8db4b5}, {0x9a9bb4, 0xb0b1c6}, {0xb79484, 0xc9aca0}, {0x95a0a8, 0xacb5bc},
    {0x8e9a74, 0xa5b08e}, {0xbcae9e, 0xcec3b7}, {0x86a4bf, 0x9fb8ce},
};

constexpr Rgb Channel(Rgb color, int shift) {
  return (color >> shift) & 0xff;
}

constexpr Rgb Mix(Rgb a, Rgb b, Rgb quarters_of_b) {
  Rgb mixed = 0;
  for (const int shift : {16, 8, 0}) {
    const Rgb sum = Channel(a, shift) * (4 - quarters_of_b) + Channel(b, shift) * quarters_of_b;
    mixed |= (sum / 4) << shift;
  }
  return mixed;
}

class PaletteFiller {
 public:
  Rgb& operator[](Role role) { return palette_[static_cast<std::size_t>(role)]; }

  void Put(Role first, const Ramp& ramp) {
    auto at = static_cast<std::size_t>(first);
    for (const Rgb color : {ramp.line, ramp.shade, ramp.base, ramp.light}) palette_[at++] = color;
  }

  const Palette& Done() const { return palette_; }

 private:
  Palette palette_{};
};

void PutSkin(PaletteFiller& palette, const SkinTones& skin) {
  palette[Role::SkinLine] = skin.line;
  palette[Role::SkinDeep] = skin.deep;
  palette[Role::SkinShade] = skin.shade;
  palette[Role::Skin] = skin.base;
  palette[Role::SkinLight] = skin.light;
  palette[Role::MouthLine] = skin.mouth;
  palette[Role::Lip] = skin.lip;
  palette[Role::LipLight] = skin.lip_light;
  palette[Role::EyeShade] = skin.eye_shade;
  palette[Role::EyeWhite] = skin.eye_white;
}

}  // namespace

std::size_t KitCount() {
  return std::size(kits);
}

std::size_t BackdropCount() {
  return std::size(backdrops);
}

Palette PaletteOf(const Recipe& recipe) {
  const SkinTones& skin = skins[recipe.skin];
  const Ramp& hair = hairs[recipe.hair_color];
  const Kit& kit = kits[recipe.kit];
  const Backdrop& backdrop = backdrops[recipe.backdrop];

  PaletteFiller palette;
  PutSkin(palette, skin);
  palette.Put(Role::HairLine, hair);
  palette.Put(Role::JerseyLine, kit.jersey);
  palette.Put(Role::TrimLine, kit.trim);
  palette[Role::Back] = backdrop.base;
  palette[Role::BackLight] = backdrop.light;
  palette[Role::Stubble] = Mix(skin.shade, hair.shade, 2);
  palette[Role::StubbleFaint] = Mix(skin.base, hair.shade, 1);
  palette[Role::Lash] = Mix(skin.line, 0x120c0c, 2);
  palette[Role::Pupil] = 0x17110f;
  palette[Role::Iris] = irises[recipe.iris];
  palette[Role::Teeth] = 0xf1ece0;
  palette[Role::Frame] = 0x2a2c34;
  palette[Role::Glint] = Mix(skin.light, 0xffffff, 2);
  palette[Role::Grease] = 0x1c1b20;
  return palette.Done();
}

}  // namespace rostermill
