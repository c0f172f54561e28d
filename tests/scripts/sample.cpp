// A program with something of all that can be hardened: a frame of several pages, a text of a length that
// nobody knows, and a function that is called through a pointer.
#include <array>
#include <cstdio>
#include <string>

namespace {

int length(const char* text, std::size_t most) {
  std::array<char, 20000> large{};
  std::array<char, 16> small{};
  std::snprintf(large.data(), large.size(), "%s", text);
  std::snprintf(small.data(), most, "%s", text);
  return static_cast<int>(std::string(small.data()).size() + std::string(large.data()).size());
}

using Measure = int (*)(const char*, std::size_t);
const std::array<Measure, 1> kMeasures = {&length};

}  // namespace

int main(int argc, char** argv) {
  const Measure volatile measure = kMeasures[static_cast<std::size_t>(argc - 1)];
  return measure(argv[0], static_cast<std::size_t>(argc) + 2) > 0 ? 0 : 1;
}
