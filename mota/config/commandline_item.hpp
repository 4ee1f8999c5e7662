// The process command line as a configuration item. argv[0] gives "application.name" (the
// program's file name), "application.name.extention" (its last dot-separated piece, when it has
// one; the key's spelling is the library's own) and "application.name.raw" (the name without
// that piece and without dots, or the whole name when nothing is left). Every further argument is
// "-key", "-key=value", "/key:value",
// "-key value" or "-key=a,b,c" (an array).
//
//   mota::config::commandline_item cmd(argc, argv);
//   cmd.load();   // "prog -width=640" stores "640" under "width"
#ifndef MOTA_CONFIG_COMMANDLINE_ITEM_HPP
#define MOTA_CONFIG_COMMANDLINE_ITEM_HPP

#include <mota/config/base_config_item.hpp>

namespace MOTA_2_18 {
namespace config {

// The command line as a configuration item: "-key=value", "/key:value", "-flag" arguments.
class MOTA_API commandline_item : public base_config_item {
 public:
  //@{
  // An item reading the argument vector `argv` of `argc` entries (the first is the program),
  // or a copy. The vector is not copied and must outlive the item's loads. Identifier
  // "command line".
  commandline_item(unsigned argc, const char* const* argv);
  commandline_item(const commandline_item& other);
  ~commandline_item() override;
  //@}

  //@{
  // Replaces the values with those of the argument vector. The program's file name (the last
  // path piece of argv[0]) is stored under "application.name", the part after its last dot
  // under "application.name.extention" (spelling intended) and the part before it, dots
  // removed, under "application.name.raw". Then, argument by argument:
  // - an argument that starts with neither "-" nor "/" is reported on standard output as
  //   "Warning! unknown key:<argument>\nIgnoring key and continuing\n" and skipped;
  // - the key is the argument's text after its first byte, up to "=", ":" or ":=" (or one of
  //   ">=", "<=", "+=", "-=", "*=", "/=", which assign the same way), blanks dropped;
  // - the value is the rest of the argument or, when that is empty, the next argument unless
  //   it starts with "-" or "/"; a value with a "," becomes an array of its non-empty pieces;
  // - a key with neither value nor operator is a flag, stored as the boolean true;
  //   "-key=" with nothing to follow stores an empty text.
  // Null entries in the vector are skipped.
  void load(item_list& items) override;
  void load() override;
  //@}
  // Drops every value.
  void unload() override;
  commandline_item* clone() const override;

  //@{
  // The argument vector given to the constructor.
  unsigned get_argc() const { return m_argc; }
  const char* const* get_argv() const { return m_argv; }
  //@}

 private:
  void store_program_name(const strings::ustring8& path);

  unsigned m_argc;
  const char* const* m_argv;
};

}  // namespace config
}  // namespace MOTA_2_18

#endif  // MOTA_CONFIG_COMMANDLINE_ITEM_HPP
