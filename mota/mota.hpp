// The umbrella header: every public header of the library.
//
//   #include <mota/mota.hpp>
//   mota::strings::ustring16 u = mota::strings::utf8_to_utf16("text");
#ifndef MOTA_MOTA_HPP
#define MOTA_MOTA_HPP

#include <mota/config/base_config_item.hpp>
#include <mota/config/commandline_item.hpp>
#include <mota/config/config_dispatch.hpp>
#include <mota/config/config_manager.hpp>
#include <mota/config/config_token.hpp>
#include <mota/config/config_tree.hpp>
#include <mota/config/enviroment_item.hpp>
#include <mota/config/file_item.hpp>
#include <mota/config/module_config_dispatch.hpp>
#include <mota/config/std_config_dispatch.hpp>
#include <mota/config/user_item.hpp>
#include <mota/debug/assert.hpp>
#include <mota/exceptions/exception.hpp>
#include <mota/exceptions/logic_error.hpp>
#include <mota/exceptions/runtime_error.hpp>
#include <mota/export.hpp>
#include <mota/functor/delegate.hpp>
#include <mota/functor/function_type_interface.hpp>
#include <mota/functor/member_function.hpp>
#include <mota/generic/abilities/clone_ability.hpp>
#include <mota/generic/abilities/create_ability.hpp>
#include <mota/generic/abilities/reference_count_pointer_ability.hpp>
#include <mota/generic/argument.hpp>
#include <mota/generic/convert/bin_str.hpp>
#include <mota/generic/convert/str_to_bool.hpp>
#include <mota/generic/convert/str_to_float.hpp>
#include <mota/generic/convert/str_to_x.hpp>
#include <mota/generic/convert/x_to_str.hpp>
#include <mota/generic/varg_list.hpp>
#include <mota/i18n/catalog.hpp>
#include <mota/i18n/format_value.hpp>
#include <mota/i18n/message.hpp>
#include <mota/i18n/message_catalogs.hpp>
#include <mota/i18n/message_item.hpp>
#include <mota/memory/rc_pointer.hpp>
#include <mota/memory/shared_pointer.hpp>
#include <mota/parser/xml_parser.hpp>
#include <mota/parser/xml_token_stream.hpp>
#include <mota/serialization/labeled_serialize_buffer.hpp>
#include <mota/serialization/labeled_text_buffer.hpp>
#include <mota/serialization/serialize_binary_buf.hpp>
#include <mota/serialization/serialize_buffer.hpp>
#include <mota/serialization/serialize_text_buf.hpp>
#include <mota/strings/ansi.hpp>
#include <mota/strings/bom.hpp>
#include <mota/strings/case.hpp>
#include <mota/strings/code_page.hpp>
#include <mota/strings/gh2/narrow.hpp>
#include <mota/strings/gh2/streams.hpp>
#include <mota/strings/replace.hpp>
#include <mota/strings/split.hpp>
#include <mota/strings/ustring.hpp>
#include <mota/strings/utf.hpp>
#include <mota/system/date_time/date.hpp>
#include <mota/system/date_time/date_duration.hpp>
#include <mota/system/date_time/date_time.hpp>
#include <mota/system/date_time/time.hpp>
#include <mota/system/date_time/time_duration.hpp>
#include <mota/system/file_utility.hpp>
#include <mota/system/io.hpp>
#include <mota/types/absolute_unit.hpp>
#include <mota/types/color.hpp>
#include <mota/types/device_unit.hpp>
#include <mota/types/nil.hpp>
#include <mota/types/radix.hpp>
#include <mota/types/variant.hpp>
#include <mota/types/variant_type.hpp>
#include <mota/types/variant_value.hpp>
#include <mota/version.hpp>

#endif  // MOTA_MOTA_HPP
