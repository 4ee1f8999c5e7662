// The XMC loader over a real directory tree: the input decides the contents of four files
// (a.xmc and b.xmc in a fresh directory under /tmp, sub/c.xmc and sub/d.xml below it) and
// the include graph between them, so cycles, diamonds, deep chains, missing files and broken
// documents meet the loader through the file system. a.xmc is loaded.
//
// Properties: no exception leaves parse; the kind is known and the message starts with the
// loader's prefix; an error from a file ends with the trail line naming a.xmc, and every trail
// line naming a file of the tree names one that really lies in it; parsing again after reset
// gives the same outcome and the same messages.
//
// Input, read from the front (missing bytes read as 0):
//   flags: bits 0-2 the locale, bit 3 a catalog filter (its name from the next byte);
//   then per file a mode byte m: odd m is raw content (two length bytes, then the bytes);
//   even m is (m >> 1) & 15 generated pieces, wrapped in the header and the root end tag
//   unless bit 6 (no header) or bit 5 (no end tag) is set. A piece is an opcode byte and its
//   operands, see write_piece.
// Include names that could reach outside the tree are refused before anything is loaded.
#include <mota/i18n/_private/xmc_file_loader.hpp>
#include <mota/parser/xml_token_stream.hpp>

#include <climits>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "fuzz_support.hpp"

