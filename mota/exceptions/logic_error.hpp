// Errors in the caller's logic: values out of range, impossible lengths, forbidden arguments.
//
//   throw mota::exceptions::out_of_range("Hour value out of valid range", __LINE__, __FILE__,
//   "hour");
#ifndef MOTA_EXCEPTIONS_LOGIC_ERROR_HPP
#define MOTA_EXCEPTIONS_LOGIC_ERROR_HPP

#include <mota/exceptions/_private/declare_exception.hpp>
#include <mota/exceptions/exception.hpp>

#include <string>

namespace MOTA_2_18 {
namespace exceptions {

class MOTA_API logic_error : public exception {
 public:
  logic_error(const std::string& message, unsigned int line, const char* file,
              const char* function);
  logic_error(const std::string& message, const exception::state& state);
  logic_error(const logic_error& other);
  ~logic_error() override;

  // The message given at construction.
  const char* get_message() const override;

 private:
  std::string m_message;
};

// A value outside its valid range (date and time fields, indexes).
MOTA_DECLARE_EXCEPTION(out_of_range, logic_error);
// A length that cannot be honoured.
MOTA_DECLARE_EXCEPTION(length_error, logic_error);
// An argument with a forbidden value (a bad radix, a bad code page).
MOTA_DECLARE_EXCEPTION(invalid_argument_value, logic_error);

}  // namespace exceptions
}  // namespace MOTA_2_18

#endif  // MOTA_EXCEPTIONS_LOGIC_ERROR_HPP
