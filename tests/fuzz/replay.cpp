// Runs a fuzz target on every file of a directory, without a fuzzer.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

#include "fuzz/fuzz.h"

int main(int argc, char** argv) {
  if (argc != 2 || !std::filesystem::is_directory(argv[1])) {
    std::cerr << "usage: " << argv[0] << " DIRECTORY\n";
    return 2;
  }
  std::vector<std::filesystem::path> files;
  for (auto const& entry : std::filesystem::directory_iterator(argv[1])) {
    if (entry.is_regular_file()) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  for (auto const& file : files) {
    std::cout << file.filename().string() << std::endl;
    std::ifstream stream(file, std::ios::binary);
    std::vector<char> const bytes(std::istreambuf_iterator<char>(stream), {});
    LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const*>(bytes.data()), bytes.size());
  }
  std::cout << files.size() << " inputs" << std::endl;
  return files.empty() ? 1 : 0;
}
