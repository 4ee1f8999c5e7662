#include <mota/strings/code_page.hpp>

#include <mota/exceptions/_private/throw.hpp>
#include <mota/strings/_private/iconv_cache.hpp>
#include <mota/strings/utf.hpp>

#include <iconv.h>
#include <langinfo.h>
#include <cerrno>
#include <cstddef>

namespace MOTA_2_18 {
namespace strings {

namespace {

// Converts `input` from the set `from` to the set `to`. Undecodable input bytes become one "?"
// each, an incomplete sequence at the end is dropped.
// The descriptor comes from this thread's cache and is reset first, so no state of an earlier
// conversion carries over.
std::string convert(const std::string& input, unsigned int key, const char* to, const char* from,
                    const char* function) {
  const iconv_t cd = _private::cached_iconv(key, to, from, function);
  std::string output(input.size(), '\0');
  iconv(cd, nullptr, nullptr, nullptr, nullptr);

  // iconv's interface takes a non-const input pointer but never writes through it.
  char* in = const_cast<char*>(input.data());
  std::size_t in_left = input.size();
  std::size_t written = 0;
  while (in_left > 0) {
    char* out = &output[0] + written;
    std::size_t out_left = output.size() - written;
    const std::size_t result = iconv(cd, &in, &in_left, &out, &out_left);
    written = static_cast<std::size_t>(out - output.data());
    if (result != static_cast<std::size_t>(-1)) continue;
    const int error = errno;
    if (error == E2BIG) {
      output.resize(output.size() + 2 * in_left);
    } else if (error == EILSEQ) {
      if (written == output.size()) output.resize(output.size() + 2 * in_left);
      ++in;
      --in_left;
      output[written++] = '?';
    } else if (error == EINVAL) {
      break;
    } else {
      MOTA_THROW_AS(exceptions::runtime_error, "Unknown iconv error", function);
    }
  }
  output.resize(written);
  return output;
}

}  // namespace

code_page::code_page() : m_type(nil_code) {}
code_page::code_page(const types::nil_t&) : m_type(nil_code) {}
code_page::code_page(const encoding_type& type) : m_type(type) {}
code_page::code_page(const code_page& other) : m_type(other.m_type) {}

code_page& code_page::assign(const code_page& other) {
  m_type = other.m_type;
  return *this;
}
code_page& code_page::assign(const encoding_type& type) {
  m_type = type;
  return *this;
}
code_page& code_page::assign(const types::nil_t&) {
  m_type = nil_code;
  return *this;
}
code_page& code_page::operator=(const code_page& other) {
  return assign(other);
}
code_page& code_page::operator=(const encoding_type& type) {
  return assign(type);
}
code_page& code_page::operator=(const types::nil_t& nil) {
  return assign(nil);
}

bool code_page::equal(const code_page& other) const {
  return m_type == other.m_type;
}
bool code_page::equal(const encoding_type& type) const {
  return m_type == type;
}
bool code_page::equal(const types::nil_t&) const {
  return m_type == nil_code;
}
bool code_page::operator==(const code_page& other) const {
  return equal(other);
}
bool code_page::operator==(const encoding_type& type) const {
  return equal(type);
}
bool code_page::operator==(const types::nil_t& nil) const {
  return equal(nil);
}
bool code_page::operator!=(const code_page& other) const {
  return !equal(other);
}
bool code_page::operator!=(const encoding_type& type) const {
  return !equal(type);
}
bool code_page::operator!=(const types::nil_t& nil) const {
  return !equal(nil);
}

code_page::encoding_type code_page::type() const {
  return m_type;
}
void code_page::type(const encoding_type& type) {
  m_type = type;
}

namespace {

// The iconv name of `code`. An invalid code throws exceptions::invalid_argument_value "Not valid
// code_page type" in the name of `function`: the conversions report themselves ("encode",
// "as_utf8"), a direct look-up reports "to_system_type".
const char* system_name(std::int32_t code, const char* function) {
  static const char* const windows[] = {"CP1250", "CP1251", "CP1252", "CP1253", "CP1254",
                                        "CP1255", "CP1256", "CP1257", "CP1258"};
  static const char* const iso[] = {"ISO-8859-1", "ISO-8859-2", "ISO-8859-3",
                                    "ISO-8859-4", "ISO-8859-5", "ISO-8859-6",
                                    "ISO-8859-7", "ISO-8859-8", "ISO-8859-9"};
  switch (code) {
    case 1:
    case 2:
    case 3:
      return nl_langinfo(CODESET);
    case 4:
      return "UTF-8";
    case 932:
      return "WINDOWS-31J";
    case 936:
      return "GBK";
    case 949:
      return "CP949";
    case 950:
      return "BIG5";
    case 20866:
      return "KOI8-R";
    case 21866:
      return "KOI8-U";
    case 28605:
      return "ISO-8859-15";
    case 125100:
      return "ANSI_X3.4-1968";
    default:
      break;
  }
  if (code >= 1250 && code <= 1258) return windows[code - 1250];
  if (code >= 28591 && code <= 28599) return iso[code - 28591];
  MOTA_THROW_AS(exceptions::invalid_argument_value, "Not valid code_page type", function);
}

// The descriptor cache's key of a conversion with the valid code `code`: the code and the
// direction, or 0 for the process's own set, whose name can change with the locale.
unsigned int cache_key(std::int32_t code, bool to_utf8) {
  if (code <= 3) return 0;
  return static_cast<unsigned int>(code) * 2 + (to_utf8 ? 1 : 0);
}

}  // namespace

std::string code_page::to_system_type(encoding_type type) const {
  return system_name(type, "to_system_type");
}

std::string code_page::encode(const ustring8& text) const {
  return convert(text, cache_key(m_type, false), system_name(m_type, "encode"), "UTF-8", "encode");
}

ustring8 code_page::as_utf8(const std::string& text) const {
  return ustring8(
      convert(text, cache_key(m_type, true), "UTF-8", system_name(m_type, "as_utf8"), "as_utf8"));
}

std::string code_page::encode(const ustring16& text) const {
  return encode(utf16_to_utf8(text));
}

std::string code_page::encode(const ustring32& text) const {
  return encode(utf32_to_utf8(text));
}

ustring16 code_page::as_utf16(const std::string& text) const {
  return utf8_to_utf16(as_utf8(text));
}

ustring32 code_page::as_utf32(const std::string& text) const {
  return utf8_to_utf32(as_utf8(text));
}

ustring8 code_page::as_ustring(const std::string& text) const {
  return as_utf8(text);
}

}  // namespace strings
}  // namespace MOTA_2_18
