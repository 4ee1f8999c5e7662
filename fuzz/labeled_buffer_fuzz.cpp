// Labeled buffers built through their interface by operations the input chooses (values under
// labels with blanks, groups, chains of groups thousands deep, overlays, assignments, clones,
// reads of written and of raw text). While a tree stays shallow, a plain recursive model follows
// every operation and the tree must match it label for label. Every tree, shallow or deep, must
// write the same text as its clone and as its copy, read back to a tree that writes the same text
// again, and be left unchanged in text by overlaying its own read-back form.
#include <mota/serialization/labeled_text_buffer.hpp>
#include <mota/types/variant.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using mota::serialization::labeled_serialize_buffer;
using mota::serialization::labeled_text_buffer;
using mota::types::variant;

void check(bool condition) {
  if (!condition) std::abort();
}

// Reads the input front to back; zeros once it is used up.
class reader {
 public:
  reader(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}
  bool empty() const { return m_size == 0; }
  unsigned int byte() {
    if (m_size == 0) return 0;
    --m_size;
    return *m_data++;
  }
  unsigned int number(unsigned int bytes) {
    unsigned int value = 0;
    for (unsigned int i = 0; i < bytes; ++i)
      value = value << 8 | byte();
    return value;
  }
  std::string text(std::size_t most) {
    const std::size_t length = std::min<std::size_t>({byte(), most, m_size});
    std::string result(reinterpret_cast<const char*>(m_data), length);
    m_data += length;
    m_size -= length;
    return result;
  }

 private:
  const std::uint8_t* m_data;
  std::size_t m_size;
};

// Labels that trim to the same few names in different ways, and some that do not trim at all.
const char* const labels[] = {"a",  "b",  " a",     "a ", "\ta\r\n", "",         " ",   "g",
                              "g ", "\r", "x\x01y", "\v", "b\x01",   "\xc3\xa9", "a b", "zz"};
constexpr unsigned int label_count = sizeof labels / sizeof labels[0];

std::string pick_label(reader& in) {
  const unsigned int choice = in.byte();
  if (choice == 255) return in.text(8);
  return labels[choice % label_count];
}

variant pick_value(reader& in) {
  switch (in.byte() % 8) {
    case 0:
      return variant();
    case 1:
      return variant(static_cast<int>(in.number(2)) - 30000);
    case 2:
      return variant(static_cast<double>(in.number(2)) / 8.0);
    case 3:
      return variant(in.byte() % 2 == 0);
    case 4:
      return variant(std::string());
    case 5:
      return variant(std::string("one\x01two"));
    default:
      return variant(in.text(16));
  }
}

// The model: entries sorted by label as the tree's map sorts them, each with its value's text
// (or nil) and its group.
struct entry {
  std::string label;
  bool nil = true;
  std::string value;
  std::vector<entry> group;
};
using model = std::vector<entry>;

std::string trimmed(const std::string& label) {
  const char* const blanks = " \n\r\t";
  const std::size_t first = label.find_first_not_of(blanks);
  if (first == std::string::npos) return std::string();
  return label.substr(first, label.find_last_not_of(blanks) - first + 1);
}

model::iterator find(model& m, const std::string& label) {
  const auto at = std::lower_bound(
      m.begin(), m.end(), label, [](const entry& e, const std::string& l) { return e.label < l; });
  return at != m.end() && at->label == label ? at : m.end();
}

entry& find_or_add(model& m, const std::string& label) {
  auto at = std::lower_bound(m.begin(), m.end(), label,
                             [](const entry& e, const std::string& l) { return e.label < l; });
  if (at == m.end() || at->label != label) {
    at = m.insert(at, entry());
    at->label = label;
  }
  return *at;
}

bool model_add(model& m, const std::string& label, const variant& value) {
  entry& e = find_or_add(m, trimmed(label));
  const bool replaced = !e.nil;
  e.nil = value == mota::types::nil;
  e.value = value.as_string();
  return replaced;
}

void model_overlay(model& into, const model& other) {
  for (const entry& o : other) {
    const auto found = find(into, o.label);
    if (found == into.end()) {
      find_or_add(into, o.label) = o;
    } else if (!o.group.empty()) {
      if (!o.nil) {
        found->nil = false;
        found->value = o.value;
      }
      model_overlay(found->group, o.group);
    } else {
      // An empty group's value replaces even when nil.
      found->nil = o.nil;
      found->value = o.value;
    }
  }
}

