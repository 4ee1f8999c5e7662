#include <mota/parser/xml_parser.hpp>

#include <mota/generic/convert/str_to_x.hpp>

#include <array>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif
#include <cstring>
#include <utility>

namespace MOTA_2_18 {
namespace parser {

namespace {

using strings::ustring8;
using iterator = xml_parser::iterator;
using error = xml_parser::parse_error;

// Byte classes, C locale: letters are A-Z and a-z only, bytes above 127 are nothing.
enum : unsigned char {
  k_space = 1,       // tab, line feed, carriage return, space
  k_alpha = 2,       // may start a name
  k_name = 4,        // may continue a name: letters, digits, "_"
  k_text_stop = 8,   // needs a look in character data: "<", "&" or white space
  k_value_stop = 16  // needs a look in attribute values: "<", "&", quotes
};

constexpr std::array<unsigned char, 256> make_classes() {
  std::array<unsigned char, 256> table{};
  for (int c = 'a'; c <= 'z'; ++c)
    table[c] = k_alpha | k_name;
  for (int c = 'A'; c <= 'Z'; ++c)
    table[c] = k_alpha | k_name;
  for (int c = '0'; c <= '9'; ++c)
    table[c] = k_name;
  table['_'] = k_name;
  for (unsigned char c : {'\t', '\n', '\r', ' '})
    table[c] = k_space | k_text_stop;
  table['<'] = k_text_stop | k_value_stop;
  table['&'] = k_text_stop | k_value_stop;
  table['"'] = k_value_stop;
  table['\''] = k_value_stop;
  return table;
}

constexpr std::array<unsigned char, 256> k_classes = make_classes();

inline unsigned char class_of(char c) {
  return k_classes[static_cast<unsigned char>(c)];
}
inline bool is_space(char c) {
  return (class_of(c) & k_space) != 0;
}

// Attribute names per start tag checked by a linear look before the set takes over.
constexpr std::size_t k_few_names = 8;

#if defined(__SSE2__)
inline int stop_mask(__m128i stops) {
  return _mm_movemask_epi8(stops);
}

inline __m128i space_bytes(__m128i v) {
  const __m128i sp = _mm_cmpeq_epi8(v, _mm_set1_epi8(' '));
  const __m128i tab = _mm_cmpeq_epi8(v, _mm_set1_epi8('\t'));
  const __m128i lf = _mm_cmpeq_epi8(v, _mm_set1_epi8('\n'));
  const __m128i cr = _mm_cmpeq_epi8(v, _mm_set1_epi8('\r'));
  return _mm_or_si128(_mm_or_si128(sp, tab), _mm_or_si128(lf, cr));
}

// Skips character data that needs no closer look: stops at "<", "&", or a white-space byte
// followed by another one. Near the end of the input it stops early and leaves the rest to
// the byte-wise loop.
inline const char* skip_plain_text(const char* p, const char* e) {
  const __m128i lt = _mm_set1_epi8('<');
  const __m128i amp = _mm_set1_epi8('&');
  while (e - p > 16) {
    const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    const __m128i next = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + 1));
    const __m128i marks = _mm_or_si128(_mm_cmpeq_epi8(v, lt), _mm_cmpeq_epi8(v, amp));
    const int mask =
        stop_mask(_mm_or_si128(marks, _mm_and_si128(space_bytes(v), space_bytes(next))));
    if (mask != 0) return p + __builtin_ctz(static_cast<unsigned>(mask));
    p += 16;
  }
  return p;
}

// Skips attribute-value bytes other than "<", "&" and `quote`.
inline const char* skip_plain_value(const char* p, const char* e, char quote) {
  const __m128i lt = _mm_set1_epi8('<');
  const __m128i amp = _mm_set1_epi8('&');
  const __m128i q = _mm_set1_epi8(quote);
  while (e - p >= 16) {
    const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    const __m128i hits = _mm_or_si128(_mm_or_si128(_mm_cmpeq_epi8(v, lt), _mm_cmpeq_epi8(v, amp)),
                                      _mm_cmpeq_epi8(v, q));
    const int mask = stop_mask(hits);
    if (mask != 0) return p + __builtin_ctz(static_cast<unsigned>(mask));
    p += 16;
  }
  return p;
}
#else
inline const char* skip_plain_text(const char* p, const char*) {
  return p;
}
inline const char* skip_plain_value(const char* p, const char*, char) {
  return p;
}
#endif

// First occurrence of the three bytes `term` in [p, e), or e.
const char* find_terminator(const char* p, const char* e, const char* term) {
  while (e - p >= 3) {
    const void* hit = std::memchr(p, term[0], static_cast<std::size_t>(e - p) - 2);
    if (hit == nullptr) break;
    p = static_cast<const char*>(hit);
    if (p[1] == term[1] && p[2] == term[2]) return p;
    ++p;
  }
  return e;
}

template <std::size_t N>
bool starts_with(const char* p, const char* e, const char (&prefix)[N]) {
  return static_cast<std::size_t>(e - p) >= N - 1 && std::memcmp(p, prefix, N - 1) == 0;
}

// The bytes of an iterator range as a pointer pair; both null for an empty or reversed range.
struct byte_range {
  const char* first;
  const char* last;
  byte_range(const iterator& pos, const iterator& end)
      : first(end - pos > 0 ? &*pos : nullptr), last(end - pos > 0 ? first + (end - pos) : first) {}
};

}  // namespace

