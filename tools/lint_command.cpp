// mota catalog lint: reads message catalogs in every language they are written in and reports
// what a translator should fix before a user sees it. The checks that applications can use too
// (argument comparison, the outline of a file, per-language loads) are the library's; this file
// gathers the files, runs the checks and words the findings.
//
// Errors: load failures, a translation's missing, extra or renamed argument or an argument read
// as another kind, invalid UTF-8. Warnings: differing format attributes, unknown type keywords,
// kinds that always render "?invalid?", messages without a name, duplicate messages and
// catalog sections, catalog sections without a language, messages missing from or extra to a
// language, text identical to the reference language, catalogs without a reference language.
#include "arguments.hpp"
#include "catalog_files.hpp"
#include "commands.hpp"
#include "lint_report.hpp"
#include "text_output.hpp"
#include "usage.hpp"

#include <mota/i18n/argument_comparison.hpp>
#include <mota/i18n/catalog_languages.hpp>
#include <mota/i18n/message_catalogs.hpp>
#include <mota/i18n/xmc_outline.hpp>
#include <mota/strings/utf8_check.hpp>
#include <mota/system/file_utility.hpp>
#include <mota/system/io.hpp>

#include <algorithm>
#include <cctype>
#include <climits>
#include <cstdlib>
#include <iterator>
#include <map>
#include <set>

namespace mota_tool {
namespace {

using mota::i18n::argument_difference;
using mota::i18n::message_item;
using mota::i18n::message_t;
using mota::i18n::xmc_outline;
using mota::strings::ustring8;

// More files than this (through includes) is not a catalog set but a runaway.
constexpr std::size_t max_files = 100000;
// More languages than this is not a translation set either.
constexpr std::size_t max_languages = 200;

lint_finding finding(bool error, const std::string& check, const std::string& text) {
  lint_finding f;
  f.error = error;
  f.check = check;
  f.text = text;
  return f;
}

std::string quoted(const std::string& text) {
  return "\"" + text + "\"";
}

// One written variant of a message: the file it is in and its key (xmc_outline::message).
struct occurrence {
  std::size_t file;
  ustring8 key;
};

// The files to read and what was read of each.
struct catalog_file {
  std::string path;
  xmc_outline outline;
};

class lint_run {
 public:
  explicit lint_run(lint_report& report) : m_report(report) {}

  void add_path(const std::string& path) {
    const ustring8 name(path);
    if (mota::system::io::is_file(name)) {
      add_file(path);
    } else if (mota::system::io::is_directory(name)) {
      std::vector<std::string> found;
      collect_catalog_files(path, found);
      for (const std::string& file : found)
        add_file(file);
    } else {
      m_report.add(finding(true, "load-error",
                           mota::i18n::message_catalogs::result_type(
                               mota::i18n::message_catalogs::entity_not_found, name)
                               .message));
    }
  }

  void run() {
    read_outlines();
    std::set<ustring8> languages;
    for (const catalog_file& file : m_files) {
      for (const xmc_outline::section& s : file.outline.sections) {
        if (s.has_lang && !s.lang.empty()) languages.insert(s.lang);
      }
    }
    // Without any language the files are still loaded once, so that their faults show.
    if (languages.empty()) languages.insert("en");
    // Each language is one load of every file: a bound keeps a hostile set from asking for
    // thousands of loads.
    if (languages.size() > max_languages) {
      m_report.add(finding(false, "too-many-languages",
                           "only the first " + std::to_string(max_languages) + " of " +
                               std::to_string(languages.size()) +
                               " languages (in byte order) are checked"));
      auto first = languages.begin();
      std::advance(first, max_languages);
      languages.erase(first, languages.end());
    }
    std::vector<ustring8> files;
    for (const catalog_file& file : m_files)
      files.push_back(file.path);
    m_loaded.load(files, std::vector<ustring8>(languages.begin(), languages.end()));
    for (const ustring8& error : m_loaded.errors())
      m_report.add(finding(true, "load-error", error));
    check_outlines();
    const std::vector<ustring8> catalogs = m_loaded.catalogs();
    for (const ustring8& catalog : catalogs)
      check_catalog(catalog, languages);
    m_report.count(m_files.size(), catalogs.size(), languages.size());
  }

