// The abstract labeled buffer: a tree of named values (types::variant) in which every label may
// also carry a nested group of further labels, written to and read from a single string.
// labeled_text_buffer is the implementation.
//
//   mota::serialization::labeled_text_buffer tree;
//   tree.add_value("a", mota::types::variant(1));
//   tree.create_group("g").add_value("x", mota::types::variant("ok"));
#ifndef MOTA_SERIALIZATION_LABELED_SERIALIZE_BUFFER_HPP
#define MOTA_SERIALIZATION_LABELED_SERIALIZE_BUFFER_HPP

#include <mota/export.hpp>
#include <mota/generic/abilities/clone_ability.hpp>
#include <mota/generic/abilities/create_ability.hpp>
#include <mota/generic/abilities/reference_count_pointer_ability.hpp>
#include <mota/types/variant.hpp>

#include <string>

namespace MOTA_2_18 {
namespace serialization {

// A tree of labelled entries, each holding a value and a group of further entries, that turns
// into one string and back. Shared through rc_pointer, copied with clone().
class MOTA_API labeled_serialize_buffer
    : public generic::abilities::create_ability,
      public generic::abilities::clone_ability,
      public generic::abilities::reference_count_pointer_ability<labeled_serialize_buffer> {
 public:
  ~labeled_serialize_buffer() override;

  // Replaces all entries with a copy of `other`'s; assigning a buffer to itself does nothing.
  virtual void assign(const labeled_serialize_buffer& other) = 0;
  // Replaces all entries with those parsed from `text`.
  virtual void assign(const std::string& text) = 0;
  // Replaces all entries with those parsed from `length` bytes at `text` (none for a null
  // pointer or a length of zero or less).
  virtual void assign(const char* text, int length) = 0;

  // The whole tree as one string.
  virtual std::string as_str() const = 0;

  // Stores `value` (shared, not copied) under `label` trimmed of spaces, newlines, carriage
  // returns and tabs at both ends. True when it replaced a value that was not nil.
  virtual bool add_value(const std::string& label, const types::variant& value) = 0;
  // The group of the entry `label` (trimmed as by add_value), creating the entry when missing.
  virtual labeled_serialize_buffer& create_group(const std::string& label) = 0;

  // Lookups take the label exactly as given (no trimming).
  virtual bool has_label(const std::string& label) const = 0;
  // The entry exists and its value is not nil.
  virtual bool has_value(const std::string& label) const = 0;
  // The entry exists and its group's as_str() is not empty.
  virtual bool has_group(const std::string& label) const = 0;
  // There are no entries.
  virtual bool is_empty() const = 0;

  // The entry's value (sharing it), or a nil variant when there is no such entry.
  virtual types::variant retrieve_value(const std::string& label) const = 0;
  //@{
  // The entry's group (possibly empty), or null when there is no such entry.
  virtual const labeled_serialize_buffer* retrieve_group(const std::string& label) const = 0;
  virtual labeled_serialize_buffer* retrieve_group(const std::string& label) = 0;
  //@}

  // A new, empty heap buffer of the same kind, delete flag set.
  labeled_serialize_buffer* create() const override = 0;
  // A new heap copy, delete flag set.
  labeled_serialize_buffer* clone() const override = 0;

 protected:
  //@{
  // For the derived buffers only.
  labeled_serialize_buffer() = default;
  labeled_serialize_buffer(const labeled_serialize_buffer&) = default;
  labeled_serialize_buffer& operator=(const labeled_serialize_buffer&) = default;
  //@}
};

}  // namespace serialization
}  // namespace MOTA_2_18

#endif  // MOTA_SERIALIZATION_LABELED_SERIALIZE_BUFFER_HPP
