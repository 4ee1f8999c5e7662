#include <mota/generic/convert/bin_str.hpp>

#include <cstdint>
#include <cstring>
#include <type_traits>

namespace MOTA_2_18 {
namespace generic {
namespace convert {

namespace {

// The unsigned integer with the same bits as T.
template <typename T>
using bits_t = std::conditional_t<sizeof(T) == 2, std::uint16_t,
                                  std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t>>;

template <typename T>
T machine_read(const char* bytes) {
  T value;
  std::memcpy(&value, bytes, sizeof(T));
  return value;
}

template <typename T>
std::string machine_write(const T& value) {
  std::string bytes(sizeof(T), '\0');
  std::memcpy(&bytes[0], &value, sizeof(T));
  return bytes;
}

template <typename T>
T msb_first_read(const char* bytes) {
  bits_t<T> bits = 0;
  for (std::size_t i = 0; i < sizeof(T); ++i) {
    bits = static_cast<bits_t<T>>((bits << 8) | static_cast<unsigned char>(bytes[i]));
  }
  T value;
  std::memcpy(&value, &bits, sizeof(T));
  return value;
}

template <typename T>
std::string msb_first_write(const T& value) {
  bits_t<T> bits;
  std::memcpy(&bits, &value, sizeof(T));
  std::string bytes(sizeof(T), '\0');
  for (std::size_t i = sizeof(T); i-- > 0;) {
    bytes[i] = static_cast<char>(bits & 0xFF);
    bits = static_cast<bits_t<T>>(bits >> 8);
  }
  return bytes;
}

template <typename T>
T from_string(const std::string& bytes, T (*read)(const char*)) {
  return bytes.size() < sizeof(T) ? T(0) : read(bytes.data());
}

}  // namespace

// The sixteen functions of one byte order, defined over its read and write templates. The
// three families differ only in those two.
#define MOTA_BIN_STR_FUNCTIONS(read, write)                                  \
  short bin_str_to_int16(const char* bytes) {                                \
    return read<short>(bytes);                                               \
  }                                                                          \
  short bin_str_to_int16(const std::string& bytes) {                         \
    return from_string<short>(bytes, read<short>);                           \
  }                                                                          \
  int bin_str_to_int32(const char* bytes) {                                  \
    return read<int>(bytes);                                                 \
  }                                                                          \
  int bin_str_to_int32(const std::string& bytes) {                           \
    return from_string<int>(bytes, read<int>);                               \
  }                                                                          \
  long long bin_str_to_int64(const char* bytes) {                            \
    return read<long long>(bytes);                                           \
  }                                                                          \
  long long bin_str_to_int64(const std::string& bytes) {                     \
    return from_string<long long>(bytes, read<long long>);                   \
  }                                                                          \
  unsigned short bin_str_to_uint16(const char* bytes) {                      \
    return read<unsigned short>(bytes);                                      \
  }                                                                          \
  unsigned short bin_str_to_uint16(const std::string& bytes) {               \
    return from_string<unsigned short>(bytes, read<unsigned short>);         \
  }                                                                          \
  unsigned int bin_str_to_uint32(const char* bytes) {                        \
    return read<unsigned int>(bytes);                                        \
  }                                                                          \
  unsigned int bin_str_to_uint32(const std::string& bytes) {                 \
    return from_string<unsigned int>(bytes, read<unsigned int>);             \
  }                                                                          \
  unsigned long long bin_str_to_uint64(const char* bytes) {                  \
    return read<unsigned long long>(bytes);                                  \
  }                                                                          \
  unsigned long long bin_str_to_uint64(const std::string& bytes) {           \
    return from_string<unsigned long long>(bytes, read<unsigned long long>); \
  }                                                                          \
  float bin_str_to_float(const char* bytes) {                                \
    return read<float>(bytes);                                               \
  }                                                                          \
  float bin_str_to_float(const std::string& bytes) {                         \
    return from_string<float>(bytes, read<float>);                           \
  }                                                                          \
  double bin_str_to_double(const char* bytes) {                              \
    return read<double>(bytes);                                              \
  }                                                                          \
  double bin_str_to_double(const std::string& bytes) {                       \
    return from_string<double>(bytes, read<double>);                         \
  }                                                                          \
  std::string int16_to_bin_str(const short& value) {                         \
    return write(value);                                                     \
  }                                                                          \
  std::string int32_to_bin_str(const int& value) {                           \
    return write(value);                                                     \
  }                                                                          \
  std::string int64_to_bin_str(const long long& value) {                     \
    return write(value);                                                     \
  }                                                                          \
  std::string uint16_to_bin_str(const unsigned short& value) {               \
    return write(value);                                                     \
  }                                                                          \
  std::string uint32_to_bin_str(const unsigned int& value) {                 \
    return write(value);                                                     \
  }                                                                          \
  std::string uint64_to_bin_str(const unsigned long long& value) {           \
    return write(value);                                                     \
  }                                                                          \
  std::string float_to_bin_str(const float& value) {                         \
    return write(value);                                                     \
  }                                                                          \
  std::string double_to_bin_str(const double& value) {                       \
    return write(value);                                                     \
  }

// The machine's own order: least significant byte first on x86.
MOTA_BIN_STR_FUNCTIONS(machine_read, machine_write)

namespace little_endian {
// Most significant byte first, exactly like big_endian, despite the name: intended, and byte
// strings already written this way are read back by either namespace.
MOTA_BIN_STR_FUNCTIONS(msb_first_read, msb_first_write)
}  // namespace little_endian

namespace big_endian {
MOTA_BIN_STR_FUNCTIONS(msb_first_read, msb_first_write)
}  // namespace big_endian

#undef MOTA_BIN_STR_FUNCTIONS

}  // namespace convert
}  // namespace generic
}  // namespace MOTA_2_18
