// Fonts need an application object; the tests have one without a screen.
#pragma once

#include <gtest/gtest.h>

#include "platform/pictures/qt_ink.h"
#include "support/offscreen.h"

namespace gridwright::test {

class WithFonts : public ::testing::Test {
 public:
  static void SetUpTestSuite() { beginOffscreen(); }

 protected:
  QtInk ink{GRIDWRIGHT_STAMPS};
};

}  // namespace gridwright::test
