// Message catalogs: loading a directory of XMC files against pugixml parsing the same files
// into its DOM, and rendering one message with three typed arguments against ICU's
// MessageFormat and plain snprintf.
#include <mota/generic/varg_list.hpp>
#include <mota/i18n/message.hpp>
#include <mota/i18n/message_catalogs.hpp>
#include <mota/types/variant.hpp>

#include <benchmark/benchmark.h>
#include <unicode/fmtable.h>
#include <unicode/msgfmt.h>
#include <unicode/unistr.h>
#include <pugixml.hpp>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int kFiles = 20;
constexpr int kMessagesPerFile = 1000;  // 20 files x 1000 = 20,000 messages
const char* const kLanguages[] = {"en", "de", "fr"};

// 20 generated XMC files in a temporary directory, removed at exit.
class catalog_dir {
 public:
  catalog_dir() {
    std::random_device rd;
    m_path = fs::temp_directory_path() / ("mota-i18n-bench-" + std::to_string(rd()));
    fs::create_directories(m_path);
    for (int f = 0; f < kFiles; ++f) {
      std::ostringstream out;
      out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xmc version=\"1.0\">\n";
      // The messages of a file are spread over three language sections.
      for (int lang = 0; lang < 3; ++lang) {
        out << "  <catalog name=\"cat" << f << "\" lang=\"" << kLanguages[lang] << "\">\n";
        for (int m = lang; m < kMessagesPerFile; m += 3) {
          out << "    <msg name=\"msg" << m << "\">File <arg name=\"file\"/> of message " << m
              << " holds <arg name=\"count\" type=\"int\" fieldsize=\"6\"/> records, "
              << "<arg name=\"ratio\" type=\"double\" precision=\"2\"/> percent full and uses "
              << "<arg name=\"size\" type=\"memory\"/> <arg name=\"size\" type=\"mem_unit\"/>."
              << "<br/>Language " << kLanguages[lang] << ".</msg>\n";
        }
        out << "  </catalog>\n";
      }
      out << "</xmc>\n";
      std::string text = out.str();
      m_bytes += text.size();
      std::string file = (m_path / ("catalog" + std::to_string(f) + ".xmc")).string();
      std::ofstream(file, std::ios::binary) << text;
      m_files.push_back(file);
    }
  }
  ~catalog_dir() {
    std::error_code ec;
    fs::remove_all(m_path, ec);
  }
  std::string path() const { return m_path.string(); }
  const std::vector<std::string>& files() const { return m_files; }
  std::size_t bytes() const { return m_bytes; }

 private:
  fs::path m_path;
  std::vector<std::string> m_files;
  std::size_t m_bytes = 0;
};

const catalog_dir& data() {
  static catalog_dir dir;
  return dir;
}

void BM_Load_MotaDirectory(benchmark::State& state) {
  const catalog_dir& dir = data();
  std::size_t messages = 0;
  for (auto _ : state) {
    mota::i18n::message_catalogs cats;
    auto result = cats.load_directory(dir.path(), "de_DE");
    if (result.type != 0) state.SkipWithError(result.message.c_str());
    messages = cats.size("cat0");
    benchmark::DoNotOptimize(messages);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * dir.bytes()));
  state.counters["messages_in_cat0"] = static_cast<double>(messages);
}
BENCHMARK(BM_Load_MotaDirectory)->Unit(benchmark::kMillisecond);

void BM_Load_PugixmlDom(benchmark::State& state) {
  const catalog_dir& dir = data();
  for (auto _ : state) {
    for (const std::string& file : dir.files()) {
      std::ifstream in(file, std::ios::binary);
      std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
      pugi::xml_document doc;
      pugi::xml_parse_result result = doc.load_buffer(text.data(), text.size());
      if (!result) state.SkipWithError("pugixml failed");
      benchmark::DoNotOptimize(doc.first_child());
    }
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * dir.bytes()));
}
BENCHMARK(BM_Load_PugixmlDom)->Unit(benchmark::kMillisecond);

// --- rendering: an int with a field size, a double with a precision, a memory amount --------

mota::i18n::message_t render_message() {
  using mota::i18n::message_item;
  const std::string sep(1, '\x01');
  return mota::i18n::message_t(
      "usage",
      {message_item("Volume "),
       message_item("count" + sep + "fieldsize" + sep + "6", message_item::int_),
       message_item(" files, "),
       message_item("ratio" + sep + "precision" + sep + "2", message_item::double_),
       message_item(" % full, "),
       message_item("size" + sep + "precision" + sep + "1" + sep + "target_unit" + sep + "KB",
                    message_item::memory),
       message_item(" "),
       message_item("size" + sep + "target_unit" + sep + "KB", message_item::memory_unit),
       message_item(" used.")});
}

void BM_Render_Mota(benchmark::State& state) {
  mota::i18n::message_t message = render_message();
  mota::generic::varg_list args;
  args.push_back("count", mota::types::variant(12345));
  args.push_back("ratio", mota::types::variant(87.456));
  args.push_back("size", mota::types::variant(1536000LL));
  std::string out;
  for (auto _ : state) {
    out = message.as_string(args);
    benchmark::DoNotOptimize(out.data());
  }
  state.SetLabel(out);
}
BENCHMARK(BM_Render_Mota);

void BM_Render_IcuMessageFormat(benchmark::State& state) {
  UErrorCode status = U_ZERO_ERROR;
  icu::MessageFormat format(
      icu::UnicodeString::fromUTF8(
          "Volume {0,number,######} files, {1,number,0.00} % full, {2,number,0.0} KB used."),
      icu::Locale::getUS(), status);
  if (U_FAILURE(status)) state.SkipWithError("ICU pattern failed");
  std::string out;
  for (auto _ : state) {
    // Same work as the library: scale the byte count, then format three values.
    icu::Formattable args[] = {icu::Formattable(static_cast<int32_t>(12345)),
                               icu::Formattable(87.456), icu::Formattable(1536000.0 / 1024.0)};
    icu::UnicodeString text;
    icu::FieldPosition pos(icu::FieldPosition::DONT_CARE);
    status = U_ZERO_ERROR;
    format.format(args, 3, text, pos, status);
    out.clear();
    text.toUTF8String(out);
    benchmark::DoNotOptimize(out.data());
  }
  state.SetLabel(out);
}
BENCHMARK(BM_Render_IcuMessageFormat);

void BM_Render_Snprintf(benchmark::State& state) {
  char buf[256];
  std::string out;
  for (auto _ : state) {
    int n = std::snprintf(buf, sizeof(buf), "Volume %6d files, %.2f %% full, %.1f %s used.", 12345,
                          87.456, 1536000.0 / 1024.0, "KB");
    out.assign(buf, static_cast<std::size_t>(n));
    benchmark::DoNotOptimize(out.data());
  }
  state.SetLabel(out);
}
BENCHMARK(BM_Render_Snprintf);

}  // namespace
