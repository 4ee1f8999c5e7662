#include "usage.hpp"

namespace mota_tool {

const char* const main_usage =
    "usage: mota COMMAND [ARGS...]\n"
    "\n"
    "Check and inspect mota data files without writing a program.\n"
    "\n"
    "commands:\n"
    "  catalog check PATH... --locale L [--catalog ID] [--messages]\n"
    "                     load message catalogs and list what was loaded\n"
    "  catalog render PATH --locale L CATALOG MESSAGE [NAME=VALUE ...]\n"
    "                     render one message with the given arguments\n"
    "  config get KEY [--show-origin] [--file NAME] [-- ARGS...]\n"
    "  config dump [--show-origin] [--env] [--file NAME] [-- ARGS...]\n"
    "                     look up configuration from a file, arguments and the environment\n"
    "  config check FILE... [--json]\n"
    "                     warn where a configuration file stores what was probably not meant\n"
    "  convert --from CODE --to CODE [--strict]\n"
    "                     convert standard input between code pages\n"
    "  xml check FILE... [--json]\n"
    "                     check that files are well-formed for the library's XML reader\n"
    "\n"
    "Run 'mota COMMAND --help' for the details of one command; 'mota --version' prints\n"
    "the library version.\n"
    "\n"
    "exit status: 0 success, 1 failure, 2 configuration key not set, 3 warnings only\n"
    "(check commands), 64 usage error\n";

const char* const catalog_usage =
    "usage: mota catalog check PATH... --locale L [--catalog ID] [--messages]\n"
    "       mota catalog render PATH --locale L [--catalog ID] CATALOG MESSAGE [NAME=VALUE ...]\n"
    "       mota catalog render PATH --locale L CATALOG MESSAGE --list-args\n"
    "\n"
    "check   loads every PATH (an XMC file or a directory searched for .xmc and .xml files)\n"
    "        for locale L, optionally only the catalog ID. On success it lists each catalog\n"
    "        with its number of messages and the languages they came from; on failure it\n"
    "        prints the loader's message with the place of the fault and exits 1.\n"
    "        --messages lists every message too, with the language it came from.\n"
    "render  loads PATH the same way and prints message MESSAGE of catalog CATALOG. Each\n"
    "        NAME=VALUE gives one argument as text; the argument's kind in the catalog\n"
    "        (int, double, memory, duration, ...) decides how the text is read.\n"
    "        --list-args prints the message's arguments and their kinds instead.\n"
    "\n"
    "options:\n"
    "  --locale L     locale to load for, such as en, de_DE or fr-FR (required)\n"
    "  --catalog ID   load only the catalog named ID\n"
    "  --messages     (check) list the messages of each catalog\n"
    "  --list-args    (render) list the arguments instead of rendering\n"
    "  --help         print this text\n";

const char* const config_usage =
    "usage: mota config get KEY [--show-origin] [--file NAME] [--program NAME] [-- ARGS...]\n"
    "       mota config dump [--show-origin] [--env] [--file NAME] [--program NAME] [-- ARGS...]\n"
    "       mota config check FILE... [--json]\n"
    "\n"
    "get and dump read the configuration the way an application does: the arguments after\n"
    "'--' (as its command line, for example -server.port=9000), the configuration file and\n"
    "the process environment, the first of them that sets a key taking precedence. The file\n"
    "is: the value of cfg_file in the arguments after '--' (-cfg_file=NAME), else the value\n"
    "of cfg_file in the environment, else NAME from --file (\".cfg\" added when it has no\n"
    "extension), else the program name with \".cfg\" (mota.cfg). The arguments and the\n"
    "environment are read before the file, so either can name it. The library's warnings\n"
    "about ignored arguments go to standard error.\n"
    "\n"
    "get    prints the value of the dotted KEY; an array prints one element a line.\n"
    "       Exits 2 when no source sets the key.\n"
    "dump   prints every source with all its keys; the environment only with --env.\n"
    "check  reads each FILE as the library does and warns where what is stored is probably\n"
    "       not what was meant: a value cut at '#' or '//', blanks dropped from an unquoted\n"
    "       value, a line without '=' joining the next key, an array left open by a trailing\n"
    "       ',' taking in the next lines, a key set twice (the later line wins), an empty\n"
    "       quoted value, a quote never closed, a value a save would not write back as is.\n"
    "       One line per warning, 'FILE:LINE: warning: ...; stored: VALUE', then a summary.\n"
    "       Exits 0 when clean, 3 on warnings only, 1 when a file cannot be read.\n"
    "\n"
    "options:\n"
    "  --show-origin    (get, dump) prefix each value with its source: 'command line',\n"
    "                   'file:PATH:LINE', 'environment', and '(via A -> B)' for indirections;\n"
    "                   dump marks keys that an earlier source answers '(overridden)'\n"
    "  --env            (dump) list the environment too; it may hold secrets\n"
    "  --json           (check) print a JSON array with one object per file instead\n"
    "  --file NAME      configuration file to read\n"
    "  --program NAME   program name the arguments belong to (default: mota)\n"
    "  --help           print this text\n";

const char* const convert_usage =
    "usage: mota convert --from CODE --to CODE [--strict]\n"
    "       mota convert --list\n"
    "\n"
    "Converts standard input from one code page to another and writes the result to\n"
    "standard output, a piece at a time (memory does not grow with the input). CODE is a\n"
    "code-page number (1252, 28591, 4 for UTF-8, ...), its name (CP1252, ISO-8859-1,\n"
    "UTF-8, ...) or a common alias (utf8, latin1, latin9, windows-1252, ascii, sjis, ...);\n"
    "case, '-' and '_' do not matter. Input that cannot be converted becomes one '?' per\n"
    "invalid sequence or unrepresentable character, and a warning on standard error\n"
    "counts them.\n"
    "\n"
    "options:\n"
    "  --from CODE    code page of the input\n"
    "  --to CODE      code page of the output\n"
    "  --strict       stop at the first sequence that cannot be converted and report its\n"
    "                 byte offset (exit status 1); the output holds what came before it\n"
    "  --list         print the known code pages\n"
    "  --help         print this text\n";

const char* const xml_usage =
    "usage: mota xml check FILE... [--json]\n"
    "\n"
    "Reads each FILE with the library's XML reader and prints one line for it:\n"
    "'FILE: ok', or 'FILE:LINE: kind: detail' for its first error, or\n"
    "'FILE: unreadable: detail'. Exit status 1 when any file has an error.\n"
    "LINE counts from 1, as the reader counts: only line breaks between markup count, so\n"
    "an error after line breaks inside text, comments or attribute values is reported on\n"
    "an earlier line than the real one. A header error is reported on line 1 and a\n"
    "document that ends inside an element on its last line.\n"
    "\n"
    "options:\n"
    "  --json         print a JSON array with one object per file instead\n"
    "  --help         print this text\n";

int usage_error(std::ostream& err, const std::string& problem, const char* usage) {
  // Only the synopsis: the lines before the first blank line.
  const std::string text(usage);
  const std::string::size_type end = text.find("\n\n");
  err << "mota: " << problem << "\n"
      << text.substr(0, end == std::string::npos ? text.size() : end + 1)
      << "Run with --help for details.\n";
  return exit_usage;
}

int failure(std::ostream& err, const std::string& what) {
  err << "mota: " << what << "\n";
  return exit_failure;
}

}  // namespace mota_tool
