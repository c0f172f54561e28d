// Any bytes to the reader of step files. It ends, and what it reads is written and read back the same.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "files/step_files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace gridwright;
  const Steps steps = parseSteps({reinterpret_cast<const char*>(data), size});
  if (parseSteps(formatSteps(steps)) != steps) std::abort();
  return 0;
}
