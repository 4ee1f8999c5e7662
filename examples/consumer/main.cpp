// A program that uses an installed copy of the library, the way any consumer would.
#include <mota/mota.hpp>

#include <iostream>

int main() {
  mota::strings::ustring8 text = "mota ";
  text = text + "consumer";
  try {
    throw mota::exceptions::invalid_argument_value("example", __LINE__, __FILE__, "main");
  } catch (const mota::exceptions::logic_error& e) {
    std::cout << text << ": caught \"" << e.get_message() << "\" from " << e.get_state().function
              << "\n";
  }
  return 0;
}
