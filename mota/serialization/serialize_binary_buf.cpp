#include <mota/serialization/serialize_binary_buf.hpp>

#include <mota/generic/convert/bin_str.hpp>
#include <mota/serialization/_private/read_position.hpp>

#include <cstring>
#include <utility>

namespace MOTA_2_18 {
namespace serialization {

namespace convert = generic::convert;
using _private::advance_position;
using _private::throw_beyond_content;

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
  m_content += convert::int16_to_bin_str(value);
}

void serialize_binary_buf::append_int32(const int& value) {
  m_content += convert::int32_to_bin_str(value);
}

void serialize_binary_buf::append_int64(const long long& value) {
  m_content += convert::int64_to_bin_str(value);
}

void serialize_binary_buf::append_uint8(const unsigned char& value) {
  m_content.push_back(static_cast<char>(value));
}

void serialize_binary_buf::append_uint16(const unsigned short& value) {
  m_content += convert::uint16_to_bin_str(value);
}

void serialize_binary_buf::append_uint32(const unsigned int& value) {
  m_content += convert::uint32_to_bin_str(value);
}

void serialize_binary_buf::append_uint64(const unsigned long long& value) {
  m_content += convert::uint64_to_bin_str(value);
}

void serialize_binary_buf::append_float(const float& value, const unsigned int& /*precision*/) {
  m_content += convert::float_to_bin_str(value);
}

void serialize_binary_buf::append_double(const double& value, const unsigned int& /*precision*/) {
  m_content += convert::double_to_bin_str(value);
}

void serialize_binary_buf::append_string(const std::string& value) {
  m_content += convert::uint32_to_bin_str(static_cast<unsigned int>(value.size()));
  m_content += value;
}

void serialize_binary_buf::append_buffer(const serialize_buffer& other) {
  // as_str() copies first, so appending a buffer to itself is safe.
  append_string(other.as_str());
}

const char* serialize_binary_buf::take(std::size_t size, char* scratch) const {
  const std::size_t position = m_read_pos;
  const std::size_t left = m_content.size() - position;
  if (left >= size) {
    m_read_pos = advance_position(m_read_pos, size);
    return m_content.data() + position;
  }
  // Fewer bytes than the value needs: decode what is there as if zeros followed.
  std::memset(scratch, 0, size);
  std::memcpy(scratch, m_content.data() + position, left);
  m_read_pos = advance_position(m_read_pos, left);
  return scratch;
}

signed char serialize_binary_buf::read_int8() const {
  if (at_end()) return 0;
  return static_cast<signed char>(m_content[m_read_pos++]);
}

short serialize_binary_buf::read_int16() const {
  if (at_end()) return 0;
  char scratch[sizeof(short)];
  return convert::bin_str_to_int16(take(sizeof scratch, scratch));
}

int serialize_binary_buf::read_int32() const {
  if (at_end()) return 0;
  char scratch[sizeof(int)];
  return convert::bin_str_to_int32(take(sizeof scratch, scratch));
}

long long serialize_binary_buf::read_int64() const {
  if (at_end()) return 0;
  char scratch[sizeof(long long)];
  return convert::bin_str_to_int64(take(sizeof scratch, scratch));
}

unsigned char serialize_binary_buf::read_uint8() const {
  if (at_end()) return 0;
  return static_cast<unsigned char>(m_content[m_read_pos++]);
}

unsigned short serialize_binary_buf::read_uint16() const {
  if (at_end()) return 0;
  char scratch[sizeof(unsigned short)];
  return convert::bin_str_to_uint16(take(sizeof scratch, scratch));
}

unsigned int serialize_binary_buf::read_uint32() const {
  if (at_end()) return 0;
  char scratch[sizeof(unsigned int)];
  return convert::bin_str_to_uint32(take(sizeof scratch, scratch));
}

unsigned long long serialize_binary_buf::read_uint64() const {
  if (at_end()) return 0;
  char scratch[sizeof(unsigned long long)];
  return convert::bin_str_to_uint64(take(sizeof scratch, scratch));
}

float serialize_binary_buf::read_float() const {
  if (at_end()) return 0.0f;
  char scratch[sizeof(float)];
  return convert::bin_str_to_float(take(sizeof scratch, scratch));
}

double serialize_binary_buf::read_double() const {
  if (at_end()) return 0.0;
  char scratch[sizeof(double)];
  return convert::bin_str_to_double(take(sizeof scratch, scratch));
}

std::string serialize_binary_buf::read_string() const {
  if (at_end()) return std::string();
  const std::size_t start = m_read_pos;
  if (m_content.size() - start < 4) {
    // The length itself is cut short: the position moves past its 4 bytes, beyond the
    // content, and the bytes cannot be taken from there.
    m_read_pos = advance_position(m_read_pos, 4);
    throw_beyond_content(start + 4, m_content.size());
  }
  char scratch[4];
  const std::uint32_t length = convert::bin_str_to_uint32(take(sizeof scratch, scratch));
  // Content of 4 GiB and more cannot be addressed and reads as exhausted.
  if (m_read_pos == exhausted) return std::string();
  std::string bytes = m_content.substr(m_read_pos, length);
  m_read_pos = advance_position(m_read_pos, length);
  return bytes;
}

serialize_binary_buf* serialize_binary_buf::read_buffer() const {
  if (at_end()) return nullptr;
  const std::string bytes = read_string();
  auto* buffer = new serialize_binary_buf(bytes);
  buffer->delete_on_zero(true);
  return buffer;
}

bool serialize_binary_buf::at_end() const {
  return m_read_pos == exhausted || m_read_pos >= m_content.size();
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
