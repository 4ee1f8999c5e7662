// The radix argument of the text-to-integer parsers: an enumeration whose values are the radix
// numbers themselves, with 0 asking the parser to detect the radix from the text ("0x", "0b",
// a leading "0" or backslash).
//
//   int v = mota::generic::convert::str_to_int("ff", 0, mota::types::radix_t::hexadecimal, false);
//   int w = mota::generic::convert::str_to_int("0x1F", 0, mota::types::radix_t::detect, false);
#ifndef MOTA_TYPES_RADIX_HPP
#define MOTA_TYPES_RADIX_HPP

#include <mota/export.hpp>

namespace MOTA_2_18 {
namespace types {

// The radixes the integer parsers of generic::convert accept.
struct radix_t {
  // Values 2 to 36 are radixes, 0 means "detect"; any other value is rejected by the parsers
  // (the fixed underlying type keeps such values well defined so they can be reported).
  enum base : unsigned int {
    detect = 0,
    binary = 2,
    octal = 8,
    decimal = 10,
    hexadecimal = 16,
    base_2 = 2,
    base_3 = 3,
    base_4 = 4,
    base_5 = 5,
    base_6 = 6,
    base_7 = 7,
    base_8 = 8,
    base_9 = 9,
    base_10 = 10,
    base_11 = 11,
    base_12 = 12,
    base_13 = 13,
    base_14 = 14,
    base_15 = 15,
    base_16 = 16,
    base_17 = 17,
    base_18 = 18,
    base_19 = 19,
    base_20 = 20,
    base_21 = 21,
    base_22 = 22,
    base_23 = 23,
    base_24 = 24,
    base_25 = 25,
    base_26 = 26,
    base_27 = 27,
    base_28 = 28,
    base_29 = 29,
    base_30 = 30,
    base_31 = 31,
    base_32 = 32,
    base_33 = 33,
    base_34 = 34,
    base_35 = 35,
    base_36 = 36,
  };
};

}  // namespace types
}  // namespace MOTA_2_18

#endif  // MOTA_TYPES_RADIX_HPP
