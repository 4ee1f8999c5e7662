// A program that uses an installed copy of the library, the way any consumer would.
#include <mota/mota.hpp>

#include <iostream>

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
