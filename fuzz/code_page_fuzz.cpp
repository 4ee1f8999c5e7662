// Arbitrary bytes through a handful of code pages in both directions. Whatever the input,
// as_utf8 must produce well-formed UTF-8 (for every set but UTF-8 itself), encode must not fail,
// and nothing may throw for a valid code.
#include <mota/strings/code_page.hpp>

#include <cstdint>
#include <cstdlib>
#include <string>

using mota::strings::code_page;

namespace {

// True when `s` is well-formed UTF-8 (shortest forms, no surrogates, at most U+10FFFF).
bool well_formed(const std::string& s) {
  std::size_t i = 0;
  while (i < s.size()) {
    const auto c = static_cast<unsigned char>(s[i]);
    std::size_t n;
    std::uint32_t cp;
    if (c < 0x80) {
      ++i;
      continue;
    } else if (c >= 0xC2 && c <= 0xDF) {
      n = 1;
      cp = c & 0x1F;
    } else if (c >= 0xE0 && c <= 0xEF) {
      n = 2;
      cp = c & 0x0F;
    } else if (c >= 0xF0 && c <= 0xF4) {
      n = 3;
      cp = c & 0x07;
    } else {
      return false;
    }
    if (i + n >= s.size()) return false;
    for (std::size_t k = 1; k <= n; ++k) {
      const auto t = static_cast<unsigned char>(s[i + k]);
      if ((t & 0xC0) != 0x80) return false;
      cp = (cp << 6) | (t & 0x3F);
    }
    if ((n == 2 && cp < 0x800) || (n == 3 && cp < 0x10000) || cp > 0x10FFFF ||
        (cp >= 0xD800 && cp <= 0xDFFF)) {
      return false;
    }
    i += n + 1;
  }
  return true;
}

const code_page::encoding_type codes[] = {
    code_page::system,      code_page::utf_8,        code_page::windows_31j,  code_page::gbk,
    code_page::big5,        code_page::windows_1252, code_page::windows_1251, code_page::koi8_r,
    code_page::iso_8859_15, code_page::ascii,
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const code_page page(codes[data[0] % (sizeof codes / sizeof codes[0])]);
  const std::string bytes(reinterpret_cast<const char*>(data + 1), size - 1);

  const std::string utf8 = page.as_utf8(bytes);
  // iconv's own UTF-8 reader passes sequences above U+10FFFF through unchanged (F7 AF AF AF
  // comes out as it went in), so code page 4 is only checked for staying within the input.
  if (page == code_page::utf_8 ? utf8.size() > bytes.size() : !well_formed(utf8)) std::abort();
  // Text that came out of this code page goes back into it without any substitution being
  // needed, except where the input itself held undecodable bytes.
  const std::string back = page.encode(utf8);
  if (utf8.find('?') == std::string::npos && bytes.find('?') == std::string::npos &&
      back.find('?') != std::string::npos) {
    std::abort();
  }
  // Arbitrary bytes as if they were UTF-8.
  const std::string encoded = page.encode(mota::strings::ustring8(bytes));
  (void)encoded;
  const std::string same = page.as_ustring(bytes);
  if (same != utf8) std::abort();
  return 0;
}
