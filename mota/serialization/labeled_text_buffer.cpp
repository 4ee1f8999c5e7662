#include <mota/serialization/labeled_text_buffer.hpp>

#include <mota/exceptions/_private/throw.hpp>

#include <tuple>
#include <utility>

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

}  // namespace

labeled_text_buffer::labeled_text_buffer() = default;

labeled_text_buffer::labeled_text_buffer(const labeled_text_buffer& other)
    : labeled_serialize_buffer(other), m_entries(other.m_entries) {}

labeled_text_buffer::labeled_text_buffer(const std::string& text) {
  parse(text, 0);
}

labeled_text_buffer& labeled_text_buffer::operator=(const labeled_text_buffer& other) {
  assign(other);
  return *this;
}

labeled_text_buffer::~labeled_text_buffer() = default;

void labeled_text_buffer::assign(const labeled_serialize_buffer& other) {
  if (&other == this) return;
  if (const auto* same = dynamic_cast<const labeled_text_buffer*>(&other)) {
    assign(*same);
  } else {
    parse(other.as_str(), 0);
  }
}

void labeled_text_buffer::assign(const labeled_text_buffer& other) {
  if (&other == this) return;
  // Copy before replacing: `other` may be one of this buffer's own groups.
  entries copy(other.m_entries);
  m_entries.swap(copy);
}

void labeled_text_buffer::assign(const std::string& text) {
  parse(text, 0);
}

void labeled_text_buffer::assign(const char* text, int length) {
  if (text == nullptr || length <= 0) {
    parse(std::string(), 0);
  } else {
    parse(std::string(text, static_cast<std::size_t>(length)), 0);
  }
}

void labeled_text_buffer::parse(const std::string& text, unsigned int depth) {
  m_entries.clear();
  m_work.assign(text);
  m_work.reset_read();
  // The working copy of the text is dropped however the parse ends.
  struct release_work {
    serialize_text_buf& work;
    ~release_work() { work = serialize_text_buf(); }
  } release{m_work};

  while (!m_work.at_end()) {
    const std::string label = m_work.read_string();
    if (is_group_label(label)) {
      labeled_text_buffer& group = create_group(label);
      const std::string nested = m_work.read_string();
      if (depth >= max_depth) {
        MOTA_THROW_AS(exceptions::length_error, "Labeled text nested too deeply", "assign");
      }
      group.parse(nested, depth + 1);
    } else {
      add_value(label, types::variant(m_work.read_string()));
    }
  }
}

std::string labeled_text_buffer::as_str() const {
  serialize_text_buf out;
  for (const auto& item : m_entries) {
    const std::string& label = item.first;
    const labeled_text_buffer& group = item.second.first;
    const types::variant& value = item.second.second;
    if (!group.is_empty()) {
      if (value != types::nil) {
        out.append_string(label);
        out.append_string(value.as_string());
      }
      out.append_string(label + ' ');
      out.append_string(group.as_str());
    } else {
      out.append_string(label);
      out.append_string(value.as_string());
    }
  }
  return out.as_str();
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
  const labeled_text_buffer* group = retrieve_group(label);
  return group != nullptr && !group->as_str().empty();
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
  for (const auto& item : m_entries) {
    const labeled_text_buffer& own = item.second.first;
    if (&own == group || own.holds_group(group)) return true;
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
  for (const auto& item : other.m_entries) {
    const labeled_text_buffer& other_group = item.second.first;
    const types::variant& other_value = item.second.second;
    auto found = m_entries.find(item.first);
    if (found == m_entries.end()) {
      m_entries.emplace(item.first, item.second);
    } else if (!other_group.is_empty()) {
      if (other_value != types::nil) found->second.second = other_value;
      found->second.first.overlay(other_group);
    } else {
      // Replaced even by a nil value, unlike the branch above: intended.
      found->second.second = other_value;
    }
  }
}

}  // namespace serialization
}  // namespace MOTA_2_18
