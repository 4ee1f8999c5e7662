// Not part of the public interface.
//
// The seven leaf exceptions differ only in their name and base: they add no data and no
// virtual operation, and offer the same four constructors as their base.
#ifndef MOTA_EXCEPTIONS_PRIVATE_DECLARE_EXCEPTION_HPP
#define MOTA_EXCEPTIONS_PRIVATE_DECLARE_EXCEPTION_HPP

#include <mota/export.hpp>

#define MOTA_DECLARE_EXCEPTION(name, base)                                                       \
  class MOTA_API name : public base {                                                            \
   public:                                                                                       \
    name(const std::string& message, unsigned int line, const char* file, const char* function); \
    name(const std::string& message, const exception::state& state);                             \
    name(const name& other);                                                                     \
    ~name() override;                                                                            \
  }

#define MOTA_DEFINE_EXCEPTION(name, base)                                                         \
  name::name(const std::string& message, unsigned int line, const char* file,                     \
             const char* function)                                                                \
      : base(message, line, file, function) {}                                                    \
  name::name(const std::string& message, const exception::state& state) : base(message, state) {} \
  name::name(const name& other) : base(other) {}                                                  \
  name::~name() = default

#endif  // MOTA_EXCEPTIONS_PRIVATE_DECLARE_EXCEPTION_HPP
