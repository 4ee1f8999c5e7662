// Throughput of the six UTF conversions beside ICU on the same 1 MiB texts of five kinds, and
// of UTF-16 to UTF-8 on short strings.
// Figures are in bytes of input per second. The library returns a fresh string per call; ICU
// writes into a buffer allocated once outside the timed loop (its most favourable use); the
// icu_alloc_ variant allocates a fresh destination per call, as the library has to.
// utf8->32 and utf32->8 have no whole-string ICU function; ICU's U8_NEXT / U8_APPEND_UNSAFE
// loops stand in for them. Run with --benchmark_repetitions: the fastest run of each is the
// least disturbed on a shared machine.
#include <mota/strings/utf.hpp>

#include <benchmark/benchmark.h>
#include <unicode/ustring.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace s = mota::strings;

namespace {

enum kind { ascii = 0, latin1 = 1, cjk = 2, emoji = 3, mixed = 4 };
const char* const kind_names[] = {"ascii", "latin1", "cjk", "emoji", "mixed"};

struct texts {
  s::ustring8 utf8;
  s::ustring16 utf16;
  s::ustring32 utf32;
};

std::uint32_t next_code_point(kind k, std::mt19937& rng) {
  std::uniform_int_distribution<int> percent(0, 99);
  const int roll = percent(rng);
  if (roll < 15) return ' ';
  switch (k) {
    case ascii:
      return std::uniform_int_distribution<std::uint32_t>(0x21, 0x7E)(rng);
    case latin1:  // about half the letters accented
      return roll < 55 ? std::uniform_int_distribution<std::uint32_t>(0x61, 0x7A)(rng)
                       : std::uniform_int_distribution<std::uint32_t>(0xC0, 0xFF)(rng);
    case cjk:
      return std::uniform_int_distribution<std::uint32_t>(0x4E00, 0x9FFF)(rng);
    case emoji:  // mostly emoji, some ASCII letters
      return roll < 25 ? std::uniform_int_distribution<std::uint32_t>(0x61, 0x7A)(rng)
                       : std::uniform_int_distribution<std::uint32_t>(0x1F300, 0x1FAFF)(rng);
    case mixed:  // each character drawn from one of the kinds above
      return next_code_point(static_cast<kind>(roll / 4 % 4), rng);
  }
  return ' ';
}

texts make_texts(kind k) {
  std::mt19937 rng(1234 + k);
  s::ustring32 cps;
  std::size_t bytes = 0;
  while (bytes < (1u << 20)) {
    const std::uint32_t cp = next_code_point(k, rng);
    bytes += cp < 0x80 ? 1 : cp < 0x800 ? 2 : cp < 0x10000 ? 3 : 4;
    cps.push_back(static_cast<wchar_t>(cp));
  }
  texts t;
  t.utf32 = cps;
  t.utf8 = s::utf32_to_utf8(cps);
  t.utf16 = s::utf8_to_utf16(t.utf8);
  // The inputs must be what ICU makes of the same text, else the comparison is void.
  std::vector<UChar> check(t.utf8.size() + 1);
  int32_t length = 0;
  UErrorCode error = U_ZERO_ERROR;
  u_strFromUTF8(check.data(), static_cast<int32_t>(check.size()), &length, t.utf8.data(),
                static_cast<int32_t>(t.utf8.size()), &error);
  if (U_FAILURE(error) || static_cast<std::size_t>(length) != t.utf16.size() ||
      !std::equal(t.utf16.begin(), t.utf16.end(), check.begin())) {
    std::fprintf(stderr, "generated %s text differs from ICU's conversion\n", kind_names[k]);
    std::abort();
  }
  return t;
}

const texts& input(int k) {
  static const texts all[] = {make_texts(ascii), make_texts(latin1), make_texts(cjk),
                              make_texts(emoji), make_texts(mixed)};
  return all[k];
}

template <typename Source, typename Run>
void measure(benchmark::State& state, const Source& source, Run run) {
  for (auto _ : state)
    benchmark::DoNotOptimize(run());
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(source.size() * sizeof(source[0])));
  state.SetLabel(kind_names[state.range(0)]);
}

void mota_utf8_to_utf16(benchmark::State& state) {
  const auto& src = input(static_cast<int>(state.range(0))).utf8;
  measure(state, src, [&] { return s::utf8_to_utf16(src).size(); });
}

