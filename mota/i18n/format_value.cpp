#include <mota/i18n/format_value.hpp>

#include <mota/i18n/_private/value_formatters.hpp>

#include <string_view>

namespace MOTA_2_18 {
namespace i18n {

strings::ustring8 format_value(message_item::type_t type, types::variant value,
                               const strings::ustring8& format) {
  // Drop the argument name: the format text starts after the first 0x01.
  std::size_t cut = format.find(message_item::separator);
  std::string_view spec(format);
  if (cut != strings::ustring8::npos) spec.remove_prefix(cut + 1);
  strings::ustring8 unit;
  switch (type) {
    case message_item::int_:
      return _private::format_int_spec(value.as_int64(), spec);
    case message_item::double_:
      return _private::format_double_spec(value.as_double(), spec);
    case message_item::memory:
      return _private::format_memory_spec(value, spec, unit);
    case message_item::memory_unit:
      _private::format_memory_spec(value, spec, unit);
      return unit;
    case message_item::metric:
      return _private::format_metric_spec(value, spec, unit);
    case message_item::metric_unit:
      _private::format_metric_spec(value, spec, unit);
      return unit;
    case message_item::duration:
      return _private::format_duration_spec(value.as_double(), spec);
    default:
      return strings::ustring8();
  }
}

}  // namespace i18n
}  // namespace MOTA_2_18
