// Byte order and byte-order marks. UTF-16 text read from a foreign-endian source starts with
// the swapped mark 0xFFFE; these functions swap the units back and strip a leading mark.
//
//   mota::strings::ustring16 text = mota::strings::check_BOM_and_swap(raw);  // now 0xFEFF ...
//   text = mota::strings::remove_BOM(text);
#ifndef MOTA_STRINGS_BOM_HPP
#define MOTA_STRINGS_BOM_HPP

#include <mota/export.hpp>
#include <mota/strings/ustring.hpp>

namespace MOTA_2_18 {
namespace strings {

// A copy with the two bytes of every unit exchanged.
MOTA_API ustring16 swap_string_bytes_order(const ustring16& text);

// Exchanges the two bytes of every unit in place.
MOTA_API void modify_swap_string_bytes_order(ustring16& text);

// A swapped copy when the first unit is 0xFFFE, else an unchanged copy.
MOTA_API ustring16 check_BOM_and_swap(const ustring16& text);

// Swaps in place when the first unit is 0xFFFE, else leaves the text alone.
MOTA_API void check_BOM_and_modify_swap(ustring16& text);

//@{
// The text without a leading byte-order mark in its own encoding (EF BB BF for UTF-8, the unit
// 0xFEFF for UTF-16 and UTF-32), else an unchanged copy. A swapped mark (0xFFFE) is kept.
MOTA_API ustring8 remove_BOM(const ustring8& text);
MOTA_API ustring16 remove_BOM(const ustring16& text);
MOTA_API ustring32 remove_BOM(const ustring32& text);
//@}

}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_BOM_HPP
