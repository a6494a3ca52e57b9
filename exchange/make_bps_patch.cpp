#include <algorithm>

#include "exchange/bps_format.h"
#include "exchange/bps_patch.h"
#include "exchange/match_index.h"

namespace rostermill {

namespace {

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

void PutNumber(Bytes& patch, std::uint64_t number) {
  for (;;) {
    const auto low = static_cast<std::uint8_t>(number & 0x7F);
    number >>= 7;
    if (number == 0) return patch.push_back(low | 0x80);
    patch.push_back(low);
    --number;
  }
}

int NumberSize(std::uint64_t number) {
  int size = 1;
  while ((number >>= 7) != 0) {
    --number;
    ++size;
  }
  return size;
}

void PutWord(Bytes& patch, std::uint32_t word) {
  for (int shift = 0; shift < 32; shift += 8) {
    patch.push_back(static_cast<std::uint8_t>(word >> shift));
  }
}

std::uint64_t ActionHead(BpsAction action, std::size_t length) {
  return static_cast<std::uint64_t>(length - 1) << 2 | static_cast<std::uint64_t>(action);
}

/// The way from one position to another, its low bit the sign.
std::uint64_t OffsetNumber(std::size_t from, std::size_t to) {
  return to < from ? std::uint64_t{from - to} << 1 | 1 : std::uint64_t{to - from} << 1;
}

/// How many bytes are the same from two places on.
std::size_t SharedLength(ByteView a, std::size_t a_at, ByteView b, std::size_t b_at) {
  const auto first = a.begin() + static_cast<std::ptrdiff_t>(a_at);
  const auto differing =
      std::mismatch(first, a.end(), b.begin() + static_cast<std::ptrdiff_t>(b_at), b.end()).first;
  return static_cast<std::size_t>(differing - first);
}

/// Writes the actions, at each place the one that saves most.
class ActionWriter {
 public:
  ActionWriter(ByteView source, ByteView target, Bytes& patch)
      : source_(source),
        target_(target),
        patch_(patch),
        source_index_(source),
        target_index_(target) {
    for (std::size_t place = source.size(); place-- > 0;) source_index_.Insert(place);
  }

  void PutAll() {
    while (at_ < target_.size()) {
      const Match match = BestMatch();
      target_index_.Insert(at_);
      // Amid bytes given plainly it also costs the head of those that follow.
      if (match.Saving > (at_ > plain_first_ ? 1 : 0)) {
        PutMatch(match);
      } else {
        ++at_;
      }
    }
    PutPlain();
  }

 private:
  struct Match {
    BpsAction Action = BpsAction::SourceRead;
    std::size_t From = 0;
    std::size_t Length = 0;
    int Saving = 0;  ///< bytes of the patch, against giving the bytes plainly
  };

  Match BestMatch() const {
    Match best;
    if (at_ < source_.size()) Offer(BpsAction::SourceRead, at_, best);
    // Where the bytes after a change have moved as far as those before it.
    const std::size_t onward = source_at_ + (at_ - source_copy_end_);
    if (onward < source_.size()) Offer(BpsAction::SourceCopy, onward, best);
    source_index_.ForEachCandidate(
        target_, at_, [&](std::size_t place) { Offer(BpsAction::SourceCopy, place, best); });
    target_index_.ForEachCandidate(
        target_, at_, [&](std::size_t place) { Offer(BpsAction::TargetCopy, place, best); });
    return best;
  }

  void Offer(BpsAction action, std::size_t from, Match& best) const {
    const ByteView text = action == BpsAction::TargetCopy ? target_ : source_;
    const std::size_t length = SharedLength(text, from, target_, at_);
    if (length == 0) return;
    int cost = NumberSize(ActionHead(action, length));
    if (action == BpsAction::SourceCopy) cost += NumberSize(OffsetNumber(source_at_, from));
    if (action == BpsAction::TargetCopy) cost += NumberSize(OffsetNumber(target_at_, from));
    const int saving = static_cast<int>(length) - cost;
    if (saving > best.Saving) best = {action, from, length, saving};
  }

  void PutMatch(const Match& match) {
    PutPlain();
    PutNumber(patch_, ActionHead(match.Action, match.Length));
    at_ += match.Length;
    plain_first_ = at_;
    if (match.Action == BpsAction::SourceCopy) {
      PutNumber(patch_, OffsetNumber(source_at_, match.From));
      source_at_ = match.From + match.Length;
      source_copy_end_ = at_;
    } else if (match.Action == BpsAction::TargetCopy) {
      PutNumber(patch_, OffsetNumber(target_at_, match.From));
      target_at_ = match.From + match.Length;
    }
  }

  /// Puts the bytes that no match has taken.
  void PutPlain() {
    if (plain_first_ == at_) return;
    const ByteView bytes = target_.subspan(plain_first_, at_ - plain_first_);
    PutNumber(patch_, ActionHead(BpsAction::TargetRead, bytes.size()));
    patch_.insert(patch_.end(), bytes.begin(), bytes.end());
    plain_first_ = at_;
  }

  ByteView source_;
  ByteView target_;
  Bytes& patch_;
  MatchIndex source_index_;
  /// Knows the places where actions begin and all bytes given plainly; the others are found in the
  /// source as well.
  MatchIndex target_index_;
  std::size_t at_ = 0;               ///< in the target
  std::size_t plain_first_ = 0;      ///< of the bytes passed over since the last action
  std::size_t source_at_ = 0;        ///< where the last SourceCopy ended, in the source
  std::size_t source_copy_end_ = 0;  ///< the same in the target
  std::size_t target_at_ = 0;        ///< where the last TargetCopy ended in what it copied
};

}  // namespace

Bytes MakeBpsPatch(ByteView base, ByteView target) {
  RequirePatchable(base);
  RequirePatchable(target);
  Bytes patch(BpsMagic.begin(), BpsMagic.end());
  PutNumber(patch, base.size());
  PutNumber(patch, target.size());
  PutNumber(patch, 0);  // metadata
  ActionWriter(base, target, patch).PutAll();
  PutWord(patch, BpsCrc(base));
  PutWord(patch, BpsCrc(target));
  PutWord(patch, BpsCrc(patch));
  return patch;
}

}  // namespace rostermill
