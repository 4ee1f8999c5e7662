// Errors found while running: numbers too large or too small for their type, empty or full
// containers, failures of the platform.
//
//   throw mota::exceptions::overflow_error("Number value is to large", __LINE__, __FILE__,
//   "strtointx");
#ifndef MOTA_EXCEPTIONS_RUNTIME_ERROR_HPP
#define MOTA_EXCEPTIONS_RUNTIME_ERROR_HPP

#include <mota/exceptions/exception.hpp>

#include <string>

namespace MOTA_2_18 {
namespace exceptions {

// A failure found while running (a conversion, a number out of range, a system call); its
// subclasses say which.
class MOTA_API runtime_error : public exception {
 public:
  //@{
  // The error with `message`, thrown at `line` of `file` in `function` (texts cut at 255
  // characters) or at a saved throw site `state`; or a copy of another.
  runtime_error(const std::string& message, unsigned int line, const char* file,
                const char* function);
  runtime_error(const std::string& message, const exception::state& state);
  runtime_error(const runtime_error& other);
  ~runtime_error() override;
  //@}

  // The message given at construction.
  const char* get_message() const override;

 private:
  std::string m_message;
};

// A number too large for its target type.
class MOTA_API overflow_error : public runtime_error {
 public:
  //@{
  // The error with `message`, thrown at `line` of `file` in `function` (texts cut at 255
  // characters) or at a saved throw site `state`; or a copy of another.
  overflow_error(const std::string& message, unsigned int line, const char* file,
                 const char* function);
  overflow_error(const std::string& message, const exception::state& state);
  overflow_error(const overflow_error& other);
  ~overflow_error() override;
  //@}
};

// A number too small for its target type.
class MOTA_API underflow_error : public runtime_error {
 public:
  //@{
  // The error with `message`, thrown at `line` of `file` in `function` (texts cut at 255
  // characters) or at a saved throw site `state`; or a copy of another.
  underflow_error(const std::string& message, unsigned int line, const char* file,
                  const char* function);
  underflow_error(const std::string& message, const exception::state& state);
  underflow_error(const underflow_error& other);
  ~underflow_error() override;
  //@}
};

// An operation on an empty container or source.
class MOTA_API empty_error : public runtime_error {
 public:
  //@{
  // The error with `message`, thrown at `line` of `file` in `function` (texts cut at 255
  // characters) or at a saved throw site `state`; or a copy of another.
  empty_error(const std::string& message, unsigned int line, const char* file,
              const char* function);
  empty_error(const std::string& message, const exception::state& state);
  empty_error(const empty_error& other);
  ~empty_error() override;
  //@}
};

// An operation on a full container.
class MOTA_API full_error : public runtime_error {
 public:
  //@{
  // The error with `message`, thrown at `line` of `file` in `function` (texts cut at 255
  // characters) or at a saved throw site `state`; or a copy of another.
  full_error(const std::string& message, unsigned int line, const char* file, const char* function);
  full_error(const std::string& message, const exception::state& state);
  full_error(const full_error& other);
  ~full_error() override;
  //@}
};

}  // namespace exceptions
}  // namespace MOTA_2_18

#endif  // MOTA_EXCEPTIONS_RUNTIME_ERROR_HPP
