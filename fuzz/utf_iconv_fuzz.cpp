// The six UTF conversions over valid text, checked against the C library's iconv. The input
// chooses code points (ASCII, the rest of the basic plane, the supplementary planes; never a
// surrogate, never above U+10FFFF); iconv encodes them as UTF-8 and UTF-16LE, and each
// conversion's result must be what iconv makes of the same source.
//
// Two differences from iconv are the library's own and are modelled here: UTF-16 text whose
// first unit is 0xFFFE is read byte-swapped (so iconv reads it as UTF-16BE, and text that is
// invalid that way gives "-1"), and utf32_to_utf16 splits a code point from 0xFFFF up without
// first subtracting 0x10000, so its high unit is 0x40 above the standard one and U+FFFF takes
// two units.
#include <mota/strings/utf.hpp>

#include <iconv.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace s = mota::strings;

namespace {

void check(bool condition) {
  if (!condition) std::abort();
}

// The descriptors, opened once per direction and closed at exit (so the leak check is quiet).
class descriptors {
 public:
  descriptors() = default;
  descriptors(const descriptors&) = delete;
  descriptors& operator=(const descriptors&) = delete;
  ~descriptors() {
    for (auto& entry : m_open)
      iconv_close(entry.second);
  }
  iconv_t get(const char* from, const char* to) {
    iconv_t& cd = m_open[{from, to}];
    if (cd == iconv_t{}) {
      cd = iconv_open(to, from);
      check(cd != reinterpret_cast<iconv_t>(-1));
    }
    return cd;
  }

 private:
  std::map<std::pair<std::string, std::string>, iconv_t> m_open;
};

// Converts `in` with iconv; false when iconv rejects it.
bool iconv_convert(const char* from, const char* to, const std::string& in, std::string& out) {
  static descriptors open;
  const iconv_t cd = open.get(from, to);
  iconv(cd, nullptr, nullptr, nullptr, nullptr);
  std::vector<char> buffer(in.size() * 4 + 16);
  char* src = const_cast<char*>(in.data());
  std::size_t src_left = in.size();
  char* dst = buffer.data();
  std::size_t dst_left = buffer.size();
  if (iconv(cd, &src, &src_left, &dst, &dst_left) == static_cast<std::size_t>(-1)) return false;
  check(src_left == 0);
  out.assign(buffer.data(), dst);
  return true;
}

std::string must_convert(const char* from, const char* to, const std::string& in) {
  std::string out;
  check(iconv_convert(from, to, in, out));
  return out;
}

template <typename S>
std::string bytes_of(const S& text) {
  using U = typename S::value_type;
  return std::string(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(U));
}

template <typename S>
S units_of(const std::string& bytes) {
  using U = typename S::value_type;
  check(bytes.size() % sizeof(U) == 0);
  S out(bytes.size() / sizeof(U), U(0));
  if (!out.empty()) std::memcpy(&out[0], bytes.data(), bytes.size());
  return out;
}

template <typename S>
S minus_one() {
  S out;
  out.push_back('-');
  out.push_back('1');
  return out;
}

// Three input bytes make one code point; the first picks the range.
std::vector<std::uint32_t> code_points(const std::uint8_t* data, std::size_t size) {
  std::vector<std::uint32_t> out;
  for (std::size_t i = 0; i + 3 <= size; i += 3) {
    const std::uint32_t b0 = data[i], b1 = data[i + 1], b2 = data[i + 2];
    std::uint32_t cp;
    switch (b0 & 3) {
      case 0:
        cp = b1 & 0x7F;
        break;
      case 1:
        cp = (b1 << 8 | b2) % (0x10000 - 0x800);
        break;
      case 2:
        cp = 0x10000 + ((b0 >> 2) << 16 | b1 << 8 | b2) % 0x100000;
        break;
      default:
        cp = ((b0 >> 2) << 16 | b1 << 8 | b2) % (0x110000 - 0x800);
        break;
    }
    if ((b0 & 3) != 0 && (b0 & 3) != 2 && cp >= 0xD800) cp += 0x800;  // past the surrogates
    out.push_back(cp);
  }
  return out;
}

// utf32_to_utf16's split, derived from iconv's standard pairs.
s::ustring16 library_pairs(const s::ustring16& standard) {
  s::ustring16 out;
  for (unsigned short u : standard) {
    if (u >= 0xD800 && u <= 0xDBFF) {
      out.push_back(static_cast<unsigned short>(u + 0x40));
    } else if (u == 0xFFFF) {
      out.push_back(0xD83F);
      out.push_back(0xDFFF);
    } else {
      out.push_back(u);
    }
  }
  return out;
}

// What utf16_to_utf8 / utf16_to_utf32 must give for `text` in iconv's encoding `to`.
std::string expected_from_utf16(const s::ustring16& text, const char* to) {
  const bool swapped = !text.empty() && text[0] == 0xFFFE;
  std::string out;
  if (!iconv_convert(swapped ? "UTF-16BE" : "UTF-16LE", to, bytes_of(text), out)) return "";
  return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 3 * 2048) return 0;
  const std::vector<std::uint32_t> cps = code_points(data, size);
  s::ustring32 utf32;
  for (std::uint32_t cp : cps)
    utf32.push_back(static_cast<wchar_t>(cp));
  const std::string utf32_bytes = bytes_of(utf32);
  const s::ustring8 utf8(must_convert("UTF-32LE", "UTF-8", utf32_bytes));
  const s::ustring16 utf16 =
      units_of<s::ustring16>(must_convert("UTF-32LE", "UTF-16LE", utf32_bytes));

  // From UTF-8.
  check(bytes_of(s::utf8_to_utf16(utf8)) == must_convert("UTF-8", "UTF-16LE", utf8));
  check(bytes_of(s::utf8_to_utf32(utf8)) == must_convert("UTF-8", "UTF-32LE", utf8));

  // From UTF-32.
  check(s::utf32_to_utf8(utf32) == must_convert("UTF-32LE", "UTF-8", utf32_bytes));
  check(s::utf32_to_utf16(utf32) ==
        library_pairs(units_of<s::ustring16>(must_convert("UTF-32LE", "UTF-16LE", utf32_bytes))));

  // From UTF-16; a text that starts with 0xFFFE is read swapped and may then be invalid.
  const std::string want8 = expected_from_utf16(utf16, "UTF-8");
  const std::string want32 = expected_from_utf16(utf16, "UTF-32LE");
  const s::ustring8 got8 = s::utf16_to_utf8(utf16);
  const s::ustring32 got32 = s::utf16_to_utf32(utf16);
  if (!utf16.empty() && want8.empty()) {
    check(got8 == minus_one<s::ustring8>());
    check(got32 == minus_one<s::ustring32>());
  } else {
    check(got8 == want8);
    check(bytes_of(got32) == want32);
  }
  return 0;
}
