// Serialize buffers against their lower bounds: the binary encoding against appending the same
// bytes with memcpy into a std::string, the text encoding against std::to_chars/from_chars of
// the same values with the same separators. Writing appends one million mixed values (ints,
// doubles, short strings) to an empty buffer; reading reads them back from a buffer written
// beforehand. The labeled buffer is timed writing and parsing
// a tree of 10k labels in three levels.
#include <mota/serialization/labeled_text_buffer.hpp>
#include <mota/serialization/serialize_binary_buf.hpp>
#include <mota/serialization/serialize_text_buf.hpp>
#include <mota/types/variant.hpp>

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {

using mota::serialization::labeled_text_buffer;
using mota::serialization::serialize_binary_buf;
using mota::serialization::serialize_text_buf;

constexpr std::size_t value_count = 1000000;

// Values in a fixed rotation: int32, double, string, int64.
struct mixed_values {
  std::vector<int> ints;
  std::vector<double> doubles;
  std::vector<std::string> strings;
  std::vector<long long> longs;
};

const mixed_values& values() {
  static const mixed_values data = [] {
    mixed_values v;
    std::mt19937_64 random(42);
    std::uniform_int_distribution<int> ints(-1000000, 1000000);
    std::uniform_real_distribution<double> doubles(-1e6, 1e6);
    std::uniform_int_distribution<long long> longs(-(1LL << 60), 1LL << 60);
    std::uniform_int_distribution<int> lengths(3, 12);
    for (std::size_t i = 0; i < value_count / 4; ++i) {
      v.ints.push_back(ints(random));
      v.doubles.push_back(doubles(random));
      v.strings.emplace_back(static_cast<std::size_t>(lengths(random)),
                             static_cast<char>('a' + i % 26));
      v.longs.push_back(longs(random));
    }
    return v;
  }();
  return data;
}

// ---------------------------------------------------------------------------------------------
// Writers: the same mixed values appended to an empty buffer

template <class Buffer>
void write_all(Buffer& buf) {
  const mixed_values& v = values();
  for (std::size_t i = 0; i < v.ints.size(); ++i) {
    buf.append_int32(v.ints[i]);
    buf.append_double(v.doubles[i], 17);
    buf.append_string(v.strings[i]);
    buf.append_int64(v.longs[i]);
  }
}

template <class T>
void put(std::string& out, const T& value) {
  const std::size_t at = out.size();
  out.resize(at + sizeof value);
  std::memcpy(&out[at], &value, sizeof value);
}

void memcpy_write_all(std::string& out) {
  const mixed_values& v = values();
  for (std::size_t i = 0; i < v.ints.size(); ++i) {
    put(out, v.ints[i]);
    put(out, v.doubles[i]);
    put(out, static_cast<std::uint32_t>(v.strings[i].size()));
    out += v.strings[i];
    put(out, v.longs[i]);
  }
}

template <class T, class... Format>
void put_text(std::string& out, T value, Format... format) {
  char text[64];
  const auto result = std::to_chars(text, text + sizeof text, value, format...);
  out.append(text, result.ptr);
  out.push_back('\x01');
}

void charconv_write_all(std::string& out) {
  const mixed_values& v = values();
  for (std::size_t i = 0; i < v.ints.size(); ++i) {
    put_text(out, v.ints[i]);
    put_text(out, v.doubles[i], std::chars_format::general, 17);
    put_text(out, v.strings[i].size());
    out += v.strings[i];
    out.push_back('\x01');
    put_text(out, v.longs[i]);
  }
}

template <class Buffer>
void BM_Write(benchmark::State& state) {
  std::size_t bytes = 0;
  for (auto _ : state) {
    Buffer buf;
    write_all(buf);
    bytes = buf.as_str().size();
    benchmark::DoNotOptimize(&buf);
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * value_count));
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}

template <void (*Write)(std::string&)>
void BM_BoundWrite(benchmark::State& state) {
  std::size_t bytes = 0;
  for (auto _ : state) {
    std::string out;
    Write(out);
    bytes = out.size();
    benchmark::DoNotOptimize(out.data());
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * value_count));
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}

