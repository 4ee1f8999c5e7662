#include <mota/types/variant.hpp>
#include <mota/types/variant_value.hpp>

#include <mota_test.hpp>

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <limits>
#include <new>
#include <sstream>
#include <stdexcept>
#include <string>
#include <tuple>
#include <typeinfo>
#include <utility>
#include <vector>

using mota::strings::ustring16;
using mota::strings::ustring32;
using mota::strings::ustring8;
using mota::types::nil;
using mota::types::nil_t;
using mota::types::variant;
using mota::types::variant_type;

TEST(Variant, DefaultIsNil) {
  const variant v;
  EXPECT_EQ(typeid(nil_t), v.type());
  EXPECT_TRUE(v == nil);
  EXPECT_FALSE(v != nil);
  // Conversions of nil are the variant fuzz target's. The nil value object itself converts to
  // "0"; only the variant intercepts it.
  EXPECT_EQ("0", v.held().as_string());
  EXPECT_EQ(ustring16{'0'}, v.held().as_utf16());
  EXPECT_TRUE(variant(0) != nil);
  EXPECT_TRUE(variant(nil) == nil);
  // A boolean streams as a digit whatever the stream's flags; the other streamed forms are the
  // variant fuzz target's.
  std::ostringstream alpha;
  alpha << std::boolalpha << variant(true);
  EXPECT_EQ("1", alpha.str());
}

// Conversions from every held number kind, nil and booleans are the variant fuzz target's;
// which kind a constructor keeps is checked here.
TEST(Variant, ConstructorsChooseTheHeldTypeAndRefuseNullTexts) {
  const unsigned short units[] = {'1', '2', 0};
  const std::pair<variant, const std::type_info*> rows[] = {
      {variant(true), &typeid(bool)},
      {variant(static_cast<signed char>(1)), &typeid(signed char)},
      {variant(1ULL), &typeid(unsigned long long)},
      {variant(1.0L), &typeid(long double)},
      {variant("x"), &typeid(ustring8)},
      {variant(ustring8("x")), &typeid(ustring8)},
      {variant(units), &typeid(ustring16)},
      {variant(ustring16{'x'}), &typeid(ustring16)},
      {variant(L"x"), &typeid(ustring32)},
      {variant(ustring32(L"x")), &typeid(ustring32)},
      {variant(std::string("x")), &typeid(std::string)},
      {variant(std::wstring(L"x")), &typeid(std::wstring)},
  };
  for (const auto& [value, type] : rows)
    EXPECT_EQ(*type, value.held().type()) << type->name();
  EXPECT_EQ(12, variant(units).as_int());
  // A null text pointer throws, and nothing leaks.
  const char* const null_text = "basic_string::_M_construct null not valid";
  EXPECT_THROWS_STD(variant{static_cast<const char*>(nullptr)}, std::logic_error, null_text);
  EXPECT_THROWS_STD(variant{static_cast<const unsigned short*>(nullptr)}, std::logic_error,
                    null_text);
  EXPECT_THROWS_STD(variant{static_cast<const wchar_t*>(nullptr)}, std::logic_error, null_text);
}

// Floating values beyond a target's range convert as the x86 instructions do: the register's
// minimum for NaN and overflow, then the low bits. Narrow signed results go through 16 bits on
// the x87 unit (always for long double) and through 32 bits otherwise.
TEST(Variant, FloatingBeyondTheRangeConvertsLikeTheProcessor) {
  constexpr bool x87 = FLT_EVAL_METHOD == 2;
  constexpr int int_min = std::numeric_limits<int>::min();
  constexpr long long ll_min = std::numeric_limits<long long>::min();
  constexpr unsigned long long top_bit = 1ULL << 63;
  // A short from a value beyond the int range.
  constexpr short wide_short = x87 ? -32768 : 0;
  const std::tuple<variant, int, short, std::int8_t, std::uint8_t, std::uint16_t, std::uint32_t,
                   std::int64_t, std::uint64_t>
      rows[] = {
          {variant(1e10), int_min, wide_short, 0, 0, 0, 1410065408u, 10000000000LL, 10000000000ULL},
          {variant(40000.0), 40000, x87 ? -32768 : -25536, x87 ? 0 : 64, x87 ? 0 : 64, 40000,
           40000u, 40000, 40000u},
          {variant(3e9f), int_min, wide_short, 0, 0, 0, 3000000000u, 3000000000LL, 3000000000ULL},
          {variant(40000.0L), 40000, -32768, 0, 0, 40000, 40000u, 40000, 40000u},
          {variant(1.5e19), int_min, wide_short, 0, 0, 0, 0u, ll_min, 15000000000000000000ULL},
          {variant(1e20), int_min, wide_short, 0, 0, 0, 0u, ll_min, 0u},
          {variant(-1e20L), int_min, -32768, 0, 0, 0, 0u, ll_min, top_bit},
          {variant(double{NAN}), int_min, wide_short, 0, 0, 0, 0u, ll_min, top_bit},
      };
  for (const auto& [v, i, s, i8, u8, u16, u32, i64, u64] : rows) {
    SCOPED_TRACE(::testing::Message() << v.type().name() << " " << v.as_long_double());
    EXPECT_EQ(std::make_tuple(i, i, i, s, s, i8, u8, u16, u32, i64, u64),
              std::make_tuple(v.as_int(), v.as_int32(), v.as_long(), v.as_short(), v.as_int16(),
                              v.as_int8(), v.as_uint8(), v.as_uint16(), v.as_uint32(), v.as_int64(),
                              v.as_uint64()));
  }
}

TEST(Variant, CopiesShareOneValueObjectAssigningReplacesIt) {
  variant a(42);
  const variant_type* shared = &a.held();
  EXPECT_EQ(1, shared->reference_count());
  {
    variant b(a);
    variant c;
    c = a;
    EXPECT_EQ(shared, &b.held());
    EXPECT_EQ(shared, &c.held());
    c.assign(c);
    EXPECT_EQ(3, shared->reference_count());
  }
  EXPECT_EQ(1, shared->reference_count());
  EXPECT_TRUE(shared->delete_on_zero());
  // Assigning replaces the value object and leaves copies alone; nil is always a fresh object.
  variant text("text"), copy;
  copy = text;
  text = nil;
  EXPECT_TRUE(text == nil);
  EXPECT_EQ("text", copy.as_string());
  EXPECT_EQ(1, copy.held().reference_count());
  variant other_nil(text);
  other_nil = nil;
  EXPECT_NE(&text.held(), &other_nil.held());
  EXPECT_EQ(1, text.held().reference_count());
}

TEST(Variant, CopyFromItselfHoldsNothingAndReadsAsNil) {
  alignas(variant) unsigned char storage[sizeof(variant)];
  auto* self = reinterpret_cast<variant*>(storage);
  new (storage) variant(*self);
  EXPECT_TRUE(*self == nil);
  EXPECT_EQ("", self->as_string());
  *self = variant(3);
  EXPECT_EQ(3, self->as_int());
  self->~variant();
}

TEST(Variant, CloneIsAnIndependentOwnedCopy) {
  const variant v(std::string("abc"));
  variant_type* copy = v.held().clone();
  EXPECT_NE(&v.held(), copy);
  EXPECT_EQ(0, copy->reference_count());
  EXPECT_EQ("abc", copy->as_string());
  mota::memory::pointers::rc_pointer<variant_type> owner(copy);  // frees the copy
  EXPECT_EQ(1, copy->reference_count());
}
