#include <mota/i18n/argument_comparison.hpp>

#include <algorithm>
#include <set>
#include <string>
#include <utility>

namespace MOTA_2_18 {
namespace i18n {
namespace {

// One argument name's slots: its distinct kinds in order, and per kind the distinct formats.
struct argument_slots {
  strings::ustring8 name;
  std::set<message_item::type_t> kinds;
  std::set<std::pair<message_item::type_t, strings::ustring8>> formats;
};

std::vector<argument_slots> arguments_of(const message_t& message) {
  std::vector<argument_slots> arguments;
  for (const message_item& item : message) {
    if (item.type() == message_item::text) continue;
    const strings::ustring8 name = item.name();
    auto found = std::find_if(arguments.begin(), arguments.end(),
                              [&](const argument_slots& a) { return a.name == name; });
    if (found == arguments.end()) {
      arguments.push_back(argument_slots{name, {}, {}});
      found = arguments.end() - 1;
    }
    found->kinds.insert(item.type());
    found->formats.insert(std::make_pair(item.type(), format_pairs(item.data())));
  }
  return arguments;
}

const argument_slots* find(const std::vector<argument_slots>& arguments,
                           const strings::ustring8& name) {
  for (const argument_slots& a : arguments) {
    if (a.name == name) return &a;
  }
  return nullptr;
}

strings::ustring8 kind_list(const std::set<message_item::type_t>& kinds) {
  strings::ustring8 text;
  for (message_item::type_t kind : kinds) {
    if (!text.empty()) text += ", ";
    text += kind_keyword(kind);
  }
  return text;
}

// The formats `slots` gives one kind, joined by " | " when the message uses several.
strings::ustring8 formats_of(const argument_slots& slots, message_item::type_t kind) {
  strings::ustring8 text;
  bool first = true;
  for (const auto& format : slots.formats) {
    if (format.first != kind) continue;
    if (!first) text += " | ";
    text += format.second;
    first = false;
  }
  return text;
}

}  // namespace

std::vector<argument_difference> compare_arguments(const message_t& reference,
                                                   const message_t& translation) {
  const std::vector<argument_slots> ours = arguments_of(reference);
  const std::vector<argument_slots> theirs = arguments_of(translation);
  std::vector<strings::ustring8> missing, extra;
  for (const argument_slots& a : ours) {
    if (!find(theirs, a.name)) missing.push_back(a.name);
  }
  for (const argument_slots& a : theirs) {
    if (!find(ours, a.name)) extra.push_back(a.name);
  }
  std::vector<argument_difference> differences;
  const std::size_t renamed = std::min(missing.size(), extra.size());
  for (const argument_slots& a : ours) {
    const argument_slots* other = find(theirs, a.name);
    if (!other) {
      const std::size_t index = static_cast<std::size_t>(
          std::find(missing.begin(), missing.end(), a.name) - missing.begin());
      if (index < renamed) {
        differences.push_back({argument_difference::renamed, a.name, "", extra[index]});
      } else {
        differences.push_back({argument_difference::missing, a.name, "", ""});
      }
      continue;
    }
    if (a.kinds != other->kinds) {
      differences.push_back(
          {argument_difference::kind_changed, a.name, kind_list(a.kinds), kind_list(other->kinds)});
      continue;
    }
    for (message_item::type_t kind : a.kinds) {
      const strings::ustring8 mine = formats_of(a, kind), yours = formats_of(*other, kind);
      if (mine != yours) {
        differences.push_back({argument_difference::format_changed, a.name, mine, yours});
      }
    }
  }
  for (std::size_t i = renamed; i < extra.size(); ++i) {
    differences.push_back({argument_difference::extra, extra[i], "", ""});
  }
  return differences;
}

strings::ustring8 format_pairs(const strings::ustring8& data) {
  // After the name: key 0x01 value 0x01 key 0x01 value ...; a key may lack its value.
  std::vector<std::string> pairs;
  std::size_t pos = data.find(message_item::separator);
  while (pos != std::string::npos) {
    const std::size_t key_end = data.find(message_item::separator, pos + 1);
    std::string pair =
        data.substr(pos + 1, key_end == std::string::npos ? std::string::npos : key_end - pos - 1);
    pair += '=';
    pos = std::string::npos;
    if (key_end != std::string::npos) {
      const std::size_t value_end = data.find(message_item::separator, key_end + 1);
      pair += data.substr(key_end + 1, value_end == std::string::npos ? std::string::npos
                                                                      : value_end - key_end - 1);
      pos = value_end;
    }
    pairs.push_back(pair);
  }
  std::stable_sort(pairs.begin(), pairs.end(), [](const std::string& a, const std::string& b) {
    return a.substr(0, a.find('=')) < b.substr(0, b.find('='));
  });
  strings::ustring8 text;
  for (const std::string& pair : pairs) {
    if (!text.empty()) text += ' ';
    text += pair;
  }
  return text;
}

const char* kind_keyword(message_item::type_t kind) {
  switch (kind) {
    case message_item::text:
      return "text";
    case message_item::string:
      return "string";
    case message_item::number:
      return "number";
    case message_item::int_:
      return "int";
    case message_item::double_:
      return "double";
    case message_item::time:
      return "time";
    case message_item::date:
      return "date";
    case message_item::memory:
      return "memory";
    case message_item::memory_unit:
      return "memory_unit";
    case message_item::metric:
      return "metric";
    case message_item::metric_unit:
      return "metric_unit";
    case message_item::duration:
      return "duration";
  }
  return "unknown";
}

}  // namespace i18n
}  // namespace MOTA_2_18
