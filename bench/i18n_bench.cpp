// Message catalogs: loading a directory of XMC files against pugixml parsing the same files
// into its DOM and walking that into a map of the same messages (time and peak memory), and
// rendering one message with three typed arguments against ICU's MessageFormat and plain snprintf.
#include <mota/generic/varg_list.hpp>
#include <mota/i18n/message.hpp>
#include <mota/i18n/message_catalogs.hpp>
#include <mota/types/variant.hpp>

#include <benchmark/benchmark.h>
#include <unicode/fmtable.h>
#include <unicode/msgfmt.h>
#include <unicode/unistr.h>
#include <pugixml.hpp>

#include <malloc.h>

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <new>
#include <random>
#include <sstream>
#include <string>
#include <utility>
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

// --- peak memory ---------------------------------------------------------------------------
// Every block allocated through operator new (the library, the standard containers) and through
// pugixml's allocation hooks is counted by its usable size while a measured load runs, so both
// sides are weighed by the same rule. The timed iterations run uncounted; one extra load per
// benchmark, outside the timing, gives the peak and the number of allocations.

bool g_counting = false;
long long g_current = 0;
long long g_peak = 0;
long long g_allocations = 0;

void* counted_malloc(std::size_t size) {
  void* p = std::malloc(size == 0 ? 1 : size);
  if (p != nullptr && g_counting) {
    ++g_allocations;
    g_current += static_cast<long long>(malloc_usable_size(p));
    if (g_current > g_peak) g_peak = g_current;
  }
  return p;
}

void counted_free(void* p) {
  if (p != nullptr && g_counting) g_current -= static_cast<long long>(malloc_usable_size(p));
  std::free(p);
}

// Runs `load` once, counted: records the highest number of bytes held at once above what was
// held before ("peak_bytes") and the number of blocks allocated ("allocations").
template <class Load>
void count_memory(benchmark::State& state, Load&& load) {
  g_current = 0;
  g_peak = 0;
  g_allocations = 0;
  g_counting = true;
  load();
  g_counting = false;
  state.counters["peak_bytes"] = static_cast<double>(g_peak);
  state.counters["allocations"] = static_cast<double>(g_allocations);
}

// The locales a de_DE load accepts, least specific first; the position is the weight.
unsigned int locale_weight(std::string lang) {
  static const char* const kAccepted[] = {".", "en", "de", "de_DE"};
  if (lang.size() != 1) {
    for (char& c : lang) {
      if (c == '.' || c == '-') c = '_';
    }
  }
  for (unsigned int i = 0; i < 4; ++i) {
    if (lang == kAccepted[i]) return i + 1;
  }
  return 0;
}

std::size_t mota_load(const catalog_dir& dir, benchmark::State& state) {
  mota::i18n::message_catalogs cats;
  auto result = cats.load_directory(dir.path(), "de_DE");
  if (result.type != 0) state.SkipWithError(result.message.c_str());
  return cats.size("cat0");
}

void BM_Load_MotaDirectory(benchmark::State& state) {
  const catalog_dir& dir = data();
  std::size_t messages = 0;
  for (auto _ : state) {
    messages = mota_load(dir, state);
    benchmark::DoNotOptimize(messages);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * dir.bytes()));
  state.counters["messages_in_cat0"] = static_cast<double>(messages);
  count_memory(state, [&] { mota_load(dir, state); });
}
BENCHMARK(BM_Load_MotaDirectory)->Unit(benchmark::kMillisecond);

// The peer: pugixml's DOM of each file, walked into the same message model the library builds
// (text pieces and typed argument slots, with the section's locale and the meta text), keeping
// per message the best-weighted language like the library does.
struct peer_item {
  int type;
  std::string data;
};
struct peer_message {
  std::string locale;
  std::string meta;
  std::vector<peer_item> items;
};
using peer_catalogs = std::map<std::string, std::map<std::string, peer_message>>;

int peer_type(std::string word) {
  static const std::pair<const char*, int> kTypes[] = {
      {"date", 6},        {"duration", 11}, {"memory", 7},       {"mem", 7},    {"mem_unit", 8},
      {"memory_unit", 8}, {"metric", 9},    {"metric_unit", 10}, {"number", 2}, {"int", 3},
      {"double", 4},      {"string", 1},    {"time", 5},         {"value", 0}};
  for (char& c : word)
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  for (const auto& entry : kTypes) {
    if (word == entry.first) return entry.second;
  }
  return 1;
}

