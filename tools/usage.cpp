#include "usage.hpp"

namespace mota_tool {

const char* const main_usage =
    "usage: mota COMMAND [ARGS...]\n"
    "\n"
    "Check and inspect mota data files without writing a program.\n"
    "\n"
    "commands:\n"
    "  catalog check PATH... --locale L [--catalog ID] [--messages] [--json]\n"
    "                     load message catalogs and list what was loaded\n"
    "  catalog render PATH --locale L CATALOG MESSAGE [NAME=VALUE ...]\n"
    "                     render one message with the given arguments\n"
    "  catalog lint PATH... [--strict] [--json]\n"
    "                     check catalogs in every language for translators' faults\n"
    "  config get KEY [--file NAME] [-- ARGS...]\n"
    "  config dump [--file NAME] [-- ARGS...]\n"
    "                     look up configuration from a file, arguments and the environment\n"
    "  convert --from CODE --to CODE\n"
    "                     convert standard input between code pages\n"
    "  xml check FILE     check that a file is well-formed for the library's XML reader\n"
    "\n"
    "Run 'mota COMMAND --help' for the details of one command; 'mota --version' prints\n"
    "the library version.\n"
    "\n"
    "exit status: 0 success, 1 failure, 2 configuration key not set, 64 usage error\n";

const char* const catalog_usage =
    "usage: mota catalog check PATH... --locale L [--catalog ID] [--messages] [--json]\n"
    "       mota catalog render PATH --locale L [--catalog ID] CATALOG MESSAGE [NAME=VALUE ...]\n"
    "       mota catalog render PATH --locale L CATALOG MESSAGE --list-args\n"
    "       mota catalog lint PATH... [--strict] [--json]\n"
    "\n"
    "check   loads every PATH (an XMC file or a directory searched for .xmc and .xml files)\n"
    "        for locale L, optionally only the catalog ID, each file on its own. It lists\n"
    "        each catalog loaded with its number of messages and the languages they came\n"
    "        from; for every file that fails to load it prints the loader's message with\n"
    "        the place of the fault, and then exits 1.\n"
    "        --messages lists every message too, with the language it came from.\n"
    "render  loads PATH the same way and prints message MESSAGE of catalog CATALOG. Each\n"
    "        NAME=VALUE gives one argument as text; the argument's kind in the catalog\n"
    "        (int, double, memory, duration, ...) decides how the text is read.\n"
    "        --list-args prints the message's arguments and their kinds instead.\n"
    "lint    loads every PATH once for each language its catalogs are written in and\n"
    "        reports, per catalog and language, the messages present, missing against the\n"
    "        reference language (en, else the language-neutral \".\") and extra, then the\n"
    "        findings, one a line as \"PLACE: error|warning: TEXT [CHECK]\", and a summary.\n"
    "        Errors: load failures (every file, with its trail), an argument a translation\n"
    "        misses, adds, renames or reads as another kind, bytes that are not UTF-8.\n"
    "        Warnings: differing format attributes, type keywords read as string, kinds\n"
    "        that always show \"?invalid?\" (number, time, date), messages without a name,\n"
    "        duplicate messages and catalog sections (which one the loader keeps), sections\n"
    "        without a language, missing and extra messages, text identical to the\n"
    "        reference, catalogs without a reference language. Exits 0 when clean, 1 on\n"
    "        errors, 3 on warnings only.\n"
    "\n"
    "options:\n"
    "  --locale L     (check, render; required) locale to load for, such as en, de_DE\n"
    "                 or fr-FR\n"
    "  --catalog ID   (check, render) load only the catalog named ID\n"
    "  --messages     (check) list the messages of each catalog\n"
    "  --json         (check, lint) print one JSON document on standard output instead:\n"
    "                 check's keys are catalogs (name, messages, languages and, with\n"
    "                 --messages, message_languages), errors and status; lint's are\n"
    "                 statistics, findings (severity, check, file, catalog, language,\n"
    "                 message, text) and summary\n"
    "  --strict       (lint) count warnings as errors\n"
    "  --list-args    (render) list the arguments instead of rendering\n"
    "  --help         print this text\n";

const char* const config_usage =
    "usage: mota config get KEY [--file NAME] [--program NAME] [-- ARGS...]\n"
    "       mota config dump [--file NAME] [--program NAME] [-- ARGS...]\n"
    "\n"
    "Reads the configuration the way an application does: the arguments after '--' (as\n"
    "its command line, for example -server.port=9000), the file NAME and the process\n"
    "environment, the first of them that sets a key taking precedence. Without --file\n"
    "the file is the one the library picks: the value of cfg_file from the arguments or\n"
    "the environment, else the program name with \".cfg\" (mota.cfg).\n"
    "\n"
    "get   prints the value of the dotted KEY; an array prints one element a line.\n"
    "      Exits 2 when no source sets the key.\n"
    "dump  prints every source with all its keys.\n"
    "\n"
    "options:\n"
    "  --file NAME      configuration file to read\n"
    "  --program NAME   program name the arguments belong to (default: mota)\n"
    "  --help           print this text\n";

const char* const convert_usage =
    "usage: mota convert --from CODE --to CODE\n"
    "       mota convert --list\n"
    "\n"
    "Converts standard input from one code page to another and writes the result to\n"
    "standard output. CODE is a code-page number (1252, 28591, 4 for UTF-8, ...) or its\n"
    "name (CP1252, ISO-8859-1, UTF-8, ...; case does not matter). Bytes that cannot be\n"
    "converted become '?'.\n"
    "\n"
    "options:\n"
    "  --from CODE    code page of the input\n"
    "  --to CODE      code page of the output\n"
    "  --list         print the known code pages\n"
    "  --help         print this text\n";

const char* const xml_usage =
    "usage: mota xml check FILE\n"
    "\n"
    "Reads FILE with the library's XML reader and prints 'ok', or the kind of the first\n"
    "error with its line and detail (exit status 1).\n"
    "\n"
    "options:\n"
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
