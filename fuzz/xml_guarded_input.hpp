// Shared by the XML fuzz targets: the input as a std::string range whose neighbouring bytes
// are poisoned for AddressSanitizer, so that any read before the first or past the last byte
// is reported even though the string owns those bytes.
#ifndef MOTA_FUZZ_XML_GUARDED_INPUT_HPP
#define MOTA_FUZZ_XML_GUARDED_INPUT_HPP

#include <sanitizer/asan_interface.h>

#include <cstddef>
#include <cstdint>
#include <string>

class guarded_input {
 public:
  static constexpr std::size_t k_front = 32;  // whole granules, the allocation is aligned

  guarded_input(const std::uint8_t* data, std::size_t size)
      : m_text(k_front + size + k_back, '#'), m_size(size) {
    m_text.replace(k_front, size, reinterpret_cast<const char*>(data), size);
    ASAN_POISON_MEMORY_REGION(m_text.data(), k_front);
    ASAN_POISON_MEMORY_REGION(m_text.data() + k_front + size, k_back + 1);
  }
  ~guarded_input() { ASAN_UNPOISON_MEMORY_REGION(m_text.data(), m_text.size() + 1); }
  guarded_input(const guarded_input&) = delete;
  guarded_input& operator=(const guarded_input&) = delete;

  std::string::const_iterator begin() const { return m_text.cbegin() + k_front; }
  std::string::const_iterator end() const { return begin() + static_cast<std::ptrdiff_t>(m_size); }

 private:
  static constexpr std::size_t k_back = 32;
  std::string m_text;
  std::size_t m_size;
};

#endif  // MOTA_FUZZ_XML_GUARDED_INPUT_HPP
