// Errors found while running: numbers too large or too small for their type, empty or full
// containers, failures of the platform.
//
//   throw mota::exceptions::overflow_error("Number value is to large", __LINE__, __FILE__,
//   "strtointx");
#ifndef MOTA_EXCEPTIONS_RUNTIME_ERROR_HPP
#define MOTA_EXCEPTIONS_RUNTIME_ERROR_HPP

#include <mota/exceptions/_private/declare_exception.hpp>
#include <mota/exceptions/exception.hpp>

#include <string>

namespace MOTA_2_18 {
namespace exceptions {

class MOTA_API runtime_error : public exception {
 public:
  runtime_error(const std::string& message, unsigned int line, const char* file,
                const char* function);
  runtime_error(const std::string& message, const exception::state& state);
  runtime_error(const runtime_error& other);
  ~runtime_error() override;

  // The message given at construction.
  const char* get_message() const override;

 private:
  std::string m_message;
};

// A number too large for its target type.
MOTA_DECLARE_EXCEPTION(overflow_error, runtime_error);
// A number too small for its target type.
MOTA_DECLARE_EXCEPTION(underflow_error, runtime_error);
// An operation on an empty container or source.
MOTA_DECLARE_EXCEPTION(empty_error, runtime_error);
// An operation on a full container.
MOTA_DECLARE_EXCEPTION(full_error, runtime_error);

}  // namespace exceptions
}  // namespace MOTA_2_18

#endif  // MOTA_EXCEPTIONS_RUNTIME_ERROR_HPP
