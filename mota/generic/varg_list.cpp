#include <mota/generic/varg_list.hpp>

#include <algorithm>
#include <cstddef>

namespace MOTA_2_18 {
namespace generic {

argument const varg_list::nil_argument;

namespace {

// Exact name comparison: same length, same bytes.
struct named {
  strings::ustring8 const& name;
  bool operator()(argument const& arg) const {
    return static_cast<std::string const&>(arg.name()) == static_cast<std::string const&>(name);
  }
};

}  // namespace

varg_list::varg_list(argument const& a1, argument const& a2, argument const& a3, argument const& a4,
                     argument const& a5, argument const& a6, argument const& a7, argument const& a8,
                     argument const& a9, argument const& a10, argument const& a11,
                     argument const& a12, argument const& a13, argument const& a14,
                     argument const& a15, argument const& a16, argument const& a17,
                     argument const& a18, argument const& a19, argument const& a20,
                     argument const& a21, argument const& a22, argument const& a23,
                     argument const& a24, argument const& a25, argument const& a26) {
  argument const* const all[] = {&a1,  &a2,  &a3,  &a4,  &a5,  &a6,  &a7,  &a8,  &a9,
                                 &a10, &a11, &a12, &a13, &a14, &a15, &a16, &a17, &a18,
                                 &a19, &a20, &a21, &a22, &a23, &a24, &a25, &a26};
  std::size_t given = 0;
  while (given < sizeof all / sizeof all[0] && *all[given] != types::nil)
    ++given;
  m_arguments.reserve(given);
  for (std::size_t i = 0; i < given; ++i)
    push_back(*all[i]);
}

varg_list::~varg_list() = default;

bool varg_list::push_back(argument const& arg) {
  if (arg.has_name() && find(arg.name()) != end()) return false;
  m_arguments.push_back(arg);
  return true;
}

bool varg_list::push_back(strings::ustring8 const& name, types::variant const& value) {
  if (!name.empty() && find(name) != end()) return false;
  m_arguments.emplace_back(name, value);
  return true;
}

argument const& varg_list::at(strings::ustring8 const& name) const {
  const const_iterator found = find(name);
  return found != end() ? *found : nil_argument;
}

varg_list::iterator varg_list::find(strings::ustring8 const& name) {
  if (name.empty()) return m_arguments.end();
  return std::find_if(m_arguments.begin(), m_arguments.end(), named{name});
}

varg_list::const_iterator varg_list::find(strings::ustring8 const& name) const {
  if (name.empty()) return m_arguments.end();
  return std::find_if(m_arguments.begin(), m_arguments.end(), named{name});
}

void varg_list::erase(strings::ustring8 const& name) {
  const iterator found = find(name);
  if (found != end()) m_arguments.erase(found);
}

void varg_list::erase(unsigned int index) {
  if (index < m_arguments.size()) m_arguments.erase(m_arguments.begin() + index);
}

}  // namespace generic
}  // namespace MOTA_2_18
