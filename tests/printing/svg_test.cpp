#include "printing/svg.h"

#include <gtest/gtest.h>

#include "support/pictures.h"

namespace gridwright::test {
namespace {

std::string svg(const Text& rows, const std::string& title = "") {
  const Bitmap picture = pixels(rows);
  return svgOf(*layersOf(picture, 1000), {picture.width, picture.height}, title);
}

TEST(AnSvg, IsOnePathAColourInTheMeasureOfThePicturesPixels) {
  EXPECT_EQ(svg({"..", ".#", ".."}),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"2\" height=\"3\" viewBox=\"0 0 2 3\" "
            "shape-rendering=\"crispEdges\">\n"
            "<path fill=\"#000080\" d=\"M0 0h2v3h-2z\"/>\n"
            "<path fill=\"#0000ff\" d=\"M1 1h1v1h-1z\"/>\n"
            "</svg>\n");
}

TEST(AnSvgsTitle, IsTextWhateverItHolds) {
  const auto titleIn = [](const std::string& title) {
    const std::string text = svg({"."}, title);
    const auto begin = text.find("<title>") + 7;
    return text.substr(begin, text.find("</title>") - begin);
  };
  EXPECT_EQ(titleIn("Cats & <b>\"dogs\"</b>"), "Cats &amp; &lt;b&gt;\"dogs\"&lt;/b&gt;");
  EXPECT_EQ(titleIn("Gr\xC3\xBC\xC3\x9F\x65 \xF0\x9F\x90\x88"), "Gr\xC3\xBC\xC3\x9F\x65 \xF0\x9F\x90\x88");
  EXPECT_EQ(titleIn("a\xFF\xC3"
                    "b\x01\x7F\xED\xA0\x80"
                    "c\xEF\xBF\xBF"
                    "d\xC0\xAF"),
            "abcd")
      << "no signs of such a text";
  EXPECT_EQ(svg({"."}).find("<title>"), std::string::npos);
}

}  // namespace
}  // namespace gridwright::test
