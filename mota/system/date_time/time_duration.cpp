#include <mota/system/date_time/time_duration.hpp>

namespace MOTA_2_18 {
namespace system {
namespace date_time {
namespace {

// Two's-complement wrapping arithmetic without signed overflow.
std::int32_t wrap32(std::uint32_t value) {
  return value > 0x7FFFFFFFu ? -static_cast<std::int32_t>(~value) - 1
                             : static_cast<std::int32_t>(value);
}

std::int64_t wrap64(std::uint64_t value) {
  return value > 0x7FFFFFFFFFFFFFFFull ? -static_cast<std::int64_t>(~value) - 1
                                       : static_cast<std::int64_t>(value);
}

}  // namespace

time_duration::time_duration(int hour, int minute, int second, long long millisecond) {
  const std::uint32_t whole = static_cast<std::uint32_t>(hour) * 3600000u +
                              static_cast<std::uint32_t>(minute) * 60000u +
                              static_cast<std::uint32_t>(second) * 1000u;
  m_milliseconds = wrap64(static_cast<std::uint64_t>(static_cast<std::int64_t>(wrap32(whole))) +
                          static_cast<std::uint64_t>(millisecond));
}

time_duration& time_duration::assign(const time_duration& other) {
  m_milliseconds = other.m_milliseconds;
  return *this;
}

time_duration& time_duration::plus_assign(const time_duration& other) {
  m_milliseconds = wrap64(static_cast<std::uint64_t>(m_milliseconds) +
                          static_cast<std::uint64_t>(other.m_milliseconds));
  return *this;
}

time_duration& time_duration::minus_assign(const time_duration& other) {
  m_milliseconds = wrap64(static_cast<std::uint64_t>(m_milliseconds) -
                          static_cast<std::uint64_t>(other.m_milliseconds));
  return *this;
}

time_duration plus(const time_duration& left, const time_duration& right) {
  time_duration result(left);
  return result.plus_assign(right);
}

time_duration minus(const time_duration& left, const time_duration& right) {
  time_duration result(left);
  return result.minus_assign(right);
}

time_duration operator+(const time_duration& left, const time_duration& right) {
  return plus(left, right);
}

time_duration operator-(const time_duration& left, const time_duration& right) {
  return minus(left, right);
}

}  // namespace date_time
}  // namespace system
}  // namespace MOTA_2_18
