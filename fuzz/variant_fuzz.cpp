// Feeds arbitrary bytes to a variant as each text type and reads every conversion: no input
// may crash, hang or read out of bounds.
#include <mota/types/variant.hpp>

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

namespace {

void read_all(const mota::types::variant& v) {
  volatile long double sink = 0;
  sink = sink + v.as_int() + v.as_short() + v.as_long() + v.as_int8() + v.as_int16() +
         v.as_int32() + static_cast<long double>(v.as_int64()) + v.as_uint8() + v.as_uint16() +
         v.as_uint32() + static_cast<long double>(v.as_uint64()) + v.as_bool() + v.as_float() +
         v.as_double() + v.as_long_double() + v.as_uint() + v.as_ulong() + v.as_ushort();
  sink = sink + v.as_string().size() + v.as_wstring().size() + v.as_ustring().size() +
         v.as_utf8().size() + v.as_utf16().size() + v.as_utf32().size();
  std::ostringstream os;
  os << v;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  read_all(mota::types::variant(bytes));
  read_all(mota::types::variant(mota::strings::ustring8(bytes)));

  mota::strings::ustring16 units;
  for (std::size_t i = 0; i + 1 < size; i += 2) {
    units.push_back(static_cast<unsigned short>(data[i] | data[i + 1] << 8));
  }
  read_all(mota::types::variant(units));

  std::wstring points;
  for (std::size_t i = 0; i + 3 < size; i += 4) {
    const std::uint32_t cp = static_cast<std::uint32_t>(data[i]) |
                             static_cast<std::uint32_t>(data[i + 1]) << 8 |
                             static_cast<std::uint32_t>(data[i + 2]) << 16 |
                             static_cast<std::uint32_t>(data[i + 3]) << 24;
    points.push_back(static_cast<wchar_t>(cp));
  }
  read_all(mota::types::variant(points));
  read_all(mota::types::variant(mota::strings::ustring32(points)));
  return 0;
}
