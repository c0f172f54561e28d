#include "platform/pictures/gif_shape.h"

#include "platform/pictures/byte_reader.h"

namespace gridwright {

namespace {

constexpr int kExtension = 0x21, kPicture = 0x2C;

/// The table of colours that a byte of flags announces.
void skipTable(ByteReader& bytes, int flags) {
  if ((flags & 0x80) != 0) bytes.skip(3 << ((flags & 7) + 1));
}

/// Blocks that each say their length, the last one 0. \returns whether that one is there.
bool skipBlocks(ByteReader& bytes) {
  int length = bytes.next();
  for (; length > 0; length = bytes.next()) bytes.skip(length);
  return length == 0;
}

}  // namespace

bool hasWholeFirstPicture(QIODevice& gif) {
  ByteReader bytes(gif);
  bytes.skip(10);  // the signature and the size
  const int flags = bytes.next();
  bytes.skip(2);
  if (flags < 0) return false;
  skipTable(bytes, flags);
  for (;;) {
    const int kind = bytes.next();
    if (kind == kPicture) {
      bytes.skip(8);  // where it lies
      skipTable(bytes, bytes.next());
      bytes.next();  // bits of a code
      return skipBlocks(bytes);
    }
    if (kind != kExtension) return false;
    bytes.next();
    if (!skipBlocks(bytes)) return false;
  }
}

}  // namespace gridwright
