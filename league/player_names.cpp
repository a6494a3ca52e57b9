#include "league/player_names.h"

#include <algorithm>
#include <charconv>

namespace rostermill {

namespace {

constexpr int pointers_offset = 0x48;
constexpr int data_offset = 0x6DA;
constexpr int data_end = data_offset + NameDataCapacity;
constexpr int address_to_offset = -0x7FF0;
constexpr int filler = 0xFF;

/// The last two characters of the text as hexadecimal; anything else counts as 0.
int NumberByte(std::string_view number) {
  if (number.size() > 2) number.remove_prefix(number.size() - 2);
  int value = 0;
  const auto [end, error] =
      std::from_chars(number.data(), number.data() + number.size(), value, 16);
  return error == std::errc{} && end == number.data() + number.size() && value >= 0 ? value : 0;
}

/// Where a last name begins; the text's size if it has no capital letter.
std::size_t FirstCapital(std::string_view text) {
  const auto* capital = std::ranges::find_if(text, [](char c) { return c >= 'A' && c <= 'Z'; });
  return static_cast<std::size_t>(capital - text.begin());
}

int EntryLength(const NameRec& name) {
  return static_cast<int>(name.FirstName.size() + name.LastName.size()) + 1;
}

std::string PlaceOddity(int start, int end) {
  if (start == end) return "no name entry: neither number nor name";
  if (start < 0 || start > end) return "the name's pointers are out of order; it is read as empty";
  if (start >= data_offset && end <= data_end) return {};
  return "the name is at " + HexText(start) + ", outside the space for names";
}

std::string TextOddity(std::string_view entry) {
  const int number = static_cast<std::uint8_t>(entry.front());
  if (HighNibble(number) > 9 || LowNibble(number) > 9) {
    return "the number " + HexByteText(number) + " is not decimal";
  }
  if (entry.size() == 1) return "no name, only a number";
  if (FirstCapital(entry.substr(1)) < entry.size() - 1) return {};
  return "the name has no capital letter; it is read as empty";
}

}  // namespace

void ReadPlayerNames(OpenImage& image, LeagueData& league, const Yield& yield) {
  int pointer = pointers_offset;
  for (auto& team : league.NameData) {
    for (NameRec& name : team) {
      yield();
      const int start = image.ReadWordAt(pointer) + address_to_offset;
      const int end = image.ReadWordAt(pointer + 2) + address_to_offset;
      pointer += 2;
      if (start < 0 || start >= end) continue;
      const std::string_view entry = image.ReadTextAt(start, end);
      name.JerseyNumber = HexByteText(static_cast<std::uint8_t>(entry.front()));
      const std::string_view text = entry.substr(1);
      const std::size_t capital = FirstCapital(text);
      if (capital == text.size()) continue;
      name.FirstName = text.substr(0, capital);
      name.LastName = text.substr(capital);
    }
  }
}

int NameBytesNeeded(const LeagueData& league) {
  int needed = 0;
  for (const auto& team : league.NameData) {
    for (const NameRec& name : team) needed += EntryLength(name);
  }
  return needed;
}

void WritePlayerNames(OpenImage& image, const LeagueData& league, const Yield& yield) {
  int pointer = pointers_offset;
  int offset = data_offset;
  for (const auto& team : league.NameData) {
    for (const NameRec& name : team) {
      yield();
      image.WriteWordAt(pointer, offset - address_to_offset);
      image.WriteByteAt(offset, NumberByte(name.JerseyNumber));
      image.WriteTextAt(offset + 1, LowerText(name.FirstName) + UpperText(name.LastName));
      pointer += 2;
      offset += EntryLength(name);
    }
  }
  image.WriteWordAt(pointer, offset - address_to_offset);
  if (offset < data_end) image.WriteByteAt(offset, filler);
}

void FindNameOddities(OpenImage& image, Oddities& found) {
  const int first = image.ReadWordAt(pointers_offset) + address_to_offset;
  if (first != data_offset) {
    found.push_back({"names", 0, 0,
                     "the first name pointer leads to " + HexText(std::max(first, 0)) + ", not " +
                         HexText(data_offset)});
  }
  int pointer = pointers_offset;
  for (int team = 1; team <= TeamCount; ++team) {
    for (int slot = 1; slot <= SlotCount; ++slot) {
      const int start = image.ReadWordAt(pointer) + address_to_offset;
      const int end = image.ReadWordAt(pointer + 2) + address_to_offset;
      pointer += 2;
      std::string text = PlaceOddity(start, end);
      if (text.empty()) text = TextOddity(image.ReadTextAt(start, end));
      if (!text.empty()) found.push_back({"names", team, slot, std::move(text)});
    }
  }
}

}  // namespace rostermill
