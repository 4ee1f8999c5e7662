#include <mota/debug/assert.hpp>

#include <cstdarg>
#include <cstdio>

namespace MOTA_2_18 {
namespace debug {
namespace _private {

functor::function_type_interface<assert_hook_signature>* g_assert_callback = nullptr;

namespace {

void call_hook(const char* message, const char* file, unsigned int line) {
  if (g_assert_callback == nullptr) return;
  unsigned int line_copy = line;
  g_assert_callback->invoke(message, file, line_copy);
}

}  // namespace

void ____________________ASSERT____________________(const char* expression, const char* file,
                                                    unsigned int line, const char*) {
  call_hook(expression, file, line);
}

void _______________CONTEXT__ASSERT________________(const char* expression, const char* file,
                                                    unsigned int line, const char* function, ...) {
  char buffer[256] = {};
  const int written = std::snprintf(buffer, sizeof buffer, "%s : ", expression);
  std::va_list args;
  va_start(args, function);
  const char* format = va_arg(args, const char*);
  if (written >= 1 && written <= 255 && format != nullptr) {
    std::vsnprintf(buffer + written, sizeof buffer - static_cast<std::size_t>(written), format,
                   args);
  }
  va_end(args);
  call_hook(buffer, file, line);
}

void native_assert(const char*, const char*, unsigned int&, const char*) {}

}  // namespace _private

void set_assert_hook(const assert_hook_t& hook) {
  set_assert_hook(types::nil);
  if (!hook.empty()) _private::g_assert_callback = hook.get()->do_clone();
}

void set_assert_hook(const types::nil_t&) {
  delete _private::g_assert_callback;
  _private::g_assert_callback = nullptr;
}

bool is_assert_hook_set() {
  return _private::g_assert_callback != nullptr;
}

}  // namespace debug
}  // namespace MOTA_2_18
