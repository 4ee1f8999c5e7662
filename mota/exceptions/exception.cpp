#include <mota/exceptions/exception.hpp>

#include <cstring>

namespace MOTA_2_18 {
namespace exceptions {
namespace {

// Copies at most capacity - 1 characters and always terminates; null leaves `field` alone.
void copy_text(char* field, const char* text) {
  if (text == nullptr) return;
  std::size_t length = std::strlen(text);
  if (length > exception::state::text_capacity - 1) length = exception::state::text_capacity - 1;
  std::memcpy(field, text, length);
  field[length] = '\0';
}

}  // namespace

exception::state::state(unsigned int line, const char* file, const char* function)
    : line(line), file{}, function{} {
  copy_text(this->file, file);
  copy_text(this->function, function);
}

exception::state::state(const state& other) : line(other.line), file{}, function{} {
  copy_text(file, other.file);
  copy_text(function, other.function);
}

exception::state& exception::state::operator=(const state& other) {
  if (this != &other) {
    line = other.line;
    copy_text(file, other.file);
    copy_text(function, other.function);
  }
  return *this;
}

exception::exception(unsigned int line, const char* file, const char* function)
    : m_state(line, file, function) {}

exception::exception(const state& state) : m_state(state) {}

exception::exception(const exception& other) : m_state(other.m_state) {}

exception& exception::operator=(const exception& other) {
  m_state = other.m_state;
  return *this;
}

exception::~exception() = default;

}  // namespace exceptions
}  // namespace MOTA_2_18
