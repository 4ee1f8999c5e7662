#include <mota/serialization/labeled_text_buffer.hpp>

#include <mota/serialization/_private/text_reader.hpp>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <limits>
#include <new>
#include <tuple>
#include <utility>
#include <vector>

namespace MOTA_2_18 {
namespace serialization {

namespace {

// The characters trimmed from both ends of a label by add_value and create_group.
constexpr const char* label_blanks = " \n\r\t";

std::string trimmed(const std::string& label) {
  const std::size_t first = label.find_first_not_of(label_blanks);
  if (first == std::string::npos) return std::string();
  const std::size_t last = label.find_last_not_of(label_blanks);
  return label.substr(first, last - first + 1);
}

// A label ending in a space announces that its payload is a nested group's text.
bool is_group_label(const std::string& label) {
  return !label.empty() && label.back() == ' ';
}

// The next string of the text encoding at `position` in the `size` bytes at `text`; empty when
// the position is exhausted.
std::string read_string(const char* text, std::size_t size, std::uint32_t& position) {
  std::size_t offset = 0;
  std::size_t length = 0;
  if (!_private::take_text_string(text, size, position, offset, length)) return std::string();
  return std::string(text + offset, length);
}

// The head of a string of `length` bytes: its length in decimal and a separator.
void append_length(std::string& out, std::size_t length) {
  char digits[24];
  const auto end = std::to_chars(digits, digits + sizeof digits, length).ptr;
  out.append(digits, end);
  out.push_back(serialize_text_buf::separator);
}

void append_item(std::string& out, const std::string& bytes) {
  append_length(out, bytes.size());
  out += bytes;
  out.push_back(serialize_text_buf::separator);
}

}  // namespace

labeled_text_buffer::labeled_text_buffer() = default;

labeled_text_buffer::labeled_text_buffer(const labeled_text_buffer& other)
    : labeled_serialize_buffer(other) {
  copy_entries(other.m_entries, m_entries);
}

labeled_text_buffer::labeled_text_buffer(const std::string& text) {
  parse(text.data(), text.size());
}

labeled_text_buffer& labeled_text_buffer::operator=(const labeled_text_buffer& other) {
  assign(other);
  return *this;
}

labeled_text_buffer::~labeled_text_buffer() {
  // Left to themselves, the groups' destructors would nest as deep as the tree. Instead every
  // entry map is emptied of its groups' maps before it dies, so each map dies holding only empty
  // groups. Should the worklist fail to grow, the map at hand dies as it is, each of its groups
  // running this same loop: one nested call for each failed allocation rather than terminate().
  if (m_entries.empty()) return;
  std::vector<entries> doomed;
  try {
    doomed.emplace_back();
  } catch (const std::bad_alloc&) {
    return;
  }
  doomed.back().swap(m_entries);
  while (!doomed.empty()) {
    entries last;
    last.swap(doomed.back());
    doomed.pop_back();
    for (auto& item : last) {
      entries& nested = item.second.first.m_entries;
      if (nested.empty()) continue;
      try {
        doomed.emplace_back();
      } catch (const std::bad_alloc&) {
        continue;
      }
      doomed.back().swap(nested);
    }
  }
}

void labeled_text_buffer::copy_entries(const entries& from, entries& to) {
  struct step {
    const entries* from;
    entries* to;
  };
  std::vector<step> pending{{&from, &to}};
  while (!pending.empty()) {
    const step next = pending.back();
    pending.pop_back();
    for (const auto& item : *next.from) {
      // Each group starts empty and is filled from the worklist, never by a nested copy.
      const auto made = next.to->emplace_hint(
          next.to->end(), std::piecewise_construct, std::forward_as_tuple(item.first),
          std::forward_as_tuple(std::piecewise_construct, std::tuple<>(),
                                std::forward_as_tuple(item.second.second)));
      const entries& nested = item.second.first.m_entries;
      if (!nested.empty()) pending.push_back({&nested, &made->second.first.m_entries});
    }
  }
}

void labeled_text_buffer::assign(const labeled_serialize_buffer& other) {
  if (&other == this) return;
  if (const auto* same = dynamic_cast<const labeled_text_buffer*>(&other)) {
    assign(*same);
  } else {
    const std::string text = other.as_str();
    parse(text.data(), text.size());
  }
}

void labeled_text_buffer::assign(const labeled_text_buffer& other) {
  if (&other == this) return;
  // Copy before replacing: `other` may be one of this buffer's own groups.
  entries copy;
  copy_entries(other.m_entries, copy);
  m_entries.swap(copy);
}

void labeled_text_buffer::assign(const std::string& text) {
  parse(text.data(), text.size());
}

void labeled_text_buffer::assign(const char* text, int length) {
  if (text == nullptr || length <= 0) {
    parse("", 0);
  } else {
    parse(text, static_cast<std::size_t>(length));
  }
}

void labeled_text_buffer::parse(const char* text, std::size_t size) {
  m_entries.clear();
  // A group's text is a stretch of its parent's, read in place: every level works on the one
  // text, in a frame of its own on this stack.
  struct frame {
    labeled_text_buffer* group;
    const char* text;
    std::size_t size;
    std::uint32_t position;
  };
  std::vector<frame> open{{this, text, size, 0}};
  while (!open.empty()) {
    frame& top = open.back();
    if (_private::text_at_end(top.size, top.position)) {
      open.pop_back();
      continue;
    }
    const std::string label = read_string(top.text, top.size, top.position);
    if (is_group_label(label)) {
      labeled_text_buffer& group = top.group->create_group(label);
      std::size_t offset = 0;
      std::size_t length = 0;
      const bool taken =
          _private::take_text_string(top.text, top.size, top.position, offset, length);
      const char* nested = taken ? top.text + offset : "";
      group.m_entries.clear();
      open.push_back({&group, nested, taken ? length : 0, 0});
    } else {
      top.group->add_value(label, types::variant(read_string(top.text, top.size, top.position)));
    }
  }
}

std::string labeled_text_buffer::as_str() const {
  // One walk that writes straight into the result. A group's length prefix is not known until
  // its text is written, so the text goes after a gap wide enough for any length; when the group
  // closes, its length is written at the end of the gap. A last sweep closes the gaps' unused
  // fronts, front to back, so the whole write stays linear however deep the tree.
  constexpr std::size_t gap = std::numeric_limits<std::size_t>::digits10 + 1;
  struct hole {
    std::size_t at;
    std::size_t length;
  };
  struct level {
    entries::const_iterator at;
    entries::const_iterator end;
    std::size_t hole;   // the gap before this group's text; unused for the whole tree
    std::size_t start;  // where this group's text begins
    std::size_t slack;  // unused gap bytes inside this group's text
  };
  std::string out;
  std::vector<hole> holes;  // in text order: a group's gap comes before those inside it
  std::vector<level> open{{m_entries.begin(), m_entries.end(), 0, 0, 0}};
  while (!open.empty()) {
    level& top = open.back();
    if (top.at == top.end) {
      if (open.size() == 1) break;
      const level closed = top;
      open.pop_back();
      const std::size_t length = out.size() - closed.start - closed.slack;
      char digits[gap];
      const std::size_t count =
          static_cast<std::size_t>(std::to_chars(digits, digits + gap, length).ptr - digits);
      hole& h = holes[closed.hole];
      h.length = gap - count;
      std::copy(digits, digits + count, &out[h.at + h.length]);
      open.back().slack += closed.slack + h.length;
      out.push_back(serialize_text_buf::separator);  // ends the group's text
      continue;
    }
    const auto& item = *top.at++;
    const std::string& label = item.first;
    const labeled_text_buffer& group = item.second.first;
    const types::variant& value = item.second.second;
    if (group.is_empty() || value != types::nil) {
      append_item(out, label);
      append_item(out, value.as_string());
      if (group.is_empty()) continue;
    }
    append_length(out, label.size() + 1);
    out += label;
    out.push_back(' ');
    out.push_back(serialize_text_buf::separator);
    holes.push_back({out.size(), 0});
    out.append(gap, '0');
    out.push_back(serialize_text_buf::separator);
    open.push_back(
        {group.m_entries.begin(), group.m_entries.end(), holes.size() - 1, out.size(), 0});
  }
  // Close the gaps: move each run of text between them left over the unused bytes.
  std::size_t write = holes.empty() ? out.size() : holes.front().at;
  for (std::size_t i = 0; i < holes.size(); ++i) {
    const std::size_t from = holes[i].at + holes[i].length;
    const std::size_t to = i + 1 < holes.size() ? holes[i + 1].at : out.size();
    if (write != from) std::memmove(&out[write], &out[from], to - from);
    write += to - from;
  }
  out.resize(write);
  return out;
}

labeled_text_buffer::entries::iterator labeled_text_buffer::find_or_add(std::string&& label,
                                                                        bool& added) {
  // Parsed text comes in label order, so a label past the last one is appended in one step.
  if (m_entries.empty() || m_entries.rbegin()->first < label) {
    added = true;
    return m_entries.emplace_hint(m_entries.end(), std::piecewise_construct,
                                  std::forward_as_tuple(std::move(label)), std::tuple<>());
  }
  auto found = m_entries.lower_bound(label);
  added = found == m_entries.end() || found->first != label;
  if (added) {
    found = m_entries.emplace_hint(found, std::piecewise_construct,
                                   std::forward_as_tuple(std::move(label)), std::tuple<>());
  }
  return found;
}

bool labeled_text_buffer::add_value(const std::string& label, const types::variant& value) {
  bool added = false;
  types::variant& stored = find_or_add(trimmed(label), added)->second.second;
  const bool replaced = !added && stored != types::nil;
  stored = value;
  return replaced;
}

labeled_text_buffer& labeled_text_buffer::create_group(const std::string& label) {
  bool added = false;
  return find_or_add(trimmed(label), added)->second.first;
}

bool labeled_text_buffer::has_label(const std::string& label) const {
  return m_entries.find(label) != m_entries.end();
}

bool labeled_text_buffer::has_value(const std::string& label) const {
  const auto found = m_entries.find(label);
  return found != m_entries.end() && found->second.second != types::nil;
}

bool labeled_text_buffer::has_group(const std::string& label) const {
  // A group's text is empty exactly when it has no entries: every entry writes a label item.
  const labeled_text_buffer* group = retrieve_group(label);
  return group != nullptr && !group->is_empty();
}

bool labeled_text_buffer::is_empty() const {
  return m_entries.empty();
}

types::variant labeled_text_buffer::retrieve_value(const std::string& label) const {
  const auto found = m_entries.find(label);
  if (found == m_entries.end()) return types::variant();
  return found->second.second;
}

const labeled_text_buffer* labeled_text_buffer::retrieve_group(const std::string& label) const {
  const auto found = m_entries.find(label);
  return found == m_entries.end() ? nullptr : &found->second.first;
}

labeled_text_buffer* labeled_text_buffer::retrieve_group(const std::string& label) {
  const auto found = m_entries.find(label);
  return found == m_entries.end() ? nullptr : &found->second.first;
}

labeled_text_buffer* labeled_text_buffer::create() const {
  auto* buffer = new labeled_text_buffer();
  buffer->delete_on_zero(true);
  return buffer;
}

labeled_text_buffer* labeled_text_buffer::clone() const {
  auto* buffer = new labeled_text_buffer(*this);
  buffer->delete_on_zero(true);
  return buffer;
}

bool labeled_text_buffer::holds_group(const labeled_text_buffer* group) const {
  std::vector<const entries*> pending{&m_entries};
  while (!pending.empty()) {
    const entries* next = pending.back();
    pending.pop_back();
    for (const auto& item : *next) {
      const labeled_text_buffer& own = item.second.first;
      if (&own == group) return true;
      if (!own.is_empty()) pending.push_back(&own.m_entries);
    }
  }
  return false;
}

void labeled_text_buffer::overlay(const labeled_text_buffer& other) {
  if (&other == this) return;  // every entry would be merged with itself
  if (holds_group(&other)) {
    // Merging a buffer's own group into it would change `other` while it is walked.
    const labeled_text_buffer snapshot(other);
    overlay(snapshot);
    return;
  }
  // Pairs of groups at the same label path, merged entry by entry in label order as far down as
  // `other` goes. Once `other` is not below this buffer, no pair further down can be one group
  // or hold the other, so that is checked once, above.
  struct level {
    entries* into;
    entries::const_iterator at;
    entries::const_iterator end;
  };
  std::vector<level> open{{&m_entries, other.m_entries.begin(), other.m_entries.end()}};
  while (!open.empty()) {
    level& top = open.back();
    if (top.at == top.end) {
      open.pop_back();
      continue;
    }
    const auto& item = *top.at++;
    const labeled_text_buffer& other_group = item.second.first;
    const types::variant& other_value = item.second.second;
    entries& into = *top.into;
    const auto found = into.find(item.first);
    if (found == into.end()) {
      into.emplace(item.first, item.second);
    } else if (!other_group.is_empty()) {
      if (other_value != types::nil) found->second.second = other_value;
      open.push_back({&found->second.first.m_entries, other_group.m_entries.begin(),
                      other_group.m_entries.end()});
    } else {
      // Replaced even by a nil value, unlike the branch above: intended.
      found->second.second = other_value;
    }
  }
}

}  // namespace serialization
}  // namespace MOTA_2_18
