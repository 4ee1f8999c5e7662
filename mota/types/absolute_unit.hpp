// Physical lengths. An absolute_unit keeps its length in one raw unit, a hundred-thousandth
// of an inch, and each basic_absolute_impl<N> reads and writes it in the unit whose code is N:
// 1 raw, 2 dots at 300 per inch, 3 millimetres, 4 centimetres, 5 inches, 6 points, 7 picas,
// 8 pixels at 96 per inch.
//
//   mota::types::basic_absolute_impl<5> inches;
//   inches.value(1.0);                          // raw 100000
//   mota::types::basic_absolute_impl<3>(inches).as_double();   // 25.4
#ifndef MOTA_TYPES_ABSOLUTE_UNIT_HPP
#define MOTA_TYPES_ABSOLUTE_UNIT_HPP

#include <mota/export.hpp>

#include <cmath>

namespace MOTA_2_18 {
namespace types {

// A length, kept in raw units of 1/100000 inch; a derived class gives it a unit to be read in.
class MOTA_API absolute_unit {
 public:
  //@{
  // A zero length, or a copy of another length.
  absolute_unit() = default;
  absolute_unit(absolute_unit const&) = default;
  absolute_unit& operator=(absolute_unit const&) = default;
  //@}
  // Raw length `raw`.
  absolute_unit(int raw) : m_raw(raw) {}  // NOLINT: implicit on purpose
  // Raw length `raw` truncated toward zero; fractions of a raw unit are dropped (intended).
  absolute_unit(double raw);  // NOLINT
  virtual ~absolute_unit();

  //@{
  // The unit code, the rounded whole length and the length rounded to two decimals, in the
  // unit of this object.
  int type() const { return do_type(); }
  int as_int32() const { return do_as_int32(); }
  double as_double() const { return do_as_double(); }
  //@}

  // The raw length truncated to int.
  int as_md() const;

  // The length in the unit of type(): code 1 gives the raw length, codes 2 to 8 the raw length
  // times the unit's factor over 100000, any other code 0.0.
  double value() const;
  // Sets the raw length from `v` given in the unit of type() (v * 100000 / factor, not
  // truncated); any code outside 1 to 8 sets it to 0.0.
  void value(double v);

  //@{
  // What type(), as_int32() and as_double() return; open to callers as well.
  virtual int do_type() const = 0;
  virtual int do_as_int32() const = 0;
  virtual double do_as_double() const = 0;
  //@}

 protected:
  // floor(v + 0.5) as an int, saturated at the int range (NaN gives 0).
  static int round_half_up(double v);

 private:
  double m_raw = 0.0;
};

// The length read and written in the unit with code N (1 raw, 2 dots, 3 mm, 4 cm, 5 inches,
// 6 points, 7 picas, 8 pixels); other codes read as 0.
template <int N>
class basic_absolute_impl : public absolute_unit {
 public:
  // The raw-length constructors of absolute_unit.
  using absolute_unit::absolute_unit;
  basic_absolute_impl() = default;
  // Any other length, re-read in this unit.
  basic_absolute_impl(absolute_unit const& other) : absolute_unit(other) {}  // NOLINT

  int do_type() const override { return N; }
  // Rounded half up to a whole number.
  int do_as_int32() const override { return round_half_up(value()); }
  // Rounded half up to two decimals.
  double do_as_double() const override { return std::floor(value() * 100 + 0.5) / 100; }
};

extern template class MOTA_API basic_absolute_impl<1>;
extern template class MOTA_API basic_absolute_impl<2>;
extern template class MOTA_API basic_absolute_impl<3>;
extern template class MOTA_API basic_absolute_impl<4>;
extern template class MOTA_API basic_absolute_impl<5>;
extern template class MOTA_API basic_absolute_impl<6>;
extern template class MOTA_API basic_absolute_impl<7>;
extern template class MOTA_API basic_absolute_impl<8>;

}  // namespace types
}  // namespace MOTA_2_18

#endif  // MOTA_TYPES_ABSOLUTE_UNIT_HPP
