// Whether a GIF's first picture is all there, before anything decodes it.
#pragma once

#include <QIODevice>

namespace gridwright {

/// Reads the device from its beginning to the end of the first picture: what comes after it, if only its
/// beginning, is of no matter. Decoders leave what is missing in the ground's colour.
bool hasWholeFirstPicture(QIODevice& gif);

}  // namespace gridwright
