// A font that hangs on nothing but what is asked of it.
#pragma once

#include <QFont>

namespace gridwright {

/// Qt's usual family, upright, in Qt's usual size. Everything that a font leaves open comes from the
/// application, which has it from its desktop: here nothing is left open, so that letters are the same in a
/// window and without one. Any thread; needs an application object.
QFont plainFont();

}  // namespace gridwright
