// Formatting of typed message arguments. format_value turns an argument's value into text as
// its kind and format specification ask (field size, precision, radix, units, ...). The format
// specification is the argument item's stored text: the name, then 0x01-separated key/value
// pairs, as the XMC loader writes them.
//
//   using mota::i18n::message_item;
//   mota::i18n::format_value(message_item::double_, mota::types::variant(3.14159),
//                            "pi\x01precision\x01" "3");   // "3.142"
//
// The working functions sit in i18n::_private (<mota/i18n/_private/value_formatters.hpp>).
#ifndef MOTA_I18N_FORMAT_VALUE_HPP
#define MOTA_I18N_FORMAT_VALUE_HPP

#include <mota/export.hpp>
#include <mota/i18n/message_item.hpp>
#include <mota/strings/ustring.hpp>
#include <mota/types/variant.hpp>

namespace MOTA_2_18 {
namespace i18n {

// Formats `value` for an item of kind `type`. `format` is the item's whole stored text; the
// part up to and including the first 0x01 (the argument name) is dropped, and a text without
// 0x01 is used whole as the format text (it then holds no known key and changes nothing).
// int_, double_, memory, memory_unit, metric, metric_unit and duration are formatted; every
// other kind gives an empty text. Unknown units give "-0", which message_item renders as
// "?invalid?". Numeric values ("precision", "prec", "fieldsize") are read as strtol reads
// them; a precision is then held to 0..340 and a field size to 0..1024, so a hostile value
// such as precision="1000000000" cannot ask for a gigabyte of digits. Never throws for bad
// input.
MOTA_API strings::ustring8 format_value(message_item::type_t type, types::variant value,
                                        const strings::ustring8& format);

}  // namespace i18n
}  // namespace MOTA_2_18

#endif  // MOTA_I18N_FORMAT_VALUE_HPP
