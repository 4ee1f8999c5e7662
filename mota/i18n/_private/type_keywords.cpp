#include <mota/i18n/_private/type_keywords.hpp>

#include <cstddef>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

bool find_type_keyword(std::string_view keyword, message_item::type_t& kind) {
  static const struct {
    std::string_view word;
    message_item::type_t kind;
  } kTypes[] = {{"date", message_item::date},
                {"duration", message_item::duration},
                {"memory", message_item::memory},
                {"mem", message_item::memory},
                {"mem_unit", message_item::memory_unit},
                {"memory_unit", message_item::memory_unit},
                {"metric", message_item::metric},
                {"metric_unit", message_item::metric_unit},
                {"number", message_item::number},
                {"int", message_item::int_},
                {"double", message_item::double_},
                {"string", message_item::string},
                {"time", message_item::time},
                {"value", message_item::text}};
  for (const auto& entry : kTypes) {
    if (entry.word.size() != keyword.size()) continue;
    bool same = true;
    for (std::size_t i = 0; same && i < keyword.size(); ++i) {
      char c = keyword[i];
      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
      same = c == entry.word[i];
    }
    if (same) {
      kind = entry.kind;
      return true;
    }
  }
  return false;
}

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18
