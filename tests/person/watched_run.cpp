#include "person/watched_run.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace gridwright::person {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kRefusedMark = "# refused";

std::string textOf(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

Lines linesOf(const std::string& text) {
  Lines lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    if (line != kRefusedMark) {
      lines.push_back(line);
    } else if (!lines.empty()) {
      lines.pop_back();
    }
  }
  return lines;
}

/// In the child: every line is written down before it is run.
[[noreturn]] void live(Ground ground, const Deeds& deeds, unsigned patience) {
  std::ofstream lines(ground.folder / "lines", std::ios::binary);
  ground.note = [&](const std::string& line) {
    ::alarm(patience);
    lines << line << std::endl;
  };
  ground.noteRefused = [&] { lines << kRefusedMark << std::endl; };
  int status = EXIT_FAILURE;
  try {
    const Story story = sit(ground, deeds);
    std::ofstream(ground.folder / "verdict", std::ios::binary) << story.fault;
    status = EXIT_SUCCESS;
  } catch (const std::exception& thrown) {
    std::ofstream(ground.folder / "verdict", std::ios::binary) << "an exception: " << thrown.what();
    status = EXIT_SUCCESS;
  }
  ::_exit(status);
}

std::string fateOf(int status) {
  if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM) return "a deed that never ends";
  if (WIFSIGNALED(status)) return std::string("a crash by signal ") + ::sigabbrev_np(WTERMSIG(status));
  return "the process ended with status " + std::to_string(WEXITSTATUS(status));
}

}  // namespace

Story watchedRun(const Ground& ground, const Deeds& deeds, unsigned patience) {
  layOutAnew(ground.folder);
  for (const char* name : {"lines", "verdict"}) fs::remove(ground.folder / name);
  const pid_t child = ::fork();
  if (child < 0) throw std::runtime_error("no process for a session");
  if (child == 0) live(ground, deeds, patience);
  int status = 0;
  ::waitpid(child, &status, 0);
  Story story;
  story.lines = linesOf(textOf(ground.folder / "lines"));
  story.fault = textOf(ground.folder / "verdict");
  const bool endedWell = WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
  if (!endedWell) story.fault = fateOf(status) + ": " + (story.lines.empty() ? "" : story.lines.back());
  return story;
}

std::string kindOf(const std::string& fault) { return fault.substr(0, fault.find(':')); }

}  // namespace gridwright::person
