// Fonts need an application object; the tests have one without a screen.
#pragma once

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <array>
#include <memory>

#include "platform/pictures/qt_ink.h"

namespace gridwright::test {

class WithFonts : public ::testing::Test {
 public:
  static void SetUpTestSuite() {
    if (QGuiApplication::instance() != nullptr) return;
    static std::array<char, 5> name{"test"};
    static std::array<char, 10> option{"-platform"};
    static std::array<char, 10> value{"offscreen"};
    static std::array<char*, 4> arguments{name.data(), option.data(), value.data(), nullptr};
    static int count = 3;
    static const auto application = std::make_unique<QGuiApplication>(count, arguments.data());
  }

 protected:
  QtInk ink{GRIDWRIGHT_STAMPS};
};

}  // namespace gridwright::test
