#include "lint_report.hpp"

#include "json_output.hpp"
#include "text_output.hpp"
#include "usage.hpp"

namespace mota_tool {
namespace {

std::string plural(std::size_t n, const char* one, const char* many) {
  return std::to_string(n) + " " + (n == 1 ? one : many);
}

// Where a finding lies: the file, then the catalog with its language, then the message.
std::string place(const lint_finding& f) {
  std::string text;
  if (!f.file.empty()) text = printable(f.file);
  if (!f.catalog.empty() || !f.language.empty()) {
    if (!text.empty()) text += ": ";
    text += "catalog \"" + printable(f.catalog) + "\"";
    if (!f.language.empty()) text += " [" + printable(f.language) + "]";
  }
  if (!f.message.empty()) text += " message \"" + printable(f.message) + "\"";
  return text;
}

}  // namespace

std::size_t lint_report::errors() const {
  std::size_t n = 0;
  for (const lint_finding& f : m_findings)
    n += is_error(f) ? 1 : 0;
  return n;
}

std::size_t lint_report::warnings() const {
  return m_findings.size() - errors();
}

int lint_report::status() const {
  if (errors() > 0) return exit_failure;
  return m_findings.empty() ? exit_ok : exit_warnings;
}

void lint_report::write_text(std::ostream& out) const {
  for (const lint_statistic& s : m_statistics) {
    out << printable(s.catalog) << " [" << printable(s.language)
        << "]: " << plural(s.present, "message", "messages");
    if (s.language == s.reference) {
      out << " (reference)\n";
      continue;
    }
    out << ", " << s.missing.size() << " missing, " << s.extra.size() << " extra against ["
        << printable(s.reference) << "]\n";
  }
  for (const lint_finding& f : m_findings) {
    const std::string where = place(f);
    std::string text = printable(f.text);
    // Load failures carry several lines; indent the ones after the first.
    for (std::size_t pos = text.find('\n'); pos != std::string::npos;
         pos = text.find('\n', pos + 1)) {
      text.insert(pos + 1, "   ");
    }
    out << (where.empty() ? "" : where + ": ") << (is_error(f) ? "error" : "warning") << ": "
        << text << " [" << f.check << "]\n";
  }
  out << "catalog lint: " << plural(m_files, "file", "files") << ", "
      << plural(m_catalogs, "catalog", "catalogs") << ", "
      << plural(m_languages, "language", "languages") << ": " << plural(errors(), "error", "errors")
      << ", " << plural(warnings(), "warning", "warnings") << "\n";
}

void lint_report::write_json(std::ostream& out) const {
  out << "{\n  \"statistics\": [";
  for (std::size_t i = 0; i < m_statistics.size(); ++i) {
    const lint_statistic& s = m_statistics[i];
    out << (i ? ",\n" : "\n") << "    {\"catalog\": " << json_string(s.catalog)
        << ", \"language\": " << json_string(s.language)
        << ", \"reference\": " << json_string(s.reference) << ", \"present\": " << s.present
        << ", \"missing\": " << json_strings(s.missing) << ", \"extra\": " << json_strings(s.extra)
        << "}";
  }
  out << (m_statistics.empty() ? "],\n" : "\n  ],\n") << "  \"findings\": [";
  for (std::size_t i = 0; i < m_findings.size(); ++i) {
    const lint_finding& f = m_findings[i];
    out << (i ? ",\n" : "\n") << "    {\"severity\": \"" << (is_error(f) ? "error" : "warning")
        << "\", \"check\": " << json_string(f.check) << ", \"file\": " << json_string(f.file)
        << ", \"catalog\": " << json_string(f.catalog)
        << ", \"language\": " << json_string(f.language)
        << ", \"message\": " << json_string(f.message) << ", \"text\": " << json_string(f.text)
        << "}";
  }
  out << (m_findings.empty() ? "],\n" : "\n  ],\n") << "  \"summary\": {\"files\": " << m_files
      << ", \"catalogs\": " << m_catalogs << ", \"languages\": " << m_languages
      << ", \"errors\": " << errors() << ", \"warnings\": " << warnings()
      << ", \"status\": " << status() << "}\n}\n";
}

}  // namespace mota_tool