void put(std::string& out, const std::string& bytes) {
  out += std::to_string(bytes.size());
  out += '\x01';
  out += bytes;
  out += '\x01';
}

std::string model_text(const model& m) {
  std::string out;
  for (const entry& e : m) {
    if (!e.group.empty()) {
      if (!e.nil) {
        put(out, e.label);
        put(out, e.value);
      }
      put(out, e.label + ' ');
      put(out, model_text(e.group));
    } else {
      put(out, e.label);
      put(out, e.value);
    }
  }
  return out;
}

// What reading the written text gives: every value written becomes a string, so a nil value
// beside an empty group comes back as an empty string.
model model_read_back(const model& m) {
  model out = m;
  for (entry& e : out) {
    if (e.group.empty()) {
      e.nil = false;
    } else {
      e.group = model_read_back(e.group);
    }
  }
  return out;
}

void check_against(const labeled_text_buffer& tree, const model& m) {
  check(tree.is_empty() == m.empty());
  for (const entry& e : m) {
    check(tree.has_label(e.label));
    check(tree.has_value(e.label) == !e.nil);
    const variant value = tree.retrieve_value(e.label);
    check((value == mota::types::nil) == e.nil);
    check(value.as_string() == e.value);
    check(tree.has_group(e.label) == !e.group.empty());
    const labeled_text_buffer* group = tree.retrieve_group(e.label);
    check(group != nullptr);
    check_against(*group, e.group);
  }
}

// A tree with its model, which is followed only while the tree is shallow enough for the
// model's recursion.
struct subject {
  labeled_text_buffer tree;
  model shadow;
  bool modeled = true;
  std::size_t depth = 0;  // at least the tree's depth
  std::size_t size = 0;   // at least the tree's number of entries, all groups included
};

constexpr std::size_t model_depth = 48;
// Entries a tree may reach. Copies into a tree's own groups would double it at every step.
constexpr std::size_t most_entries = 5000;

// The group reached from the root by following labels exactly, the model's group beside it
// (while modeled), and how deep it is.
struct place {
  labeled_text_buffer* tree;
  model* shadow;
  std::size_t depth;
  std::vector<const labeled_text_buffer*> above;  // the groups from the root down, without it
};

place locate(subject& s, reader& in) {
  place at{&s.tree, s.modeled ? &s.shadow : nullptr, 0, {}};
  for (unsigned int steps = in.byte() % 5; steps > 0; --steps) {
    const std::string label = pick_label(in);
    labeled_text_buffer* group = at.tree->retrieve_group(label);
    if (group == nullptr) break;
    at.above.push_back(at.tree);
    at.tree = group;
    if (at.shadow != nullptr) {
      const auto found = find(*at.shadow, label);
      check(found != at.shadow->end());
      at.shadow = &found->group;
    }
    ++at.depth;
  }
  return at;
}

void stop_modeling(subject& s) {
  s.modeled = false;
  s.shadow.clear();
}

// Properties of any tree, however deep: none of these walks may recurse per level.
void check_any(const labeled_text_buffer& tree) {
  const std::string text = tree.as_str();
  check(text.empty() == tree.is_empty());
  const std::unique_ptr<labeled_text_buffer> clone(tree.clone());
  check(clone->as_str() == text);
  labeled_text_buffer copy(tree);
  check(copy.as_str() == text);

  const labeled_text_buffer back(text);
  check(back.as_str() == text);
  copy.overlay(back);  // every value is replaced by its own text
  check(copy.as_str() == text);
  labeled_text_buffer empty;
  empty.overlay(tree);  // every entry is copied whole
  check(empty.as_str() == text);
  clone->overlay(*clone);
  check(clone->as_str() == text);
}

