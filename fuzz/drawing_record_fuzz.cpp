// What the reader of drawing files accepts is written and read again equal; the rest is a Fault.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "drawings/drawing_record.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto drawing = gridwright::parseDrawing(text);
  if (!drawing) return 0;
  const auto again = gridwright::parseDrawing(gridwright::formatDrawing(drawing.value()));
  if (!again || !(again.value() == drawing.value())) std::abort();
  return 0;
}
