#include <mota/serialization/serialize_binary_buf.hpp>

#include <mota/serialization/_private/read_position.hpp>

#include <algorithm>
#include <cstring>
#include <utility>

namespace MOTA_2_18 {
namespace serialization {

using _private::advance_position;
using _private::throw_beyond_content;

namespace {

// What at_end() answers, tested in place by the reads, which would otherwise pay a virtual call
// per value.
inline bool exhausted_at(const std::string& content, std::uint32_t position) {
  return position == serialize_buffer::exhausted || position >= content.size();
}

// The value's bytes in the machine's own order: the bytes generic::convert's *_to_bin_str
// routines give, appended in place rather than through a temporary string.
template <typename T>
inline void append_native(std::string& content, const T& value) {
  content.append(reinterpret_cast<const char*>(&value), sizeof value);
}

}  // namespace

serialize_binary_buf::serialize_binary_buf() : m_read_pos(0) {}

serialize_binary_buf::serialize_binary_buf(const serialize_binary_buf& other)
    : serialize_buffer(other), m_content(other.m_content), m_read_pos(other.m_read_pos) {}

serialize_binary_buf::serialize_binary_buf(const serialize_buffer& other)
    : m_content(other.as_str()), m_read_pos(0) {}

serialize_binary_buf::serialize_binary_buf(const std::string& bytes)
    : m_content(bytes), m_read_pos(0) {}

serialize_binary_buf& serialize_binary_buf::operator=(const serialize_binary_buf& other) {
  m_content = other.m_content;
  m_read_pos = other.m_read_pos;
  return *this;
}

serialize_binary_buf::serialize_binary_buf(serialize_binary_buf&& other) noexcept
    : serialize_buffer(other),
      m_content(std::move(other.m_content)),
      m_read_pos(other.m_read_pos) {}

serialize_binary_buf& serialize_binary_buf::operator=(serialize_binary_buf&& other) noexcept {
  m_content = std::move(other.m_content);
  m_read_pos = other.m_read_pos;
  return *this;
}

serialize_binary_buf::~serialize_binary_buf() = default;

void serialize_binary_buf::assign(const serialize_buffer& other) {
  if (&other == this) return;
  if (const auto* same = dynamic_cast<const serialize_binary_buf*>(&other)) {
    m_content = same->m_content;
  } else {
    m_content = other.as_str();
  }
}

void serialize_binary_buf::assign(const std::string& bytes) {
  m_content = bytes;
}

void serialize_binary_buf::assign(const char* bytes, int length) {
  if (bytes == nullptr || length <= 0) {
    m_content.clear();
  } else {
    m_content.assign(bytes, static_cast<std::size_t>(length));
  }
}

std::string serialize_binary_buf::as_str() const {
  return m_content;
}

void serialize_binary_buf::append_int8(const signed char& value) {
  m_content.push_back(static_cast<char>(value));
}

void serialize_binary_buf::append_int16(const short& value) {
  append_native(m_content, value);
}

void serialize_binary_buf::append_int32(const int& value) {
  append_native(m_content, value);
}

void serialize_binary_buf::append_int64(const long long& value) {
  append_native(m_content, value);
}

void serialize_binary_buf::append_uint8(const unsigned char& value) {
  m_content.push_back(static_cast<char>(value));
}

void serialize_binary_buf::append_uint16(const unsigned short& value) {
  append_native(m_content, value);
}

void serialize_binary_buf::append_uint32(const unsigned int& value) {
  append_native(m_content, value);
}

void serialize_binary_buf::append_uint64(const unsigned long long& value) {
  append_native(m_content, value);
}

void serialize_binary_buf::append_float(const float& value, const unsigned int& /*precision*/) {
  append_native(m_content, value);
}

void serialize_binary_buf::append_double(const double& value, const unsigned int& /*precision*/) {
  append_native(m_content, value);
}

void serialize_binary_buf::append_string(const std::string& value) {
  append_native(m_content, static_cast<std::uint32_t>(value.size()));
  m_content += value;
}

void serialize_binary_buf::append_buffer(const serialize_buffer& other) {
  // as_str() copies first, so appending a buffer to itself is safe.
  append_string(other.as_str());
}

signed char serialize_binary_buf::read_int8() const {
  if (exhausted_at(m_content, m_read_pos)) return 0;
  return static_cast<signed char>(m_content[m_read_pos++]);
}

unsigned char serialize_binary_buf::read_uint8() const {
  if (exhausted_at(m_content, m_read_pos)) return 0;
  return static_cast<unsigned char>(m_content[m_read_pos++]);
}

void serialize_binary_buf::read_fixed_slowly(void* value, std::size_t size) const {
  std::memset(value, 0, size);
  if (exhausted_at(m_content, m_read_pos)) return;
  const std::size_t taken = std::min(size, m_content.size() - m_read_pos);
  std::memcpy(value, m_content.data() + m_read_pos, taken);
  m_read_pos = advance_position(m_read_pos, taken);
}

std::string serialize_binary_buf::read_string_slowly() const {
  if (exhausted_at(m_content, m_read_pos)) return std::string();
  const std::size_t start = m_read_pos;
  if (m_content.size() - start < 4) {
    // The length itself is cut short: the position moves past its 4 bytes, beyond the
    // content, and the bytes cannot be taken from there.
    m_read_pos = advance_position(m_read_pos, 4);
    throw_beyond_content(start + 4, m_content.size());
  }
  std::uint32_t length;
  read_fixed_slowly(&length, sizeof length);
  // Content of 4 GiB and more cannot be addressed and reads as exhausted.
  if (m_read_pos == exhausted) return std::string();
  // The position is inside the content here: the length's four bytes were all there.
  const std::size_t at = m_read_pos;
  m_read_pos = advance_position(m_read_pos, length);
  return std::string(m_content.data() + at, std::min<std::size_t>(length, m_content.size() - at));
}

serialize_binary_buf* serialize_binary_buf::read_buffer() const {
  if (exhausted_at(m_content, m_read_pos)) return nullptr;
  const std::string bytes = read_string();
  auto* buffer = new serialize_binary_buf(bytes);
  buffer->delete_on_zero(true);
  return buffer;
}

bool serialize_binary_buf::at_end() const {
  return exhausted_at(m_content, m_read_pos);
}

void serialize_binary_buf::reset_read() const {
  m_read_pos = 0;
}

serialize_binary_buf* serialize_binary_buf::create() const {
  auto* buffer = new serialize_binary_buf();
  buffer->delete_on_zero(true);
  return buffer;
}

serialize_binary_buf* serialize_binary_buf::clone() const {
  auto* buffer = new serialize_binary_buf(*this);
  buffer->delete_on_zero(true);
  return buffer;
}

}  // namespace serialization
}  // namespace MOTA_2_18
