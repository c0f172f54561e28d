// Any bytes as the text of an SVG. What is left of it stays as it is when it is cleaned again, and is
// rendered.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "platform/pictures/read_picture.h"
#include "platform/pictures/svg_cleaner.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace gridwright;
  const QByteArray text(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const auto clean = cleanedSvg(text);
  if (!clean) return 0;
  const auto again = cleanedSvg(clean.value());
  if (!again || again.value() != clean.value()) std::abort();
  const std::string_view bytes(clean.value().constData(), static_cast<std::size_t>(clean.value().size()));
  const auto picture = readPictureBytes(bytes, {40, 30}, "it");
  if (picture && picture.value().whole.colours.pixels.empty()) std::abort();
  return 0;
}
