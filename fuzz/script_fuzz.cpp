// Any text to the script language. Lines come in order, none is empty, and numbers and sizes are either
// read or refused.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "platform/headless/script.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace gridwright;
  int last = 0;
  for (const ScriptLine& line : readScript({reinterpret_cast<const char*>(data), size})) {
    if (line.number <= last || line.words.empty()) std::abort();
    last = line.number;
    for (const std::string& word : line.words) {
      const auto number = wholeNumber(word);
      const auto extent = sizeWord(word);
      if (number && extent) std::abort();
      if (extent && (extent.value().first < 50 || extent.value().second > 1000)) std::abort();
    }
  }
  return 0;
}
