// Conversion of a byte stream from one code page to another, a piece at a time, in memory
// bounded by the piece size. A character cut at the end of one piece is held back and completed
// by the next. Input that cannot be converted is either replaced by one "?" per fault and
// counted, or, in strict mode, stops the conversion with the kind and byte offset of the fault.
//
//   mota::strings::code_page_converter convert(code_page::windows_1252, code_page::utf_8);
//   std::string out;
//   while (read(piece)) convert.convert(piece.data(), piece.size(), out);   // appends to out
//   convert.finish(out);
#ifndef MOTA_STRINGS_CODE_PAGE_CONVERTER_HPP
#define MOTA_STRINGS_CODE_PAGE_CONVERTER_HPP

#include <mota/export.hpp>
#include <mota/strings/code_page.hpp>

#include <cstddef>
#include <cstdint>
#include <string>

namespace MOTA_2_18 {
namespace strings {

// A streaming converter between two code pages; one object converts one stream.
class MOTA_API code_page_converter {
 public:
  // Why a strict conversion stopped.
  enum fault_type {
    no_fault,
    invalid_sequence,    // bytes that are no character of the source code page
    unrepresentable,     // a character the target code page has no place for
    truncated_sequence,  // the input ends inside a character
  };

  // Throws as code_page's conversions do: exceptions::invalid_argument_value for an invalid
  // code, exceptions::runtime_error when iconv cannot convert between the two.
  code_page_converter(const code_page& from, const code_page& to, bool strict = false);
  ~code_page_converter();
  code_page_converter(const code_page_converter&) = delete;
  code_page_converter& operator=(const code_page_converter&) = delete;

  // Converts the next `size` bytes of the input and appends the result to `out`. Returns false
  // once a strict conversion has met a fault: `out` then holds the conversion of everything
  // before it, and later calls convert nothing.
  bool convert(const char* data, std::size_t size, std::string& out);
  // Ends the input: a character left incomplete is a truncated_sequence. Returns as convert.
  bool finish(std::string& out);

  // The first fault of a strict conversion (no_fault while there is none).
  fault_type fault() const { return m_fault; }
  // The offset of the first byte of that fault in the whole input.
  std::uint64_t fault_offset() const { return m_fault_offset; }
  // How many "?" a lenient conversion wrote in place of input it could not convert.
  std::uint64_t substitutions() const { return m_substitutions; }

 private:
  bool run(bool last, std::string& out);
  // Length of the character at `data` if it is a valid one of the source (0 when it is not,
  // and `incomplete` set when `size` bytes are too few to tell).
  std::size_t character_length(const char* data, std::size_t size, bool& incomplete);
  bool stop_or_substitute(fault_type fault, std::size_t at, std::string& out);

  void* m_convert;   // iconv descriptor, source to target
  void* m_validate;  // iconv descriptor, source to UTF-8: tells bad input from unplaceable
  bool m_strict;
  std::string m_pending;     // input not converted yet: at most one piece and a cut character
  std::uint64_t m_done = 0;  // input bytes consumed before m_pending
  fault_type m_fault = no_fault;
  std::uint64_t m_fault_offset = 0;
  std::uint64_t m_substitutions = 0;
};

}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_CODE_PAGE_CONVERTER_HPP