// -- parse_error ------------------------------------------------------------------------------

xml_parser::parse_error::parse_error() : type(no_error), line(0) {}

xml_parser::parse_error::parse_error(error_type kind, std::uint32_t at_line,
                                     const strings::ustring8& detail)
    : type(kind), line(at_line), text(detail) {}

xml_parser::parse_error::parse_error(const parse_error& other) = default;
xml_parser::parse_error& xml_parser::parse_error::operator=(const parse_error& other) = default;
xml_parser::parse_error::~parse_error() = default;

// -- construction and handlers ----------------------------------------------------------------

namespace {

template <class Handler>
std::unique_ptr<Handler> clone_of(const Handler* handler) {
  return std::unique_ptr<Handler>(handler != nullptr ? handler->do_clone() : nullptr);
}

}  // namespace

xml_parser::xml_parser() : m_line(0), m_in_tag(false), m_few_count(0) {}

xml_parser::xml_parser(const xml_parser& other)
    : m_on_element_start(clone_of(other.m_on_element_start.get())),
      m_on_element_end(clone_of(other.m_on_element_end.get())),
      m_on_attribute(clone_of(other.m_on_attribute.get())),
      m_on_character(clone_of(other.m_on_character.get())),
      m_on_space(clone_of(other.m_on_space.get())),
      m_on_comment(clone_of(other.m_on_comment.get())),
      m_elements(other.m_elements),
      m_attribute_names(other.m_attribute_names),
      m_line(other.m_line),
      m_in_tag(other.m_in_tag),
      m_few_names(other.m_few_names),
      m_few_count(other.m_few_count) {}

xml_parser& xml_parser::operator=(const xml_parser& other) {
  if (this != &other) {
    xml_parser copy(other);
    std::swap(m_on_element_start, copy.m_on_element_start);
    std::swap(m_on_element_end, copy.m_on_element_end);
    std::swap(m_on_attribute, copy.m_on_attribute);
    std::swap(m_on_character, copy.m_on_character);
    std::swap(m_on_space, copy.m_on_space);
    std::swap(m_on_comment, copy.m_on_comment);
    std::swap(m_elements, copy.m_elements);
    std::swap(m_attribute_names, copy.m_attribute_names);
    m_line = copy.m_line;
    m_in_tag = copy.m_in_tag;
    std::swap(m_few_names, copy.m_few_names);
    m_few_count = copy.m_few_count;
  }
  return *this;
}

xml_parser::~xml_parser() = default;

void xml_parser::set_element_start_handler(const text_handler& handler) {
  m_on_element_start = clone_of(&handler);
}
void xml_parser::set_element_start_handler(const text_handler* handler) {
  m_on_element_start = clone_of(handler);
}
void xml_parser::set_element_end_handler(const text_handler& handler) {
  m_on_element_end = clone_of(&handler);
}
void xml_parser::set_element_end_handler(const text_handler* handler) {
  m_on_element_end = clone_of(handler);
}
void xml_parser::set_attribute_handler(const attribute_handler& handler) {
  m_on_attribute = clone_of(&handler);
}
void xml_parser::set_attribute_handler(const attribute_handler* handler) {
  m_on_attribute = clone_of(handler);
}
void xml_parser::set_character_handler(const text_handler& handler) {
  m_on_character = clone_of(&handler);
}
void xml_parser::set_character_handler(const text_handler* handler) {
  m_on_character = clone_of(handler);
}
void xml_parser::set_space_handler(const text_handler& handler) {
  m_on_space = clone_of(&handler);
}
void xml_parser::set_space_handler(const text_handler* handler) {
  m_on_space = clone_of(handler);
}
void xml_parser::set_comment_handler(const text_handler& handler) {
  m_on_comment = clone_of(&handler);
}
void xml_parser::set_comment_handler(const text_handler* handler) {
  m_on_comment = clone_of(handler);
}

