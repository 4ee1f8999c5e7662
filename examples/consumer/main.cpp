// A program that uses an installed copy of the library, the way any consumer would.
#include <mota/mota.hpp>

#include <iostream>

#if defined(MOTA_CONSUMER_STANDARD)
#if MOTA_CONSUMER_STANDARD == 17
static_assert(__cplusplus == 201703L, "compiled as another standard than C++17");
#elif MOTA_CONSUMER_STANDARD == 20
static_assert(__cplusplus == 202002L, "compiled as another standard than C++20");
#endif
#endif

int main() {
  namespace strings = mota::strings;

  const strings::ustring8 text = "caf\xC3\xA9";
  const strings::ustring16 wide = strings::utf8_to_utf16(text);
  const mota::types::variant count(42);

  std::cout << text << " has " << wide.size() << " UTF-16 units; the variant reads as \""
            << count.as_string() << "\"\n";
  try {
    throw mota::exceptions::invalid_argument_value("example", __LINE__, __FILE__, "main");
  } catch (const mota::exceptions::logic_error& e) {
    std::cout << "caught \"" << e.get_message() << "\" from " << e.get_state().function << "\n";
  }
  return wide.size() == 4 ? 0 : 1;
}
