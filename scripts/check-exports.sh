#!/usr/bin/env bash
# Fails when the shared library exports an internal (`_private`) name that no installed header
# needs. The ones it must export:
#   - debug::_private: the entry points the MOTA_ASSERT macro expands to and the hook state
#     that debug/assert.hpp declares;
#   - i18n::_private::xmc_file_loader: message_catalogs.hpp includes the loader's header and
#     takes its load_error (whose inline constructor calls format_msg) in result_type;
#   - types::_private: the value pool's per-thread state and its two slow paths, which the
#     variant's inline number constructors and the value objects' inline release reach.
# Usage: check-exports.sh LIBRARY
set -euo pipefail
library=${1:?usage: check-exports.sh LIBRARY}

allowed='^(typeinfo (name )?for )?MOTA_2_18::('
allowed+='debug::_private::(____________________ASSERT____________________|'
allowed+='_______________CONTEXT__ASSERT________________|native_assert|g_assert_callback)\b|'
allowed+='i18n::_private::xmc_file_loader::|'
allowed+='types::_private::(value_pool|take_value_block_from_heap\(\)|give_value_block_slowly\(void\*\))$|'
allowed+='i18n::message_catalogs::result_type::result_type\(MOTA_2_18::i18n::_private::xmc_file_loader::load_error const&\)$'
allowed+=')'

# AddressSanitizer adds an __odr_asan marker beside every exported global; it is the
# instrumentation's, not part of the library's interface.
exported=$(nm -DC --defined-only "$library" | sed -E 's/^[0-9a-f]+ [A-Za-z] //' |
  grep -v '^__odr_asan' | grep _private || true)
if [ -z "$exported" ]; then
  echo "check-exports: no _private symbol is exported from $library (expected some)" >&2
  exit 1
fi
unexpected=$(grep -Ev "$allowed" <<<"$exported" || true)
if [ -n "$unexpected" ]; then
  echo "check-exports: $library exports internals no installed header needs:" >&2
  echo "$unexpected" >&2
  exit 1
fi
echo "check-exports: $(wc -l <<<"$exported") _private symbols exported, all needed by installed headers"
