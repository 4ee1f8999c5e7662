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
// Unicode strings: the three string classes, conversions among UTF-8, UTF-16 and UTF-32,
// case, splitting, replacing, byte-order marks and code pages.
namespace strings {

// UTF-8 text: a std::string whose bytes are UTF-8. It adds no data; every std::string operation
// applies, and the conversions below let the two mix freely.
class MOTA_API ustring8 : public std::string {
 public:
  using std::string::basic_string;

  ustring8() = default;
  //@{
  // From a zero-terminated C string (a null pointer throws std::logic_error, as std::string does),
  // a std::string copied or moved, or another ustring8.
  ustring8(const char* text) : std::string(text) {}         // NOLINT: implicit on purpose
  ustring8(const std::string& text) : std::string(text) {}  // NOLINT
  ustring8(std::string&& text) noexcept : std::string(std::move(text)) {}  // NOLINT
  ustring8(const ustring8&) = default;
  ustring8(ustring8&&) noexcept = default;
  //@}
  ~ustring8() = default;

  // The base's other assignments (a character, a list, a view) stay usable; the ones below
  // return the derived class.
  using std::string::operator=;
  //@{
  // Replaces the text with a copy (or the moved contents) of the other text; returns *this.
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
  //@}
};

// The standard string of 16-bit units that ustring16 derives from.
using ustring16_base = std::basic_string<unsigned short>;

// UTF-16 text: one 16-bit code unit per element, surrogate pairs for code points above 0xFFFF.
// It adds no data to its base string.
class MOTA_API ustring16 : public ustring16_base {
 public:
  using ustring16_base::basic_string;

  ustring16() = default;
  //@{
  // A copy of (or the moved contents of) a base string or another ustring16.
  ustring16(const ustring16_base& text) : ustring16_base(text) {}                 // NOLINT
  ustring16(ustring16_base&& text) noexcept : ustring16_base(std::move(text)) {}  // NOLINT
  ustring16(const ustring16&) = default;
  ustring16(ustring16&&) noexcept = default;
  //@}
  ~ustring16() = default;

  using ustring16_base::operator=;  // from a unit pointer, a unit, a list
  //@{
  // Replaces the units with a copy (or the moved contents) of the other; returns *this.
  ustring16& operator=(const ustring16&) = default;
  ustring16& operator=(ustring16&&) noexcept = default;
  ustring16& operator=(const ustring16_base& text) {
    ustring16_base::operator=(text);
    return *this;
  }
  //@}
};

// UTF-32 text: one code point per wchar_t element (32 bits on Linux). It adds no data to
// std::wstring.
class MOTA_API ustring32 : public std::wstring {
 public:
  using std::wstring::basic_string;

  ustring32() = default;
  //@{
  // A copy of (or the moved contents of) a std::wstring or another ustring32.
  ustring32(const std::wstring& text) : std::wstring(text) {}                 // NOLINT
  ustring32(std::wstring&& text) noexcept : std::wstring(std::move(text)) {}  // NOLINT
  ustring32(const ustring32&) = default;
  ustring32(ustring32&&) noexcept = default;
  //@}
  ~ustring32() = default;

  using std::wstring::operator=;  // from a wide C string, a character, a list
  //@{
  // Replaces the code points with a copy (or the moved contents) of the other; returns *this.
  ustring32& operator=(const ustring32&) = default;
  ustring32& operator=(ustring32&&) noexcept = default;
  ustring32& operator=(const std::wstring& text) {
    std::wstring::operator=(text);
    return *this;
  }
  //@}
};

// Element-wise inequality.
inline bool operator!=(const ustring8& a, const ustring8& b) {
  return static_cast<const std::string&>(a) != static_cast<const std::string&>(b);
}

//@{
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
//@}

// Concatenation that stays a ustring8.
inline ustring8 operator+(const ustring8& a, const char* b) {
  ustring8 result(a);
  result.append(b);
  return result;
}

}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_USTRING_HPP
