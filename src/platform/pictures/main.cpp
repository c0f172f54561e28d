// gridwright-prepare: any picture, or words, made ready for a maze, without a window.
#include <QGuiApplication>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "canvas/bitmap_encode.h"
#include "files/plain_file.h"
#include "platform/pictures/made_ready.h"
#include "platform/pictures/offscreen.h"
#include "platform/pictures/prepare_words.h"
#include "platform/pictures/read_picture.h"

namespace {

using namespace gridwright;

constexpr int kNotDone = 1, kWrongUse = 2;

int complain(const std::string& words, int status) {
  std::cerr << "gridwright-prepare: " << words << '\n';
  return status;
}

int say(std::string_view words) {
  std::cout << words << std::endl;
  return std::cout ? 0 : kNotDone;
}

Outcome<Picture> readQuietly(const PrepareWords& line) {
  const NobodyHears quiet;
  return readPicture(line.in, line.size.value_or(Size{kLongestSide, kLongestSide}));
}

Fault cannotBeWritten(const std::filesystem::path& path, const char* why) {
  return {Fault::Kind::notWritable, path.string() + " " + why};
}

Outcome<Done> write(const Bitmap& picture, const PrepareWords& line) {
  std::error_code failed;
  const bool isThere = std::filesystem::exists(std::filesystem::symlink_status(line.out, failed));
  if (isThere && !line.mayReplace)
    return cannotBeWritten(line.out, "is there already; --force writes over it");
  const FilePlace out = FilePlace(line.out).held();
  removeLeftOversOf(out);
  const auto written = replacePlainFile(out, BitmapFilePieces(picture).pieces());
  if (!written) return cannotBeWritten(line.out, "can't be written");
  return Done{};
}

Outcome<MadeReady> made(const PrepareWords& line) {
  const ReadyGround ground{line.wallSize, line.kind, line.size};
  if (line.words) return wordsMadeReady(*line.words, ground);
  const auto picture = readQuietly(line);
  if (!picture) return picture.fault();
  return pictureMadeReady(picture.value(), line.settings, ground);
}

int run(const PrepareWords& line) {
  const auto application = applicationWithoutScreen("gridwright-prepare");
  const auto result = made(line);
  if (!result) return complain(result.fault().words, kNotDone);
  const auto written = write(result.value().picture, line);
  return written ? say(result.value().line) : complain(written.fault().words, kNotDone);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && argv[1] == std::string_view("--help")) return say(kPrepareUsage);
  if (argc == 2 && argv[1] == std::string_view("--version"))
    return say("gridwright-prepare " GRIDWRIGHT_VERSION);
  const auto line = readPrepareWords({argv + 1, argv + argc});
  return line ? run(line.value()) : complain(line.fault().words, kWrongUse);
}