// -- entry points ---------------------------------------------------------------------------

xml_parser::parse_error xml_parser::parse(const strings::ustring8& text) {
  iterator pos = text.begin();
  iterator end = text.end();
  return do_parse(pos, end);
}

xml_parser::parse_error xml_parser::parse(iterator first, iterator last) {
  return do_parse(first, last);
}

xml_parser::parse_error xml_parser::do_parse(iterator& pos, iterator& end) {
  m_line = 0;
  m_in_tag = false;
  const byte_range bytes(pos, end);
  const char* p = bytes.first;
  const char* const e = bytes.last;
  parse_error result;
  try {
    scan_body(p, e);
  } catch (const parse_error& failure) {
    result = failure;
  }
  pos += p - bytes.first;
  if (result.type == error::no_error && !m_elements.empty())
    result = parse_error(error::unexpected_eof, 0, ustring8());
  return result;
}

// Header, then the main loop; returns normally at the end of the input and throws
// parse_error on any fault.
void xml_parser::scan_body(const char*& p, const char* e) {
  // Three bytes before "<" are skipped unexamined so that a byte-order mark passes; any
  // three bytes pass the same way, which is intended.
  if (e - p >= 4 && p[3] == '<') p += 3;
  if (!starts_with(p, e, "<?xml")) throw parse_error(error::invalid_header, 0, ustring8());
  p += 5;
  for (;;) {
    if (p == e) throw parse_error(error::no_root_element, 0, ustring8());
    const char c = *p;
    if (c == '?' && e - p >= 2 && p[1] == '>') break;
    if (c == '<' || c == '>') throw parse_error(error::invalid_header, 0, ustring8());
    ++p;
  }
  p += 2;
  skip_whitespace(p, e);
  if (p == e) fail(error::no_root_element, ustring8());

  bool root_seen = false;
  for (;;) {
    const char* const run = skip_whitespace(p, e);
    if (run != p && !m_in_tag && m_on_space) {
      m_text.assign(run, static_cast<std::size_t>(p - run));
      m_on_space->invoke(m_text);
    }
    if (p == e) return;

    const char c = *p;
    if (m_in_tag) {
      if (c == '>') {
        m_in_tag = false;
        ++p;
      } else if (c == '/') {
        scan_close(p, e);
      } else if (c == '<') {
        fail(error::unexpected_character, ustring8(1, c));
      } else {
        scan_attribute(p, e);
      }
    } else if (c == '<') {
      scan_markup(p, e, root_seen);
    } else if (c == '>') {
      fail(error::unexpected_character, ustring8(1, c));
    } else {
      scan_text(p, e);
    }
  }
}

// -- main-loop steps (each leaves the cursor on the next byte to read) -----------------------

// "/" inside a tag: "/>" closes the innermost element.
void xml_parser::scan_close(const char*& p, const char* e) {
  ++p;
  if (p == e || *p != '>') fail_at(p, e);
  if (m_elements.empty()) fail(error::mismatched_end_element, ustring8());
  if (m_on_element_end) m_on_element_end->invoke(m_elements.top());
  m_in_tag = false;
  m_elements.pop();
  m_few_count = 0;
  m_attribute_names.clear();
  ++p;
}

// "<" outside a tag: CDATA section, comment, end tag or start tag.
void xml_parser::scan_markup(const char*& p, const char* e, bool& root_seen) {
  m_in_tag = true;
  if (e - p >= 2 && p[1] == '/') {
    p += 2;
    scan_end_tag(p, e);
  } else if (starts_with(p, e, "<!--")) {
    const char* const first = p + 4;
    const char* const stop = find_terminator(first, e, "-->");
    if (stop == e) fail(error::unexpected_eof, ustring8());
    p = stop + 3;
    m_in_tag = false;
    if (m_on_comment) {
      m_text.assign(first, static_cast<std::size_t>(stop - first));
      m_on_comment->invoke(m_text);
    }
  } else if (starts_with(p, e, "<![CDATA[")) {
    const char* const first = p + 9;
    const char* const stop = find_terminator(first, e, "]]>");
    if (stop == e) fail(error::unexpected_eof, ustring8());
    p = stop + 3;
    m_in_tag = false;
    if (m_on_character) {
      m_text.assign(first, static_cast<std::size_t>(stop - first));
      m_on_character->invoke(m_text);
    }
  } else {
    ++p;
    if (m_elements.empty() && root_seen) fail(error::data_after_root, ustring8());
    scan_name(p, e, m_name);
    ++p;
    m_elements.push(m_name);
    m_few_count = 0;
    m_attribute_names.clear();
    root_seen = true;
    if (m_on_element_start) m_on_element_start->invoke(m_elements.top());
  }
}

