// split_string, replace_all, to_lower, to_upper and lower_case over every string type, each
// checked against a plain reference written here. Texts, separators and patterns come from the
// input, usually over a tiny alphabet so that patterns actually occur; wide texts carry units
// far outside the byte range (negative wchar_t values included), which must pass unchanged.
#include <mota/strings/case.hpp>
#include <mota/strings/gh2/narrow.hpp>
#include <mota/strings/replace.hpp>
#include <mota/strings/split.hpp>

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace s = mota::strings;

namespace {

void check(bool condition) {
  if (!condition) std::abort();
}

// Pieces between separators: at most `limit` splits when it is positive, no trailing empty
// piece, the whole text when the separator is empty.
template <typename S>
std::vector<S> split_reference(const S& text, const S& separator, int limit) {
  std::vector<S> pieces;
  if (separator.empty()) {
    pieces.push_back(text);
    return pieces;
  }
  std::size_t pos = 0;
  int splits = 0;
  while (limit <= 0 || splits < limit) {
    const std::size_t at = text.find(separator, pos);
    if (at == S::npos) break;
    pieces.push_back(text.substr(pos, at - pos));
    pos = at + separator.size();
    ++splits;
  }
  if (pos < text.size()) pieces.push_back(text.substr(pos));
  return pieces;
}

template <typename S>
int replace_reference(S& text, const S& what, const S& with) {
  if (what.empty()) return 0;
  S out;
  int count = 0;
  std::size_t pos = 0;
  for (;;) {
    const std::size_t at = text.find(what, pos);
    if (at == S::npos) break;
    out.append(text, pos, at - pos);
    out += with;
    pos = at + what.size();
    ++count;
  }
  out.append(text, pos, S::npos);
  text = out;
  return count;
}

// The C locale maps exactly the ASCII letters; every other element stays as it is.
template <typename U>
U lower_reference(U c) {
  return c >= U('A') && c <= U('Z') ? U(c - 'A' + 'a') : c;
}
template <typename U>
U upper_reference(U c) {
  return c >= U('a') && c <= U('z') ? U(c - 'a' + 'A') : c;
}

template <typename S>
S map_reference(const S& text, std::size_t start, std::size_t end, bool lower) {
  S out = text;
  for (std::size_t i = start; i < end && i < out.size(); ++i)
    out[i] = lower ? lower_reference(out[i]) : upper_reference(out[i]);
  return out;
}

template <typename S>
void check_split_and_replace(const S& text, const S& separator, const S& with, int limit) {
  const auto pieces = s::split_string(text, separator, limit);
  const auto expected = split_reference(text, separator, limit);
  check(pieces.size() == expected.size());
  for (std::size_t i = 0; i < pieces.size(); ++i)
    check(pieces[i] == expected[i]);

  S replaced = text;
  S expected_text = text;
  const int count = s::replace_all(replaced, separator, with);
  check(count == replace_reference(expected_text, separator, with));
  check(replaced == expected_text);
}

template <typename S>
void check_case(const S& text, unsigned int start, unsigned int end) {
  check(s::to_lower(text) == map_reference(text, 0, text.size(), true));
  check(s::to_upper(text) == map_reference(text, 0, text.size(), false));
  const std::size_t stop = end == 0xFFFFFFFFu ? text.size() : end;
  check(s::lower_case(text, start, end) == map_reference(text, start, stop, true));
}

// Element i of the text is built from byte b: with a small alphabet the bytes fold onto
// "aAb," so that separators and patterns recur; otherwise the byte is used as is.
std::string bytes_of(FuzzedDataProvider& in, std::size_t max, bool small_alphabet) {
  std::string out = in.ConsumeRandomLengthString(max);
  if (small_alphabet) {
    static const char alphabet[] = {'a', 'A', 'b', ','};
    for (char& c : out)
      c = alphabet[static_cast<unsigned char>(c) % 4];
  }
  return out;
}

// Widens each byte: ASCII stays ASCII, other bytes become units beyond the byte range (for
// wchar_t, negative ones too) so that the mapping must leave them alone.
template <typename S>
S widen(const std::string& bytes) {
  using U = typename S::value_type;
  S out;
  for (char c : bytes) {
    const auto b = static_cast<unsigned char>(c);
    if (b < 0x80)
      out.push_back(static_cast<U>(b));
    else if (sizeof(U) == 2)
      out.push_back(static_cast<U>(b * 0x0101u));
    else
      out.push_back(static_cast<U>(static_cast<std::int32_t>(b * 0x01010101u)));
  }
  return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 4096) return 0;
  FuzzedDataProvider in(data, size);
  const bool small_alphabet = in.ConsumeBool();
  const int limit = in.ConsumeIntegralInRange<int>(-2, 6);
  const std::string separator = bytes_of(in, 4, small_alphabet);
  const std::string with = bytes_of(in, 6, small_alphabet);
  const unsigned int start = in.ConsumeIntegralInRange<unsigned int>(0, 40);
  unsigned int end = in.ConsumeIntegralInRange<unsigned int>(0, 41);
  if (end == 41) end = 0xFFFFFFFFu;
  const std::string text = bytes_of(in, in.remaining_bytes(), small_alphabet);

  check_split_and_replace(text, separator, with, limit);
  check_split_and_replace(s::ustring8(text), s::ustring8(separator), s::ustring8(with), limit);
  check_split_and_replace(widen<s::ustring16>(text), widen<s::ustring16>(separator),
                          widen<s::ustring16>(with), limit);
  check_split_and_replace(widen<s::ustring32>(text), widen<s::ustring32>(separator),
                          widen<s::ustring32>(with), limit);
  check_split_and_replace(widen<std::wstring>(text), widen<std::wstring>(separator),
                          widen<std::wstring>(with), limit);
  {
    std::string replaced = text;
    std::string expected = text;
    check(s::gh2::replace_all(replaced, separator, with) ==
          replace_reference(expected, separator, with));
    check(replaced == expected);
  }

  check_case(s::ustring8(text), start, end);
  check_case(widen<s::ustring16>(text), start, end);
  check_case(widen<s::ustring32>(text), start, end);
  return 0;
}