namespace {

using mota::i18n::message_item;
using mota::i18n::message_t;
using mota::i18n::_private::xmc_file_loader;
using mota::strings::ustring8;

using reader = mota_fuzz::byte_reader;

const char* const kFiles[] = {"a.xmc", "b.xmc", "sub/c.xmc", "sub/d.xml"};
constexpr int kFileCount = 4;
const char* const kLocales[] = {"en", "de_DE", "de-DE.UTF-8", "fr", ".", "", "en_GB", "x"};
const char* const kNames[] = {"c", "d", "", "x y"};
const char* const kLangs[] = {"en", "de", "de_DE", ".", "", "fr", "en-GB", "de.DE"};
const char* const kTypes[] = {"int",  "double", "memory",   "mem_unit", "metric",
                              "date", "string", "Duration", "bogus",    "value"};
const char* const kFormats[] = {"",
                                " precision=\"2\"",
                                " fieldsize=\"10\" hex=\"true\"",
                                " target_unit=\"KB\" base_unit=\"B\"",
                                " short_form=\"true\" prec=\"1\"",
                                " colour=\"red\""};

bool in_root(int file) {
  return file < 2;
}

// The include text that names file `to` from file `from`, in one of three spellings.
std::string relative_name(int from, int to, unsigned int spelling) {
  std::string name = kFiles[to];
  if (!in_root(from)) name = in_root(to) ? "../" + name : name.substr(4);
  switch (spelling % 3) {
    case 1:
      return "./" + name;
    case 2:
      return (in_root(from) ? "sub/../" : "../sub/") + name;
    default:
      return name;
  }
}

std::string xml_header() {
  return "<?xml version=\"1.0\"?>\n<xmc version=\"1.0\">";
}

std::string include(const std::string& name) {
  return "<include file=\"" + name + "\"/>";
}

// Reads each operand in its own statement: the order of reads is the input's layout.
void write_piece(reader& in, int file, const std::string& root, std::string& out) {
  const unsigned int op = in.byte() % 10;
  switch (op) {
    case 0: {  // raw bytes
      const unsigned int size = in.byte() % 64;
      out += in.bytes(size);
      break;
    }
    case 1: {
      const int to = static_cast<int>(in.byte() % kFileCount);
      const unsigned int spelling = in.byte();
      out += include(relative_name(file, to, spelling));
      break;
    }
    case 2:
      out += include(root + "/" + kFiles[in.byte() % kFileCount]);
      break;
    case 3:
      out += include(in.byte() % 2 ? "missing.xmc" : "");
      break;
    case 4:
    case 7: {
      const char* name = kNames[in.byte() % 4];
      const char* lang = kLangs[in.byte() % 8];
      out += "<catalog name=\"" + std::string(name) + "\" lang=\"" + lang + "\">";
      if (op == 7) {
        const unsigned int msg = in.byte() % 4;
        out += "<msg name=\"m" + std::to_string(msg) + "\" meta=\"f" + std::to_string(file) +
               "\">text of " + kFiles[file] + "</msg></catalog>";
      }
      break;
    }
    case 5:
      out += "</catalog>";
      break;
    case 6: {
      const unsigned int type = in.byte();
      const unsigned int msg = in.byte() % 4;
      out += "<msg name=\"m" + std::to_string(msg) + "\">Hello  <arg name=\"a\" type=\"" +
             kTypes[type % 10] + "\"" + kFormats[(type / 10) % 6] + "/> world<br/></msg>";
      break;
    }
    case 8:
      out += in.byte() % 2 ? "<!-- note -->" : " \n\t";
      break;
    default:
      out += include(kFiles[file] + (in_root(file) ? 0 : 4));  // itself
      break;
  }
}

std::string file_content(reader& in, int file, const std::string& root) {
  unsigned int mode = in.byte();
  if (mode & 1) {
    std::size_t size = in.byte();
    const std::size_t high = in.byte();
    size |= high << 8;
    return in.bytes(size);
  }
  std::string out = mode & 0x40 ? "" : xml_header();
  for (unsigned int pieces = (mode >> 1) & 15; pieces > 0; --pieces)
    write_piece(in, file, root, out);
  if (!(mode & 0x20)) out += "</xmc>";
  return out;
}

// Whether every "file" attribute of the document stays inside the tree: one of the names
// the generator writes, or a plain name without any separator (a file beside the includer).
bool includes_stay_inside(const std::string& content, const std::set<std::string>& known) {
  mota::parser::xml_token_stream tokens;
  if (static_cast<int>(tokens.parse(ustring8(content)).type) != 0) return true;  // not loaded
  bool after_file = false;
  for (const auto& token : tokens) {
    const int kind = static_cast<int>(token.type());
    if (kind == 3 && after_file && known.count(token.value()) == 0) {
      for (char c : token.value()) {
        bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                     c == '.' || c == '_' || c == '-';
        if (!plain) return false;
      }
    }
    after_file = kind == 2 && token.value() == "file";
  }
  return true;
}

std::string real_path(const std::string& path) {
  char* resolved = ::realpath(path.c_str(), nullptr);
  if (resolved == nullptr) return std::string();
  std::string out(resolved);
  std::free(resolved);
  return out;
}

std::string flatten(const xmc_file_loader::data_map& data) {
  std::string out;
  for (const auto& catalog : data) {
    out += "[" + catalog.first + "]";
    for (const auto& entry : catalog.second) {
      const message_t& m = entry.second;
      out += "{" + entry.first + "|" + m.name() + "|" + m._orginal_locale() + "|" + m.meta();
      for (const message_item& item : m)
        out += "|" + std::to_string(item.type()) + ":" + item.data();
      out += "}";
    }
  }
  return out;
}

xmc_file_loader::load_error parse(xmc_file_loader& loader, const std::string& top,
                                  const std::string& locale, const std::string* catalog) {
  try {
    return catalog ? loader.parse(top, locale, *catalog) : loader.parse(top, locale);
  } catch (...) {
    std::abort();  // parse reports every failure as its result
  }
}

void check(const xmc_file_loader::load_error& e, const std::string& root, const std::string& top,
           const std::string& real_root) {
  if (e.type < 0 || e.type > 14) std::abort();
  if (e.message.compare(0, 30, "xmc_file_loader::load_error - ") != 0) std::abort();
  if (e.type == 0 || e.type == xmc_file_loader::default_locale_not_supported) return;
  // The outermost trail line names the file that was loaded.
  const std::string last = "\n in file: \"" + top + "\"";
  if (e.message.size() < last.size() ||
      e.message.compare(e.message.size() - last.size(), last.size(), last) != 0) {
    std::abort();
  }
  // The file lines form the end of the message, one per file of the include chain; those
  // naming a path of the tree must name one inside it.
  std::string rest = e.message;
  const std::string marker = "\n in file: \"";
  unsigned int lines = 0;
  for (;;) {
    std::size_t at = rest.rfind(marker);
    if (at == std::string::npos || rest.back() != '"') break;
    std::string path = rest.substr(at + marker.size(), rest.size() - at - marker.size() - 1);
    if (path.compare(0, root.size() + 1, root + "/") != 0) break;
    std::string resolved = real_path(path);
    if (resolved.compare(0, real_root.size() + 1, real_root + "/") != 0) std::abort();
    ++lines;
    rest.erase(at);
  }
  if (lines == 0 || lines > xmc_file_loader::max_include_depth + 1) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  char pattern[] = "/tmp/xmc_loader_fuzz_XXXXXX";
  if (::mkdtemp(pattern) == nullptr) return 0;
  const std::string root = pattern;
  const std::string real_root = real_path(root);
  std::error_code ec;
  std::filesystem::create_directory(root + "/sub", ec);

  std::set<std::string> known;
  for (int from = 0; from < kFileCount; ++from) {
    for (int to = 0; to < kFileCount; ++to) {
      for (unsigned int spelling = 0; spelling < 3; ++spelling)
        known.insert(relative_name(from, to, spelling));
    }
  }
  for (const char* name : kFiles)
    known.insert(root + "/" + name);

  reader in(data, size);
  const unsigned int flags = in.byte();
  const std::string locale = kLocales[flags & 7];
  const std::string catalog = kNames[in.byte() % 4];
  bool inside = true;
  for (int file = 0; file < kFileCount; ++file) {
    std::string content = file_content(in, file, root);
    inside = inside && includes_stay_inside(content, known);
    std::ofstream(root + "/" + kFiles[file], std::ios::binary) << content;
  }

  if (inside) {
    const std::string top = root + "/" + kFiles[0];
    const std::string* filter = (flags & 8) ? &catalog : nullptr;
    xmc_file_loader loader;
    xmc_file_loader::load_error first = parse(loader, top, locale, filter);
    check(first, root, top, real_root);
    const std::string loaded = flatten(loader.data());

    // Nothing of the first parse may leak into the next one.
    loader.reset();
    xmc_file_loader::load_error again = parse(loader, top, locale, filter);
    if (again.type != first.type || again.message != first.message) std::abort();
    if (flatten(loader.data()) != loaded) std::abort();
    if (first.type == 0) {
      xmc_file_loader::catalog_map catalogs;
      loader.combine_data(catalogs);
      if (catalogs.size() != loader.data().size()) std::abort();
    }
  }
  std::filesystem::remove_all(root, ec);
  return 0;
}
