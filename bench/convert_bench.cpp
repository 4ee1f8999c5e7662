// Number/text conversion and code-page conversion beside the C library and <charconv> peers.
// Every parser sees the same texts in the same order; items processed are numbers (or bytes
// for the code-page cases).
#include <mota/generic/convert/str_to_x.hpp>
#include <mota/generic/convert/x_to_str.hpp>
#include <mota/strings/code_page.hpp>

#include <benchmark/benchmark.h>

#include <iconv.h>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace convert = mota::generic::convert;
using mota::types::radix_t;

namespace {

constexpr int text_count = 1024;

// Random values with a spread of digit counts, rendered in `base`.
template <typename T>
std::vector<std::string> make_texts(int base, bool negative_too) {
  std::mt19937_64 rng(42);
  std::vector<std::string> texts;
  for (int i = 0; i < text_count; ++i) {
    auto raw = static_cast<unsigned long long>(rng()) >> (rng() % (sizeof(T) * 8));
    T value = static_cast<T>(raw);
    if (negative_too && (i & 1)) value = static_cast<T>(-static_cast<long long>(value / 2));
    char buffer[80];
    auto end = std::to_chars(buffer, buffer + sizeof buffer, value, base).ptr;
    texts.emplace_back(buffer, end);
  }
  return texts;
}

const std::vector<std::string>& texts_int_dec() {
  static const auto t = make_texts<int>(10, true);
  return t;
}
const std::vector<std::string>& texts_int_hex() {
  static const auto t = make_texts<int>(16, true);
  return t;
}
const std::vector<std::string>& texts_ll_dec() {
  static const auto t = make_texts<long long>(10, true);
  return t;
}
const std::vector<std::string>& texts_ull_dec() {
  static const auto t = make_texts<unsigned long long>(10, false);
  return t;
}
const std::vector<std::string>& texts_ull_hex() {
  static const auto t = make_texts<unsigned long long>(16, false);
  return t;
}

template <typename F>
void run_parse(benchmark::State& state, const std::vector<std::string>& texts, F parse) {
  for (auto _ : state) {
    for (const auto& t : texts)
      benchmark::DoNotOptimize(parse(t));
  }
  state.SetItemsProcessed(state.iterations() * static_cast<long long>(texts.size()));
}

template <typename T>
T from_chars_value(const std::string& t, int base) {
  T v = 0;
  std::from_chars(t.data(), t.data() + t.size(), v, base);
  return v;
}

// --- str_to_int ------------------------------------------------------------------------------
void BM_parse_int_dec_mota(benchmark::State& s) {
  run_parse(s, texts_int_dec(), [](const std::string& t) {
    return convert::str_to_int(t.c_str(), static_cast<unsigned int>(t.size()), radix_t::decimal,
                               false);
  });
}
void BM_parse_int_dec_mota_size0(benchmark::State& s) {
  run_parse(s, texts_int_dec(), [](const std::string& t) {
    return convert::str_to_int(t.c_str(), 0, radix_t::decimal, false);
  });
}
void BM_parse_int_dec_strtol(benchmark::State& s) {
  run_parse(s, texts_int_dec(),
            [](const std::string& t) { return std::strtol(t.c_str(), nullptr, 10); });
}
void BM_parse_int_dec_from_chars(benchmark::State& s) {
  run_parse(s, texts_int_dec(), [](const std::string& t) { return from_chars_value<int>(t, 10); });
}
void BM_parse_int_hex_mota(benchmark::State& s) {
  run_parse(s, texts_int_hex(), [](const std::string& t) {
    return convert::str_to_int(t.c_str(), static_cast<unsigned int>(t.size()), radix_t::hexadecimal,
                               false);
  });
}
void BM_parse_int_hex_strtol(benchmark::State& s) {
  run_parse(s, texts_int_hex(),
            [](const std::string& t) { return std::strtol(t.c_str(), nullptr, 16); });
}
void BM_parse_int_hex_from_chars(benchmark::State& s) {
  run_parse(s, texts_int_hex(), [](const std::string& t) { return from_chars_value<int>(t, 16); });
}

// --- str_to_int64 / str_to_uint64 ------------------------------------------------------------
void BM_parse_int64_dec_mota(benchmark::State& s) {
  run_parse(s, texts_ll_dec(), [](const std::string& t) {
    return convert::str_to_int64(t.c_str(), static_cast<unsigned int>(t.size()), radix_t::decimal,
                                 false);
  });
}
void BM_parse_int64_dec_strtoll(benchmark::State& s) {
  run_parse(s, texts_ll_dec(),
            [](const std::string& t) { return std::strtoll(t.c_str(), nullptr, 10); });
}
void BM_parse_int64_dec_from_chars(benchmark::State& s) {
  run_parse(s, texts_ll_dec(),
            [](const std::string& t) { return from_chars_value<long long>(t, 10); });
}
void BM_parse_uint64_dec_mota(benchmark::State& s) {
  run_parse(s, texts_ull_dec(), [](const std::string& t) {
    return convert::str_to_uint64(t.c_str(), static_cast<unsigned int>(t.size()), radix_t::decimal,
                                  false);
  });
}
void BM_parse_uint64_dec_strtoull(benchmark::State& s) {
  run_parse(s, texts_ull_dec(),
            [](const std::string& t) { return std::strtoull(t.c_str(), nullptr, 10); });
}
void BM_parse_uint64_dec_from_chars(benchmark::State& s) {
  run_parse(s, texts_ull_dec(),
            [](const std::string& t) { return from_chars_value<unsigned long long>(t, 10); });
}
void BM_parse_uint64_hex_mota(benchmark::State& s) {
  run_parse(s, texts_ull_hex(), [](const std::string& t) {
    return convert::str_to_uint64(t.c_str(), static_cast<unsigned int>(t.size()),
                                  radix_t::hexadecimal, false);
  });
}
void BM_parse_uint64_hex_strtoull(benchmark::State& s) {
  run_parse(s, texts_ull_hex(),
            [](const std::string& t) { return std::strtoull(t.c_str(), nullptr, 16); });
}
void BM_parse_uint64_hex_from_chars(benchmark::State& s) {
  run_parse(s, texts_ull_hex(),
            [](const std::string& t) { return from_chars_value<unsigned long long>(t, 16); });
}

BENCHMARK(BM_parse_int_dec_mota);
BENCHMARK(BM_parse_int_dec_mota_size0);
BENCHMARK(BM_parse_int_dec_strtol);
BENCHMARK(BM_parse_int_dec_from_chars);
BENCHMARK(BM_parse_int_hex_mota);
BENCHMARK(BM_parse_int_hex_strtol);
BENCHMARK(BM_parse_int_hex_from_chars);
BENCHMARK(BM_parse_int64_dec_mota);
BENCHMARK(BM_parse_int64_dec_strtoll);
BENCHMARK(BM_parse_int64_dec_from_chars);
BENCHMARK(BM_parse_uint64_dec_mota);
BENCHMARK(BM_parse_uint64_dec_strtoull);
BENCHMARK(BM_parse_uint64_dec_from_chars);
BENCHMARK(BM_parse_uint64_hex_mota);
BENCHMARK(BM_parse_uint64_hex_strtoull);
BENCHMARK(BM_parse_uint64_hex_from_chars);

// --- integer to text -------------------------------------------------------------------------
template <typename T>
std::vector<T> make_values() {
  std::mt19937_64 rng(7);
  std::vector<T> values;
  for (int i = 0; i < text_count; ++i) {
    T v = static_cast<T>(static_cast<unsigned long long>(rng()) >> (rng() % (sizeof(T) * 8)));
    values.push_back((i & 1) ? static_cast<T>(-(v / 2)) : v);
  }
  return values;
}

template <typename T, typename F>
void run_format(benchmark::State& state, F format) {
  static const std::vector<T> values = make_values<T>();
  char buffer[80];
  for (auto _ : state) {
    for (T v : values) {
      format(v, buffer);
      benchmark::DoNotOptimize(buffer);
      benchmark::ClobberMemory();
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<long long>(values.size()));
}

void BM_format_int_ltoa(benchmark::State& s) {
  run_format<int>(s, [](int v, char* b) { convert::ltoa(v, b, 10); });
}
void BM_format_int_to_chars(benchmark::State& s) {
  run_format<int>(s, [](int v, char* b) { *std::to_chars(b, b + 79, v).ptr = 0; });
}
void BM_format_int_snprintf(benchmark::State& s) {
  run_format<int>(s, [](int v, char* b) { std::snprintf(b, 80, "%d", v); });
}
void BM_format_int64_lltoa(benchmark::State& s) {
  run_format<long long>(s, [](long long v, char* b) { convert::lltoa(v, b, 10); });
}
void BM_format_int64_to_chars(benchmark::State& s) {
  run_format<long long>(s, [](long long v, char* b) { *std::to_chars(b, b + 79, v).ptr = 0; });
}
void BM_format_int64_snprintf(benchmark::State& s) {
  run_format<long long>(s, [](long long v, char* b) { std::snprintf(b, 80, "%lld", v); });
}
void BM_format_int64_hex_lltoa(benchmark::State& s) {
  run_format<long long>(s, [](long long v, char* b) { convert::lltoa(v, b, 16); });
}
void BM_format_int64_hex_to_chars(benchmark::State& s) {
  run_format<long long>(s, [](long long v, char* b) { *std::to_chars(b, b + 79, v, 16).ptr = 0; });
}

BENCHMARK(BM_format_int_ltoa);
BENCHMARK(BM_format_int_to_chars);
BENCHMARK(BM_format_int_snprintf);
BENCHMARK(BM_format_int64_lltoa);
BENCHMARK(BM_format_int64_to_chars);
BENCHMARK(BM_format_int64_snprintf);
BENCHMARK(BM_format_int64_hex_lltoa);
BENCHMARK(BM_format_int64_hex_to_chars);

// --- code pages ------------------------------------------------------------------------------
// About 4 KB of text: mostly ASCII with accented letters for 1252, all Chinese for 936.
std::string cp1252_text() {
  std::string s;
  while (s.size() < 4096)
    s += "Caf\xE9 cr\xE8me br\xFBl\xE9\x65 \x80 9,50 \x96 na\xEFve fa\xE7\x61\x64\x65. ";
  return s;
}
std::string cp936_text() {
  std::string s;
  while (s.size() < 4096)
    s += "\xD6\xD0\xCE\xC4\xB1\xE0\xC2\xEB\xD7\xAA\xBB\xBB\xB2\xE2\xCA\xD4";
  return s;
}

// The peer's conversion on an open descriptor: reset its state, convert into a buffer sized to
// the input and grown on E2BIG.
std::string cached_iconv(iconv_t cd, const std::string& input) {
  iconv(cd, nullptr, nullptr, nullptr, nullptr);
  std::string out(input.size(), '\0');
  char* in = const_cast<char*>(input.data());
  std::size_t in_left = input.size();
  std::size_t written = 0;
  while (in_left > 0) {
    char* o = &out[0] + written;
    std::size_t o_left = out.size() - written;
    const std::size_t r = iconv(cd, &in, &in_left, &o, &o_left);
    written = static_cast<std::size_t>(o - out.data());
    if (r == static_cast<std::size_t>(-1)) {
      if (errno != E2BIG) break;
      out.resize(out.size() + 2 * in_left);
    }
  }
  out.resize(written);
  return out;
}

// The same work with bare iconv: open, convert, close.
std::string bare_iconv(const std::string& input, const char* from) {
  iconv_t cd = iconv_open("UTF-8", from);
  std::string out = cached_iconv(cd, input);
  iconv_close(cd);
  return out;
}

void run_code_page(benchmark::State& state, const std::string& input, bool bare,
                   mota::strings::code_page::encoding_type type, const char* name) {
  const mota::strings::code_page page(type);
  for (auto _ : state) {
    if (bare) {
      benchmark::DoNotOptimize(bare_iconv(input, name));
    } else {
      benchmark::DoNotOptimize(page.as_utf8(input));
    }
  }
  state.SetBytesProcessed(state.iterations() * static_cast<long long>(input.size()));
}

void BM_as_utf8_1252_mota(benchmark::State& s) {
  static const std::string in = cp1252_text();
  run_code_page(s, in, false, mota::strings::code_page::windows_1252, "CP1252");
}
void BM_as_utf8_1252_iconv(benchmark::State& s) {
  static const std::string in = cp1252_text();
  run_code_page(s, in, true, mota::strings::code_page::windows_1252, "CP1252");
}
void BM_as_utf8_936_mota(benchmark::State& s) {
  static const std::string in = cp936_text();
  run_code_page(s, in, false, mota::strings::code_page::gbk, "GBK");
}
void BM_as_utf8_936_iconv(benchmark::State& s) {
  static const std::string in = cp936_text();
  run_code_page(s, in, true, mota::strings::code_page::gbk, "GBK");
}

BENCHMARK(BM_as_utf8_1252_mota);
BENCHMARK(BM_as_utf8_1252_iconv);
BENCHMARK(BM_as_utf8_936_mota);
BENCHMARK(BM_as_utf8_936_iconv);

// Short strings, 64 bytes each, converted one call per string. The peer keeps one descriptor
// open for the whole run, resets its state before each string and returns a fresh string, as
// the library's interface has to.

// Pieces of up to 64 bytes; UTF-8 text is cut only between characters.
using pieces_t = std::vector<mota::strings::ustring8>;
pieces_t short_pieces(const std::string& text, bool utf8) {
  pieces_t pieces;
  std::size_t at = 0;
  while (at + 64 <= text.size()) {
    std::size_t length = 64;
    while (utf8 && (static_cast<unsigned char>(text[at + length]) & 0xC0) == 0x80)
      --length;
    pieces.emplace_back(text.substr(at, length));
    at += length;
  }
  return pieces;
}

void run_short_pieces(benchmark::State& state, const pieces_t& pieces, bool peer, bool to_utf8,
                      mota::strings::code_page::encoding_type type, const char* name) {
  const mota::strings::code_page page(type);
  iconv_t cd = to_utf8 ? iconv_open("UTF-8", name) : iconv_open(name, "UTF-8");
  for (auto _ : state) {
    for (const auto& piece : pieces) {
      if (peer) {
        benchmark::DoNotOptimize(cached_iconv(cd, piece));
      } else if (to_utf8) {
        benchmark::DoNotOptimize(page.as_utf8(piece));
      } else {
        benchmark::DoNotOptimize(page.encode(piece));
      }
    }
  }
  iconv_close(cd);
  long long bytes = 0;
  for (const auto& piece : pieces)
    bytes += static_cast<long long>(piece.size());
  state.SetBytesProcessed(state.iterations() * bytes);
}

const pieces_t& cp1252_pieces() {
  static const auto pieces = short_pieces(cp1252_text(), false);
  return pieces;
}
// The CP1252 text made UTF-8, for encode.
const pieces_t& utf8_pieces() {
  static const auto pieces = [] {
    const mota::strings::code_page page(mota::strings::code_page::windows_1252);
    return short_pieces(page.as_utf8(cp1252_text()), true);
  }();
  return pieces;
}

void BM_as_utf8_1252_64_mota(benchmark::State& s) {
  run_short_pieces(s, cp1252_pieces(), false, true, mota::strings::code_page::windows_1252,
                   "CP1252");
}
void BM_as_utf8_1252_64_iconv_cached(benchmark::State& s) {
  run_short_pieces(s, cp1252_pieces(), true, true, mota::strings::code_page::windows_1252,
                   "CP1252");
}
void BM_encode_1252_64_mota(benchmark::State& s) {
  run_short_pieces(s, utf8_pieces(), false, false, mota::strings::code_page::windows_1252,
                   "CP1252");
}
void BM_encode_1252_64_iconv_cached(benchmark::State& s) {
  run_short_pieces(s, utf8_pieces(), true, false, mota::strings::code_page::windows_1252, "CP1252");
}

BENCHMARK(BM_as_utf8_1252_64_mota);
BENCHMARK(BM_as_utf8_1252_64_iconv_cached);
BENCHMARK(BM_encode_1252_64_mota);
BENCHMARK(BM_encode_1252_64_iconv_cached);

}  // namespace
