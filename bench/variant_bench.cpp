// The variant beside the standard library: handle copies, text/number conversions and a small
// named argument list.
#include <mota/generic/varg_list.hpp>
#include <mota/types/variant.hpp>

#include <benchmark/benchmark.h>

#include <charconv>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace {

using mota::generic::argument;
using mota::generic::varg_list;
using mota::types::variant;

using std_variant =
    std::variant<std::monostate, bool, int, long long, double, std::string, std::wstring>;

const std::string kText = "a configuration value";  // longer than the small-string buffer

void BM_CopyVariant(benchmark::State& state) {
  const variant source(kText);
  for (auto _ : state) {
    variant copy(source);
    benchmark::DoNotOptimize(copy);
  }
}
BENCHMARK(BM_CopyVariant);

void BM_CopySharedPtr(benchmark::State& state) {
  const auto source = std::make_shared<std::string>(kText);
  for (auto _ : state) {
    std::shared_ptr<std::string> copy(source);
    benchmark::DoNotOptimize(copy);
  }
}
BENCHMARK(BM_CopySharedPtr);

void BM_CopyStdVariant(benchmark::State& state) {
  const std_variant source(kText);
  for (auto _ : state) {
    std_variant copy(source);
    benchmark::DoNotOptimize(copy);
  }
}
BENCHMARK(BM_CopyStdVariant);

void BM_CopyStdVariantInt(benchmark::State& state) {
  const std_variant source(42);
  for (auto _ : state) {
    std_variant copy(source);
    benchmark::DoNotOptimize(copy);
  }
}
BENCHMARK(BM_CopyStdVariantInt);

// A variant made from an int and dropped again, beside a standard variant of the usual
// alternatives; the value changes on every pass so that neither is folded away.
void BM_VariantFromInt(benchmark::State& state) {
  int value = 0;
  for (auto _ : state) {
    variant v(value);
    benchmark::DoNotOptimize(v);
    ++value;
  }
}
BENCHMARK(BM_VariantFromInt);

void BM_StdVariantFromInt(benchmark::State& state) {
  int value = 0;
  for (auto _ : state) {
    std_variant v(value);
    benchmark::DoNotOptimize(v);
    ++value;
  }
}
BENCHMARK(BM_StdVariantFromInt);

void BM_VariantAsIntOfText(benchmark::State& state) {
  const variant source("1234567");
  for (auto _ : state)
    benchmark::DoNotOptimize(source.as_int());
}
BENCHMARK(BM_VariantAsIntOfText);

void BM_FromChars(benchmark::State& state) {
  const std::string source("1234567");
  for (auto _ : state) {
    int value = 0;
    std::from_chars(source.data(), source.data() + source.size(), value);
    benchmark::DoNotOptimize(value);
  }
}
BENCHMARK(BM_FromChars);

void BM_VariantAsStringOfInt(benchmark::State& state) {
  const variant source(1234567);
  for (auto _ : state)
    benchmark::DoNotOptimize(source.as_string());
}
BENCHMARK(BM_VariantAsStringOfInt);

void BM_ToString(benchmark::State& state) {
  const int source = 1234567;
  benchmark::DoNotOptimize(source);
  for (auto _ : state)
    benchmark::DoNotOptimize(std::to_string(source));
}
BENCHMARK(BM_ToString);

const char* const kNames[] = {"file", "line", "column", "message", "severity"};

void BM_VargListBuildAndLookup(benchmark::State& state) {
  for (auto _ : state) {
    varg_list list(argument(kNames[0], "main.cpp"), argument(kNames[1], 42), argument(kNames[2], 7),
                   argument(kNames[3], "unexpected token"), argument(kNames[4], 2.5));
    int found = 0;
    for (const char* name : kNames)
      found += list.has_argument(name) ? 1 : 0;
    for (const char* name : kNames)
      benchmark::DoNotOptimize(&list[name]);
    benchmark::DoNotOptimize(found);
  }
}
BENCHMARK(BM_VargListBuildAndLookup);

// The same list as a vector of named standard variants, searched linearly.
void BM_StdVectorOfNamedVariantsBuildAndLookup(benchmark::State& state) {
  for (auto _ : state) {
    std::vector<std::pair<std::string, std_variant>> list;
    list.emplace_back(kNames[0], std::string("main.cpp"));
    list.emplace_back(kNames[1], 42);
    list.emplace_back(kNames[2], 7);
    list.emplace_back(kNames[3], std::string("unexpected token"));
    list.emplace_back(kNames[4], 2.5);
    int found = 0;
    for (const char* name : kNames) {
      for (const auto& entry : list) {
        if (entry.first == name) {
          ++found;
          break;
        }
      }
    }
    for (const char* name : kNames) {
      for (const auto& entry : list) {
        if (entry.first == name) {
          benchmark::DoNotOptimize(&entry);
          break;
        }
      }
    }
    benchmark::DoNotOptimize(found);
  }
}
BENCHMARK(BM_StdVectorOfNamedVariantsBuildAndLookup);

}  // namespace
