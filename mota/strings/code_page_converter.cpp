#include <mota/exceptions/_private/throw.hpp>
#include <mota/strings/code_page_converter.hpp>

#include <iconv.h>

#include <algorithm>
#include <cerrno>

namespace MOTA_2_18 {
namespace strings {

namespace {

const iconv_t invalid_descriptor = reinterpret_cast<iconv_t>(-1);

// No character of the library's code pages is longer than this.
constexpr std::size_t longest_character = 8;

void* open_descriptor(const std::string& to, const std::string& from) {
  const iconv_t cd = iconv_open(to.c_str(), from.c_str());
  if (cd == invalid_descriptor) {
    if (errno == EINVAL) {
      MOTA_THROW_AS(exceptions::runtime_error, "convertions not supported", "code_page_converter");
    }
    MOTA_THROW_AS(exceptions::runtime_error, "Unknown failure on iconv open",
                  "code_page_converter");
  }
  return cd;
}

}  // namespace

code_page_converter::code_page_converter(const code_page& from, const code_page& to, bool strict)
    : m_convert(nullptr), m_validate(nullptr), m_strict(strict) {
  const std::string source = from.to_system_type(from.type());
  const std::string target = to.to_system_type(to.type());
  m_convert = open_descriptor(target, source);
  try {
    m_validate = open_descriptor("UTF-8", source);
  } catch (...) {
    iconv_close(static_cast<iconv_t>(m_convert));
    throw;
  }
}

code_page_converter::~code_page_converter() {
  iconv_close(static_cast<iconv_t>(m_convert));
  iconv_close(static_cast<iconv_t>(m_validate));
}

bool code_page_converter::convert(const char* data, std::size_t size, std::string& out) {
  if (m_fault != no_fault) return false;
  m_pending.append(data, size);
  return run(false, out);
}

bool code_page_converter::finish(std::string& out) {
  if (m_fault != no_fault) return false;
  if (!run(true, out)) return false;
  // Return to the initial shift state, for the code pages that have one.
  char buffer[64];
  char* to = buffer;
  std::size_t room = sizeof buffer;
  iconv(static_cast<iconv_t>(m_convert), nullptr, nullptr, &to, &room);
  out.append(buffer, static_cast<std::size_t>(to - buffer));
  return true;
}

std::size_t code_page_converter::character_length(const char* data, std::size_t size,
                                                  bool& incomplete) {
  const iconv_t cd = static_cast<iconv_t>(m_validate);
  incomplete = false;
  for (std::size_t length = 1; length <= std::min(size, longest_character); ++length) {
    iconv(cd, nullptr, nullptr, nullptr, nullptr);
    char* in = const_cast<char*>(data);
    std::size_t in_left = length;
    char buffer[64];
    char* to = buffer;
    std::size_t room = sizeof buffer;
    if (iconv(cd, &in, &in_left, &to, &room) != static_cast<std::size_t>(-1)) return length;
    if (errno != EINVAL) return 0;
  }
  incomplete = size < longest_character;
  return 0;
}

bool code_page_converter::stop_or_substitute(fault_type fault, std::size_t at, std::string& out) {
  if (m_strict) {
    m_fault = fault;
    m_fault_offset = m_done + at;
    m_pending.clear();
    return false;
  }
  out += '?';
  ++m_substitutions;
  return true;
}

bool code_page_converter::run(bool last, std::string& out) {
  const iconv_t cd = static_cast<iconv_t>(m_convert);
  char* const begin = &m_pending[0];
  char* in = begin;
  std::size_t in_left = m_pending.size();
  char buffer[16384];
  while (in_left > 0) {
    char* to = buffer;
    std::size_t room = sizeof buffer;
    const std::size_t result = iconv(cd, &in, &in_left, &to, &room);
    const int error = errno;
    out.append(buffer, static_cast<std::size_t>(to - buffer));
    if (result != static_cast<std::size_t>(-1) || error == E2BIG) continue;
    const std::size_t at = static_cast<std::size_t>(in - begin);
    if (error == EILSEQ || error == EINVAL) {
      bool incomplete = false;
      const std::size_t length = character_length(in, in_left, incomplete);
      if (incomplete && !last) break;  // completed by the next piece
      const fault_type fault = length > 0   ? unrepresentable
                               : incomplete ? truncated_sequence
                                            : invalid_sequence;
      if (!stop_or_substitute(fault, at, out)) return false;
      const std::size_t skip =
          fault == truncated_sequence ? in_left : std::max<std::size_t>(length, 1);
      in += skip;
      in_left -= skip;
      continue;
    }
    MOTA_THROW_AS(exceptions::runtime_error, "Unknown iconv error", "convert");
  }
  const std::size_t consumed = static_cast<std::size_t>(in - begin);
  m_done += consumed;
  m_pending.erase(0, consumed);
  return true;
}

}  // namespace strings
}  // namespace MOTA_2_18
