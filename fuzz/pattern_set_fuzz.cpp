// What the reader of pattern sets accepts is written and read again equal; the rest is a Fault.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "patterns/pattern_sets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto set = gridwright::parseSet(text);
  if (!set) return 0;
  const auto again = gridwright::parseSet(gridwright::formatSet(set.value()));
  if (!again || again.value() != set.value()) std::abort();
  return 0;
}
