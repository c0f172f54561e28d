// What of an SVG Qt gets to see, and that nothing it names is opened.
#include "platform/pictures/svg_cleaner.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QBuffer>
#include <QImage>

#include "platform/pictures/read_picture.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

const std::string kHead =
    "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' width='20' "
    "height='20'>";

std::string cleaned(const std::string& within) {
  const auto clean = cleanedSvg(QByteArray::fromStdString(kHead + within + "</svg>"));
  return clean ? clean.value().toStdString() : "FAULT " + clean.fault().words;
}

bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

/// A picture of one colour as a reference.
std::string redSquare() {
  QImage image(4, 4, QImage::Format_RGB32);
  image.fill(Qt::red);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return "data:image/png;base64," + bytes.toBase64().toStdString();
}

TEST(AReferenceToAFile, IsTakenOut) {
  for (const char* name : {"xlink:href", "href", "src", "XLINK:HREF", "foo:href"}) {
    for (const char* target :
         {"/etc/passwd", "file:///dev/zero", "../cat.png", "http://example.org/a.png", " /x"}) {
      const std::string text = cleaned(std::string("<image xmlns:foo='a' ") + name + "='" + target + "'/>");
      EXPECT_TRUE(has(text, "<image")) << text;
      EXPECT_FALSE(has(text, target)) << text;
    }
  }
}

TEST(AReferenceWithinTheDrawing, Stays) {
  EXPECT_TRUE(has(cleaned("<use xlink:href='#leaf'/>"), "xlink:href=\"#leaf\""));
  EXPECT_TRUE(has(cleaned("<rect fill='url(#sky)'/>"), "url(#sky)"));
  EXPECT_TRUE(has(cleaned("<rect style='fill: url( &quot;#sky&quot; )'/>"), "#sky"));
}

TEST(APictureWithin, Stays) {
  const std::string square = redSquare();
  EXPECT_TRUE(has(cleaned("<image xlink:href='" + square + "'/>"), square));
}

TEST(AnSvgWithin, IsTakenOutSinceQtWouldReadItAsItIs) {
  const std::string inner = kHead + "<image xlink:href='/etc/passwd'/></svg>";
  const std::string coded = QByteArray::fromStdString(inner).toBase64().toStdString();
  for (const char* kind : {"image/svg+xml", "image/png"}) {
    EXPECT_FALSE(
        has(cleaned("<image xlink:href='data:" + std::string(kind) + ";base64," + coded + "'/>"), coded));
  }
}

TEST(AReferenceInAStyleSheet, IsTakenOut) {
  EXPECT_FALSE(has(cleaned("<style>a { fill: url(/etc/passwd) }</style>"), "passwd"));
  EXPECT_FALSE(has(cleaned("<style>@import '/etc/passwd'; a { fill: red }</style>"), "passwd"));
  EXPECT_FALSE(has(cleaned("<style>@\\69mport '/etc/passwd'; a { fill: red }</style>"), "@import"));
  EXPECT_FALSE(has(cleaned("<style>a { fill: \\75rl(/etc/passwd) }</style>"), "url("));
  EXPECT_FALSE(has(cleaned("<rect style=\"fill: URL( '/etc/passwd' )\"/>"), "passwd"));
  EXPECT_FALSE(has(cleaned("<rect fill='url(file:///etc/passwd#a)'/>"), "passwd"));
  EXPECT_TRUE(has(cleaned("<style>@import '/x'; a { fill: red }</style>"), "fill: red"));
}

TEST(AReferenceInPiecesWithRemarksBetween, IsTakenOut) {
  EXPECT_FALSE(has(cleaned("<style>a { fill: u<!-- b -->rl(/etc/passwd) }</style>"), "passwd"));
  EXPECT_FALSE(has(cleaned("<style>@im<?b c?>port '/etc/passwd'; a { fill: red }</style>"), "passwd"));
  EXPECT_FALSE(has(cleaned("<style>@im<![CDATA[port '/etc/passwd';]]> a { fill: red }</style>"), "passwd"));
  EXPECT_TRUE(has(cleaned("<text>One<!-- b -->Two</text>"), "OneTwo"));
}

