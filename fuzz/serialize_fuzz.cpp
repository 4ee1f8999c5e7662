// Arbitrary bytes read as text, binary and labeled buffers through read sequences chosen by the
// input, plus round trips of input-chosen values through both encodings. Only the documented
// exception may escape: std::out_of_range from text reads beyond the content and from labeled
// parsing.
#include <mota/serialization/labeled_text_buffer.hpp>
#include <mota/serialization/serialize_binary_buf.hpp>
#include <mota/serialization/serialize_text_buf.hpp>

#include <fuzzer/FuzzedDataProvider.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

using mota::serialization::labeled_text_buffer;
using mota::serialization::serialize_binary_buf;
using mota::serialization::serialize_buffer;
using mota::serialization::serialize_text_buf;

void check(bool condition) {
  if (!condition) std::abort();
}

// Reads in an order chosen by the input. Nothing may read outside the content: a string or
// buffer never holds more bytes than the content.
void read_sequence(const serialize_buffer& buf, FuzzedDataProvider& input, bool text) {
  const std::size_t size = buf.as_str().size();
  for (int step = 0; step < 4096 && input.remaining_bytes() > 0; ++step) {
    const int operation = input.ConsumeIntegralInRange<int>(0, 15);
    try {
      switch (operation) {
        case 0:
          buf.read_int8();
          break;
        case 1:
          buf.read_int16();
          break;
        case 2:
          buf.read_int32();
          break;
        case 3:
          buf.read_int64();
          break;
        case 4:
          buf.read_uint8();
          break;
        case 5:
          buf.read_uint16();
          break;
        case 6:
          buf.read_uint32();
          break;
        case 7:
          buf.read_uint64();
          break;
        case 8:
          buf.read_float();
          break;
        case 9:
          buf.read_double();
          break;
        case 10:
          check(buf.read_string().size() <= size);
          break;
        case 11: {
          std::unique_ptr<serialize_buffer> inner(buf.read_buffer());
          if (inner) check(inner->as_str().size() <= size);
          check(inner != nullptr || !text);
          break;
        }
        case 12:
          buf.reset_read();
          break;
        case 13: {
          std::unique_ptr<serialize_buffer> copy(buf.clone());
          check(copy->at_end() == buf.at_end());
          break;
        }
        default:
          if (buf.at_end() && !text) check(buf.read_int32() == 0);
          break;
      }
    } catch (const std::out_of_range&) {
      // The text reader may throw on any read from beyond the content; the binary reader only
      // on a string or buffer whose length prefix is cut short.
      check(text || operation == 10 || operation == 11);
    }
  }
}

// Values chosen by the input go through both encodings and must come back.
void round_trip(FuzzedDataProvider& input) {
  serialize_binary_buf binary;
  serialize_text_buf text;
  struct item {
    int kind;
    long long integer;
    double floating;
    std::string bytes;
  };
  item items[32];
  std::size_t count = 0;
  while (count < 32 && input.remaining_bytes() > 0) {
    item& it = items[count++];
    it.kind = input.ConsumeIntegralInRange<int>(0, 4);
    switch (it.kind) {
      case 0:
        it.integer = input.ConsumeIntegral<int>();
        binary.append_int32(static_cast<int>(it.integer));
        text.append_int32(static_cast<int>(it.integer));
        break;
      case 1:
        it.integer = input.ConsumeIntegral<long long>();
        binary.append_int64(it.integer);
        text.append_int64(it.integer);
        break;
      case 2:
        it.integer = input.ConsumeIntegral<signed char>();
        binary.append_int8(static_cast<signed char>(it.integer));
        text.append_int8(static_cast<signed char>(it.integer));
        break;
      case 3:
        it.floating = input.ConsumeFloatingPoint<double>();
        binary.append_double(it.floating);
        text.append_double(it.floating);
        break;
      default:
        it.bytes = input.ConsumeRandomLengthString(64);
        binary.append_string(it.bytes);
        text.append_string(it.bytes);
        break;
    }
  }
  for (std::size_t i = 0; i < count; ++i) {
    const item& it = items[i];
    switch (it.kind) {
      case 0:
        check(binary.read_int32() == it.integer && text.read_int32() == it.integer);
        break;
      case 1:
        check(binary.read_int64() == it.integer && text.read_int64() == it.integer);
        break;
      case 2:
        check(binary.read_int8() == it.integer && text.read_int8() == it.integer);
        break;
      case 3: {
        const double b = binary.read_double();
        const double t = text.read_double();
        check(std::memcmp(&b, &it.floating, sizeof b) == 0);
        if (std::isnormal(it.floating)) check(t == it.floating);
        break;
      }
      default:
        check(binary.read_string() == it.bytes && text.read_string() == it.bytes);
        break;
    }
  }
  check(binary.at_end() && text.at_end());
}

void labeled(const std::string& content) {
  labeled_text_buffer tree;
  try {
    tree.assign(content);
  } catch (const std::out_of_range&) {
  }
  // Whatever was read writes out text that reads back to the same text.
  const std::string written = tree.as_str();
  const labeled_text_buffer again(written);
  check(again.as_str() == written);
  std::unique_ptr<labeled_text_buffer> copy(tree.clone());
  copy->overlay(again);
  check(copy->as_str() == written);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const int mode = input.ConsumeIntegralInRange<int>(0, 3);
  if (mode == 3) {
    round_trip(input);
    return 0;
  }
  const std::string content = input.ConsumeRandomLengthString(size);
  if (mode == 0) {
    const serialize_text_buf buf(content);
    read_sequence(buf, input, true);
  } else if (mode == 1) {
    const serialize_binary_buf buf(content);
    read_sequence(buf, input, false);
  } else {
    labeled(content);
  }
  return 0;
}
