// Assertions: internal invariant checks call one of two entry points, which hand the failed
// expression to a process-wide hook that the application installs. Without a hook an
// assertion does nothing and execution continues; what a hook does (log, break, abort) is the
// application's choice, and after it returns the caller carries on.
//
//   struct logger : mota::functor::function_type_interface<void(const char*, const char*, unsigned
//   int&)> { ... }; mota::debug::set_assert_hook(mota::debug::assert_hook_t(logger{}));
#ifndef MOTA_DEBUG_ASSERT_HPP
#define MOTA_DEBUG_ASSERT_HPP

#include <mota/functor/delegate.hpp>
#include <mota/types/nil.hpp>

namespace MOTA_2_18 {
// Internal assertions and the application's hook that receives them.
namespace debug {

//@{
// The hook receives (message, file, line); changes it makes to the line are not seen by the
// asserting code.
using assert_hook_signature = void(const char* message, const char* file, unsigned int& line);
using assert_hook_t = functor::delegate_t<assert_hook_signature>;
//@}

// Destroys the stored hook, then stores a clone of the delegate's callable (none when the
// delegate is empty). The library owns the clone; the caller keeps its delegate.
MOTA_API void set_assert_hook(const assert_hook_t& hook);
// Destroys the stored hook, if any.
MOTA_API void set_assert_hook(const types::nil_t&);
// True when a hook is stored.
MOTA_API bool is_assert_hook_set();

namespace _private {

// The stored hook, or null. Owned by the library; exported so that applications and tests can
// inspect it.
extern MOTA_API functor::function_type_interface<assert_hook_signature>* g_assert_callback;

// The two entry points have deliberately odd names so that they stand out in a stack trace.

// Invokes the hook, if stored, with (expression, file, a copy of line); `function` is not
// passed on.
MOTA_API void ____________________ASSERT____________________(const char* expression,
                                                             const char* file, unsigned int line,
                                                             const char* function);

// Builds "expression : " followed by the printf-style text of the first variadic argument
// (which may be null) and its arguments, cut to 255 characters, and invokes the hook, if
// stored, with (message, file, a copy of line).
MOTA_API void _______________CONTEXT__ASSERT________________(const char* expression,
                                                             const char* file, unsigned int line,
                                                             const char* function, ...);

// The neutral default action: does nothing.
MOTA_API void native_assert(const char* expression, const char* file, unsigned int& line,
                            const char* function);

}  // namespace _private
}  // namespace debug
}  // namespace MOTA_2_18

// Internal invariant check: reports the failed expression with the full signature of the
// enclosing function.
#define MOTA_ASSERT(expression)                                                     \
  do {                                                                              \
    if (!(expression))                                                              \
      ::MOTA_2_18::debug::_private::____________________ASSERT____________________( \
          #expression, __FILE__, __LINE__, __PRETTY_FUNCTION__);                    \
  } while (false)

#endif  // MOTA_DEBUG_ASSERT_HPP
