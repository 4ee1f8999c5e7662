// Small pieces shared by the fuzz targets: turning the input into a list of strings or a
// stream of bytes, and C-style vectors over strings for the items that read argv and envp.
#ifndef MOTA_FUZZ_FUZZ_SUPPORT_HPP
#define MOTA_FUZZ_FUZZ_SUPPORT_HPP

#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace mota_fuzz {

// The input cut at NUL and line-feed bytes; always at least one (possibly empty) piece.
inline std::vector<std::string> split_lines(const std::uint8_t* data, std::size_t size) {
  std::vector<std::string> pieces(1);
  for (std::size_t i = 0; i < size; ++i) {
    const char c = static_cast<char>(data[i]);
    if (c == '\0' || c == '\n')
      pieces.emplace_back();
    else
      pieces.back() += c;
  }
  return pieces;
}

// A null-terminated vector of pointers into `strings`, as argv and envp are; valid while
// `strings` lives unchanged.
inline std::vector<const char*> c_strings(const std::vector<std::string>& strings) {
  std::vector<const char*> out;
  out.reserve(strings.size() + 1);
  for (const std::string& s : strings)
    out.push_back(s.c_str());
  out.push_back(nullptr);
  return out;
}

// A key of letters, digits and underscores: what is left of up to `max` input bytes after
// every other byte is dropped. May be empty.
inline std::string consume_word(FuzzedDataProvider& input, std::size_t max) {
  std::string word;
  for (const char c : input.ConsumeRandomLengthString(max)) {
    if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_')
      word += c;
  }
  return word;
}

// Up to `max` input bytes without NUL, which would end a C string early.
inline std::string consume_text(FuzzedDataProvider& input, std::size_t max) {
  std::string text;
  for (const char c : input.ConsumeRandomLengthString(max)) {
    if (c != '\0') text += c;
  }
  return text;
}

// Reads the input front to back; past its end every byte reads as 0 and every run as empty,
// so a target can decode a short input without checking lengths.
class byte_reader {
 public:
  byte_reader(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}
  unsigned int byte() { return m_pos < m_size ? m_data[m_pos++] : 0; }
  std::string bytes(std::size_t n) {
    if (n > m_size - m_pos) n = m_size - m_pos;
    std::string out(reinterpret_cast<const char*>(m_data + m_pos), n);
    m_pos += n;
    return out;
  }

 private:
  const std::uint8_t* m_data;
  std::size_t m_size;
  std::size_t m_pos = 0;
};

}  // namespace mota_fuzz

#endif  // MOTA_FUZZ_FUZZ_SUPPORT_HPP
