// The root of the library's exception hierarchy.
//
// Every failure the library reports is thrown by value as a class derived from `exception`
// and carries the line, file and function of its throw site. The hierarchy is deliberately
// separate from std::exception: a handler for std::exception catches none of it.
//
//   try { date.day(32); }
//   catch (const mota::exceptions::exception& e) { log(e.get_message(), e.get_state().line); }
#ifndef MOTA_EXCEPTIONS_EXCEPTION_HPP
#define MOTA_EXCEPTIONS_EXCEPTION_HPP

#include <mota/export.hpp>

#include <cstdint>

namespace MOTA_2_18 {
// The exceptions the library throws, rooted at exceptions::exception.
namespace exceptions {

// The base of every exception the library throws: a message and the throw site.
class MOTA_API exception {
 public:
  // Where an exception was thrown. Texts are copied into fixed fields and cut at 255
  // characters; a null text leaves its field empty.
  struct MOTA_API state {
    // The size of each text field, its terminating zero included.
    static constexpr unsigned int text_capacity = 256;

    //@{
    // The site `line` of `file` in `function`; or a copy.
    state(unsigned int line, const char* file, const char* function);
    state(const state& other);
    state& operator=(const state& other);
    //@}

    // The line of the throw site.
    std::uint32_t line;
    // The file of the throw site, zero-terminated.
    char file[text_capacity];
    // The function of the throw site, zero-terminated.
    char function[text_capacity];
  };

  virtual ~exception();

  // The message of the concrete exception, as UTF-8; valid while the object lives.
  virtual const char* get_message() const = 0;

  // Where the exception was thrown.
  const state& get_state() const { return m_state; }

 protected:
  //@{
  // For the derived classes: the throw site given by its parts or as a saved state; or a copy.
  exception(unsigned int line, const char* file, const char* function);
  explicit exception(const state& state);
  exception(const exception& other);
  exception& operator=(const exception& other);
  //@}

 private:
  state m_state;
};

}  // namespace exceptions
}  // namespace MOTA_2_18

#endif  // MOTA_EXCEPTIONS_EXCEPTION_HPP