// After "</". The in-tag flag stays set: the ">" rule ends the tag, and whatever stands
// before it is read as attributes of the end tag, which is intended.
void xml_parser::scan_end_tag(const char*& p, const char* e) {
  scan_name(p, e, m_name);
  ++p;
  if (!m_elements.empty()) {
    if (m_elements.top() != m_name) fail(error::mismatched_end_element, m_name);
    m_elements.pop();
    m_few_count = 0;
    m_attribute_names.clear();
  }
  if (p == e) fail(error::unexpected_eof, ustring8());
  if (m_on_element_end) m_on_element_end->invoke(m_name);
}

// Any other byte inside a tag: name = "value".
void xml_parser::scan_attribute(const char*& p, const char* e) {
  scan_name(p, e, m_name);
  ++p;
  if (seen_attribute(m_name)) fail(error::attribute_redefined, m_name);
  skip_whitespace(p, e);
  if (p == e || *p != '=') fail(error::missing_equals, m_name);
  ++p;
  skip_whitespace(p, e);
  scan_attrib_value(p, e, m_value);
  if (m_on_attribute) m_on_attribute->invoke(m_name, m_value);
  if (p == e) fail(error::missing_quote, m_name);
  ++p;
}

// Records `name` among the attributes of the current start tag; true when it was there.
bool xml_parser::seen_attribute(const strings::ustring8& name) {
  if (m_attribute_names.empty()) {
    for (std::size_t i = 0; i < m_few_count; ++i)
      if (m_few_names[i] == name) return true;
    if (m_few_count < k_few_names) {
      if (m_few_names.size() == m_few_count)
        m_few_names.push_back(name);
      else
        m_few_names[m_few_count] = name;
      ++m_few_count;
      return false;
    }
    m_attribute_names.insert(m_few_names.begin(), m_few_names.begin() + m_few_count);
  }
  return !m_attribute_names.insert(name).second;
}

// Any other byte outside a tag: character data up to "<", the end, or a run of two or more
// white-space bytes. A single white-space byte between words stays in the text.
void xml_parser::scan_text(const char*& p, const char* e) {
  m_text.clear();
  const char* q = p;
  const char* start = q;
  for (;;) {
    q = skip_plain_text(q, e);
    if (q == e) break;
    const char c = *q;
    if ((class_of(c) & k_text_stop) == 0) {
      ++q;
      continue;
    }
    if (c == '<') break;
    if (c == '&') {
      m_text.append(start, static_cast<std::size_t>(q - start));
      p = q;
      scan_character(p, e, m_text);
      start = q = p + 1;
      continue;
    }
    if (q + 1 != e && is_space(q[1])) break;
    ++q;
  }
  m_text.append(start, static_cast<std::size_t>(q - start));
  p = q;
  if (m_on_character) m_on_character->invoke(m_text);
}

// -- scanning routines (each leaves the cursor on the last byte it consumed) ----------------

void xml_parser::scan_name(const char*& p, const char* e, strings::ustring8& out) {
  if (p == e || (class_of(*p) & k_alpha) == 0) fail_at(p, e);
  const char* q = p + 1;
  while (q != e && (class_of(*q) & k_name) != 0)
    ++q;
  out.assign(p, static_cast<std::size_t>(q - p));
  p = q - 1;
}

void xml_parser::scan_attrib_value(const char*& p, const char* e, strings::ustring8& out) {
  if (p == e || (*p != '"' && *p != '\'')) fail(error::missing_quote, ustring8());
  const char quote = *p;
  out.clear();
  const char* q = p + 1;
  const char* start = q;
  for (;;) {
    q = skip_plain_value(q, e, quote);
    if (q == e) break;
    const char c = *q;
    if ((class_of(c) & k_value_stop) == 0) {
      ++q;
      continue;
    }
    if (c == quote) break;
    if (c == '&') {
      out.append(start, static_cast<std::size_t>(q - start));
      p = q;
      scan_character(p, e, out);
      start = q = p + 1;
      continue;
    }
    if (c == '<') {
      p = q;
      fail(error::unexpected_character, ustring8(1, c));
    }
    ++q;  // the other quote byte
  }
  out.append(start, static_cast<std::size_t>(q - start));
  p = q;
}

