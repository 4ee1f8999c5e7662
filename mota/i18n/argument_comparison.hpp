// Compares the argument slots of two language variants of one message, as a translator's
// check does: an application fills the slots by name and kind, so a translation that drops,
// adds or renames an argument, or reads it as another kind, renders wrongly.
//
//   for (const auto& d : mota::i18n::compare_arguments(english, german))
//     report(d.kind, d.name, d.reference, d.translation);
#ifndef MOTA_I18N_ARGUMENT_COMPARISON_HPP
#define MOTA_I18N_ARGUMENT_COMPARISON_HPP

#include <mota/export.hpp>
#include <mota/i18n/message.hpp>
#include <mota/i18n/message_item.hpp>
#include <mota/strings/ustring.hpp>

#include <cstdint>
#include <vector>

namespace MOTA_2_18 {
namespace i18n {

// One way in which a translation's arguments differ from the reference's.
struct MOTA_API argument_difference {
  // What differs; the comment of each kind says what the text members hold.
  enum kind_t : std::int32_t {
    missing = 0,         ///< the reference has `name`, the translation does not
    extra = 1,           ///< the translation has `name`, the reference does not
    renamed = 2,         ///< `name` is missing and `translation` is extra in its place
    kind_changed = 3,    ///< `reference` and `translation` list the kinds each uses
    format_changed = 4,  ///< `reference` and `translation` give the formats of one kind
  };

  kind_t kind;                    ///< what differs
  strings::ustring8 name;         ///< the argument's name (the reference's, for renamed)
  strings::ustring8 reference;    ///< the reference's side, see kind_t
  strings::ustring8 translation;  ///< the translation's side, see kind_t
};

// The differences between the argument slots of `reference` and `translation`; empty when
// both use the same names with the same kinds and formats. An argument is identified by its
// name; its kinds are the distinct kinds of its slots (a size shown as memory and as
// memory_unit has two), compared as sets; its formats are compared per kind, as the pairs
// "key=value" sorted by key and joined by blanks. Arguments missing from the translation are
// paired, in the order they first appear, with those extra in it, and each pair is reported
// as renamed. Text items, "value" slots among them, are not arguments.
MOTA_API std::vector<argument_difference> compare_arguments(const message_t& reference,
                                                            const message_t& translation);

// The format pairs of an argument item's stored text as "key=value" sorted by key and joined
// by blanks ("precision=2 target_unit=k"); empty when the item has no format.
MOTA_API strings::ustring8 format_pairs(const strings::ustring8& data);

// The keyword that names `kind` ("int", "memory_unit", ...); "text" for text items and
// "unknown" for a value outside the enumeration.
MOTA_API const char* kind_keyword(message_item::type_t kind);

}  // namespace i18n
}  // namespace MOTA_2_18

#endif  // MOTA_I18N_ARGUMENT_COMPARISON_HPP