void icu_utf8_to_utf16(benchmark::State& state) {
  const auto& src = input(static_cast<int>(state.range(0))).utf8;
  std::vector<UChar> dest(src.size() + 1);
  measure(state, src, [&] {
    int32_t length = 0;
    UErrorCode error = U_ZERO_ERROR;
    u_strFromUTF8(dest.data(), static_cast<int32_t>(dest.size()), &length, src.data(),
                  static_cast<int32_t>(src.size()), &error);
    return length;
  });
}

void mota_utf8_to_utf32(benchmark::State& state) {
  const auto& src = input(static_cast<int>(state.range(0))).utf8;
  measure(state, src, [&] { return s::utf8_to_utf32(src).size(); });
}

void icu_utf8_to_utf32(benchmark::State& state) {
  const auto& src = input(static_cast<int>(state.range(0))).utf8;
  std::vector<UChar32> dest(src.size() + 1);
  measure(state, src, [&] {
    const uint8_t* p = reinterpret_cast<const uint8_t*>(src.data());
    const int32_t n = static_cast<int32_t>(src.size());
    int32_t i = 0;
    std::size_t k = 0;
    while (i < n) {
      UChar32 c;
      U8_NEXT(p, i, n, c);
      dest[k++] = c;
    }
    return k;
  });
}

void mota_utf16_to_utf8(benchmark::State& state) {
  const auto& src = input(static_cast<int>(state.range(0))).utf16;
  measure(state, src, [&] { return s::utf16_to_utf8(src).size(); });
}

void icu_utf16_to_utf8(benchmark::State& state) {
  const auto& src = input(static_cast<int>(state.range(0))).utf16;
  std::vector<char> dest(src.size() * 3 + 1);
  const UChar* from = reinterpret_cast<const UChar*>(src.data());
  measure(state, src, [&] {
    int32_t length = 0;
    UErrorCode error = U_ZERO_ERROR;
    u_strToUTF8(dest.data(), static_cast<int32_t>(dest.size()), &length, from,
                static_cast<int32_t>(src.size()), &error);
    return length;
  });
}

// The same with a fresh destination per call, as the library's API has to.
void icu_alloc_utf16_to_utf8(benchmark::State& state) {
  const auto& src = input(static_cast<int>(state.range(0))).utf16;
  const UChar* from = reinterpret_cast<const UChar*>(src.data());
  measure(state, src, [&] {
    std::string dest;
    dest.resize(src.size() * 3 + 1);
    int32_t length = 0;
    UErrorCode error = U_ZERO_ERROR;
    u_strToUTF8(&dest[0], static_cast<int32_t>(dest.size()), &length, from,
                static_cast<int32_t>(src.size()), &error);
    dest.resize(static_cast<std::size_t>(length));
    return dest.size();
  });
}

// Short strings: the mixed text cut into pieces of state.range(0) bytes of UTF-16 (a pair is
// never split, so a piece may be one unit shorter), each converted by its own call.
const std::vector<s::ustring16>& utf16_pieces(std::size_t bytes) {
  static std::vector<s::ustring16> by_size[2];
  auto& pieces = by_size[bytes == 16 ? 0 : 1];
  if (pieces.empty()) {
    const s::ustring16& text = input(mixed).utf16;
    const std::size_t units = bytes / 2;
    for (std::size_t at = 0; at + units < text.size() && pieces.size() < 4096;) {
      std::size_t length = units;
      if ((text[at + length - 1] & 0xFC00) == 0xD800) --length;
      pieces.emplace_back(text.substr(at, length));
      at += length;
    }
  }
  return pieces;
}

template <typename Run>
void measure_pieces(benchmark::State& state, Run run) {
  const auto& pieces = utf16_pieces(static_cast<std::size_t>(state.range(0)));
  std::int64_t bytes = 0;
  for (const auto& piece : pieces)
    bytes += static_cast<std::int64_t>(piece.size() * 2);
  for (auto _ : state) {
    for (const auto& piece : pieces)
      benchmark::DoNotOptimize(run(piece));
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * bytes);
}

void mota_utf16_to_utf8_short(benchmark::State& state) {
  measure_pieces(state, [](const s::ustring16& piece) { return s::utf16_to_utf8(piece); });
}

void icu_alloc_utf16_to_utf8_short(benchmark::State& state) {
  measure_pieces(state, [](const s::ustring16& piece) {
    std::string dest;
    dest.resize(piece.size() * 3 + 1);
    int32_t length = 0;
    UErrorCode error = U_ZERO_ERROR;
    u_strToUTF8(&dest[0], static_cast<int32_t>(dest.size()), &length,
                reinterpret_cast<const UChar*>(piece.data()), static_cast<int32_t>(piece.size()),
                &error);
    dest.resize(static_cast<std::size_t>(length));
    return dest;
  });
}

