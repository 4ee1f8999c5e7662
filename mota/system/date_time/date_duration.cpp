#include <mota/system/date_time/date_duration.hpp>

namespace MOTA_2_18 {
namespace system {
namespace date_time {
namespace {

std::int32_t wrap32(std::uint32_t value) {
  return value > 0x7FFFFFFFu ? -static_cast<std::int32_t>(~value) - 1
                             : static_cast<std::int32_t>(value);
}

}  // namespace

date_duration& date_duration::assign(const date_duration& other) {
  m_days = other.m_days;
  return *this;
}

date_duration& date_duration::plus_assign(const date_duration& other) {
  m_days = wrap32(static_cast<std::uint32_t>(m_days) + static_cast<std::uint32_t>(other.m_days));
  return *this;
}

date_duration& date_duration::minus_assign(const date_duration& other) {
  m_days = wrap32(static_cast<std::uint32_t>(m_days) - static_cast<std::uint32_t>(other.m_days));
  return *this;
}

date_duration plus(const date_duration& left, const date_duration& right) {
  date_duration result(left);
  return result.plus_assign(right);
}

date_duration minus(const date_duration& left, const date_duration& right) {
  date_duration result(left);
  return result.minus_assign(right);
}

date_duration operator+(const date_duration& left, const date_duration& right) {
  return plus(left, right);
}

date_duration operator-(const date_duration& left, const date_duration& right) {
  return minus(left, right);
}

}  // namespace date_time
}  // namespace system
}  // namespace MOTA_2_18
