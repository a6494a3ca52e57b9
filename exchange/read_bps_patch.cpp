#include <algorithm>

#include "exchange/bps_format.h"
#include "exchange/bps_patch.h"
#include "league/quantity_text.h"
#include "league/text.h"

namespace rostermill {

namespace {

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

[[noreturn]] void ThrowDamaged(const std::string& why) {
  throw PatchError("The BPS patch is damaged: " + why + ".");
}

[[noreturn]] void ThrowNotThere() {
  ThrowDamaged("it copies bytes that don't exist");
}

std::string CrcText(std::uint32_t crc) {
  std::string text;
  for (int shift = 24; shift >= 0; shift -= 8) text += HexByteText(static_cast<int>(crc >> shift));
  return text;
}

/// Takes numbers and bytes off the front of a patch.
class Reader {
 public:
  explicit Reader(ByteView rest) : rest_(rest) {}

  bool AtEnd() const { return rest_.empty(); }

  ByteView Take(std::uint64_t count) {
    if (count > rest_.size()) ThrowDamaged("it is cut short");
    const ByteView taken = rest_.first(static_cast<std::size_t>(count));
    rest_ = rest_.subspan(taken.size());
    return taken;
  }

  /// Far above any length that is let through, a number is damage.
  std::uint64_t Number() {
    std::uint64_t number = 0;
    for (int shift = 0; shift < 56; shift += 7) {
      const std::uint64_t byte = Take(1).front();
      number += (byte & 0x7F) << shift;
      if ((byte & 0x80) != 0) return number;
      number += std::uint64_t{1} << (shift + 7);
    }
    ThrowDamaged("a number in it is too long");
  }

  std::uint32_t Word() {
    std::uint32_t word = 0;
    const ByteView bytes = Take(4);
    for (std::size_t at = 4; at-- > 0;) word = word << 8 | bytes[at];
    return word;
  }

 private:
  ByteView rest_;
};

/// Puts the target together by the actions of a patch.
class Builder {
 public:
  Builder(ByteView source, std::size_t target_size) : source_(source), target_size_(target_size) {
    target_.reserve(target_size);
  }

  void RunAction(Reader& patch) {
    const std::uint64_t head = patch.Number();
    const std::uint64_t length = (head >> 2) + 1;
    if (length > target_size_ - target_.size())
      ThrowDamaged("it produces more bytes than it declares");
    const auto count = static_cast<std::size_t>(length);
    switch (static_cast<BpsAction>(head & 3)) {
      case BpsAction::SourceRead:
        return AppendSource(target_.size(), count);
      case BpsAction::TargetRead:
        return Append(patch.Take(length));
      case BpsAction::SourceCopy:
        source_at_ = Moved(source_at_, patch.Number(), source_.size());
        AppendSource(source_at_, count);
        source_at_ += count;
        return;
      case BpsAction::TargetCopy:
        target_at_ = Moved(target_at_, patch.Number(), target_.size());
        if (target_at_ == target_.size()) ThrowNotThere();
        // One by one, since it may copy what it has just made; the memory is there already.
        for (std::size_t left = count; left > 0; --left) target_.push_back(target_[target_at_++]);
        return;
    }
  }

  Bytes Finish() {
    if (target_.size() < target_size_) ThrowDamaged("it produces fewer bytes than it declares");
    return std::move(target_);
  }

 private:
  /// A copy's position after its offset, whose low bit is the sign.
  static std::size_t Moved(std::size_t at, std::uint64_t offset, std::size_t size) {
    const std::uint64_t distance = offset >> 1;
    const bool back = (offset & 1) != 0;
    if (distance > (back ? at : size - at)) ThrowNotThere();
    return static_cast<std::size_t>(back ? at - distance : at + distance);
  }

  void AppendSource(std::size_t at, std::size_t count) {
    if (at > source_.size() || count > source_.size() - at) {
      ThrowNotThere();
    }
    Append(source_.subspan(at, count));
  }

  void Append(ByteView bytes) { target_.insert(target_.end(), bytes.begin(), bytes.end()); }

  ByteView source_;
  std::size_t target_size_;
  Bytes target_;
  std::size_t source_at_ = 0;
  std::size_t target_at_ = 0;
};

struct FileMark {
  std::uint64_t Size;
  std::uint32_t Crc;
  bool operator==(const FileMark&) const = default;
};

std::string MarkText(const FileMark& mark) {
  return QuantityText(mark.Size, "byte") + " with the checksum " + CrcText(mark.Crc);
}

void RequireSource(ByteView base, const FileMark& source, const FileMark& target) {
  const FileMark found{base.size(), BpsCrc(base)};
  if (found == source) return;
  if (found == target) {
    throw PatchError("The BPS patch has already been applied to this file.");
  }
  throw PatchError("The BPS patch is not for this file: it needs one of " + MarkText(source) +
                   ", and this one has " + MarkText(found) + ".");
}

}  // namespace

Bytes ApplyBpsPatch(ByteView base, ByteView patch) {
  RequirePatchable(base);
  Reader reader(patch);
  const ByteView magic = reader.Take(std::min(BpsMagic.size(), patch.size()));
  if (!std::equal(magic.begin(), magic.end(), BpsMagic.begin(), BpsMagic.end())) {
    throw PatchError("The patch is not a BPS file.");
  }
  if (patch.size() < BpsMagic.size() + BpsFooterSize) ThrowDamaged("it is cut short");
  Reader footer(patch.last(BpsFooterSize));
  const std::uint32_t source_crc = footer.Word();
  const std::uint32_t target_crc = footer.Word();
  if (BpsCrc(patch.first(patch.size() - 4)) != footer.Word()) {
    ThrowDamaged("its checksum doesn't match its bytes");
  }
  reader = Reader(patch.first(patch.size() - BpsFooterSize).subspan(BpsMagic.size()));
  const FileMark source{reader.Number(), source_crc};
  const FileMark target{reader.Number(), target_crc};
  reader.Take(reader.Number());  // metadata
  RequireSource(base, source, target);
  if (target.Size > LargestPatchedFile) {
    throw PatchError("The BPS patch would produce a file of " + QuantityText(target.Size, "byte") +
                     "; the limit is " + QuantityText(LargestPatchedFile, "byte") + ".");
  }
  Builder builder(base, static_cast<std::size_t>(target.Size));
  while (!reader.AtEnd()) builder.RunAction(reader);
  Bytes file = builder.Finish();
  if (BpsCrc(file) != target.Crc) ThrowDamaged("its result doesn't match its checksum");
  return file;
}

}  // namespace rostermill
