// The library's three Unicode string classes. They are the standard strings they derive from,
// with no data of their own; the name says which encoding the elements hold:
//   ustring8  - UTF-8 bytes in a std::string,
//   ustring16 - UTF-16 code units in a std::basic_string<unsigned short>,
//   ustring32 - UTF-32 code points in a std::basic_string<wchar_t>.
// Conversions between them are in <mota/strings/utf.hpp>.
//
//   mota::strings::ustring8 name = "caf\xC3\xA9";
//   mota::strings::ustring16 wide = mota::strings::utf8_to_utf16(name);
#ifndef MOTA_STRINGS_USTRING_HPP
#define MOTA_STRINGS_USTRING_HPP

#include <mota/export.hpp>

#include <string>
#include <utility>

namespace MOTA_2_18 {
namespace strings {

class MOTA_API ustring8 : public std::string {
 public:
  using std::string::basic_string;

  ustring8() = default;
  ustring8(const char* text) : std::string(text) {}         // NOLINT: implicit on purpose
  ustring8(const std::string& text) : std::string(text) {}  // NOLINT
  ustring8(std::string&& text) noexcept : std::string(std::move(text)) {}  // NOLINT
  ustring8(const ustring8&) = default;
  ustring8(ustring8&&) noexcept = default;
  ~ustring8() = default;

  ustring8& operator=(const ustring8&) = default;
  ustring8& operator=(ustring8&&) noexcept = default;
  ustring8& operator=(const char* text) {
    std::string::operator=(text);
    return *this;
  }
  ustring8& operator=(const std::string& text) {
    std::string::operator=(text);
    return *this;
  }
  ustring8& operator=(std::string&& text) noexcept {
    std::string::operator=(std::move(text));
    return *this;
  }
};

using ustring16_base = std::basic_string<unsigned short>;

class MOTA_API ustring16 : public ustring16_base {
 public:
  using ustring16_base::basic_string;

  ustring16() = default;
  ustring16(const ustring16_base& text) : ustring16_base(text) {}                 // NOLINT
  ustring16(ustring16_base&& text) noexcept : ustring16_base(std::move(text)) {}  // NOLINT
  ustring16(const ustring16&) = default;
  ustring16(ustring16&&) noexcept = default;
  ~ustring16() = default;

  ustring16& operator=(const ustring16&) = default;
  ustring16& operator=(ustring16&&) noexcept = default;
  ustring16& operator=(const ustring16_base& text) {
    ustring16_base::operator=(text);
    return *this;
  }
};

class MOTA_API ustring32 : public std::wstring {
 public:
  using std::wstring::basic_string;

  ustring32() = default;
  ustring32(const std::wstring& text) : std::wstring(text) {}                 // NOLINT
  ustring32(std::wstring&& text) noexcept : std::wstring(std::move(text)) {}  // NOLINT
  ustring32(const ustring32&) = default;
  ustring32(ustring32&&) noexcept = default;
  ~ustring32() = default;

  ustring32& operator=(const ustring32&) = default;
  ustring32& operator=(ustring32&&) noexcept = default;
  ustring32& operator=(const std::wstring& text) {
    std::wstring::operator=(text);
    return *this;
  }
};

// Element-wise inequality.
inline bool operator!=(const ustring8& a, const ustring8& b) {
  return static_cast<const std::string&>(a) != static_cast<const std::string&>(b);
}

// Mixed comparisons with the base string would otherwise be ambiguous between the overload
// above and the standard one.
inline bool operator!=(const ustring8& a, const std::string& b) {
  return static_cast<const std::string&>(a) != b;
}
inline bool operator!=(const std::string& a, const ustring8& b) {
  return a != static_cast<const std::string&>(b);
}
inline bool operator!=(const ustring8& a, const char* b) {
  return static_cast<const std::string&>(a) != b;
}
inline bool operator!=(const char* a, const ustring8& b) {
  return a != static_cast<const std::string&>(b);
}

// Concatenation that stays a ustring8.
inline ustring8 operator+(const ustring8& a, const char* b) {
  ustring8 result(a);
  result.append(b);
  return result;
}

}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_USTRING_HPP
