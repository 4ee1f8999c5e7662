#include <mota/i18n/_private/xmc_file_loader.hpp>

#include <string>
#include <typeinfo>

// The wording of load errors: one message per kind, and the context lines appended as an
// error travels out of a message, a catalog section and a file.

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

namespace {

const char kPrefix[] = "xmc_file_loader::load_error - ";

strings::ustring8 quoted(const char* head, const strings::ustring8& detail, const char* tail) {
  strings::ustring8 out(kPrefix);
  out.append(head);
  out.append(detail);
  out.append(tail);
  return out;
}

strings::ustring8 plain(const char* text) {
  strings::ustring8 out(kPrefix);
  out.append(text);
  return out;
}

template <class Enum>
strings::ustring8 unknown_value(Enum value) {
  strings::ustring8 out("< ");
  out.append(typeid(Enum).name());
  out.append(" value of ");
  out.append(std::to_string(static_cast<long long>(value)));
  out.append(" >");
  return out;
}

}  // namespace

using load_error = xmc_file_loader::load_error;

load_error::load_error(error_type kind, const strings::ustring8& detail)
    : type(kind), message(format_msg(kind, detail)) {}

load_error::load_error(error_type kind, const parser::xml_parser::parse_error& error)
    : type(kind), message(format_msg(error)) {}

void load_error::append_error_stack(append_type where, const strings::ustring8& text) {
  switch (where) {
    case in_message:
      message.append("\n in message element: \"");
      break;
    case in_catalog:
      message.append("\n in catalog element: \"");
      break;
    case in_file:
      message.append("\n in file: \"");
      break;
    case at_line:
      message.append("\n at line: \"");
      break;
    default:
      message.append(unknown_value(where));
      message.append("\n unknown, or unhandle case happened!");
      return;
  }
  message.append(text);
  message.push_back('"');
}

strings::ustring8 load_error::format_msg(error_type kind, const strings::ustring8& detail) {
  switch (kind) {
    case no_error:
      return plain("No Error");
    case no_catalog_loaded:
      return quoted("No catalog was loaded in file: \"", detail, "\"");
    case default_locale_not_supported:
      return plain("Default locale lookup not supported yet");
    case file_not_found:
      return quoted("File \"", detail, "\" was not found on disk");
    case xml_parse_error:
      return quoted("XML parse error \"", detail, "\"");
    case invalid_attribute:
      return quoted("Invalid attibute \"", detail, "\"");
    case invalid_element:
      return quoted("Invalid element \"", detail, "\"");
    case not_xmc_file:
      return quoted("Not XMC file, root element is not XMC but \"", detail, "\"");
    case unsupported_version:
      return quoted("XMC version \"", detail, "\" is not supported");
    case br_end_tag_missing:
      return plain("Expected BR end tag not found");
    case msg_end_tag_missing:
      return quoted("Expected msg (message) end tag not found for message \"", detail, "\"");
    case arg_end_tag_missing:
      return quoted("Expected arg (argument) end tag not found for argument \"", detail, "\"");
    case include_end_tag_missing:
      return plain("Expected \"include\" end tag not found");
    case catalog_end_tag_missing:
      return quoted("Expected catalog end tag not found for catalog \"", detail, "\"");
    case unexpected_parse_error:
      return plain("Unexpected parse error happen!");
    default:
      return unknown_value(kind);
  }
}

strings::ustring8 load_error::format_msg(const parser::xml_parser::parse_error& error) {
  const strings::ustring8& text = error.text;
  strings::ustring8 out;
  switch (static_cast<int>(error.type)) {
    case 1:
      out = plain("Unexpected end of file during XML parsing");
      break;
    case 2:
      out = quoted("Mismatched end element \"", text, "\" was found");
      break;
    case 3:
      out = plain("No root element was found");
      break;
    case 4:
      out = plain("Valid XML header not found");
      break;
    case 5:
      out = quoted("Unexpected character \"", text, "\" found while parsing");
      break;
    case 6:
      out = quoted("Missing \" while parsing attribute \"", text, "\"");
      break;
    case 7:
      out = plain("Unknown enity being parsed");
      break;
    case 8:
      out = quoted("Missing = sign for attribute \"", text, "\"");
      break;
    case 9:
      out = quoted("attribute \"", text, "\" is being redefined");
      break;
    case 10:
      out = plain("Data found after root element");
      break;
    default:
      out = plain("Unknown Parse error");
      break;
  }
  out.append("\n at line: \"");
  out.append(std::to_string(static_cast<unsigned long long>(error.line)));
  out.push_back('"');
  return out;
}

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18
