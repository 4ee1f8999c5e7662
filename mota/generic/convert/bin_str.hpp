// Integers and floating-point values as raw byte strings and back: a std::string used as a
// byte array of exactly the value's width (2, 4 or 8 bytes; 4 for float, 8 for double).
//
// The functions directly in this namespace copy the bytes in the machine's own order. The
// functions in `little_endian` and in `big_endian` both put the most significant byte first;
// the name of `little_endian` does not describe its order, which is intended and kept so that
// strings written by either namespace read back with the other. Floating-point values travel
// as their IEEE 754 bit patterns.
//
//   std::string bytes = mota::generic::convert::big_endian::int16_to_bin_str(0x0102);  // 01 02
//   short v = mota::generic::convert::big_endian::bin_str_to_int16(bytes);          // 0x0102
#ifndef MOTA_GENERIC_CONVERT_BIN_STR_HPP
#define MOTA_GENERIC_CONVERT_BIN_STR_HPP

#include <mota/export.hpp>

#include <string>

namespace MOTA_2_18 {
namespace generic {
namespace convert {

// bin_str_to_*(const char*) reads the value's width in bytes from `bytes` without any length
// check; bin_str_to_*(const std::string&) returns 0 (0.0) when the string is shorter than the
// width and ignores bytes past it. *_to_bin_str returns exactly the width in bytes.

//@{
// The value whose bytes start `bytes`, in the machine's own byte order. The const char* forms
// read the width without a length check; the std::string forms return 0 (0.0) for a string
// shorter than the width.
MOTA_API short bin_str_to_int16(const char* bytes);
MOTA_API short bin_str_to_int16(const std::string& bytes);
MOTA_API int bin_str_to_int32(const char* bytes);
MOTA_API int bin_str_to_int32(const std::string& bytes);
MOTA_API long long bin_str_to_int64(const char* bytes);
MOTA_API long long bin_str_to_int64(const std::string& bytes);
MOTA_API unsigned short bin_str_to_uint16(const char* bytes);
MOTA_API unsigned short bin_str_to_uint16(const std::string& bytes);
MOTA_API unsigned int bin_str_to_uint32(const char* bytes);
MOTA_API unsigned int bin_str_to_uint32(const std::string& bytes);
MOTA_API unsigned long long bin_str_to_uint64(const char* bytes);
MOTA_API unsigned long long bin_str_to_uint64(const std::string& bytes);
MOTA_API float bin_str_to_float(const char* bytes);
MOTA_API float bin_str_to_float(const std::string& bytes);
MOTA_API double bin_str_to_double(const char* bytes);
MOTA_API double bin_str_to_double(const std::string& bytes);
//@}

//@{
// The bytes of `value` in the machine's own byte order, exactly its width.
MOTA_API std::string int16_to_bin_str(const short& value);
MOTA_API std::string int32_to_bin_str(const int& value);
MOTA_API std::string int64_to_bin_str(const long long& value);
MOTA_API std::string uint16_to_bin_str(const unsigned short& value);
MOTA_API std::string uint32_to_bin_str(const unsigned int& value);
MOTA_API std::string uint64_to_bin_str(const unsigned long long& value);
MOTA_API std::string float_to_bin_str(const float& value);
MOTA_API std::string double_to_bin_str(const double& value);
//@}

// Most significant byte first (the same order as big_endian, on purpose).
namespace little_endian {
//@{
// The value whose bytes start `bytes`, most significant first; lengths as in the machine-order
// forms.
MOTA_API short bin_str_to_int16(const char* bytes);
MOTA_API short bin_str_to_int16(const std::string& bytes);
MOTA_API int bin_str_to_int32(const char* bytes);
MOTA_API int bin_str_to_int32(const std::string& bytes);
MOTA_API long long bin_str_to_int64(const char* bytes);
MOTA_API long long bin_str_to_int64(const std::string& bytes);
MOTA_API unsigned short bin_str_to_uint16(const char* bytes);
MOTA_API unsigned short bin_str_to_uint16(const std::string& bytes);
MOTA_API unsigned int bin_str_to_uint32(const char* bytes);
MOTA_API unsigned int bin_str_to_uint32(const std::string& bytes);
MOTA_API unsigned long long bin_str_to_uint64(const char* bytes);
MOTA_API unsigned long long bin_str_to_uint64(const std::string& bytes);
MOTA_API float bin_str_to_float(const char* bytes);
MOTA_API float bin_str_to_float(const std::string& bytes);
MOTA_API double bin_str_to_double(const char* bytes);
MOTA_API double bin_str_to_double(const std::string& bytes);
//@}

//@{
// The bytes of `value`, most significant first (despite the namespace's name), exactly its width.
MOTA_API std::string int16_to_bin_str(const short& value);
MOTA_API std::string int32_to_bin_str(const int& value);
MOTA_API std::string int64_to_bin_str(const long long& value);
MOTA_API std::string uint16_to_bin_str(const unsigned short& value);
MOTA_API std::string uint32_to_bin_str(const unsigned int& value);
MOTA_API std::string uint64_to_bin_str(const unsigned long long& value);
MOTA_API std::string float_to_bin_str(const float& value);
MOTA_API std::string double_to_bin_str(const double& value);
//@}
}  // namespace little_endian

// Most significant byte first.
namespace big_endian {
//@{
// The value whose bytes start `bytes`, most significant first; lengths as in the machine-order
// forms.
MOTA_API short bin_str_to_int16(const char* bytes);
MOTA_API short bin_str_to_int16(const std::string& bytes);
MOTA_API int bin_str_to_int32(const char* bytes);
MOTA_API int bin_str_to_int32(const std::string& bytes);
MOTA_API long long bin_str_to_int64(const char* bytes);
MOTA_API long long bin_str_to_int64(const std::string& bytes);
MOTA_API unsigned short bin_str_to_uint16(const char* bytes);
MOTA_API unsigned short bin_str_to_uint16(const std::string& bytes);
MOTA_API unsigned int bin_str_to_uint32(const char* bytes);
MOTA_API unsigned int bin_str_to_uint32(const std::string& bytes);
MOTA_API unsigned long long bin_str_to_uint64(const char* bytes);
MOTA_API unsigned long long bin_str_to_uint64(const std::string& bytes);
MOTA_API float bin_str_to_float(const char* bytes);
MOTA_API float bin_str_to_float(const std::string& bytes);
MOTA_API double bin_str_to_double(const char* bytes);
MOTA_API double bin_str_to_double(const std::string& bytes);
//@}

//@{
// The bytes of `value`, most significant first, exactly its width.
MOTA_API std::string int16_to_bin_str(const short& value);
MOTA_API std::string int32_to_bin_str(const int& value);
MOTA_API std::string int64_to_bin_str(const long long& value);
MOTA_API std::string uint16_to_bin_str(const unsigned short& value);
MOTA_API std::string uint32_to_bin_str(const unsigned int& value);
MOTA_API std::string uint64_to_bin_str(const unsigned long long& value);
MOTA_API std::string float_to_bin_str(const float& value);
MOTA_API std::string double_to_bin_str(const double& value);
//@}
}  // namespace big_endian

}  // namespace convert
}  // namespace generic
}  // namespace MOTA_2_18

#endif  // MOTA_GENERIC_CONVERT_BIN_STR_HPP
