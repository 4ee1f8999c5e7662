#include <mota/types/variant.hpp>
#include <mota/types/variant_value.hpp>

#include <mota_test.hpp>

#include <gtest/gtest.h>

#include <cfloat>
#include <cstdint>
#include <limits>
#include <new>
#include <sstream>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <vector>

using mota::strings::ustring16;
using mota::strings::ustring32;
using mota::strings::ustring8;
using mota::types::nil;
using mota::types::nil_t;
using mota::types::variant;
using mota::types::variant_type;

namespace {

ustring16 u16(const char* ascii) {
  ustring16 out;
  for (; *ascii != 0; ++ascii)
    out.push_back(static_cast<unsigned char>(*ascii));
  return out;
}

std::string streamed(const variant& v) {
  std::ostringstream os;
  os << v;
  return os.str();
}

}  // namespace

TEST(Variant, DefaultIsNil) {
  const variant v;
  EXPECT_EQ(typeid(nil_t), v.type());
  EXPECT_TRUE(v == nil);
  EXPECT_FALSE(v != nil);
  // Conversions of nil are in the tables below. The nil value object itself converts to "0";
  // only the variant intercepts it.
  EXPECT_EQ("0", v.held().as_string());
  EXPECT_EQ(u16("0"), v.held().as_utf16());
  EXPECT_TRUE(variant(0) != nil);
  EXPECT_TRUE(variant(nil) == nil);
}

// Conversions from every held number kind, nil and booleans are the variant fuzz target's;
// which kind a constructor keeps is checked here.
TEST(Variant, ConstructorsChooseTheHeldType) {
  const unsigned short units[] = {'1', '2', 0};
  struct row {
    variant value;
    const std::type_info& type;
  };
  const row rows[] = {
      {variant(true), typeid(bool)},
      {variant(static_cast<signed char>(1)), typeid(signed char)},
      {variant(1ULL), typeid(unsigned long long)},
      {variant(1.0L), typeid(long double)},
      {variant("x"), typeid(ustring8)},
      {variant(ustring8("x")), typeid(ustring8)},
      {variant(units), typeid(ustring16)},
      {variant(u16("x")), typeid(ustring16)},
      {variant(L"x"), typeid(ustring32)},
      {variant(ustring32(L"x")), typeid(ustring32)},
      {variant(std::string("x")), typeid(std::string)},
      {variant(std::wstring(L"x")), typeid(std::wstring)},
  };
  for (const row& r : rows)
    EXPECT_EQ(r.type, r.value.held().type()) << r.type.name();
  EXPECT_EQ(12, variant(units).as_int());
}

TEST(Variant, NullTextPointersThrowWithoutLeaking) {
  const char* narrow = nullptr;
  const unsigned short* utf16 = nullptr;
  const wchar_t* wide = nullptr;
  EXPECT_THROWS_STD(variant{narrow}, std::logic_error, "basic_string::_M_construct null not valid");
  EXPECT_THROWS_STD(variant{utf16}, std::logic_error, "basic_string::_M_construct null not valid");
  EXPECT_THROWS_STD(variant{wide}, std::logic_error, "basic_string::_M_construct null not valid");
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
  struct row {
    const char* label;
    variant value;
    int i;
    short s;
    std::int8_t i8;
    std::uint8_t u8;
    std::uint16_t u16;
    std::uint32_t u32;
    std::int64_t i64;
    std::uint64_t u64;
  };
  const row rows[] = {
      {"1e10", variant(1e10), int_min, wide_short, 0, 0, 0, 1410065408u, 10000000000LL,
       10000000000ULL},
      {"40000", variant(40000.0), 40000, x87 ? -32768 : -25536, x87 ? 0 : 64, x87 ? 0 : 64, 40000,
       40000u, 40000, 40000u},
      {"float 3e9", variant(3e9f), int_min, wide_short, 0, 0, 0, 3000000000u, 3000000000LL,
       3000000000ULL},
      {"long double 40000", variant(40000.0L), 40000, -32768, 0, 0, 40000, 40000u, 40000, 40000u},
      {"1.5e19", variant(1.5e19), int_min, wide_short, 0, 0, 0, 0u, ll_min,
       15000000000000000000ULL},
      {"1e20", variant(1e20), int_min, wide_short, 0, 0, 0, 0u, ll_min, 0u},
      {"-1e20", variant(-1e20L), int_min, -32768, 0, 0, 0, 0u, ll_min, top_bit},
      {"NaN", variant(std::numeric_limits<double>::quiet_NaN()), int_min, wide_short, 0, 0, 0, 0u,
       ll_min, top_bit},
  };
  for (const row& r : rows) {
    SCOPED_TRACE(r.label);
    const variant& v = r.value;
    EXPECT_EQ(r.i, v.as_int());
    EXPECT_EQ(r.i, v.as_int32());
    EXPECT_EQ(r.i, v.as_long());
    EXPECT_EQ(r.s, v.as_short());
    EXPECT_EQ(r.s, v.as_int16());
    EXPECT_EQ(r.i8, v.as_int8());
    EXPECT_EQ(r.u8, v.as_uint8());
    EXPECT_EQ(r.u16, v.as_uint16());
    EXPECT_EQ(r.u32, v.as_uint32());
    EXPECT_EQ(r.i64, v.as_int64());
    EXPECT_EQ(r.u64, v.as_uint64());
  }
}

// Numbers, booleans and nil stream as the variant fuzz target's model says; texts are written
// by rules of their own.
TEST(Variant, StreamsTextsByTheirOwnRule) {
  struct row {
    variant value;
    std::string out;
  };
  const row rows[] = {
      {variant(ustring8(std::string("a\0b", 3))), std::string("a\0b", 3)},
      {variant(std::string("a\0b", 3)), std::string("a\0b", 3)},
      // UTF-16 and UTF-32 text are written as C strings and stop at the first NUL.
      {variant(ustring16{'a', 0, 'b'}), "a"},
      {variant(ustring32(std::wstring(L"a\0b", 3))), "a"},
  };
  for (const row& r : rows)
    EXPECT_EQ(r.out, streamed(r.value)) << r.value.type().name();

  std::ostringstream alpha;
  alpha << std::boolalpha << variant(true);
  EXPECT_EQ("1", alpha.str());
}

TEST(Variant, CopiesShareOneValueObject) {
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
}

TEST(Variant, AssigningReplacesTheValueObjectAndLeavesCopiesAlone) {
  variant a("text");
  variant b;
  b = a;
  a = nil;
  EXPECT_TRUE(a == nil);
  EXPECT_EQ("text", b.as_string());
  EXPECT_EQ(1, b.held().reference_count());
  // Assigning nil always builds a fresh nil object.
  variant n1;
  variant n2(n1);
  n2 = nil;
  EXPECT_NE(&n1.held(), &n2.held());
  EXPECT_EQ(1, n1.held().reference_count());
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
