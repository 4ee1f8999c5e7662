// Not part of the public interface.
//
// Reads one "msg" element of an XMC catalog section into a message_t: its text pieces, line
// breaks and typed argument slots. One reader serves all messages of a document and keeps its
// working buffers between them.
#ifndef MOTA_I18N_PRIVATE_XMC_MESSAGE_READER_HPP
#define MOTA_I18N_PRIVATE_XMC_MESSAGE_READER_HPP

#include <mota/i18n/_private/xmc_cursor.hpp>
#include <mota/i18n/message.hpp>
#include <mota/i18n/message_item.hpp>

#include <vector>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

class xmc_message_reader {
 public:
  // The message whose start tag is the current token; leaves the cursor after its end tag.
  // Throws load_error: invalid_attribute for an attribute other than "name" and "meta",
  // invalid_element for a child other than "br", "arg" and "argument", msg_end_tag_missing,
  // br_end_tag_missing, unexpected_parse_error when the tokens stop; the errors of an
  // argument get the message's name appended as context.
  message_t read(xmc_cursor& at);

 private:
  void read_br(xmc_cursor& at);
  void read_argument(xmc_cursor& at);

  strings::ustring8 m_name;
  strings::ustring8 m_meta;
  // The text piece being collected, and an argument's stored text.
  strings::ustring8 m_piece;
  strings::ustring8 m_data;
  std::vector<message_item> m_items;
};

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18

#endif  // MOTA_I18N_PRIVATE_XMC_MESSAGE_READER_HPP
