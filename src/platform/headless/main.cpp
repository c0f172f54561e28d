// gridwright-headless: the program without a screen, driven by a script.
#include <QGuiApplication>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/work_place.h"
#include "platform/headless/headless_desktop.h"
#include "platform/pictures/offscreen.h"
#include "platform/shared/end_signals.h"
#include "platform/shared/freed_memory.h"
#include "session/main_loop.h"
#include "state/program.h"

namespace {

using namespace gridwright;

constexpr int kBadInput = 2;
constexpr int kEndedBySignal = 128;  // and the signal's number, as shells say it

struct CommandLine {
  std::optional<std::filesystem::path> workFolder;  ///< The present one when it is not said.
  HeadlessOptions options;
  std::string script;
};

int complain(const std::string& words) {
  std::cerr << words << '\n';
  return kBadInput;
}

int say(std::string_view words) {
  std::cout << words << std::endl;
  return std::cout ? 0 : kBadInput;
}

constexpr std::string_view kUsage =
    "usage: gridwright-headless [--work DIR] [--size WxH] [--pages DIR | --pdf FILE] SCRIPT\n"
    "       (- reads the script from standard input)";

/// \returns words of complaint, empty when all was understood.
std::string readCommandLine(const std::vector<std::string>& words, CommandLine& line) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (word.size() > 1 && word[0] == '-') {
      if (i + 1 == words.size()) return std::string(kUsage);
      const std::string& value = words[++i];
      if (word == "--work") {
        line.workFolder = value;
      } else if (word == "--pages") {
        line.options.pagesFolder = value;
      } else if (word == "--pdf") {
        line.options.pdfFile = value;
      } else if (word == "--size") {
        const auto size = sizeWord(value);
        if (!size) return size.fault().words;
        line.options.size = {size.value().first, size.value().second};
      } else {
        return std::string(kUsage);
      }
    } else if (line.script.empty()) {
      line.script = word;
    } else {
      return std::string(kUsage);
    }
  }
  if (line.options.pagesFolder && line.options.pdfFile) return std::string(kUsage);
  return line.script.empty() ? std::string(kUsage) : std::string();
}

Outcome<std::string> readSource(const std::string& name) {
  if (name == "-")
    return std::string((std::istreambuf_iterator<char>(std::cin)), std::istreambuf_iterator<char>());
  std::ifstream in(name, std::ios::binary);
  std::error_code failed;
  if (!in || std::filesystem::is_directory(name, failed))
    return Fault{Fault::Kind::notReadable, "cannot be read: " + name};
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

int run(const CommandLine& line, const HeldFolder& workFolder, const std::string& source) {
  keepFreedMemory();
  std::unique_ptr<QGuiApplication> application;
  const auto begin = [&application] {
    if (!application) application = applicationWithoutScreen("gridwright-headless");
  };
  if (line.options.pdfFile) begin();
  HeadlessOptions options = line.options;
  options.beforePictures = begin;
  HeadlessDesktop desktop(line.script, source, options);
  int status = 0;
  const EndSignals asked;
  auto program = std::make_unique<Program>(desktop, std::make_unique<WorkFolder>(workFolder));
  program->dataFolder = personalDataFolder();
  try {
    runProgram(*program);
  } catch (const ProgramEnd&) {
    // A script that was cut off has not done what it says: its status is that of a program that was ended.
    if (endSignal() != 0) status = kEndedBySignal + endSignal();
  } catch (const ScriptStop& stop) {
    std::cerr << stop.message << '\n';
    status = stop.status;
  }
  if (!desktop.writeDocument()) return complain(wordsOnLostPages(*line.options.pdfFile));
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && argv[1] == std::string_view("--help")) return say(kUsage);
  if (argc == 2 && argv[1] == std::string_view("--version"))
    return say("gridwright-headless " GRIDWRIGHT_VERSION);
  CommandLine line;
  line.options.contentFolder = contentFolderOfProgram();
  const std::string complaint = readCommandLine({argv + 1, argv + argc}, line);
  if (!complaint.empty()) return complain(complaint);
  const auto source = readSource(line.script);
  if (!source) return complain(source.fault().words);
  std::error_code failed;
  const std::filesystem::path folder =
      line.workFolder ? *line.workFolder : std::filesystem::current_path(failed);
  if (failed) return complain("the present folder is gone");
  if (!std::filesystem::is_directory(folder, failed)) return complain("no such folder: " + folder.string());
  const auto lock = lockFolder(folder);
  if (!lock) return complain("another program works in this folder: " + folder.string());
  return run(line, *lock ? HeldFolder(*lock, folder) : HeldFolder(folder), source.value());
}
