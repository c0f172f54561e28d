// A fuzz target as a plain test: every file of a corpus goes through it, whole and cut off anywhere; with
// --whole only as it is, where a file cut off tells nothing new.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
  const bool whole = argc == 3 && argv[2] == std::string("--whole");
  if (argc != 2 && !whole) return 2;
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
    std::ifstream in(entry.path(), std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.data());
    for (std::size_t size = whole ? bytes.size() : 0; size <= bytes.size(); ++size)
      LLVMFuzzerTestOneInput(data, size);
    ++files;
  }
  std::cout << files << " files\n";
  return files > 0 ? 0 : 1;  // an empty corpus tests nothing
}
