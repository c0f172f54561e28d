// SVG text as it may be shown to Qt, whose reader opens local files that an SVG names.
#pragma once

#include <QByteArray>

#include "canvas/outcome.h"

namespace gridwright {

/// Writes the text anew: elements, their attributes and words, and nothing else; no document type, entity,
/// processing instruction or comment is left. A reference that does not begin with `#`, or with `data:` and
/// then a picture that is no SVG itself, is taken out, wherever it stands: in any attribute whose name ends
/// in `href` or `src`, in `url(...)`, in `@import`. Nothing is opened. \returns a Fault with words that
/// follow the picture's name: no well-formed XML, nested too deep, or with uses of uses that would take too
/// long to draw.
Outcome<QByteArray> cleanedSvg(const QByteArray& text);

}  // namespace gridwright
