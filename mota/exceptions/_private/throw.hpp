// Not part of the public interface.
//
// Throw sites build the exception in place from the message, the current line, the source
// file as the compiler names it, and the bare name of the enclosing function.
#ifndef MOTA_EXCEPTIONS_PRIVATE_THROW_HPP
#define MOTA_EXCEPTIONS_PRIVATE_THROW_HPP

#include <mota/exceptions/logic_error.hpp>
#include <mota/exceptions/runtime_error.hpp>

#define MOTA_THROW(type, message) throw type((message), __LINE__, __FILE__, __func__)

// For throw sites whose reported function name is not the C++ function they sit in.
#define MOTA_THROW_AS(type, message, function) throw type((message), __LINE__, __FILE__, (function))

#endif  // MOTA_EXCEPTIONS_PRIVATE_THROW_HPP
