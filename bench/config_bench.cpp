// Configuration parsing and lookup. Parsing: a generated configuration text of about 1 MiB
// (20000 keys in 200 sections, arrays, comments) read by file_item::parse, beside
// Boost.PropertyTree's INI reader on the same content in INI form. Lookup:
// config_manager::get_value over three items, beside one std::map find per item.
#include <mota/config/config_manager.hpp>
#include <mota/config/file_item.hpp>
#include <mota/config/user_item.hpp>

#include <benchmark/benchmark.h>
#include <boost/property_tree/ini_parser.hpp>
#include <boost/property_tree/ptree.hpp>

#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

using mota::config::base_config_item;
using mota::config::config_manager;
using mota::config::user_item;
using mota::strings::ustring8;
using mota::types::variant;

constexpr int kSections = 200;
constexpr int kKeysPerSection = 100;

// The same settings in both syntaxes. Every tenth key is an array (a comma-separated text for
// the INI reader, which has no arrays); comments stand on lines of their own because the INI
// reader has no trailing comments.
struct texts {
  std::string config, ini;
};

const texts& generated() {
  static const texts t = [] {
    texts out;
    for (int s = 0; s < kSections; ++s) {
      const std::string header = "[section" + std::to_string(s) + "]\n";
      out.config += header;
      out.ini += header;
      for (int k = 0; k < kKeysPerSection; ++k) {
        const std::string n = std::to_string(s * kKeysPerSection + k);
        if (k % 10 == 0) {
          const std::string comment = "# settings group " + n + " follow\n";
          out.config += comment;
          out.ini += comment;
        }
        if (k % 10 == 5) {
          out.config += "list" + n + "[] = alpha" + n + ", beta" + n + ", gamma\n";
          out.ini += "list" + n + " = alpha" + n + ", beta" + n + ", gamma\n";
        } else {
          out.config += "key" + n + " = \"value number " + n + "\"\n";
          out.ini += "key" + n + " = value number " + n + "\n";
        }
      }
    }
    return out;
  }();
  return t;
}

void BM_ParseConfigFile(benchmark::State& state) {
  const ustring8 text(generated().config);
  for (auto _ : state) {
    mota::config::file_item item("");
    item.parse(text);
    benchmark::DoNotOptimize(item.get_tree().size());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_ParseConfigFile)->Unit(benchmark::kMillisecond);

void BM_PropertyTreeReadIni(benchmark::State& state) {
  const std::string& text = generated().ini;
  for (auto _ : state) {
    std::istringstream in(text);
    boost::property_tree::ptree tree;
    boost::property_tree::read_ini(in, tree);
    benchmark::DoNotOptimize(tree.size());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_PropertyTreeReadIni)->Unit(benchmark::kMillisecond);

// Three items of 20000 keys each; item i holds "i.<n>", and the key "last" only in the third.
class three_items : public mota::config::config_dispatch {
 public:
  void setup(item_list& items) override {
    for (int i = 0; i < 3; ++i) {
      auto* item = new user_item;
      for (int n = 0; n < 20000; ++n)
        item->set("item" + std::to_string(i) + ".key" + std::to_string(n),
                  variant(ustring8("v" + std::to_string(n))), 0u);
      append(items, item);
    }
    items.front()->set("indirect", variant(ustring8("item2.key777")),
                       base_config_item::indirect_flag);
  }
  void load(item_list&) override {}
  void unload(item_list&) override {}
  void save(item_list&) override {}
  three_items* clone() const override { return new three_items(*this); }
};

const config_manager& manager() {
  static config_manager m;
  static const bool ready = (m.init(three_items()), true);
  (void)ready;
  return m;
}

const std::vector<std::map<std::string, variant>>& maps() {
  static const std::vector<std::map<std::string, variant>> all = [] {
    std::vector<std::map<std::string, variant>> out(3);
    for (int i = 0; i < 3; ++i)
      for (int n = 0; n < 20000; ++n)
        out[i]["item" + std::to_string(i) + ".key" + std::to_string(n)] =
            variant(ustring8("v" + std::to_string(n)));
    return out;
  }();
  return all;
}

const ustring8 kFirst = "item0.key12345";
const ustring8 kLast = "item2.key12345";
const ustring8 kAbsent = "item9.key12345";
const ustring8 kIndirect = "indirect";

void lookup(benchmark::State& state, const ustring8& key) {
  const config_manager& m = manager();
  for (auto _ : state)
    benchmark::DoNotOptimize(m.get_value(key));
}
void BM_GetValuePresentInFirstItem(benchmark::State& s) {
  lookup(s, kFirst);
}
void BM_GetValuePresentInThirdItem(benchmark::State& s) {
  lookup(s, kLast);
}
void BM_GetValueAbsent(benchmark::State& s) {
  lookup(s, kAbsent);
}
void BM_GetValueIndirect(benchmark::State& s) {
  lookup(s, kIndirect);
}
BENCHMARK(BM_GetValuePresentInFirstItem);
BENCHMARK(BM_GetValuePresentInThirdItem);
BENCHMARK(BM_GetValueAbsent);
BENCHMARK(BM_GetValueIndirect);

// The peer: one find in each of the three maps.
void BM_MapFindPerItem(benchmark::State& state) {
  const auto& all = maps();
  const std::string key = kLast;
  for (auto _ : state)
    for (const auto& map : all)
      benchmark::DoNotOptimize(map.find(key));
}
BENCHMARK(BM_MapFindPerItem);

}  // namespace
