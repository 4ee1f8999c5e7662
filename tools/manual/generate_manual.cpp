// Builds the tool's documentation from its one source, tools/manual.md:
//   generate_manual SOURCE VERSION USAGE_CPP MAN_PAGE MARKDOWN
// USAGE_CPP defines the --help texts (each "```help NAME" block becomes NAME_usage, text
// unchanged), MAN_PAGE is mota(1) in roff, MARKDOWN is docs/tool.md. The source is Markdown
// with a small subset: "#", "##", "###" headings, paragraphs, "- " list items (continued by
// indented lines), fenced blocks, and `code` spans.
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

// Roff text: backslashes escaped, `code` in bold, a leading "." or "'" kept literal.
std::string roff(const std::string& line, bool code_spans = true) {
  std::string out;
  bool in_code = false;
  for (const char c : line) {
    if (c == '\\') {
      out += "\\e";
    } else if (c == '-') {
      out += "\\-";
    } else if (c == '`' && code_spans) {
      out += in_code ? "\\fR" : "\\fB";
      in_code = !in_code;
    } else {
      out += c;
    }
  }
  if (!out.empty() && (out[0] == '.' || out[0] == '\'')) out = "\\&" + out;
  return out;
}

bool starts_with(const std::string& text, const std::string& head) {
  return text.compare(0, head.size(), head) == 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 6) {
    std::cerr << "usage: generate_manual SOURCE VERSION USAGE_CPP MAN_PAGE MARKDOWN\n";
    return 64;
  }
  std::ifstream source(argv[1]);
  if (!source) {
    std::cerr << "generate_manual: cannot read " << argv[1] << "\n";
    return 1;
  }
  const std::string version = argv[2];
  std::ostringstream usage, man, markdown;
  usage << "// Generated from tools/manual.md by generate_manual; edit that file instead.\n"
        << "#include \"usage.hpp\"\n\nnamespace mota_tool {\n";
  markdown << "<!-- Generated from tools/manual.md by the build; edit that file instead. -->\n";

  std::string line, help_name;
  bool in_block = false, in_comment = false, pending_paragraph = false, item_open = false;
  while (std::getline(source, line)) {
    // Comments stay in the Markdown and stay out of the page.
    if (in_comment || (!in_block && starts_with(line, "<!--"))) {
      markdown << line << "\n";
      in_comment = line.find("-->") == std::string::npos;
      continue;
    }
    if (in_block) {
      if (line == "```") {
        in_block = false;
        markdown << line << "\n";
        man << ".fi\n.RE\n";
        if (!help_name.empty()) usage << ")mota_help\";\n";
        help_name.clear();
        continue;
      }
      markdown << line << "\n";
      man << roff(line, false) << "\n";
      if (!help_name.empty()) usage << line << "\n";
      continue;
    }
    if (starts_with(line, "```")) {
      in_block = true;
      item_open = false;
      if (starts_with(line, "```help ")) {
        help_name = line.substr(8);
        usage << "\nconst char* const " << help_name << "_usage = R\"mota_help(";
        markdown << "```text\n";
      } else {
        markdown << line << "\n";
      }
      man << ".PP\n.RS 4\n.nf\n";
      pending_paragraph = false;
      continue;
    }
    markdown << line << "\n";
    if (starts_with(line, "# ")) {
      man << ".TH MOTA 1 \"\" \"mota " << version << "\" \"User Commands\"\n";
    } else if (starts_with(line, "## ")) {
      std::string title = line.substr(3);
      for (char& c : title)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
      man << ".SH " << roff(title) << "\n";
      pending_paragraph = item_open = false;
    } else if (starts_with(line, "### ")) {
      man << ".SS " << roff(line.substr(4)) << "\n";
      pending_paragraph = item_open = false;
    } else if (line.empty()) {
      pending_paragraph = true;
      item_open = false;
    } else if (starts_with(line, "- ")) {
      man << ".IP \\(bu 2\n" << roff(line.substr(2)) << "\n";
      pending_paragraph = false;
      item_open = true;
    } else {
      if (pending_paragraph && !item_open) man << ".PP\n";
      pending_paragraph = false;
      std::string text = line;
      while (item_open && !text.empty() && text[0] == ' ')
        text.erase(0, 1);
      man << roff(text) << "\n";
    }
  }
  usage << "\n}  // namespace mota_tool\n";
  if (in_block) {
    std::cerr << "generate_manual: " << argv[1] << " ends inside a fenced block\n";
    return 1;
  }
  const std::pair<const char*, std::string> outputs[] = {
      {argv[3], usage.str()}, {argv[4], man.str()}, {argv[5], markdown.str()}};
  for (const auto& output : outputs) {
    std::ofstream file(output.first, std::ios::binary);
    file << output.second;
    if (!file) {
      std::cerr << "generate_manual: cannot write " << output.first << "\n";
      return 1;
    }
  }
  return 0;
}
