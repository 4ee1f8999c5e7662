// What `mota catalog lint` found, and its two forms: lines for people and one JSON document
// for programs.
#ifndef MOTA_TOOLS_LINT_REPORT_HPP
#define MOTA_TOOLS_LINT_REPORT_HPP

#include <cstddef>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "usage.hpp"

namespace mota_tool {

struct lint_finding {
  bool error = false;
  std::string check;                             // stable key, such as "argument-kind"
  std::string file, catalog, language, message;  // where, as far as known
  std::string text;
};

// One catalog in one language.
struct lint_statistic {
  std::string catalog, language, reference;
  std::size_t present = 0;
  std::vector<std::string> missing, extra;
};

class lint_report {
 public:
  explicit lint_report(bool strict) : m_strict(strict) {}

  void add(lint_finding finding) { m_findings.push_back(std::move(finding)); }
  void add(lint_statistic statistic) { m_statistics.push_back(std::move(statistic)); }
  void count(std::size_t files, std::size_t catalogs, std::size_t languages) {
    m_files = files;
    m_catalogs = catalogs;
    m_languages = languages;
  }

  std::size_t errors() const;
  std::size_t warnings() const;
  // 0 clean, exit_warnings when only warnings were found, 1 for errors; with --strict a
  // warning counts as an error.
  int status() const;

  void write_text(std::ostream& out) const;
  void write_json(std::ostream& out) const;

 private:
  bool is_error(const lint_finding& finding) const { return finding.error || m_strict; }

  bool m_strict;
  std::vector<lint_finding> m_findings;
  std::vector<lint_statistic> m_statistics;
  std::size_t m_files = 0, m_catalogs = 0, m_languages = 0;
};

}  // namespace mota_tool

#endif  // MOTA_TOOLS_LINT_REPORT_HPP