void mota_utf16_to_utf32(benchmark::State& state) {
  const auto& src = input(static_cast<int>(state.range(0))).utf16;
  measure(state, src, [&] { return s::utf16_to_utf32(src).size(); });
}

void icu_utf16_to_utf32(benchmark::State& state) {
  const auto& src = input(static_cast<int>(state.range(0))).utf16;
  std::vector<UChar32> dest(src.size() + 1);
  const UChar* from = reinterpret_cast<const UChar*>(src.data());
  measure(state, src, [&] {
    int32_t length = 0;
    UErrorCode error = U_ZERO_ERROR;
    u_strToUTF32(dest.data(), static_cast<int32_t>(dest.size()), &length, from,
                 static_cast<int32_t>(src.size()), &error);
    return length;
  });
}

void mota_utf32_to_utf8(benchmark::State& state) {
  const auto& src = input(static_cast<int>(state.range(0))).utf32;
  measure(state, src, [&] { return s::utf32_to_utf8(src).size(); });
}

void icu_utf32_to_utf8(benchmark::State& state) {
  const auto& src = input(static_cast<int>(state.range(0))).utf32;
  std::vector<uint8_t> dest(src.size() * 4 + 1);
  measure(state, src, [&] {
    std::size_t k = 0;
    for (wchar_t c : src)
      U8_APPEND_UNSAFE(dest.data(), k, static_cast<UChar32>(c));
    return k;
  });
}

void mota_utf32_to_utf16(benchmark::State& state) {
  const auto& src = input(static_cast<int>(state.range(0))).utf32;
  measure(state, src, [&] { return s::utf32_to_utf16(src).size(); });
}

void icu_utf32_to_utf16(benchmark::State& state) {
  const auto& src = input(static_cast<int>(state.range(0))).utf32;
  std::vector<UChar> dest(src.size() * 2 + 1);
  const UChar32* from = reinterpret_cast<const UChar32*>(src.data());
  measure(state, src, [&] {
    int32_t length = 0;
    UErrorCode error = U_ZERO_ERROR;
    u_strFromUTF32(dest.data(), static_cast<int32_t>(dest.size()), &length, from,
                   static_cast<int32_t>(src.size()), &error);
    return length;
  });
}

// The machine is shared: with --benchmark_repetitions the fastest run is the least disturbed.
double fastest(const std::vector<double>& runs) {
  return runs.empty() ? 0.0 : *std::min_element(runs.begin(), runs.end());
}

}  // namespace

BENCHMARK(mota_utf8_to_utf16)->DenseRange(0, 4)->ComputeStatistics("min", fastest);
BENCHMARK(icu_utf8_to_utf16)->DenseRange(0, 4)->ComputeStatistics("min", fastest);
BENCHMARK(mota_utf8_to_utf32)->DenseRange(0, 4)->ComputeStatistics("min", fastest);
BENCHMARK(icu_utf8_to_utf32)->DenseRange(0, 4)->ComputeStatistics("min", fastest);
BENCHMARK(mota_utf16_to_utf8)->DenseRange(0, 4)->ComputeStatistics("min", fastest);
BENCHMARK(icu_utf16_to_utf8)->DenseRange(0, 4)->ComputeStatistics("min", fastest);
BENCHMARK(icu_alloc_utf16_to_utf8)->DenseRange(0, 4)->ComputeStatistics("min", fastest);
BENCHMARK(mota_utf16_to_utf8_short)->Arg(16)->Arg(64);
BENCHMARK(icu_alloc_utf16_to_utf8_short)->Arg(16)->Arg(64);
BENCHMARK(mota_utf16_to_utf32)->DenseRange(0, 4)->ComputeStatistics("min", fastest);
BENCHMARK(icu_utf16_to_utf32)->DenseRange(0, 4)->ComputeStatistics("min", fastest);
BENCHMARK(mota_utf32_to_utf8)->DenseRange(0, 4)->ComputeStatistics("min", fastest);
BENCHMARK(icu_utf32_to_utf8)->DenseRange(0, 4)->ComputeStatistics("min", fastest);
BENCHMARK(mota_utf32_to_utf16)->DenseRange(0, 4)->ComputeStatistics("min", fastest);
BENCHMARK(icu_utf32_to_utf16)->DenseRange(0, 4)->ComputeStatistics("min", fastest);
