// Fonts and pages without a screen.
#pragma once

#include <QGuiApplication>
#include <array>
#include <memory>

namespace gridwright::test {

/// Qt's application, which fonts need, for as long as the tests run; begun once.
inline void beginOffscreen() {
  if (QGuiApplication::instance() != nullptr) return;
  static std::array<char, 5> name{"test"};
  static std::array<char, 10> option{"-platform"};
  static std::array<char, 10> value{"offscreen"};
  static std::array<char*, 4> arguments{name.data(), option.data(), value.data(), nullptr};
  static int count = 3;
  static const auto application = std::make_unique<QGuiApplication>(count, arguments.data());
}

}  // namespace gridwright::test
