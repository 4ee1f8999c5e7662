// One piece of a localised message: either literal text or a typed argument slot that is
// filled from a generic::varg_list when the message is rendered.
//
//   mota::i18n::message_item item("count\x01" "fieldsize\x01" "5", message_item::int_);
//   mota::generic::varg_list args;  args.push_back("count", mota::types::variant(42));
//   item.as_string(args);            // "   42"
#ifndef MOTA_I18N_MESSAGE_ITEM_HPP
#define MOTA_I18N_MESSAGE_ITEM_HPP

#include <mota/export.hpp>
#include <mota/generic/varg_list.hpp>
#include <mota/strings/ustring.hpp>

#include <cstdint>
#include <string>

namespace MOTA_2_18 {
namespace i18n {

// One piece of a message: a literal text, or an argument slot naming the argument and how its
// value is formatted.
class MOTA_API message_item {
 public:
  // The kind of an item. Argument kinds name how the argument's value is formatted.
  enum type_t : std::int32_t {
    text = 0,
    string = 1,
    number = 2,
    int_ = 3,
    double_ = 4,
    time = 5,
    date = 6,
    memory = 7,
    memory_unit = 8,
    metric = 9,
    metric_unit = 10,
    duration = 11
  };

  // The separator between an argument's name and its format specification, and between the
  // keys and values of the format text.
  static constexpr char separator = '\x01';

  message_item() = default;
  // A literal text piece.
  message_item(const strings::ustring8& data);  // NOLINT: implicit on purpose
  //@{
  // An item of kind `type`: for an argument kind, `data` is the argument name, optionally
  // followed by 0x01 and the format specification. Copies keep kind and text.
  message_item(const strings::ustring8& data, type_t type);
  message_item(const message_item&) = default;
  message_item(message_item&&) noexcept = default;
  ~message_item() = default;
  //@}

  //@{
  // Copies (or takes over) the other item's kind and text; returns *this.
  message_item& operator=(const message_item&) = default;
  message_item& operator=(message_item&&) noexcept = default;
  message_item& assign(const message_item& other);
  //@}

  //@{
  // The whole stored text (name and format for argument items), and the item's kind.
  const strings::ustring8& data() const { return m_data; }
  type_t type() const { return m_type; }
  //@}
  // The text before the first 0x01 byte; the whole text when there is none.
  strings::ustring8 name() const;

  // Renders the item against `args`. Text items give their text; "string" items the
  // argument's text; the formatted kinds go through i18n::format_value. A missing argument,
  // the kinds number/time/date, any kind outside the table and a formatted "-0" all give
  // "?invalid?". Never throws for bad input.
  strings::ustring8 as_string(const generic::varg_list& args) const;
  // Same as as_string, appending to `out` instead of building a new string.
  void append_to(std::string& out, const generic::varg_list& args) const;

 private:
  strings::ustring8 m_data;
  type_t m_type = text;
};

}  // namespace i18n
}  // namespace MOTA_2_18

#endif  // MOTA_I18N_MESSAGE_ITEM_HPP
