// The labeled buffer written in the text encoding of serialize_text_buf: the tree becomes a flat
// sequence of (label, payload) strings in label order. A label ending in a space announces that
// its payload is the nested text of a group; any other payload is a value's text. Values read
// back from text are std::string variants, whatever type they had when written. Every walk of
// the tree (writing, reading, copying, overlaying, destroying) keeps its own stack, so a tree of
// any depth that fits in memory can be written and read back.
//
//   mota::serialization::labeled_text_buffer tree;
//   tree.add_value("a", mota::types::variant(1));
//   tree.create_group("g").add_value("x", mota::types::variant("ok"));
//   mota::serialization::labeled_text_buffer copy(tree.as_str());
//   int a = copy.retrieve_value("a").as_int();
#ifndef MOTA_SERIALIZATION_LABELED_TEXT_BUFFER_HPP
#define MOTA_SERIALIZATION_LABELED_TEXT_BUFFER_HPP

#include <mota/export.hpp>
#include <mota/serialization/labeled_serialize_buffer.hpp>
#include <mota/serialization/serialize_text_buf.hpp>
#include <mota/types/variant.hpp>

#include <cstddef>
#include <map>
#include <string>
#include <utility>

namespace MOTA_2_18 {
namespace serialization {

// The labelled tree written as a flat text: (label, payload) strings in the text encoding.
class MOTA_API labeled_text_buffer : public labeled_serialize_buffer {
 public:
  // No entries.
  labeled_text_buffer();
  // Copies the entries (values shared, groups copied).
  labeled_text_buffer(const labeled_text_buffer& other);
  //@{
  // Parses `text` as assign(text) does; the copy assignment copies the entries as the copy
  // constructor does and returns *this.
  labeled_text_buffer(const std::string& text);  // NOLINT: converting on purpose
  labeled_text_buffer& operator=(const labeled_text_buffer& other);
  ~labeled_text_buffer() override;
  //@}

  void assign(const labeled_serialize_buffer& other) override;
  //@{
  // Parses `text`, replacing all entries. Lengths that point beyond the text (or the nested text
  // they are part of) throw std::out_of_range as serialize_text_buf::read_string does, leaving
  // the entries read so far.
  void assign(const std::string& text) override;
  void assign(const char* text, int length) override;
  //@}

  std::string as_str() const override;

  bool add_value(const std::string& label, const types::variant& value) override;
  labeled_text_buffer& create_group(const std::string& label) override;

  bool has_label(const std::string& label) const override;
  bool has_value(const std::string& label) const override;
  bool has_group(const std::string& label) const override;
  bool is_empty() const override;

  types::variant retrieve_value(const std::string& label) const override;
  const labeled_text_buffer* retrieve_group(const std::string& label) const override;
  labeled_text_buffer* retrieve_group(const std::string& label) override;

  labeled_text_buffer* create() const override;
  labeled_text_buffer* clone() const override;

  // Replaces all entries with a copy of `other`'s.
  virtual void assign(const labeled_text_buffer& other);

  // Merges `other` into this buffer, label by label: a missing entry is copied whole; when
  // `other`'s entry has a non-empty group, its value replaces this one only if it is not nil and
  // the groups are overlaid in the same way, level by level; otherwise `other`'s value replaces
  // this one even when it is nil. Labels that `other` lacks are left alone.
  void overlay(const labeled_text_buffer& other);

 private:
  using entry = std::pair<labeled_text_buffer, types::variant>;
  using entries = std::map<std::string, entry>;

  // The entry `label`, made with an empty group and a nil value when missing (`added` says so).
  entries::iterator find_or_add(std::string&& label, bool& added);

  // Replaces the entries with those read from the `size` bytes at `text`.
  void parse(const char* text, std::size_t size);
  // True when `group` is one of the groups anywhere below this buffer.
  bool holds_group(const labeled_text_buffer* group) const;
  // Fills the empty `to` with deep copies of the entries of `from`.
  static void copy_entries(const entries& from, entries& to);

  entries m_entries;
  // Unused: writing and reading work on the caller's string and the result directly. Kept so the
  // object keeps its layout.
  serialize_text_buf m_work;
};

}  // namespace serialization
}  // namespace MOTA_2_18

#endif  // MOTA_SERIALIZATION_LABELED_TEXT_BUFFER_HPP