 private:
  // The identity of a file, so that one reached by two paths is read once.
  static std::string identity(const std::string& path) {
    char resolved[PATH_MAX];
    return realpath(path.c_str(), resolved) ? std::string(resolved) : path;
  }

  void add_file(const std::string& path) {
    if (m_files.size() >= max_files || !m_seen.insert(identity(path)).second) return;
    m_files.push_back(catalog_file{path, xmc_outline()});
  }

  // Reads each file's outline; included files join the list, resolved as the loader does.
  void read_outlines() {
    for (std::size_t i = 0; i < m_files.size(); ++i) {
      std::string content;
      if (mota::system::load_file(ustring8(m_files[i].path), content) != 0) continue;
      m_files[i].outline = mota::i18n::read_xmc_outline(content);
      const std::string path = m_files[i].path;
      const std::size_t slash = path.find_last_of("/\\");
      const std::string directory = slash == std::string::npos ? "./" : path.substr(0, slash + 1);
      for (const ustring8& include : std::vector<ustring8>(m_files[i].outline.includes)) {
        const bool absolute = !include.empty() && (include[0] == '/' || include[0] == '\\' ||
                                                   (include.size() >= 3 && include[1] == ':'));
        const std::string target = absolute ? std::string(include) : directory + include;
        if (!include.empty() && mota::system::io::is_file(ustring8(target))) add_file(target);
      }
    }
  }

  void check_outlines() {
    // Where each catalog section and each message was written, in load order.
    std::map<std::pair<ustring8, ustring8>, std::vector<std::size_t>> sections;
    std::map<std::pair<ustring8, ustring8>, std::map<ustring8, std::vector<occurrence>>> messages;
    for (std::size_t i = 0; i < m_files.size(); ++i) {
      const std::string& path = m_files[i].path;
      for (const xmc_outline::section& s : m_files[i].outline.sections) {
        if (!s.has_lang || s.lang.empty()) {
          lint_finding f =
              finding(false, "no-language", "catalog section has no language and is never loaded");
          f.file = path;
          f.catalog = s.catalog;
          m_report.add(f);
          continue;
        }
        sections[{s.catalog, s.lang}].push_back(i);
        for (const xmc_outline::message& m : s.messages) {
          check_message_outline(path, s, m);
          if (m.named) messages[{s.catalog, s.lang}][m.name].push_back({i, m.key});
        }
      }
    }
    for (const auto& entry : sections) {
      if (entry.second.size() < 2) continue;
      lint_finding f = finding(false, "duplicate-section",
                               "catalog section written " + std::to_string(entry.second.size()) +
                                   " times in " + paths(entry.second) + "; their messages merge");
      f.catalog = entry.first.first;
      f.language = entry.first.second;
      m_report.add(f);
    }
    for (const auto& section : messages) {
      for (const auto& message : section.second) {
        if (message.second.size() < 2) continue;
        report_duplicate(section.first.first, section.first.second, message.first, message.second);
      }
    }
  }

  // Which variant the load kept is found by comparing the loaded message with each variant
  // as written.
  void report_duplicate(const ustring8& catalog, const ustring8& lang, const ustring8& name,
                        const std::vector<occurrence>& variants) {
    std::vector<std::size_t> files, kept;
    const auto own = m_loaded.own_messages(catalog, lang);
    const auto loaded = own.find(name);
    const ustring8 key =
        loaded == own.end() ? ustring8() : mota::i18n::message_key(*loaded->second);
    for (std::size_t i = 0; i < variants.size(); ++i) {
      files.push_back(variants[i].file);
      if (loaded != own.end() && variants[i].key == key) kept.push_back(i);
    }
    std::string text =
        "message written " + std::to_string(variants.size()) + " times in " + paths(files) + "; ";
    if (kept.empty()) {
      text += "none of them was loaded";
    } else if (kept.size() == variants.size()) {
      text += "all alike";
    } else {
      text += "the loader keeps the " + ordinal(kept.front() + 1) + " (in " +
              m_files[variants[kept.front()].file].path + ")";
    }
    lint_finding f = finding(false, "duplicate-message", text);
    f.catalog = catalog;
    f.language = lang;
    f.message = name;
    m_report.add(f);
  }

