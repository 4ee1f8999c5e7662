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

out_of_range::out_of_range(const std::string& message, unsigned int line, const char* file,
                           const char* function)
    : logic_error(message, line, file, function) {}
out_of_range::out_of_range(const std::string& message, const exception::state& state)
    : logic_error(message, state) {}
out_of_range::out_of_range(const out_of_range& other) : logic_error(other) {}
out_of_range::~out_of_range() = default;

length_error::length_error(const std::string& message, unsigned int line, const char* file,
                           const char* function)
    : logic_error(message, line, file, function) {}
length_error::length_error(const std::string& message, const exception::state& state)
    : logic_error(message, state) {}
length_error::length_error(const length_error& other) : logic_error(other) {}
length_error::~length_error() = default;

invalid_argument_value::invalid_argument_value(const std::string& message, unsigned int line,
                                               const char* file, const char* function)
    : logic_error(message, line, file, function) {}
invalid_argument_value::invalid_argument_value(const std::string& message,
                                               const exception::state& state)
    : logic_error(message, state) {}
invalid_argument_value::invalid_argument_value(const invalid_argument_value& other)
    : logic_error(other) {}
invalid_argument_value::~invalid_argument_value() = default;

overflow_error::overflow_error(const std::string& message, unsigned int line, const char* file,
                               const char* function)
    : runtime_error(message, line, file, function) {}
overflow_error::overflow_error(const std::string& message, const exception::state& state)
    : runtime_error(message, state) {}
overflow_error::overflow_error(const overflow_error& other) : runtime_error(other) {}
overflow_error::~overflow_error() = default;

underflow_error::underflow_error(const std::string& message, unsigned int line, const char* file,
                                 const char* function)
    : runtime_error(message, line, file, function) {}
underflow_error::underflow_error(const std::string& message, const exception::state& state)
    : runtime_error(message, state) {}
underflow_error::underflow_error(const underflow_error& other) : runtime_error(other) {}
underflow_error::~underflow_error() = default;

empty_error::empty_error(const std::string& message, unsigned int line, const char* file,
                         const char* function)
    : runtime_error(message, line, file, function) {}
empty_error::empty_error(const std::string& message, const exception::state& state)
    : runtime_error(message, state) {}
empty_error::empty_error(const empty_error& other) : runtime_error(other) {}
empty_error::~empty_error() = default;

full_error::full_error(const std::string& message, unsigned int line, const char* file,
                       const char* function)
    : runtime_error(message, line, file, function) {}
full_error::full_error(const std::string& message, const exception::state& state)
    : runtime_error(message, state) {}
full_error::full_error(const full_error& other) : runtime_error(other) {}
full_error::~full_error() = default;

}  // namespace exceptions
}  // namespace MOTA_2_18
