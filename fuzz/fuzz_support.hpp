// Small pieces shared by the fuzz targets: turning the input into a list of strings or a
// stream of bytes, and C-style vectors over strings for the items that read argv and envp.
#ifndef MOTA_FUZZ_FUZZ_SUPPORT_HPP
#define MOTA_FUZZ_FUZZ_SUPPORT_HPP

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
