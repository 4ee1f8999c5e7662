// Not part of the public interface.
//
// The words an argument's "type" attribute may hold and the item kinds they stand for: the
// loader reads arguments with this table and the catalog outline reports with it, so the two
// cannot disagree.
#ifndef MOTA_I18N_PRIVATE_TYPE_KEYWORDS_HPP
#define MOTA_I18N_PRIVATE_TYPE_KEYWORDS_HPP

#include <mota/i18n/message_item.hpp>

#include <string_view>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

// True when `keyword` is a type keyword, compared without regard to ASCII case; `kind` is then
// its item kind ("mem" is memory, "value" is text). Otherwise `kind` is left alone.
bool find_type_keyword(std::string_view keyword, message_item::type_t& kind);

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18

#endif  // MOTA_I18N_PRIVATE_TYPE_KEYWORDS_HPP
