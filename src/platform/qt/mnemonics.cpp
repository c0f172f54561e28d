#include "platform/qt/mnemonics.h"

#include <array>
#include <optional>

namespace gridwright {

namespace {

constexpr std::size_t kSlots = 36;  // letters and digits

std::optional<std::size_t> slotOf(char c) {
  if (c >= '0' && c <= '9') return static_cast<std::size_t>(c - '0');
  if (c >= 'a' && c <= 'z') return static_cast<std::size_t>(c - 'a') + 10;
  if (c >= 'A' && c <= 'Z') return static_cast<std::size_t>(c - 'A') + 10;
  return std::nullopt;
}

/// The places that may bear the mark, the best first.
std::vector<std::size_t> candidates(const std::string& caption) {
  std::vector<std::size_t> first, inside;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (!slotOf(caption[i])) continue;
    const bool begins = i == 0 || caption[i - 1] == ' ' || caption[i - 1] == '-';
    (begins ? first : inside).push_back(i);
  }
  first.insert(first.end(), inside.begin(), inside.end());
  return first;
}

/// Gives each caption a letter in turn; one whose letters are all taken has others move to another of theirs.
class Matching {
 public:
  explicit Matching(const std::vector<std::string>& captions)
      : captions_(captions), places_(captions.size(), kNoMnemonic) {
    owner_.fill(kNoMnemonic);
    for (std::size_t i = 0; i < captions.size(); ++i) {
      std::array<bool, kSlots> tried{};
      give(i, tried);
    }
  }

  [[nodiscard]] const std::vector<std::size_t>& places() const { return places_; }

 private:
  bool take(std::size_t caption, std::size_t place) {
    owner_[*slotOf(captions_[caption][place])] = caption;
    places_[caption] = place;
    return true;
  }
  // NOLINTNEXTLINE(misc-no-recursion): no deeper than there are letters, each of which is tried once
  bool give(std::size_t caption, std::array<bool, kSlots>& tried) {
    const auto wanted = candidates(captions_[caption]);
    for (const std::size_t place : wanted) {
      if (owner_[*slotOf(captions_[caption][place])] == kNoMnemonic) return take(caption, place);
    }
    for (const std::size_t place : wanted) {
      const std::size_t slot = *slotOf(captions_[caption][place]);
      if (tried[slot]) continue;
      tried[slot] = true;
      if (give(owner_[slot], tried)) return take(caption, place);
    }
    return false;
  }

  const std::vector<std::string>& captions_;
  std::array<std::size_t, kSlots> owner_{};  // by slot
  std::vector<std::size_t> places_;
};

}  // namespace

std::vector<std::size_t> mnemonicPlaces(const std::vector<std::string>& captions) {
  return Matching(captions).places();
}

}  // namespace gridwright