TEST(AnEntity, IsReadAndItsDeclarationGoes) {
  const auto clean = cleanedSvg(
      QByteArray::fromStdString("<!DOCTYPE svg [<!ENTITY f '/etc/passwd'><!ENTITY g SYSTEM '/etc/passwd'>]>" +
                                kHead + "<image xlink:href='&f;'/></svg>"));
  ASSERT_TRUE(clean);
  EXPECT_FALSE(has(clean.value().toStdString(), "passwd"));
  EXPECT_FALSE(has(clean.value().toStdString(), "DOCTYPE"));
}

TEST(AProcessingInstruction, Goes) {
  const auto clean =
      cleanedSvg(QByteArray::fromStdString("<?xml-stylesheet href='/etc/passwd'?>" + kHead + "</svg>"));
  ASSERT_TRUE(clean);
  EXPECT_FALSE(has(clean.value().toStdString(), "passwd"));
}

TEST(UsesOfUses, AreRefusedWhenTheyWouldTakeTooLong) {
  std::string text = "<g id='a0'><rect width='1' height='1'/></g>";
  for (int level = 1; level <= 9; ++level) {
    text += "<g id='a" + std::to_string(level) + "'>";
    for (int i = 0; i < 10; ++i) text += "<use xlink:href='#a" + std::to_string(level - 1) + "'/>";
    text += "</g>";
  }
  EXPECT_EQ(cleaned(text), "FAULT holds more than can be drawn");
  EXPECT_NE(cleaned("<g id='a'><rect/></g><use xlink:href='#a'/><use xlink:href='#a'/>").substr(0, 5),
            "FAULT");
}

TEST(AUseOfItself, IsNoLoop) {
  EXPECT_NE(cleaned("<g id='a'><use xlink:href='#a'/></g>").substr(0, 5), "FAULT");
  EXPECT_NE(cleaned("<g id='a'><use xlink:href='#b'/></g><g id='b'><use xlink:href='#a'/></g>").substr(0, 5),
            "FAULT");
}

TEST(ElementsNestedTooDeep, AreRefused) {
  std::string text;
  for (int i = 0; i < 5000; ++i) text += "<g>";
  EXPECT_EQ(cleaned(text), "FAULT holds more than can be drawn");
}

TEST(AnSvgThatNamesAFile, ShowsNothingOfIt) {
  const TempFolder temp;
  QImage image(20, 20, QImage::Format_RGB32);
  image.fill(Qt::red);
  const auto secret = temp.path() / "secret.png";
  ASSERT_TRUE(image.save(QString::fromStdString(secret.string())));
  const std::string show = "<image width='20' height='20' xlink:href='";
  const auto bytes = [&](const std::string& target) { return kHead + show + target + "'/></svg>"; };
  const auto within = readPictureBytes(bytes(redSquare()), {20, 20}, "it");
  ASSERT_TRUE(within);
  EXPECT_EQ(within.value().whole.colours.at(10, 10), 0x0000FF) << "a picture within is shown";
  for (const std::string& target : {secret.string(), "file://" + secret.string()}) {
    const auto picture = readPictureBytes(bytes(target), {20, 20}, "it");
    ASSERT_TRUE(picture) << picture.fault().words;
    EXPECT_TRUE(picture.value().whole.isClear(210)) << target;
  }
}

TEST(AnSvgThatNamesAPipeOrADevice, IsReadAtOnce) {
  const TempFolder temp;
  const auto pipe = temp.path() / "pipe.png";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& target :
       {pipe.string(), std::string("/dev/zero"), std::string("file:///dev/zero")}) {
    std::string text = kHead;
    text.append("<image width='20' height='20' href='").append(target);
    text.append("'/><image width='20' height='20' xlink:href='").append(target).append("'/></svg>");
    EXPECT_TRUE(readPictureBytes(text, {20, 20}, "it")) << target;
  }
}

TEST(TextThatIsNoWholeXml, IsRefused) {
  EXPECT_EQ(cleaned("<g>"), "FAULT is cut off or broken");
  EXPECT_FALSE(readPictureBytes("<svg", {20, 20}, "it"));
  EXPECT_FALSE(readPictureBytes("<svg xmlns='http://www.w3.org/2000/svg'/>", {20, 20}, "it"))
      << "nothing in it";
}

}  // namespace
}  // namespace gridwright::test
