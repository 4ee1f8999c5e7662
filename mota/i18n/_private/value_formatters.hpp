// Not part of the public interface.
//
// The formatters behind i18n::format_value. The shared library does not export them; their
// tests reach them through the static archive of the library's objects. `format` here is a
// bare format: key, 0x01, value, 0x01, key, 0x01, value ... (no argument name in front).
//
// Layout choices:
// - format_int: "hex", "oct" and "bin" select radix 16, 8 and 2 and write the prefixes "0x",
//   "o" and "b" (after a "-" sign for negative values); "spaced_dec" groups decimal digits in
//   threes from the right with one blank ("1 234 567"). A key counts when its value is not
//   empty, "false" or "0" (hex="true"); the first radix key of the format wins. "@default"
//   names the presentation used when no such key is given ("hex", "oct", "bin", "spaced_dec" or
//   "dec"). "fieldsize" pads the whole text, sign and prefix included, with blanks on the
//   left to that width (right-aligned like printf's %Nd); a longer text is never cut.
// - format_memory: units step by 1024 ("B", "KB", "MB", ...). "base_unit" (default "B") is
//   the unit of the value, "target_unit" (default "any") the unit to write; "any" picks the
//   largest unit in which the magnitude, rounded to the precision, is at least 1 (bytes for
//   0 and for values below 1 B). "precision" defaults to 0 for bytes and 2 for larger units;
//   "fieldsize" pads as in format_double.
// - format_metric: SI prefixes step by 1000 (atto to yotta). "base_unit" defaults to no
//   prefix, "target_unit" to "any" (the same rule over the prefixes from atto up);
//   "precision" defaults to 2. The unit text is the prefix alone, short ("k") when
//   "short_form" is "true", long ("kilo") otherwise.
// - An unknown base or target unit makes both the number and the unit text "-0".
// - Precision is clamped to 0..340 and field size to 0..1024; a negative value counts as 0.
#ifndef MOTA_I18N_PRIVATE_VALUE_FORMATTERS_HPP
#define MOTA_I18N_PRIVATE_VALUE_FORMATTERS_HPP

#include <mota/strings/ustring.hpp>
#include <mota/types/variant.hpp>

#include <string_view>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

// The integer with radix, grouping and padding as described above.
strings::ustring8 format_int(long long value, const strings::ustring8& format);

// Fixed-point text with "precision" fraction digits (default 2). Without "fieldsize" the text
// is as wide as it needs; with a field size N it is right-aligned in N columns, switching to
// the exponent form when the fixed form is wider than N and cut to N characters when even
// that is wider.
strings::ustring8 format_double(double value, const strings::ustring8& format);

// Days, hours and minutes (from the largest non-zero part down) followed by the seconds,
// written with format_double at the precision given by "prec". "short_form" = "true" writes
// "d ", "h ", "m ", "s"; otherwise " dy ", " hr ", " min ", " sec".
strings::ustring8 format_duration(double seconds, const strings::ustring8& format);

// The number text of a memory amount; the unit text ("B", "KB", ...) goes to `unit`.
strings::ustring8 format_memory(const types::variant& value, const strings::ustring8& format,
                                strings::ustring8& unit);

// The number text of a metric amount; the SI prefix (short or long) goes to `unit`.
strings::ustring8 format_metric(const types::variant& value, const strings::ustring8& format,
                                strings::ustring8& unit);

// The power of 1000 an SI prefix stands for: 0 for "" and any leading part of "base", -2 for
// "mc", the single letters k M G T P E Z Y m n p f a; -1000 for anything else.
int thousands(const strings::ustring8& prefix);

// The power of 1024 of a memory unit: 0 for "B", 1..8 for "KB" .. "YB" (only the first two
// bytes are looked at); -1 for anything else.
int mem_prefix_index(const strings::ustring8& unit);

// The same formatters over a specification held anywhere (not exported; format_value uses
// them to avoid copying the format text out of the item's text).
strings::ustring8 format_int_spec(long long value, std::string_view spec);
strings::ustring8 format_double_spec(double value, std::string_view spec);
strings::ustring8 format_duration_spec(double seconds, std::string_view spec);
strings::ustring8 format_memory_spec(const types::variant& value, std::string_view spec,
                                     strings::ustring8& unit);
strings::ustring8 format_metric_spec(const types::variant& value, std::string_view spec,
                                     strings::ustring8& unit);

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18

#endif  // MOTA_I18N_PRIVATE_VALUE_FORMATTERS_HPP
