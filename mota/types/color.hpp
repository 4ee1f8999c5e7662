// A 32-bit RGBA colour: four bytes red, green, blue, alpha. As one integer, red is the lowest
// byte and alpha the highest (red + green * 2^8 + blue * 2^16 + alpha * 2^24).
//
//   auto c = mota::types::color_t::rgb(10, 20, 30);   // alpha 255
//   c.as_rgb();                                         // 0x1E140A
#ifndef MOTA_TYPES_COLOR_HPP
#define MOTA_TYPES_COLOR_HPP

#include <mota/export.hpp>

#include <cstdint>

namespace MOTA_2_18 {
namespace types {

// An RGBA colour, one byte per channel; cheap to copy.
class MOTA_API color_t {
 public:
  //@{
  // Transparent black (all four bytes 0), or a copy.
  color_t() = default;
  color_t(color_t const&) = default;
  //@}
  // The four bytes of `value`, red lowest, alpha highest.
  color_t(int value) { assign(value); }  // NOLINT: implicit on purpose
  // The four channels as given.
  color_t(unsigned char red, unsigned char green, unsigned char blue, unsigned char alpha)
      : m_red(red), m_green(green), m_blue(blue), m_alpha(alpha) {}
  // Opaque: alpha 255.
  color_t(unsigned char red, unsigned char green, unsigned char blue)
      : m_red(red), m_green(green), m_blue(blue), m_alpha(255) {}

  //@{
  // The same as the constructor with the same arguments.
  static color_t rgba(int const& value) { return color_t(value); }
  static color_t rgba(unsigned char red, unsigned char green, unsigned char blue,
                      unsigned char alpha) {
    return color_t(red, green, blue, alpha);
  }
  //@}
  //@{
  // rgb(int) takes all four bytes of `value`, alpha included, like rgba(int) (intended);
  // rgb(red, green, blue) is opaque, alpha 255.
  static color_t rgb(int const& value) { return color_t(value); }
  static color_t rgb(unsigned char red, unsigned char green, unsigned char blue) {
    return color_t(red, green, blue);
  }
  //@}

  //@{
  // The channel's byte.
  unsigned char red() const { return m_red; }
  unsigned char green() const { return m_green; }
  unsigned char blue() const { return m_blue; }
  unsigned char alpha() const { return m_alpha; }
  //@}
  //@{
  // Sets the channel's byte.
  void red(unsigned char value) { m_red = value; }
  void green(unsigned char value) { m_green = value; }
  void blue(unsigned char value) { m_blue = value; }
  void alpha(unsigned char value) { m_alpha = value; }
  //@}

  // The four bytes as one integer.
  int as_int32() const {
    const std::uint32_t bits =
        static_cast<std::uint32_t>(m_red) | static_cast<std::uint32_t>(m_green) << 8 |
        static_cast<std::uint32_t>(m_blue) << 16 | static_cast<std::uint32_t>(m_alpha) << 24;
    return static_cast<int>(bits);
  }
  // as_int32() with the alpha byte cleared.
  int as_rgb() const { return as_int32() & 0xFFFFFF; }

  //@{
  // Takes the other colour's bytes, or the four bytes of `value` (red lowest); returns *this.
  color_t& assign(color_t const& other) {
    m_red = other.m_red;
    m_green = other.m_green;
    m_blue = other.m_blue;
    m_alpha = other.m_alpha;
    return *this;
  }
  color_t& assign(int value) {
    const auto bits = static_cast<std::uint32_t>(value);
    m_red = static_cast<unsigned char>(bits);
    m_green = static_cast<unsigned char>(bits >> 8);
    m_blue = static_cast<unsigned char>(bits >> 16);
    m_alpha = static_cast<unsigned char>(bits >> 24);
    return *this;
  }
  color_t& operator=(color_t const& other) { return assign(other); }
  color_t& operator=(int value) { return assign(value); }
  //@}

  //@{
  // Compare all four bytes.
  bool equal(color_t const& other) const {
    return m_red == other.m_red && m_green == other.m_green && m_blue == other.m_blue &&
           m_alpha == other.m_alpha;
  }
  bool operator==(color_t const& other) const { return equal(other); }
  bool operator!=(color_t const& other) const { return !equal(other); }
  //@}

 private:
  unsigned char m_red = 0;
  unsigned char m_green = 0;
  unsigned char m_blue = 0;
  unsigned char m_alpha = 0;
};

}  // namespace types
}  // namespace MOTA_2_18

#endif  // MOTA_TYPES_COLOR_HPP
