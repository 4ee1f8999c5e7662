// Whole-file loads, directory walks and day arithmetic, each beside a peer: the standard
// streams and std::filesystem, Boost.Filesystem's load_string_file and Boost.Date_Time.
#include <mota/system/date_time/date.hpp>
#include <mota/system/file_utility.hpp>

#include <benchmark/benchmark.h>
#include <boost/date_time/gregorian/gregorian_types.hpp>
#include <boost/filesystem/string_file.hpp>

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

// The walked tree: 10000 files, each in one of 50 directories two levels down.
constexpr int kWalkDirectories = 50;
constexpr int kWalkFilesPerDirectory = 200;
constexpr int kWalkFiles = kWalkDirectories * kWalkFilesPerDirectory;

// A scratch tree under the temporary directory, made once per process.
struct scratch {
  std::filesystem::path root;
  std::string file;

  scratch() {
    root = std::filesystem::temp_directory_path() /
           ("mota-bench-" + std::to_string(std::random_device{}()));
    std::filesystem::create_directories(root);
    file = (root / "one_mib.bin").string();
    std::ofstream(file, std::ios::binary) << std::string(1 << 20, 'x');
    for (int d = 0; d < kWalkDirectories; ++d) {
      const auto dir = root / "tree" / ("d" + std::to_string(d)) / "inner";
      std::filesystem::create_directories(dir);
      for (int f = 0; f < kWalkFilesPerDirectory; ++f)
        std::ofstream((dir / ("f" + std::to_string(f))).string()) << f;
    }
  }
  ~scratch() {
    std::error_code error;
    std::filesystem::remove_all(root, error);
  }
};

scratch& files() {
  static scratch s;
  return s;
}

void load_mota(benchmark::State& state) {
  mota::strings::ustring8 content;
  for (auto _ : state) {
    mota::system::load_file(files().file, content);
    benchmark::DoNotOptimize(content.data());
  }
  state.SetBytesProcessed(state.iterations() * (1 << 20));
}
BENCHMARK(load_mota);

// The plain way: read() in 64 KiB pieces onto the end of a reused string until the end.
void load_read_loop(benchmark::State& state) {
  std::string content;
  std::vector<char> chunk(1 << 16);
  for (auto _ : state) {
    content.clear();
    const int fd = ::open(files().file.c_str(), O_RDONLY | O_CLOEXEC);
    ssize_t got = 0;
    while ((got = ::read(fd, chunk.data(), chunk.size())) > 0)
      content.append(chunk.data(), static_cast<std::size_t>(got));
    ::close(fd);
    benchmark::DoNotOptimize(content.data());
  }
  state.SetBytesProcessed(state.iterations() * (1 << 20));
}
BENCHMARK(load_read_loop);

void load_std_stringstream(benchmark::State& state) {
  for (auto _ : state) {
    std::ifstream in(files().file, std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf();
    std::string content = out.str();
    benchmark::DoNotOptimize(content.data());
  }
  state.SetBytesProcessed(state.iterations() * (1 << 20));
}
BENCHMARK(load_std_stringstream);

void load_boost_string_file(benchmark::State& state) {
  std::string content;
  for (auto _ : state) {
    boost::filesystem::load_string_file(files().file, content);
    benchmark::DoNotOptimize(content.data());
  }
  state.SetBytesProcessed(state.iterations() * (1 << 20));
}
BENCHMARK(load_boost_string_file);

void walk_mota(benchmark::State& state) {
  const std::string tree = (files().root / "tree").string();
  for (auto _ : state) {
    std::vector<mota::strings::ustring8> found;
    mota::system::get_directory_files(tree, found);
    benchmark::DoNotOptimize(found.data());
  }
  state.SetItemsProcessed(state.iterations() * kWalkFiles);
}
BENCHMARK(walk_mota);

void walk_std_filesystem(benchmark::State& state) {
  const auto tree = files().root / "tree";
  for (auto _ : state) {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(tree))
      if (entry.is_regular_file()) found.push_back(entry.path().string());
    benchmark::DoNotOptimize(found.data());
  }
  state.SetItemsProcessed(state.iterations() * kWalkFiles);
}
BENCHMARK(walk_std_filesystem);

// Dates: a date moved by N days, N changing on every pass over a range of eleven years, and
// the difference of two dates in days. Boost keeps a day number, mota the day, month and year.
constexpr int kDateCount = 64;

const std::vector<mota::system::date_time::date>& mota_dates() {
  static const std::vector<mota::system::date_time::date> dates = [] {
    std::vector<mota::system::date_time::date> out;
    for (int i = 0; i < kDateCount; ++i)
      out.emplace_back(1u + (i * 7u) % 28u, 1u + i % 12u, 1990u + (i * 13u) % 40u);
    return out;
  }();
  return dates;
}

const std::vector<boost::gregorian::date>& boost_dates() {
  static const std::vector<boost::gregorian::date> dates = [] {
    std::vector<boost::gregorian::date> out;
    for (const auto& d : mota_dates())
      out.emplace_back(d.year(), d.month(), d.day());
    return out;
  }();
  return dates;
}

void BM_DatePlusDays_Mota(benchmark::State& state) {
  const auto& dates = mota_dates();
  unsigned n = 0;
  for (auto _ : state) {
    mota::system::date_time::date d(dates[n % kDateCount]);
    d += mota::system::date_time::date_duration(static_cast<int>(n & 4095u));
    benchmark::DoNotOptimize(d);
    ++n;
  }
}
BENCHMARK(BM_DatePlusDays_Mota);

void BM_DatePlusDays_BoostGregorian(benchmark::State& state) {
  const auto& dates = boost_dates();
  unsigned n = 0;
  for (auto _ : state) {
    boost::gregorian::date d = dates[n % kDateCount] + boost::gregorian::days(n & 4095u);
    benchmark::DoNotOptimize(d);
    ++n;
  }
}
BENCHMARK(BM_DatePlusDays_BoostGregorian);

void BM_DateDifference_Mota(benchmark::State& state) {
  const auto& dates = mota_dates();
  unsigned n = 0;
  for (auto _ : state) {
    const int days = static_cast<int>(dates[n % kDateCount].pJulian_day_number() -
                                      dates[(n + 1) % kDateCount].pJulian_day_number());
    benchmark::DoNotOptimize(days);
    ++n;
  }
}
BENCHMARK(BM_DateDifference_Mota);

void BM_DateDifference_BoostGregorian(benchmark::State& state) {
  const auto& dates = boost_dates();
  unsigned n = 0;
  for (auto _ : state) {
    const auto days = (dates[n % kDateCount] - dates[(n + 1) % kDateCount]).days();
    benchmark::DoNotOptimize(days);
    ++n;
  }
}
BENCHMARK(BM_DateDifference_BoostGregorian);

}  // namespace
