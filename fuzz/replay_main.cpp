// A plain main for a fuzz target: feeds it every file named on the command line, and every file
// inside every directory named there, once each. Built with the ordinary compiler, so the corpus
// and the inputs that once crashed are replayed by the unit-test run without clang or libFuzzer.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int replay_file(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    std::fprintf(stderr, "cannot read %s\n", path.c_str());
    return 1;
  }
  // A vector of exactly the file's size, so a read past the input is caught by the sanitizers.
  std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  std::unique_ptr<std::uint8_t[]> copy(new std::uint8_t[bytes.size() ? bytes.size() : 1]);
  std::copy(bytes.begin(), bytes.end(), copy.get());
  LLVMFuzzerTestOneInput(copy.get(), bytes.size());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  int failures = 0;
  std::size_t count = 0;
  for (int i = 1; i < argc; ++i) {
    const std::filesystem::path arg(argv[i]);
    std::error_code ec;
    if (std::filesystem::is_directory(arg, ec)) {
      std::vector<std::filesystem::path> files;
      for (const auto& entry : std::filesystem::recursive_directory_iterator(arg, ec)) {
        if (entry.is_regular_file()) files.push_back(entry.path());
      }
      std::sort(files.begin(), files.end());
      for (const auto& file : files) {
        failures += replay_file(file);
        ++count;
      }
    } else if (std::filesystem::exists(arg, ec)) {
      failures += replay_file(arg);
      ++count;
    }
  }
  std::printf("replayed %zu inputs\n", count);
  // A target with nothing to replay has lost its corpus; that is a failure too.
  return failures == 0 && count > 0 ? 0 : 1;
}
