#include "exchange/ips_patch.h"

#include <algorithm>

#include "league/load_image.h"
#include "league/quantity_text.h"

namespace rostermill {

namespace {

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

constexpr std::size_t header_size = 16;
constexpr std::size_t longest_record = 0xFFFF;
/// A record's offset and length, or a run's count and byte.
constexpr std::size_t record_head = 5;
constexpr std::size_t run_tail = 3;
/// The offset whose three bytes read "EOF", where a reader would take the patch to end.
constexpr std::size_t eof_offset = 0x454F46;

void PutNumber(Bytes& patch, std::size_t number, int bytes) {
  while (bytes-- > 0) patch.push_back(static_cast<std::uint8_t>(number >> 8 * bytes & 0xFF));
}

std::size_t RunLength(ByteView bytes, std::size_t at, std::size_t end) {
  std::size_t last = at;
  while (last < end && bytes[last] == bytes[at]) ++last;
  return last - at;
}

class Writer {
 public:
  explicit Writer(ByteView target) : target_(target) {
    patch_.assign(IpsMagic.begin(), IpsMagic.end());
  }

  /// Writes the bytes from `first` up to, not including, `end`.
  void PutRange(std::size_t first, std::size_t end) {
    if (first == eof_offset) --first;
    for (std::size_t at = first; at < end;) {
      const std::size_t run = RunLength(target_, at, std::min(end, at + longest_record));
      const bool as_run = RunPays(run, false, at + run < end);
      const std::size_t length = AwayFromEof(at, as_run ? run : PlainLength(at, end), end);
      as_run ? PutRun(at, length) : PutPlain(at, length);
      at += length;
    }
  }

  Bytes Finish() {
    patch_.insert(patch_.end(), {'E', 'O', 'F'});
    return std::move(patch_);
  }

 private:
  /// Whether a run is shorter as a record of its own, with the heads of the records around it.
  static bool RunPays(std::size_t run, bool plain_before, bool more_after) {
    return run >
           run_tail + record_head * (plain_before ? 1 : 0) + record_head * (more_after ? 1 : 0);
  }

  /// How far the bytes from `at` go before a run that pays.
  std::size_t PlainLength(std::size_t at, std::size_t end) const {
    const std::size_t limit = std::min(end, at + longest_record);
    for (std::size_t next = at; next < limit;) {
      const std::size_t run = RunLength(target_, next, end);
      if (next > at && RunPays(run, true, next + run < end)) return next - at;
      next += run;
    }
    return limit - at;
  }

  /// The length changed by one where the next record would begin at eof_offset.
  static std::size_t AwayFromEof(std::size_t at, std::size_t length, std::size_t end) {
    if (at + length != eof_offset || eof_offset == end) return length;
    return length > 1 ? length - 1 : length + 1;
  }

  void PutPlain(std::size_t at, std::size_t length) {
    PutNumber(patch_, at, 3);
    PutNumber(patch_, length, 2);
    const ByteView bytes = target_.subspan(at, length);
    patch_.insert(patch_.end(), bytes.begin(), bytes.end());
  }

  void PutRun(std::size_t at, std::size_t length) {
    PutNumber(patch_, at, 3);
    PutNumber(patch_, 0, 2);
    PutNumber(patch_, length, 2);
    patch_.push_back(target_[at]);
  }

  ByteView target_;
  Bytes patch_;
};

/// Takes numbers and bytes off the front of a patch.
class Reader {
 public:
  explicit Reader(ByteView rest) : rest_(rest) {}

  std::size_t Left() const { return rest_.size(); }

  ByteView Take(std::size_t count) {
    if (count > rest_.size()) throw PatchError("The IPS patch is cut short.");
    const ByteView taken = rest_.first(count);
    rest_ = rest_.subspan(count);
    return taken;
  }

  std::size_t Number(std::size_t bytes) {
    std::size_t number = 0;
    for (const std::uint8_t byte : Take(bytes)) number = number << 8 | byte;
    return number;
  }

 private:
  ByteView rest_;
};

[[noreturn]] void ThrowTooShort(std::size_t needed, std::size_t size) {
  throw PatchError("The IPS patch is not for this file: it needs one of at least " +
                   QuantityText(needed, "byte") + ", and this one has " +
                   QuantityText(size, "byte") + ".");
}

void ApplyRecord(Reader& patch, std::size_t offset, Bytes& file) {
  std::size_t length = patch.Number(2);
  const bool is_run = length == 0;
  if (is_run) length = patch.Number(2);
  const ByteView bytes = patch.Take(is_run ? 1 : length);
  if (offset + length > file.size()) ThrowTooShort(offset + length, file.size());
  const auto place = file.begin() + static_cast<std::ptrdiff_t>(offset);
  if (is_run) {
    std::fill_n(place, length, bytes.front());
  } else {
    std::copy(bytes.begin(), bytes.end(), place);
  }
}

/// What may follow "EOF".
void ApplyCut(Reader& patch, Bytes& file) {
  if (patch.Left() == 0) return;
  if (patch.Left() != 3) {
    throw PatchError("The IPS patch is damaged: it goes on for " +
                     QuantityText(patch.Left(), "byte") + " after its end.");
  }
  const std::size_t length = patch.Number(3);
  if (length > file.size()) ThrowTooShort(length, file.size());
  file.resize(length);
}

}  // namespace

Bytes MakeIpsPatch(ByteView base, ByteView target) {
  RequirePatchable(base);
  RequirePatchable(target);
  if (base.size() != target.size()) {
    throw PatchError("An IPS patch can't change the length of a file: one has " +
                     QuantityText(base.size(), "byte") + ", the other " +
                     QuantityText(target.size(), "byte") + ". Use a name ending in .bps instead.");
  }
  Writer writer(target);
  std::size_t at = 0;
  const bool with_header = IsImageHeader(target);
  const auto differs = [&](std::size_t place) {
    return base[place] != target[place] || (with_header && place < header_size);
  };
  while (at < target.size()) {
    if (!differs(at)) {
      ++at;
      continue;
    }
    const std::size_t first = at;
    std::size_t end = at;
    // Equal bytes between two changes are written too where a new record takes more.
    for (; at < target.size() && at - end <= record_head; ++at) {
      if (differs(at)) end = at + 1;
    }
    writer.PutRange(first, end);
  }
  return writer.Finish();
}

Bytes ApplyIpsPatch(ByteView base, ByteView patch) {
  RequirePatchable(base);
  Reader reader(patch);
  const ByteView magic = reader.Take(std::min(IpsMagic.size(), patch.size()));
  if (!std::equal(magic.begin(), magic.end(), IpsMagic.begin(), IpsMagic.end())) {
    throw PatchError("The patch is not an IPS file.");
  }
  Bytes file(base.begin(), base.end());
  for (;;) {
    const std::size_t offset = reader.Number(3);
    if (offset == eof_offset) break;
    ApplyRecord(reader, offset, file);
  }
  ApplyCut(reader, file);
  return file;
}

}  // namespace rostermill
