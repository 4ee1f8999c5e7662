#include <mota/exceptions/logic_error.hpp>
#include <mota/exceptions/runtime_error.hpp>

namespace MOTA_2_18 {
namespace exceptions {

logic_error::logic_error(const std::string& message, unsigned int line, const char* file,
                         const char* function)
    : exception(line, file, function), m_message(message) {}
logic_error::logic_error(const std::string& message, const exception::state& state)
    : exception(state), m_message(message) {}
logic_error::logic_error(const logic_error& other) : exception(other), m_message(other.m_message) {}
logic_error::~logic_error() = default;
const char* logic_error::get_message() const {
  return m_message.c_str();
}

runtime_error::runtime_error(const std::string& message, unsigned int line, const char* file,
                             const char* function)
    : exception(line, file, function), m_message(message) {}
runtime_error::runtime_error(const std::string& message, const exception::state& state)
    : exception(state), m_message(message) {}
runtime_error::runtime_error(const runtime_error& other)
    : exception(other), m_message(other.m_message) {}
runtime_error::~runtime_error() = default;
const char* runtime_error::get_message() const {
  return m_message.c_str();
}

MOTA_DEFINE_EXCEPTION(out_of_range, logic_error);
MOTA_DEFINE_EXCEPTION(length_error, logic_error);
MOTA_DEFINE_EXCEPTION(invalid_argument_value, logic_error);
MOTA_DEFINE_EXCEPTION(overflow_error, runtime_error);
MOTA_DEFINE_EXCEPTION(underflow_error, runtime_error);
MOTA_DEFINE_EXCEPTION(empty_error, runtime_error);
MOTA_DEFINE_EXCEPTION(full_error, runtime_error);

}  // namespace exceptions
}  // namespace MOTA_2_18
