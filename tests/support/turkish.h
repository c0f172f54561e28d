// The system speaks Turkish, in which I and i are two letters and not one in two sizes. The language is
// made for the test, since few machines have it.
#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <clocale>
#include <cstdlib>
#include <string>

#include "support/work_folders.h"

namespace gridwright::test {

/// A folder that holds the language tr_TR.UTF-8, for LOCPATH.
class TurkishFolder {
 public:
  TurkishFolder() {
    const std::string make = "localedef -i tr_TR -f UTF-8 '" + (temp_.path() / "tr_TR.UTF-8").string() + "'";
    if (std::system(make.c_str()) != 0) ADD_FAILURE() << "the package locales is missing: " << make;
  }
  [[nodiscard]] std::string path() const { return temp_.path().string(); }

 private:
  TempFolder temp_;
};

/// This program speaks it for as long as one lives.
class Turkish {
 public:
  Turkish() {
    ::setenv("LOCPATH", folder_.path().c_str(), 1);
    if (std::setlocale(LC_ALL, "tr_TR.UTF-8") == nullptr) ADD_FAILURE() << "it is not spoken";
    EXPECT_NE(std::tolower('I'), 'i') << "the system's own rule is the Turkish one";
  }
  Turkish(const Turkish&) = delete;
  Turkish& operator=(const Turkish&) = delete;
  ~Turkish() {
    std::setlocale(LC_ALL, "C");
    ::unsetenv("LOCPATH");
  }

 private:
  TurkishFolder folder_;
};

}  // namespace gridwright::test