  static std::string ordinal(std::size_t n) {
    if (n == 1) return "first";
    if (n == 2) return "second";
    if (n == 3) return "third";
    return std::to_string(n) + "th";
  }

  // The distinct files of `indexes`, in load order.
  std::string paths(const std::vector<std::size_t>& indexes) const {
    std::string text;
    std::size_t previous = m_files.size();
    for (std::size_t i : indexes) {
      if (i != previous) text += (text.empty() ? "" : ", ") + m_files[i].path;
      previous = i;
    }
    return text;
  }

  void check_message_outline(const std::string& path, const xmc_outline::section& s,
                             const xmc_outline::message& m) {
    const auto add = [&](const std::string& check, const std::string& text) {
      lint_finding f = finding(false, check, text);
      f.file = path;
      f.catalog = s.catalog;
      f.language = s.lang;
      f.message = m.name;
      m_report.add(f);
    };
    if (!m.named) add("unnamed-message", "message without a name is stored under the empty name");
    std::set<std::string> reported;
    for (const xmc_outline::argument& a : m.arguments) {
      if (!reported.insert(a.name + '\x01' + a.type).second) continue;
      if (!a.type.empty() && !mota::i18n::is_type_keyword(a.type)) {
        add("unknown-type", "argument " + quoted(a.name) + " has type " + quoted(a.type) +
                                ", which the loader reads as string");
      } else if (!a.type.empty() &&
                 mota::i18n::always_renders_invalid(mota::i18n::kind_of_keyword(a.type))) {
        add("invalid-kind", "argument " + quoted(a.name) + " has kind " + quoted(a.type) +
                                ", which always renders \"?invalid?\"");
      }
    }
  }

  void check_catalog(const ustring8& catalog, const std::set<ustring8>& languages) {
    const ustring8 reference = m_loaded.reference_language(catalog);
    for (const ustring8& lang : languages)
      check_encoding(catalog, lang);
    if (reference.empty()) {
      lint_finding f = finding(false, "no-reference",
                               "catalog has no English (en) or language-neutral (.) messages; "
                               "its languages are not compared");
      f.catalog = catalog;
      m_report.add(f);
      return;
    }
    lint_statistic own;
    own.catalog = catalog;
    own.language = own.reference = reference;
    own.present = m_loaded.own_messages(catalog, reference).size();
    m_report.add(own);
    for (const ustring8& lang : languages) {
      // "." sections are shared by every language, not a translation of English.
      if (lang == reference || (lang == "." && reference == "en")) continue;
      const auto own_messages = m_loaded.own_messages(catalog, lang);
      if (own_messages.empty()) continue;
      compare_language(catalog, lang, reference, own_messages);
    }
  }

  void compare_language(const ustring8& catalog, const ustring8& lang, const ustring8& reference,
                        const mota::i18n::catalog_languages::message_map& own) {
    const mota::i18n::language_coverage coverage = m_loaded.coverage(catalog, lang, reference);
    lint_statistic s;
    s.catalog = catalog;
    s.language = lang;
    s.reference = reference;
    s.present = coverage.present.size();
    s.missing.assign(coverage.missing.begin(), coverage.missing.end());
    s.extra.assign(coverage.extra.begin(), coverage.extra.end());
    m_report.add(s);
    const auto add = [&](bool error, const std::string& check, const std::string& message,
                         const std::string& text) {
      lint_finding f = finding(error, check, text);
      f.catalog = catalog;
      f.language = lang;
      f.message = message;
      m_report.add(f);
    };
    if (!s.missing.empty()) {
      add(false, "missing-messages", "",
          std::to_string(s.missing.size()) + (s.missing.size() == 1 ? " message" : " messages") +
              " not translated, shown in " + quoted(reference) + ": " + names(s.missing));
    }
    if (!s.extra.empty()) {
      add(false, "extra-messages", "",
          std::to_string(s.extra.size()) + (s.extra.size() == 1 ? " message" : " messages") +
              " that " + quoted(reference) + " does not have: " + names(s.extra));
    }
    const auto wanted = m_loaded.own_messages(catalog, reference);
    for (const auto& entry : own) {
      const auto original = wanted.find(entry.first);
      if (original == wanted.end()) continue;
      for (const argument_difference& d :
           mota::i18n::compare_arguments(*original->second, *entry.second)) {
        add(d.kind != argument_difference::format_changed, check_name(d), entry.first,
            describe(d, reference, lang));
      }
      if (same_text(*original->second, *entry.second)) {
        add(false, "untranslated", entry.first,
            "text is the same as in " + quoted(reference) + " (not translated?)");
      }
    }
  }

