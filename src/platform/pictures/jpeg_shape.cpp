#include "platform/pictures/jpeg_shape.h"

#include "platform/pictures/byte_reader.h"

namespace gridwright {

namespace {

constexpr int kStart = 0xD8, kEnd = 0xD9, kScan = 0xDA;

bool standsAlone(int marker) {
  return marker == kStart || marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7);
}

/// C0 to CF, but for tables and a reserved one.
bool isFrame(int marker) {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

/// The next marker, over the coded bytes of a scan, in which FF00 is a byte and FFD0 to FFD7 stand between
/// rows; -1 at the end of the file.
int nextMarker(ByteReader& bytes) {
  for (;;) {
    int byte = bytes.next();
    while (byte >= 0 && byte != 0xFF) byte = bytes.next();
    while (byte == 0xFF) byte = bytes.next();
    if (byte != 0) return byte;
  }
}

}  // namespace

JpegShape shapeOfJpeg(QIODevice& device) {
  ByteReader bytes(device);
  JpegShape shape;
  int parts = 0;  // colour components of the frame
  bool progressive = false;
  int scans = 0;
  for (int marker = nextMarker(bytes); marker >= 0; marker = nextMarker(bytes)) {
    if (marker == kEnd) {
      shape.whole = scans > 0;
      return shape;
    }
    if (standsAlone(marker)) continue;
    int length = bytes.nextTwo() - 2;
    if (length < 0) return shape;
    if (isFrame(marker) && length >= 6) {
      progressive = marker != 0xC0 && marker != 0xC1;
      bytes.next();  // bits a sample
      shape.size.height = bytes.nextTwo();
      shape.size.width = bytes.nextTwo();
      parts = bytes.next();
      length -= 6;
    } else if (marker == kScan && length >= 1) {
      const int partsHere = bytes.next();
      shape.oneScan = ++scans == 1 && !progressive && partsHere == parts;
      --length;
    }
    bytes.skip(length);
  }
  return shape;
}

}  // namespace gridwright
