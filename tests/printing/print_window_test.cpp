#include "printing/print_window.h"

#include <gtest/gtest.h>

#include "support/world.h"

namespace gridwright::test {
namespace {

TEST(ThePrintedPage, IsTheWindowAsItIsShownOnePageADocument) {
  World w(drawing({"...", "..."}));
  w.canvas.setAutoRedraw(false);
  w.canvas.fill(12, 12, 15, 15, kRed);  // on the screen alone
  printfff(w.program);
  ASSERT_EQ(w.desktop.pages.size(), 1U);
  EXPECT_TRUE(samePicture(w.desktop.pages[0], w.canvas.shownImage()));
  EXPECT_NE(w.desktop.pages[0], w.canvas.image());
  EXPECT_EQ(w.desktop.alone, 1);
  EXPECT_EQ(w.desktop.documents, 0) << "a run that goes on keeps its document";
}

}  // namespace
}  // namespace gridwright::test
