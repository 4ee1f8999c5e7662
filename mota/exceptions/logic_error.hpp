// Errors in the caller's logic: values out of range, impossible lengths, forbidden arguments.
//
//   throw mota::exceptions::out_of_range("Hour value out of valid range", __LINE__, __FILE__,
//   "hour");
#ifndef MOTA_EXCEPTIONS_LOGIC_ERROR_HPP
#define MOTA_EXCEPTIONS_LOGIC_ERROR_HPP

#include <mota/exceptions/exception.hpp>

#include <string>

namespace MOTA_2_18 {
namespace exceptions {

// A fault in how the library was called; its subclasses say which.
class MOTA_API logic_error : public exception {
 public:
  //@{
  // The error with `message`, thrown at `line` of `file` in `function` (texts cut at 255
  // characters) or at a saved throw site `state`; or a copy of another.
  logic_error(const std::string& message, unsigned int line, const char* file,
              const char* function);
  logic_error(const std::string& message, const exception::state& state);
  logic_error(const logic_error& other);
  ~logic_error() override;
  //@}

  // The message given at construction.
  const char* get_message() const override;

 private:
  std::string m_message;
};

// A value outside its valid range (date and time fields, indexes).
class MOTA_API out_of_range : public logic_error {
 public:
  //@{
  // The error with `message`, thrown at `line` of `file` in `function` (texts cut at 255
  // characters) or at a saved throw site `state`; or a copy of another.
  out_of_range(const std::string& message, unsigned int line, const char* file,
               const char* function);
  out_of_range(const std::string& message, const exception::state& state);
  out_of_range(const out_of_range& other);
  ~out_of_range() override;
  //@}
};

// A length that cannot be honoured.
class MOTA_API length_error : public logic_error {
 public:
  //@{
  // The error with `message`, thrown at `line` of `file` in `function` (texts cut at 255
  // characters) or at a saved throw site `state`; or a copy of another.
  length_error(const std::string& message, unsigned int line, const char* file,
               const char* function);
  length_error(const std::string& message, const exception::state& state);
  length_error(const length_error& other);
  ~length_error() override;
  //@}
};

// An argument with a forbidden value (a bad radix, a bad code page).
class MOTA_API invalid_argument_value : public logic_error {
 public:
  //@{
  // The error with `message`, thrown at `line` of `file` in `function` (texts cut at 255
  // characters) or at a saved throw site `state`; or a copy of another.
  invalid_argument_value(const std::string& message, unsigned int line, const char* file,
                         const char* function);
  invalid_argument_value(const std::string& message, const exception::state& state);
  invalid_argument_value(const invalid_argument_value& other);
  ~invalid_argument_value() override;
  //@}
};

}  // namespace exceptions
}  // namespace MOTA_2_18

#endif  // MOTA_EXCEPTIONS_LOGIC_ERROR_HPP
