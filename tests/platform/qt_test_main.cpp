// Tests of widgets run inside one application object; the offscreen platform comes as an argument.
#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();  // the build asks so, without a platform
  QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
