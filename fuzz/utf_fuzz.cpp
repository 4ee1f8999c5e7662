// Runs every UTF conversion, unichar and character_index over arbitrary bytes (read as UTF-8,
// as UTF-16 units and as UTF-32 code points) and checks what must hold: text that is
// well-formed UTF-8 in the strict sense survives UTF-8 -> UTF-16 -> UTF-8 and UTF-8 -> UTF-32
// -> UTF-8 unchanged and decodes to the same code points; the 16-bit converters fail together.
// The sanitizers catch any read outside the input.
#include <mota/strings/bom.hpp>
#include <mota/strings/gh2/narrow.hpp>
#include <mota/strings/utf.hpp>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace s = mota::strings;

namespace {

void check(bool condition) {
  if (!condition) std::abort();
}

// Strict UTF-8: shortest forms only, no encoded surrogates, nothing above U+10FFFF. Fills
// `code_points` when the text is well-formed.
bool strict_utf8(const std::uint8_t* p, std::size_t n, std::vector<std::uint32_t>& code_points) {
  std::size_t i = 0;
  while (i < n) {
    const std::uint32_t b0 = p[i];
    std::size_t length;
    std::uint32_t cp;
    std::uint32_t min;
    if (b0 < 0x80) {
      length = 1, cp = b0, min = 0;
    } else if (b0 >= 0xC2 && b0 <= 0xDF) {
      length = 2, cp = b0 & 0x1F, min = 0x80;
    } else if (b0 >= 0xE0 && b0 <= 0xEF) {
      length = 3, cp = b0 & 0x0F, min = 0x800;
    } else if (b0 >= 0xF0 && b0 <= 0xF4) {
      length = 4, cp = b0 & 0x07, min = 0x10000;
    } else {
      return false;
    }
    if (n - i < length) return false;
    for (std::size_t j = 1; j < length; ++j) {
      if ((p[i + j] & 0xC0) != 0x80) return false;
      cp = (cp << 6) | (p[i + j] & 0x3F);
    }
    if (cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return false;
    code_points.push_back(cp);
    i += length;
  }
  return true;
}

template <typename String>
bool is_minus_one(const String& t) {
  return t.size() == 2 && t[0] == '-' && t[1] == '1';
}

void as_utf8(const std::uint8_t* data, std::size_t size) {
  // An exact-size copy so that a read past the end is caught.
  std::vector<char> bytes(data, data + size);
  const s::ustring8 text(bytes.begin(), bytes.end());
  const unsigned int n = static_cast<unsigned int>(size);

  for (unsigned int i = 0; i <= n; ++i) {
    unsigned int count = 0;
    const std::uint32_t cp = s::unichar(bytes.data(), n, i, count);
    check(count == 0xFFFFFFFFu ? cp == 63 : (count >= 1 && count <= 4 && i + count <= n));
    if (i < n) {
      // The narrow check agrees with the decoder on where a sequence is whole.
      const bool valid = s::gh2::validate_utf8(bytes.data() + i, n - i);
      check(valid == (count != 0xFFFFFFFFu));
      if (valid) check(count == s::gh2::get_utf8_length(bytes.data() + i, n - i));
    }
  }
  for (unsigned int c = 0; c <= n + 1; ++c) {
    const int at = s::character_index(text, c);
    check(at == -1 || (at >= 0 && static_cast<unsigned int>(at) <= n));
  }

  const s::ustring16 utf16 = s::utf8_to_utf16(text);
  const s::ustring32 utf32 = s::utf8_to_utf32(text);
  check(utf32.size() <= size);

  std::vector<std::uint32_t> code_points;
  if (strict_utf8(data, size, code_points)) {
    check(!is_minus_one(utf16) || text == "-1");
    // A leading U+FFFE reads back as a byte-swapped text; everything else round-trips.
    if (utf16.empty() || utf16[0] != 0xFFFE) check(s::utf16_to_utf8(utf16) == text);
    check(s::utf32_to_utf8(utf32) == text);
    check(utf32.size() == code_points.size());
    for (std::size_t i = 0; i < code_points.size(); ++i)
      check(static_cast<std::uint32_t>(utf32[i]) == code_points[i]);
  }
}

void as_utf16(const std::uint8_t* data, std::size_t size) {
  std::vector<unsigned short> units(size / 2);
  if (!units.empty()) std::memcpy(units.data(), data, units.size() * 2);
  const s::ustring16 text(units.begin(), units.end());
  const unsigned int n = static_cast<unsigned int>(units.size());

  for (unsigned int i = 0; i <= n; ++i) {
    unsigned int count = 0;
    const std::uint32_t cp = s::unichar(units.data(), n, i, count);
    check(count == 0xFFFFFFFFu ? cp == 63 : (count >= 1 && count <= 2 && i + count <= n));
  }
  for (unsigned int c = 0; c <= n + 1; ++c) {
    const int at = s::character_index(text, c);
    check(at == -1 || (at >= 0 && static_cast<unsigned int>(at) <= n));
  }

  const s::ustring8 utf8 = s::utf16_to_utf8(text);
  const s::ustring32 utf32 = s::utf16_to_utf32(text);
  // Both fail on the same bad surrogates.
  check(is_minus_one(utf8) == is_minus_one(utf32));
  if (!is_minus_one(utf32)) check(s::utf32_to_utf8(utf32) == utf8);

  check(s::swap_string_bytes_order(s::swap_string_bytes_order(text)) == text);
  s::ustring16 copy = text;
  s::check_BOM_and_modify_swap(copy);
  check(copy == s::check_BOM_and_swap(text));
  check(s::remove_BOM(text).size() + 1 >= text.size());
}

void as_utf32(const std::uint8_t* data, std::size_t size) {
  std::vector<wchar_t> cps(size / 4);
  if (!cps.empty()) std::memcpy(cps.data(), data, cps.size() * 4);
  const s::ustring32 text(cps.begin(), cps.end());
  const unsigned int n = static_cast<unsigned int>(cps.size());
  unsigned int count = 0;
  if (n != 0)
    check(s::unichar(cps.data(), n, n - 1, count) == static_cast<std::uint32_t>(cps[n - 1]));
  check(s::unichar(cps.data(), n, n, count) == 63 && count == 0xFFFFFFFFu);

  const s::ustring8 utf8 = s::utf32_to_utf8(text);
  const s::ustring16 utf16 = s::utf32_to_utf16(text);
  if (!is_minus_one(utf8)) {
    // Whatever was kept is well-formed and decodes back to the kept code points.
    std::vector<std::uint32_t> code_points;
    check(
        strict_utf8(reinterpret_cast<const std::uint8_t*>(utf8.data()), utf8.size(), code_points));
    std::size_t j = 0;
    for (wchar_t c : text) {
      const std::uint32_t cp = static_cast<std::uint32_t>(c);
      if (cp > 0x10FFFF) continue;
      check(j < code_points.size() && code_points[j] == cp);
      ++j;
    }
    check(j == code_points.size());
  }
  (void)utf16;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 4096) return 0;
  as_utf8(data, size);
  as_utf16(data, size);
  as_utf32(data, size);
  return 0;
}
