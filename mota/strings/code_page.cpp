#include <mota/strings/code_page.hpp>

#include <mota/exceptions/_private/throw.hpp>
#include <mota/strings/utf.hpp>

#include <iconv.h>
#include <langinfo.h>
#include <cerrno>
#include <cstddef>

namespace MOTA_2_18 {
namespace strings {

namespace {

const iconv_t invalid_descriptor = reinterpret_cast<iconv_t>(-1);

// Owns an iconv descriptor. close() reports a failure to the caller on the normal path; the
// destructor closes silently when a conversion error is on its way out.
class descriptor_t {
 public:
  descriptor_t(const std::string& to, const std::string& from, const char* function)
      : m_cd(iconv_open(to.c_str(), from.c_str())) {
    if (m_cd == invalid_descriptor) {
      if (errno == EINVAL) {
        MOTA_THROW_AS(exceptions::runtime_error, "convertions not supported", function);
      }
      MOTA_THROW_AS(exceptions::runtime_error, "Unknown failure on iconv open", function);
    }
  }
  descriptor_t(const descriptor_t&) = delete;
  descriptor_t& operator=(const descriptor_t&) = delete;
  ~descriptor_t() {
    if (m_cd != invalid_descriptor) iconv_close(m_cd);
  }

  iconv_t get() const { return m_cd; }

  void close(const char* function) {
    const iconv_t cd = m_cd;
    m_cd = invalid_descriptor;
    if (iconv_close(cd) != 0) {
      MOTA_THROW_AS(exceptions::runtime_error, "iconv failed to close", function);
    }
  }

 private:
  iconv_t m_cd;
};

// Converts `input` from the set `from` to the set `to`. Undecodable input bytes become one "?"
// each, an incomplete sequence at the end is dropped.
std::string convert(const std::string& input, const std::string& to, const std::string& from,
                    const char* function) {
  descriptor_t cd(to, from, function);
  std::string output(input.size(), '\0');
  iconv(cd.get(), nullptr, nullptr, nullptr, nullptr);

  // iconv's interface takes a non-const input pointer but never writes through it.
  char* in = const_cast<char*>(input.data());
  std::size_t in_left = input.size();
  std::size_t written = 0;
  while (in_left > 0) {
    char* out = &output[0] + written;
    std::size_t out_left = output.size() - written;
    const std::size_t result = iconv(cd.get(), &in, &in_left, &out, &out_left);
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
  cd.close(function);
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
std::string system_name(std::int32_t code, const char* function) {
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
  if (code >= 1250 && code <= 1258) return "CP" + std::to_string(code);
  if (code >= 28591 && code <= 28599) return "ISO-8859-" + std::to_string(code - 28590);
  MOTA_THROW_AS(exceptions::invalid_argument_value, "Not valid code_page type", function);
}

}  // namespace

std::string code_page::to_system_type(encoding_type type) const {
  return system_name(type, "to_system_type");
}

std::string code_page::encode(const ustring8& text) const {
  return convert(text, system_name(m_type, "encode"), "UTF-8", "encode");
}

ustring8 code_page::as_utf8(const std::string& text) const {
  return ustring8(convert(text, "UTF-8", system_name(m_type, "as_utf8"), "as_utf8"));
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
