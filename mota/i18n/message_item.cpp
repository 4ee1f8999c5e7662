#include <mota/i18n/message_item.hpp>

#include <mota/i18n/format_value.hpp>

namespace MOTA_2_18 {
namespace i18n {

namespace {

const char kInvalid[] = "?invalid?";

}  // namespace

message_item::message_item(const strings::ustring8& data) : m_data(data), m_type(text) {}

message_item::message_item(const strings::ustring8& data, type_t type)
    : m_data(data), m_type(type) {}

message_item& message_item::assign(const message_item& other) {
  if (this != &other) {
    m_data = other.m_data;
    m_type = other.m_type;
  }
  return *this;
}

strings::ustring8 message_item::name() const {
  std::size_t cut = m_data.find(separator);
  return cut == strings::ustring8::npos ? m_data : strings::ustring8(m_data.substr(0, cut));
}

strings::ustring8 message_item::as_string(const generic::varg_list& args) const {
  strings::ustring8 out;
  append_to(out, args);
  return out;
}

void message_item::append_to(std::string& out, const generic::varg_list& args) const {
  switch (m_type) {
    case text:
      out.append(m_data);
      return;
    case string: {
      auto found = args.find(name());
      if (found == args.end()) {
        out.append(kInvalid);
      } else {
        out.append(found->value().as_string());
      }
      return;
    }
    case int_:
    case double_:
    case memory:
    case memory_unit:
    case metric:
    case metric_unit:
    case duration: {
      auto found = args.find(name());
      if (found == args.end()) {
        out.append(kInvalid);
        return;
      }
      strings::ustring8 formatted = format_value(m_type, found->value(), m_data);
      // A lone "-0" is how the formatters say that the value could not be expressed.
      if (formatted == "-0") {
        out.append(kInvalid);
      } else {
        out.append(formatted);
      }
      return;
    }
    default:
      // number, time and date have no renderer, and nothing above duration exists.
      out.append(kInvalid);
      return;
  }
}

}  // namespace i18n
}  // namespace MOTA_2_18
