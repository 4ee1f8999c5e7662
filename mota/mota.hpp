// The umbrella header: every public header of the library.
//
//   #include <mota/mota.hpp>
//   mota::strings::ustring16 u = mota::strings::utf8_to_utf16("text");
#ifndef MOTA_MOTA_HPP
#define MOTA_MOTA_HPP

#include <mota/export.hpp>
#include <mota/version.hpp>

#include <mota/debug/assert.hpp>
#include <mota/exceptions/exception.hpp>
#include <mota/exceptions/logic_error.hpp>
#include <mota/exceptions/runtime_error.hpp>
#include <mota/functor/delegate.hpp>
#include <mota/functor/function_type_interface.hpp>
#include <mota/functor/member_function.hpp>
#include <mota/generic/abilities/clone_ability.hpp>
#include <mota/generic/abilities/create_ability.hpp>
#include <mota/generic/abilities/reference_count_pointer_ability.hpp>
#include <mota/memory/rc_pointer.hpp>
#include <mota/memory/shared_pointer.hpp>
#include <mota/strings/ustring.hpp>
#include <mota/types/nil.hpp>

#endif  // MOTA_MOTA_HPP