namespace {

// Steps over `rest` byte by byte; returns false with `p` on the first byte that differs (or
// at the end). On success `p` is on the last byte of `rest`.
bool match(const char*& p, const char* e, const char* rest) {
  for (; *rest != '\0'; ++rest) {
    ++p;
    if (p == e || *p != *rest) return false;
  }
  return true;
}

bool is_digit_of(char c, types::radix_t::base radix) {
  if (c >= '0' && c <= '9') return true;
  return radix == types::radix_t::hexadecimal && ((c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'));
}

}  // namespace

void xml_parser::scan_character(const char*& p, const char* e, strings::ustring8& out) {
  ++p;  // past "&"
  if (p == e) fail_at(p, e);
  char decoded = 0;
  bool ok = true;
  switch (*p) {
    case 'a':
      ++p;
      if (p != e && *p == 'm') {
        ok = match(p, e, "p;");
        decoded = '&';
      } else if (p != e && *p == 'p') {
        ok = match(p, e, "os;");
        decoded = '\'';
      } else {
        ok = false;
      }
      break;
    case 'g':
      ok = match(p, e, "t;");
      decoded = '>';
      break;
    case 'l':
      ok = match(p, e, "t;");
      decoded = '<';
      break;
    case 'n':
      // An ordinary space rather than U+00A0, which is intended.
      ok = match(p, e, "bsp;");
      decoded = ' ';
      break;
    case 'q':
      ok = match(p, e, "uot;");
      decoded = '"';
      break;
    case '#': {
      ++p;
      // Decimal digits go to the conversion with radix detection, so it settles what a
      // leading 0 means.
      types::radix_t::base radix = types::radix_t::detect;
      if (p != e && *p == 'x') {
        radix = types::radix_t::hexadecimal;
        ++p;
      }
      const char* const digits = p;
      while (p != e && is_digit_of(*p, radix))
        ++p;
      if (p == e || *p != ';') fail_at(p, e);
      const auto count = static_cast<unsigned int>(p - digits);
      const char* const text = count != 0 ? digits : "";
      decoded = static_cast<char>(generic::convert::str_to_uint8(text, count, radix, false));
      break;
    }
    default:
      fail(error::unknown_entity, ustring8());
  }
  if (!ok) fail_at(p, e);
  out.push_back(decoded);
}

const char* xml_parser::skip_whitespace(const char*& p, const char* e) {
  const char* const first = p;
  const char* q = p;
  std::uint32_t lines = 0;
  while (q != e && is_space(*q)) {
    lines += *q == '\n' ? 1u : 0u;
    ++q;
  }
  m_line += lines;
  p = q;
  return first;
}

// -- the same routines over iterators -------------------------------------------------------

strings::ustring8 xml_parser::parse_name(iterator& pos, const iterator& end) {
  const byte_range bytes(pos, end);
  const char* p = bytes.first;
  ustring8 out;
  scan_name(p, bytes.last, out);
  pos += p - bytes.first;
  return out;
}

strings::ustring8 xml_parser::parse_attrib_value(iterator& pos, const iterator& end) {
  const byte_range bytes(pos, end);
  const char* p = bytes.first;
  ustring8 out;
  scan_attrib_value(p, bytes.last, out);
  pos += p - bytes.first;
  return out;
}

strings::ustring8 xml_parser::parse_character(iterator& pos, const iterator& end) {
  const byte_range bytes(pos, end);
  const char* p = bytes.first;
  ustring8 out;
  scan_character(p, bytes.last, out);
  pos += p - bytes.first;
  return out;
}

strings::ustring8 xml_parser::parse_whitespace(iterator& pos, const iterator& end) {
  const byte_range bytes(pos, end);
  const char* p = bytes.first;
  const char* const first = skip_whitespace(p, bytes.last);
  pos += p - bytes.first;
  return ustring8(first, static_cast<std::size_t>(p - first));
}

bool xml_parser::is_white_space(const iterator& pos) const {
  return is_space(*pos);
}

void xml_parser::fail(parse_error::error_type kind, const strings::ustring8& detail) const {
  throw parse_error(kind, m_line, detail);
}

// unexpected_character naming the byte at `p`; empty text when the input has ended there.
void xml_parser::fail_at(const char* p, const char* e) const {
  fail(error::unexpected_character, p == e ? ustring8() : ustring8(1, *p));
}

}  // namespace parser
}  // namespace MOTA_2_18
