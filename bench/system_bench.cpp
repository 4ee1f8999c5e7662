// Whole-file loads, directory walks and day arithmetic, each beside a peer: the standard
// streams and std::filesystem, Boost.Filesystem's load_string_file and Boost.Date_Time.
#include <mota/system/date_time/date.hpp>
#include <mota/system/file_utility.hpp>

#include <benchmark/benchmark.h>
#include <boost/date_time/gregorian/gregorian_types.hpp>
#include <boost/filesystem/string_file.hpp>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

namespace {

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
    for (int d = 0; d < 20; ++d) {
      const auto dir = root / "tree" / ("d" + std::to_string(d)) / "inner";
      std::filesystem::create_directories(dir);
      for (int f = 0; f < 50; ++f)
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
  state.SetItemsProcessed(state.iterations() * 1000);
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
  state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK(walk_std_filesystem);

void add_day_mota(benchmark::State& state) {
  mota::system::date_time::date d(1, 1, 2000);
  const mota::system::date_time::date_duration one(1);
  for (auto _ : state) {
    d += one;
    benchmark::DoNotOptimize(d);
  }
}
BENCHMARK(add_day_mota);

void add_day_boost(benchmark::State& state) {
  boost::gregorian::date d(2000, 1, 1);
  const boost::gregorian::days one(1);
  for (auto _ : state) {
    d += one;
    if (d.year() > 9000) d = boost::gregorian::date(2000, 1, 1);  // stay inside its range
    benchmark::DoNotOptimize(d);
  }
}
BENCHMARK(add_day_boost);

// Boost keeps a day number; reading the fields back is the part that matches mota's work.
void add_day_boost_with_fields(benchmark::State& state) {
  boost::gregorian::date d(2000, 1, 1);
  const boost::gregorian::days one(1);
  for (auto _ : state) {
    d += one;
    if (d.year() > 9000) d = boost::gregorian::date(2000, 1, 1);
    const auto fields = d.year_month_day();
    benchmark::DoNotOptimize(fields);
  }
}
BENCHMARK(add_day_boost_with_fields);

}  // namespace