peer_message peer_read_message(const pugi::xml_node& msg, const char* lang) {
  peer_message out;
  out.locale = lang;
  out.meta = msg.attribute("meta").value();
  std::string piece;
  for (pugi::xml_node child : msg.children()) {
    if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
      piece += child.value();
    } else if (child.type() == pugi::node_element) {
      const std::string tag = child.name();
      if (tag == "br") {
        piece.push_back('\n');
      } else if (tag == "arg" || tag == "argument") {
        if (!piece.empty()) out.items.push_back(peer_item{0, std::move(piece)});
        piece.clear();
        peer_item item{1, child.attribute("name").value()};
        for (pugi::xml_attribute attr : child.attributes()) {
          const std::string key = attr.name();
          if (key == "type") {
            item.type = peer_type(attr.value());
          } else if (key != "name") {
            item.data.push_back('\x01');
            item.data += key;
            item.data.push_back('\x01');
            item.data += attr.value();
          }
        }
        out.items.push_back(std::move(item));
      }
    }
  }
  if (!piece.empty()) out.items.push_back(peer_item{0, std::move(piece)});
  return out;
}

std::size_t pugixml_load(const catalog_dir& dir, benchmark::State& state) {
  // pugixml allocates through its own hooks: count those too.
  static const bool counted =
      (pugi::set_memory_management_functions(counted_malloc, counted_free), true);
  benchmark::DoNotOptimize(counted);
  peer_catalogs catalogs;
  for (const std::string& file : dir.files()) {
    pugi::xml_document doc;
    if (!doc.load_file(file.c_str())) state.SkipWithError("pugixml failed");
    for (pugi::xml_node section : doc.child("xmc").children("catalog")) {
      const char* lang = section.attribute("lang").value();
      const unsigned int weight = locale_weight(lang);
      if (weight == 0) continue;
      auto& messages = catalogs[section.attribute("name").value()];
      for (pugi::xml_node msg : section.children("msg")) {
        peer_message& slot = messages[msg.attribute("name").value()];
        if (slot.items.empty() || locale_weight(slot.locale) < weight) {
          slot = peer_read_message(msg, lang);
        }
      }
    }
  }
  return catalogs["cat0"].size();
}

void BM_Load_PugixmlDom(benchmark::State& state) {
  const catalog_dir& dir = data();
  std::size_t messages = 0;
  for (auto _ : state) {
    messages = pugixml_load(dir, state);
    benchmark::DoNotOptimize(messages);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * dir.bytes()));
  state.counters["messages_in_cat0"] = static_cast<double>(messages);
  count_memory(state, [&] { pugixml_load(dir, state); });
}
BENCHMARK(BM_Load_PugixmlDom)->Unit(benchmark::kMillisecond);

// The DOM alone, without the walk: how much of the peer's time is pugixml's parse.
void BM_Load_PugixmlParseOnly(benchmark::State& state) {
  const catalog_dir& dir = data();
  for (auto _ : state) {
    for (const std::string& file : dir.files()) {
      pugi::xml_document doc;
      if (!doc.load_file(file.c_str())) state.SkipWithError("pugixml failed");
      benchmark::DoNotOptimize(doc.first_child());
    }
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * dir.bytes()));
}
BENCHMARK(BM_Load_PugixmlParseOnly)->Unit(benchmark::kMillisecond);

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

// Counted global allocation; the counting is off except inside count_memory.
void* operator new(std::size_t size) {
  void* p = counted_malloc(size);
  if (p == nullptr) throw std::bad_alloc();
  return p;
}
void* operator new[](std::size_t size) {
  return operator new(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return counted_malloc(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return counted_malloc(size);
}
void operator delete(void* p) noexcept {
  counted_free(p);
}
void operator delete[](void* p) noexcept {
  counted_free(p);
}
void operator delete(void* p, std::size_t) noexcept {
  counted_free(p);
}
void operator delete[](void* p, std::size_t) noexcept {
  counted_free(p);
}
void operator delete(void* p, const std::nothrow_t&) noexcept {
  counted_free(p);
}
void operator delete[](void* p, const std::nothrow_t&) noexcept {
  counted_free(p);
}
