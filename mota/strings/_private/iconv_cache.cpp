#include <mota/strings/_private/iconv_cache.hpp>

#include <mota/exceptions/_private/throw.hpp>

#include <cerrno>
#include <cstring>
#include <string>

namespace MOTA_2_18 {
namespace strings {
namespace _private {

namespace {

const iconv_t invalid_descriptor = reinterpret_cast<iconv_t>(-1);

// A few conversions per thread: a program rarely uses more than two or three code pages, and
// the look-up is a handful of short name comparisons. When all places are taken the oldest
// descriptor is closed for the new one.
class descriptor_cache {
 public:
  descriptor_cache() = default;
  descriptor_cache(const descriptor_cache&) = delete;
  descriptor_cache& operator=(const descriptor_cache&) = delete;
  ~descriptor_cache() {
    for (entry& e : m_entries)
      if (e.cd != invalid_descriptor) iconv_close(e.cd);
  }

  iconv_t get(unsigned int key, const char* to, const char* from, const char* function) {
    for (entry& e : m_entries) {
      if (e.cd == invalid_descriptor || e.key != key) continue;
      if (key != 0 || (e.to == to && e.from == from)) return e.cd;
    }
    // The names are copied first (the process's own set comes from a buffer nl_langinfo may
    // reuse), so that nothing can fail once the descriptor is open.
    std::string to_name(to);
    std::string from_name(from);
    const iconv_t cd = iconv_open(to, from);
    if (cd == invalid_descriptor) {
      if (errno == EINVAL) {
        MOTA_THROW_AS(exceptions::runtime_error, "convertions not supported", function);
      }
      MOTA_THROW_AS(exceptions::runtime_error, "Unknown failure on iconv open", function);
    }
    entry& slot = m_entries[m_next];
    m_next = (m_next + 1) % places;
    if (slot.cd != invalid_descriptor) iconv_close(slot.cd);
    slot.cd = cd;
    slot.key = key;
    slot.to.swap(to_name);
    slot.from.swap(from_name);
    return cd;
  }

 private:
  static constexpr unsigned int places = 4;
  struct entry {
    std::string to;
    std::string from;
    iconv_t cd = invalid_descriptor;
    unsigned int key = 0;
  };
  entry m_entries[places];
  unsigned int m_next = 0;
};

}  // namespace

iconv_t cached_iconv(unsigned int key, const char* to, const char* from, const char* function) {
  thread_local descriptor_cache cache;
  return cache.get(key, to, from, function);
}

}  // namespace _private
}  // namespace strings
}  // namespace MOTA_2_18
