// Is a bitmap file whole, before anything decodes it?
//
// The system's decoder takes cut-off files without a word and trusts the sizes in the header; a
// drawing must come whole or not at all.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "canvas/geometry.h"
#include "canvas/outcome.h"

namespace gridwright {

/// So many bytes at the beginning of a bitmap file tell how much of it there is to read.
inline constexpr std::size_t kBitmapHead = 270;

/// How many bytes of a bitmap file, from its first on, have to be read for its picture: none behind its
/// pixels, and of runs no more than four bytes a pixel and 8 MB, which no writer needs. So a header that lies
/// costs no memory. \param head the first kBitmapHead bytes, or all that there are. \param length of the
/// file, in bytes. \returns a Fault where `checkBitmapFile` refuses the file, whatever its runs are.
Outcome<std::uint64_t> bytesOfBitmap(std::string_view head, std::uint64_t length);

/// Reads the headers of a bitmap file of 1 to 32 bits a pixel, either row order, plain or run-length
/// coded, and holds the file's length against them.
/// \returns the picture's size in pixels, or a malformed Fault: cut off, a header that lies, or more
/// than 100 million pixels.
Outcome<Size> checkBitmapFile(std::string_view bytes);

}  // namespace gridwright