void run(reader& in) {
  subject subjects[2];
  for (int step = 0; step < 64 && !in.empty(); ++step) {
    const unsigned int operation = in.byte() % 11;
    subject& s = subjects[in.byte() % 2];
    place at = locate(s, in);
    switch (operation) {
      case 0:
      case 1: {
        const std::string label = pick_label(in);
        const variant value = pick_value(in);
        ++s.size;
        const bool replaced = at.tree->add_value(label, value);
        if (at.shadow != nullptr) check(replaced == model_add(*at.shadow, label, value));
        break;
      }
      case 2: {
        const std::string label = pick_label(in);
        at.tree->create_group(label);
        ++s.size;
        if (at.shadow != nullptr) find_or_add(*at.shadow, trimmed(label));
        break;
      }
      case 3: {
        // A chain of groups under one label, with a value at the bottom.
        const std::string label = pick_label(in);
        const std::size_t length = std::min<std::size_t>(
            1 + in.number(2) % 2048, most_entries - std::min(s.size, most_entries));
        s.size += length + 1;
        s.depth = std::max(s.depth, at.depth + length + 1);
        if (s.depth > model_depth && s.modeled) stop_modeling(s);
        labeled_text_buffer* group = at.tree;
        model* shadow = s.modeled ? at.shadow : nullptr;
        for (std::size_t i = 0; i < length; ++i) {
          group = &group->create_group(label);
          if (shadow != nullptr) shadow = &find_or_add(*shadow, trimmed(label)).group;
        }
        const variant value = pick_value(in);
        group->add_value("end", value);
        if (shadow != nullptr) model_add(*shadow, "end", value);
        break;
      }
      case 4:
      case 5:
      case 6:
      case 7: {
        subject& from_subject = subjects[in.byte() % 2];
        place from = locate(from_subject, in);
        if (s.size + from_subject.size > most_entries) break;
        s.size += from_subject.size;
        const bool inside =
            std::find(at.above.begin(), at.above.end(), from.tree) != at.above.end();
        if (operation == 4 && inside) {
          // Merging a group's ancestor into it: no model, only the general properties.
          if (s.tree.as_str().size() < 2048) at.tree->overlay(*from.tree);
          stop_modeling(s);
          break;
        }
        // The model takes a copy first: a source inside the target counts as it was before.
        const model source = from_subject.modeled ? *from.shadow : model();
        const bool followed = at.shadow != nullptr && from_subject.modeled;
        if (operation == 4) {
          at.tree->overlay(*from.tree);
          if (followed) model_overlay(*at.shadow, source);
        } else if (operation == 5) {
          at.tree->assign(*from.tree);
          if (followed) *at.shadow = source;
        } else if (operation == 6) {
          at.tree->assign(static_cast<const labeled_serialize_buffer&>(*from.tree));
          if (followed) *at.shadow = source;
        } else {
          const std::unique_ptr<labeled_text_buffer> clone(from.tree->clone());
          check(clone->as_str() == from.tree->as_str());
          *at.tree = *clone;
          if (followed) *at.shadow = source;
        }
        s.depth = std::max(s.depth, at.depth + from_subject.depth);
        if (s.modeled && !followed) stop_modeling(s);
        break;
      }
      case 8: {
        // Reading written text: values come back as their text.
        subject& from_subject = subjects[in.byte() % 2];
        place from = locate(from_subject, in);
        if (s.size + from_subject.size > most_entries) break;
        s.size += from_subject.size;
        const model source = from_subject.modeled ? model_read_back(*from.shadow) : model();
        const bool followed = at.shadow != nullptr && from_subject.modeled;
        at.tree->assign(from.tree->as_str());
        if (followed) *at.shadow = source;
        s.depth = std::max(s.depth, at.depth + from_subject.depth);
        if (s.modeled && !followed) stop_modeling(s);
        break;
      }
      case 9: {
        // Raw text, perhaps malformed: whatever was read before a failure stays.
        const std::string raw = in.text(255);
        s.size += raw.size();
        try {
          at.tree->assign(raw);
        } catch (const std::out_of_range&) {
        }
        s.depth = std::max(s.depth, at.depth + raw.size());
        stop_modeling(s);
        break;
      }
      default: {
        const std::string label = pick_label(in);
        const labeled_text_buffer* group = at.tree->retrieve_group(label);
        check(at.tree->has_group(label) == (group != nullptr && !group->is_empty()));
        check(at.tree->has_label(label) == (group != nullptr));
        if (at.shadow != nullptr) {
          const auto found = find(*at.shadow, label);
          check(at.tree->has_label(label) == (found != at.shadow->end()));
        }
        break;
      }
    }
    if (s.depth > model_depth && s.modeled) stop_modeling(s);
  }
  for (const subject& s : subjects) {
    if (s.modeled) {
      check(s.tree.as_str() == model_text(s.shadow));
      check_against(s.tree, s.shadow);
    }
    check_any(s.tree);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  reader in(data, size);
  run(in);
  return 0;
}
