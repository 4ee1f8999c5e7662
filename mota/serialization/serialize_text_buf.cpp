#include <mota/serialization/serialize_text_buf.hpp>

#include <mota/generic/convert/_private/decimal_text.hpp>
#include <mota/generic/convert/str_to_float.hpp>
#include <mota/generic/convert/str_to_x.hpp>
#include <mota/serialization/_private/content_growth.hpp>
#include <mota/serialization/_private/decimal_token.hpp>
#include <mota/serialization/_private/read_position.hpp>
#include <mota/serialization/_private/text_reader.hpp>
#include <mota/strings/ustring.hpp>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <locale>
#include <sstream>
#include <type_traits>
#include <utility>

namespace MOTA_2_18 {
namespace serialization {

namespace convert = generic::convert;
using _private::advance_position;
using _private::reserve_more;
using _private::throw_beyond_content;

namespace {

// The parsers detect the radix from the text ("0x", "0b", a leading "0").
constexpr types::radix_t::base detect_radix = types::radix_t::detect;

// Enough for the longest decimal of a 64-bit value, its sign and the terminating zero.
constexpr std::size_t number_buffer_size = 24;

// No double has more significant decimal digits than this, so any larger precision writes the
// same text.
constexpr unsigned int max_useful_precision = 800;

// Appends the decimal text of the integer `value` and the separator with one append.
template <typename T>
void append_decimal(std::string& content, T value) {
  namespace text_of = generic::convert::_private;
  char text[number_buffer_size];
  char* end;
  if constexpr (std::is_signed_v<T>)
    end = text_of::write_signed_decimal(value, text);
  else
    end = text_of::write_decimal(value, text);
  *end++ = serialize_text_buf::separator;
  reserve_more(content, number_buffer_size);
  content.append(text, static_cast<std::size_t>(end - text));
}

// True when the program's global locale is the classic one. Copying the global locale costs
// little when it is the classic one; the classic locale itself is looked up once.
bool global_locale_is_classic() {
  static const std::locale classic = std::locale::classic();
  return std::locale() == classic;
}

// Appends `value` as a std::stringstream with `precision` writes it in default notation, then
// the separator. With the classic global locale that text equals printf's "%.*g", which
// std::to_chars gives without building a stream; any other global locale goes through the
// stream itself. The locale is asked on every call: the program may change it between calls.
void append_floating(std::string& content, double value, unsigned int precision) {
  if (global_locale_is_classic()) {
    char text[max_useful_precision + 32];
    const int digits = static_cast<int>(std::min(precision, max_useful_precision));
    const auto result =
        std::to_chars(text, text + sizeof text - 1, value, std::chars_format::general, digits);
    if (result.ec == std::errc()) {
      *result.ptr = serialize_text_buf::separator;
      const auto length = static_cast<std::size_t>(result.ptr - text) + 1;
      reserve_more(content, length);
      content.append(text, length);
      return;
    }
  }
  std::ostringstream stream;
  stream.precision(static_cast<std::streamsize>(precision));
  stream << value;
  const std::string text = stream.str();
  reserve_more(content, text.size() + 1);
  content += text;
  content.push_back(serialize_text_buf::separator);
}

// Parses a plain decimal token ("-12.5e3" and the like) without building a stream. With the
// classic global locale such a token gives exactly what generic::convert's stream extraction
// gives: both round correctly. Anything else (blanks, "+", "inf", a trailing rest, overflow,
// subnormal results, another global locale) returns false and is left to generic::convert.
// A token that from_chars takes whole and that starts with a digit, or with "-" and a digit,
// holds nothing but digits, one point and an exponent: "inf", "nan" and their signed forms
// start otherwise and go to the stream.
template <class T>
bool parse_plain_decimal(const char* token, std::size_t length, T& value) {
  if (length == 0 || length > 64) return false;
  const std::size_t first = token[0] == '-' ? 1 : 0;
  if (first >= length || static_cast<unsigned char>(token[first] - '0') > 9) return false;
  const auto result = std::from_chars(token, token + length, value);
  if (result.ec != std::errc() || result.ptr != token + length) return false;
  if (value != 0 && !std::isnormal(value)) return false;
  return global_locale_is_classic();
}

// An integer token: read in place when it is a plain decimal number, otherwise parsed by
// `parse`, one of generic::convert's str_to_* functions.
template <typename T>
inline T parse_integer(const char* token, std::size_t length,
                       T (*parse)(const char*, unsigned int, types::radix_t::base, bool)) {
  T value;
  if (_private::read_decimal_token(token, length, value)) return value;
  return parse(token, static_cast<unsigned int>(length), detect_radix, false);
}

}  // namespace

serialize_text_buf::serialize_text_buf() : m_read_pos(0) {}

serialize_text_buf::serialize_text_buf(const serialize_text_buf& other)
    : serialize_buffer(other), m_content(other.m_content), m_read_pos(other.m_read_pos) {}

serialize_text_buf::serialize_text_buf(const serialize_buffer& other)
    : m_content(other.as_str()), m_read_pos(0) {}

serialize_text_buf::serialize_text_buf(const std::string& bytes)
    : m_content(bytes), m_read_pos(0) {}

serialize_text_buf& serialize_text_buf::operator=(const serialize_text_buf& other) {
  m_content = other.m_content;
  m_read_pos = other.m_read_pos;
  return *this;
}

serialize_text_buf::serialize_text_buf(serialize_text_buf&& other) noexcept
    : serialize_buffer(other),
      m_content(std::move(other.m_content)),
      m_read_pos(other.m_read_pos) {}

serialize_text_buf& serialize_text_buf::operator=(serialize_text_buf&& other) noexcept {
  m_content = std::move(other.m_content);
  m_read_pos = other.m_read_pos;
  return *this;
}

serialize_text_buf::~serialize_text_buf() = default;

void serialize_text_buf::assign(const serialize_buffer& other) {
  if (&other == this) return;
  if (const auto* same = dynamic_cast<const serialize_text_buf*>(&other)) {
    m_content = same->m_content;
  } else {
    m_content = other.as_str();
  }
}

void serialize_text_buf::assign(const std::string& bytes) {
  m_content = bytes;
}

void serialize_text_buf::assign(const char* bytes, int length) {
  if (bytes == nullptr || length <= 0) {
    m_content.clear();
  } else {
    m_content.assign(bytes, static_cast<std::size_t>(length));
  }
}

std::string serialize_text_buf::as_str() const {
  return m_content;
}

void serialize_text_buf::append_int8(const signed char& value) {
  append_int32(value);
}

void serialize_text_buf::append_int16(const short& value) {
  append_int32(value);
}

void serialize_text_buf::append_int32(const int& value) {
  append_decimal(m_content, value);
}

void serialize_text_buf::append_int64(const long long& value) {
  append_decimal(m_content, value);
}

void serialize_text_buf::append_uint8(const unsigned char& value) {
  append_uint32(value);
}

void serialize_text_buf::append_uint16(const unsigned short& value) {
  append_uint32(value);
}

void serialize_text_buf::append_uint32(const unsigned int& value) {
  append_decimal(m_content, value);
}

void serialize_text_buf::append_uint64(const unsigned long long& value) {
  append_decimal(m_content, value);
}

void serialize_text_buf::append_float(const float& value, const unsigned int& precision) {
  append_floating(m_content, static_cast<double>(value), precision);
}

void serialize_text_buf::append_double(const double& value, const unsigned int& precision) {
  append_floating(m_content, value, precision);
}

void serialize_text_buf::append_string(const std::string& value) {
  reserve_more(m_content, number_buffer_size + value.size() + 1);
  append_decimal(m_content, static_cast<unsigned long long>(value.size()));
  m_content += value;
  m_content.push_back(separator);
}

void serialize_text_buf::append_buffer(const serialize_buffer& other) {
  // as_str() copies first, so appending a buffer to itself is safe.
  append_string(other.as_str());
}

namespace _private {

bool next_text_token(const char* content, std::size_t size, std::uint32_t& position,
                     const char*& token, std::size_t& length) {
  if (position == serialize_buffer::exhausted) return false;
  const std::size_t at = position;
  if (at > size) throw_beyond_content(at, size);
  token = content + at;
  const void* found = std::memchr(token, serialize_text_buf::separator, size - at);
  if (found == nullptr) {
    length = size - at;
    position = serialize_buffer::exhausted;
  } else {
    length = static_cast<std::size_t>(static_cast<const char*>(found) - token);
    position = advance_position(position, length + 1);
  }
  return true;
}

bool take_text_string(const char* content, std::size_t size, std::uint32_t& position,
                      std::size_t& offset, std::size_t& length) {
  const char* token = nullptr;
  std::size_t digits = 0;
  if (!next_text_token(content, size, position, token, digits)) return false;
  const std::uint32_t announced =
      digits == 0 ? 0 : parse_integer<std::uint32_t>(token, digits, convert::str_to_uint32);
  if (position == serialize_buffer::exhausted) return false;
  // The length token ended at a separator inside the content, so the position is within it.
  offset = position;
  length = std::min<std::size_t>(announced, size - offset);
  // Past the bytes and their trailing separator, wherever that lands.
  position = advance_position(position, static_cast<std::uint64_t>(announced) + 1);
  return true;
}

}  // namespace _private

bool serialize_text_buf::next_token(const char*& token, std::size_t& length) const {
  return _private::next_text_token(m_content.data(), m_content.size(), m_read_pos, token, length);
}

// The number reads: zero when exhausted, otherwise the token parsed by generic::convert. An
// empty token is 0 for every parser; it is not handed on because a length of 0 tells the signed
// parsers to measure a zero-terminated text.

signed char serialize_text_buf::read_int8() const {
  const char* token = nullptr;
  std::size_t length = 0;
  if (!next_token(token, length) || length == 0) return 0;
  return parse_integer<signed char>(token, length, convert::str_to_int8);
}

short serialize_text_buf::read_int16() const {
  const char* token = nullptr;
  std::size_t length = 0;
  if (!next_token(token, length) || length == 0) return 0;
  return parse_integer<short>(token, length, convert::str_to_int16);
}

int serialize_text_buf::read_int32() const {
  const char* token = nullptr;
  std::size_t length = 0;
  if (!next_token(token, length) || length == 0) return 0;
  return parse_integer<std::int32_t>(token, length, convert::str_to_int32);
}

long long serialize_text_buf::read_int64() const {
  const char* token = nullptr;
  std::size_t length = 0;
  if (!next_token(token, length) || length == 0) return 0;
  return parse_integer<long long>(token, length, convert::str_to_int64);
}

unsigned char serialize_text_buf::read_uint8() const {
  const char* token = nullptr;
  std::size_t length = 0;
  if (!next_token(token, length) || length == 0) return 0;
  return parse_integer<unsigned char>(token, length, convert::str_to_uint8);
}

unsigned short serialize_text_buf::read_uint16() const {
  const char* token = nullptr;
  std::size_t length = 0;
  if (!next_token(token, length) || length == 0) return 0;
  return parse_integer<unsigned short>(token, length, convert::str_to_uint16);
}

unsigned int serialize_text_buf::read_uint32() const {
  const char* token = nullptr;
  std::size_t length = 0;
  if (!next_token(token, length) || length == 0) return 0;
  return parse_integer<std::uint32_t>(token, length, convert::str_to_uint32);
}

unsigned long long serialize_text_buf::read_uint64() const {
  const char* token = nullptr;
  std::size_t length = 0;
  if (!next_token(token, length) || length == 0) return 0;
  return parse_integer<unsigned long long>(token, length, convert::str_to_uint64);
}

float serialize_text_buf::read_float() const {
  const char* token = nullptr;
  std::size_t length = 0;
  if (!next_token(token, length)) return 0.0f;
  float value = 0.0f;
  if (parse_plain_decimal(token, length, value)) return value;
  return convert::str_to_float(strings::ustring8(token, length));
}

double serialize_text_buf::read_double() const {
  const char* token = nullptr;
  std::size_t length = 0;
  if (!next_token(token, length)) return 0.0;
  double value = 0.0;
  if (parse_plain_decimal(token, length, value)) return value;
  return convert::str_to_double(strings::ustring8(token, length));
}

bool serialize_text_buf::take_string(std::size_t& offset, std::size_t& length) const {
  return _private::take_text_string(m_content.data(), m_content.size(), m_read_pos, offset, length);
}

std::string serialize_text_buf::read_string() const {
  std::size_t offset = 0;
  std::size_t length = 0;
  if (!take_string(offset, length)) return std::string();
  return m_content.substr(offset, length);
}

serialize_text_buf* serialize_text_buf::read_buffer() const {
  const std::string bytes = read_string();
  auto* buffer = new serialize_text_buf(bytes);
  buffer->delete_on_zero(true);
  return buffer;
}

bool serialize_text_buf::at_end() const {
  return _private::text_at_end(m_content.size(), m_read_pos);
}

void serialize_text_buf::reset_read() const {
  m_read_pos = 0;
}

serialize_text_buf* serialize_text_buf::create() const {
  auto* buffer = new serialize_text_buf();
  buffer->delete_on_zero(true);
  return buffer;
}

serialize_text_buf* serialize_text_buf::clone() const {
  auto* buffer = new serialize_text_buf(*this);
  buffer->delete_on_zero(true);
  return buffer;
}

}  // namespace serialization
}  // namespace MOTA_2_18
