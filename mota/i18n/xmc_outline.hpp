// The structure of one XMC file as it is written: every catalog section whatever its
// language, its messages and their arguments with the type keywords as spelled, and the
// includes. A locale-bound load keeps only the winning variant of each message and turns
// unknown type keywords into `string`; a checker needs what was written.
//
//   mota::i18n::xmc_outline outline = mota::i18n::read_xmc_outline(text);
//   for (const auto& section : outline.sections) list(section.catalog, section.lang);
#ifndef MOTA_I18N_XMC_OUTLINE_HPP
#define MOTA_I18N_XMC_OUTLINE_HPP

#include <mota/export.hpp>
#include <mota/i18n/message.hpp>
#include <mota/i18n/message_item.hpp>
#include <mota/strings/ustring.hpp>

#include <vector>

namespace MOTA_2_18 {
namespace i18n {

// What an XMC text holds, as written: every catalog section in every language, with its
// messages and their arguments, and the files it includes.
struct MOTA_API xmc_outline {
  // One argument element of a message.
  struct argument {
    strings::ustring8 name;  ///< the "name" value
    strings::ustring8 type;  ///< as written; empty when the element has no "type"
  };
  // One message element.
  struct message {
    strings::ustring8 name;           ///< the "name" value; empty when absent
    bool named = false;               ///< false when the element has no "name" attribute
    std::vector<argument> arguments;  ///< the argument elements in order
    // The character data and argument names in order, white space removed: enough to tell
    // the variants of a message apart (see message_key).
    strings::ustring8 key;
  };
  // One catalog element.
  struct section {
    strings::ustring8 catalog;      ///< the catalog's name
    strings::ustring8 lang;         ///< the "lang" value as written
    bool has_lang = false;          ///< false when the element has no "lang"
    std::vector<message> messages;  ///< the message elements in order
  };

  std::vector<section> sections;            ///< the catalog elements in order
  std::vector<strings::ustring8> includes;  ///< the "file" values, as written
  // False when the text is not well-formed XML; what was read before the fault is kept.
  bool well_formed = false;
};

// Reads the outline of XMC `content`. Only the nesting the loader accepts is taken: "catalog"
// and "include" under the root "xmc", "msg" in a catalog, "arg" and "argument" in a message;
// anything else is passed over, and faults such as unknown attributes are left to the loader,
// which reports them. Never throws for bad input.
MOTA_API xmc_outline read_xmc_outline(const strings::ustring8& content);

// The key of a loaded message, comparable with xmc_outline::message::key: its text items'
// data and its argument items' names in order, white space removed.
MOTA_API strings::ustring8 message_key(const message_t& message);

// True when the loader knows `word` as a type keyword (case does not matter); every other word
// is read as `string`.
MOTA_API bool is_type_keyword(const strings::ustring8& word);

// True for the kinds the loader accepts but cannot render, so that they always show
// "?invalid?": number, time, date and any value outside the enumeration.
MOTA_API bool always_renders_invalid(message_item::type_t kind);

// The kind the loader gives an argument of type `word` ("mem" is memory, unknown words are
// string).
MOTA_API message_item::type_t kind_of_keyword(const strings::ustring8& word);

}  // namespace i18n
}  // namespace MOTA_2_18

#endif  // MOTA_I18N_XMC_OUTLINE_HPP