  void check_encoding(const ustring8& catalog, const ustring8& lang) {
    for (const auto& entry : m_loaded.own_messages(catalog, lang)) {
      bool bad = mota::strings::invalid_utf8_offset(entry.first) != std::string::npos;
      for (const message_item& item : *entry.second)
        bad = bad || mota::strings::invalid_utf8_offset(item.data()) != std::string::npos;
      if (!bad) continue;
      lint_finding f = finding(true, "invalid-utf8", "message holds bytes that are not UTF-8");
      f.catalog = catalog;
      f.language = lang;
      f.message = entry.first;
      m_report.add(f);
    }
  }

  static std::string names(const std::vector<std::string>& list) {
    std::string text;
    for (const std::string& name : list)
      text += (text.empty() ? "" : ", ") + quoted(name);
    return text;
  }

  static std::string check_name(const argument_difference& d) {
    switch (d.kind) {
      case argument_difference::missing:
        return "argument-missing";
      case argument_difference::extra:
        return "argument-extra";
      case argument_difference::renamed:
        return "argument-renamed";
      case argument_difference::kind_changed:
        return "argument-kind";
      case argument_difference::format_changed:
        return "argument-format";
    }
    return "argument";
  }

  static std::string describe(const argument_difference& d, const std::string& reference,
                              const std::string& lang) {
    const std::string name = "argument " + quoted(d.name);
    switch (d.kind) {
      case argument_difference::missing:
        return name + " of " + quoted(reference) + " is missing";
      case argument_difference::extra:
        return name + " is not in " + quoted(reference);
      case argument_difference::renamed:
        return name + " of " + quoted(reference) + " is called " + quoted(d.translation);
      case argument_difference::kind_changed:
        return name + " is " + d.reference + " in " + quoted(reference) + " but " + d.translation +
               " in " + quoted(lang);
      case argument_difference::format_changed:
        return name + " is formatted " + quoted(d.reference) + " in " + quoted(reference) +
               " but " + quoted(d.translation) + " in " + quoted(lang);
    }
    return name;
  }

  // Whether the translation repeats the reference word for word, where there are words at all.
  static bool same_text(const message_t& a, const message_t& b) {
    if (a.size() != b.size()) return false;
    bool letters = false;
    for (auto x = a.begin(), y = b.begin(); x != a.end(); ++x, ++y) {
      if (x->type() != y->type() || x->data() != y->data()) return false;
      if (x->type() != message_item::text) continue;
      for (const char c : x->data())
        letters = letters || std::isalpha(static_cast<unsigned char>(c)) || (c & 0x80);
    }
    return letters;
  }

  lint_report& m_report;
  std::vector<catalog_file> m_files;
  std::set<std::string> m_seen;
  mota::i18n::catalog_languages m_loaded;
};

}  // namespace

int run_catalog_lint(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
  arguments args({}, {"--strict", "--json"});
  if (!args.parse(words, false)) return usage_error(err, printable(args.error()), catalog_usage);
  if (args.has("--help")) {
    out << catalog_usage;
    return exit_ok;
  }
  if (args.positional().empty())
    return usage_error(err, "catalog lint needs a PATH", catalog_usage);
  lint_report report(args.has("--strict"));
  lint_run run(report);
  for (const std::string& path : args.positional())
    run.add_path(path);
  run.run();
  if (args.has("--json")) {
    report.write_json(out);
  } else {
    report.write_text(out);
  }
  return report.status();
}

}  // namespace mota_tool
