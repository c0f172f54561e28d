// A program of its own, started as a person or a script would start it.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "support/work_folders.h"

namespace gridwright::test {

struct Start {
  std::filesystem::path program;
  std::vector<std::string> words;  ///< Its arguments.
  std::filesystem::path folder;    ///< It is started in.
  std::map<std::string, std::string> variables;
  std::function<void()> before;  ///< What it does before it becomes the program.
};

class ChildProgram {
 public:
  explicit ChildProgram(const Start& start) : child_(::fork()) {
    if (child_ == 0) become(start);
  }
  ChildProgram(const ChildProgram&) = delete;
  ChildProgram& operator=(const ChildProgram&) = delete;
  ~ChildProgram() {
    if (child_ > 0 && !ended_) kill();
  }

  void interrupt(int signal) const { ::kill(child_, signal); }
  void kill() {
    ::kill(child_, SIGKILL);
    wait();
  }
  /// \returns the exit status; a negative number for a signal that ended it.
  int wait() {
    int status = 0;
    EXPECT_EQ(::waitpid(child_, &status, 0), child_);
    ended_ = true;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  }
  /// Waits until there is a file, half a minute at most, and as long as the program runs.
  [[nodiscard]] bool makes(const std::filesystem::path& file) {
    using namespace std::chrono_literals;
    for (int look = 0; look < 1500; ++look) {
      if (std::filesystem::exists(file)) return true;
      int status = 0;
      if (!ended_ && ::waitpid(child_, &status, WNOHANG) == child_) ended_ = true;
      if (ended_) return std::filesystem::exists(file);
      std::this_thread::sleep_for(20ms);
    }
    return false;
  }
  /// Waits until it runs so many threads, half a minute at most.
  [[nodiscard]] bool hasThreads(std::size_t count) const {
    using namespace std::chrono_literals;
    const std::filesystem::path tasks = "/proc/" + std::to_string(child_) + "/task";
    for (int look = 0; look < 1500; ++look) {
      std::error_code gone;
      const std::filesystem::directory_iterator all(tasks, gone);
      if (!gone && static_cast<std::size_t>(std::distance(begin(all), end(all))) >= count) return true;
      std::this_thread::sleep_for(20ms);
    }
    return false;
  }
  /// What it has said on standard error until now.
  [[nodiscard]] std::string said() const { return said_.get("said"); }

 private:
  [[noreturn]] void become(const Start& start) const {
    const std::string words = (said_.path() / "said").string();
    const int out = ::open(words.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0666);
    if (out < 0 || ::dup2(out, STDERR_FILENO) < 0) ::_exit(127);
    if (!start.folder.empty() && ::chdir(start.folder.c_str()) != 0) ::_exit(127);
    for (const auto& [name, value] : start.variables) ::setenv(name.c_str(), value.c_str(), 1);
    if (start.before) start.before();
    std::vector<std::string> copies{start.program.string()};
    copies.insert(copies.end(), start.words.begin(), start.words.end());
    std::vector<char*> arguments;
    for (std::string& word : copies) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    ::execv(start.program.c_str(), arguments.data());
    ::_exit(127);
  }

  TempFolder said_;
  pid_t child_;
  bool ended_ = false;
};

}  // namespace gridwright::test
