// Not part of the public interface.
// The one replace_all behind every public overload.
#ifndef MOTA_STRINGS_PRIVATE_REPLACE_ALL_HPP
#define MOTA_STRINGS_PRIVATE_REPLACE_ALL_HPP

#include <cstddef>

namespace MOTA_2_18 {
namespace strings {
namespace _private {

// Builds the result in one pass instead of editing in place, so that many replacements cost
// linear time; the outcome equals replacing left to right and resuming after each insertion.
template <typename Base>
int replace_all(Base& text, const Base& what, const Base& with) {
  if (what.empty()) return 0;
  std::size_t found = text.find(what);
  if (found == Base::npos) return 0;
  Base result;
  result.reserve(text.size());
  std::size_t from = 0;
  int count = 0;
  do {
    result.append(text, from, found - from);
    result.append(with);
    from = found + what.size();
    ++count;
    found = text.find(what, from);
  } while (found != Base::npos);
  result.append(text, from, Base::npos);
  text.swap(result);
  return count;
}

}  // namespace _private
}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_PRIVATE_REPLACE_ALL_HPP