BENCHMARK(BM_Write<serialize_binary_buf>)->Name("BM_BinaryWrite")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BoundWrite<memcpy_write_all>)
    ->Name("BM_BinaryMemcpyWrite")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Write<serialize_text_buf>)->Name("BM_TextWrite")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BoundWrite<charconv_write_all>)
    ->Name("BM_TextCharconvWrite")
    ->Unit(benchmark::kMillisecond);

// ---------------------------------------------------------------------------------------------
// Readers: the values written above read back in order, strings as fresh std::string objects

template <class Buffer>
void BM_Read(benchmark::State& state) {
  Buffer buf;
  write_all(buf);
  const mixed_values& v = values();
  for (auto _ : state) {
    buf.reset_read();
    long long sum = 0;
    for (std::size_t i = 0; i < v.ints.size(); ++i) {
      sum += buf.read_int32();
      sum += static_cast<long long>(buf.read_double());
      sum += static_cast<long long>(buf.read_string().size());
      sum += buf.read_int64();
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * value_count));
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * buf.as_str().size()));
}

template <class T>
T get(const std::string& in, std::size_t& at) {
  T value;
  std::memcpy(&value, in.data() + at, sizeof value);
  at += sizeof value;
  return value;
}

void BM_BinaryMemcpyRead(benchmark::State& state) {
  std::string out;
  memcpy_write_all(out);
  const mixed_values& v = values();
  for (auto _ : state) {
    long long sum = 0;
    std::size_t at = 0;
    for (std::size_t i = 0; i < v.ints.size(); ++i) {
      sum += get<int>(out, at);
      sum += static_cast<long long>(get<double>(out, at));
      const auto length = get<std::uint32_t>(out, at);
      sum += static_cast<long long>(out.substr(at, length).size());
      at += length;
      sum += get<long long>(out, at);
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * value_count));
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * out.size()));
}

template <class T>
T get_text(const std::string& in, std::size_t& at) {
  const char* first = in.data() + at;
  const char* end = static_cast<const char*>(std::memchr(first, '\x01', in.size() - at));
  T value{};
  std::from_chars(first, end, value);
  at = static_cast<std::size_t>(end - in.data()) + 1;
  return value;
}

void BM_TextCharconvRead(benchmark::State& state) {
  std::string out;
  charconv_write_all(out);
  const mixed_values& v = values();
  for (auto _ : state) {
    long long sum = 0;
    std::size_t at = 0;
    for (std::size_t i = 0; i < v.ints.size(); ++i) {
      sum += get_text<int>(out, at);
      sum += static_cast<long long>(get_text<double>(out, at));
      const auto length = get_text<std::uint32_t>(out, at);
      sum += static_cast<long long>(out.substr(at, length).size());
      at += length + 1;
      sum += get_text<long long>(out, at);
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * value_count));
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * out.size()));
}

BENCHMARK(BM_Read<serialize_binary_buf>)->Name("BM_BinaryRead")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BinaryMemcpyRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Read<serialize_text_buf>)->Name("BM_TextRead")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TextCharconvRead)->Unit(benchmark::kMillisecond);

// ---------------------------------------------------------------------------------------------
// Labeled: 10 groups of 10 groups of 100 values, 10,110 labels in all.

labeled_text_buffer labeled_tree() {
  labeled_text_buffer tree;
  for (int a = 0; a < 10; ++a) {
    labeled_text_buffer& outer = tree.create_group("section" + std::to_string(a));
    for (int b = 0; b < 10; ++b) {
      labeled_text_buffer& inner = outer.create_group("part" + std::to_string(b));
      for (int c = 0; c < 100; ++c) {
        inner.add_value("key" + std::to_string(c), mota::types::variant(a * 10000 + b * 100 + c));
      }
    }
  }
  return tree;
}

void BM_LabeledWrite(benchmark::State& state) {
  const labeled_text_buffer tree = labeled_tree();
  std::size_t bytes = 0;
  for (auto _ : state) {
    const std::string text = tree.as_str();
    bytes = text.size();
    benchmark::DoNotOptimize(text.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}
BENCHMARK(BM_LabeledWrite)->Unit(benchmark::kMillisecond);

void BM_LabeledRead(benchmark::State& state) {
  const std::string text = labeled_tree().as_str();
  for (auto _ : state) {
    labeled_text_buffer tree(text);
    benchmark::DoNotOptimize(tree.is_empty());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_LabeledRead)->Unit(benchmark::kMillisecond);

}  // namespace
