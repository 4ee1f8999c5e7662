// Throughput of the XML scanner and the token stream beside expat (SAX, every name, value and
// text copied into a std::string as our handlers receive them) and pugixml (DOM build), on a
// 4 MiB message catalog and a 4 MiB text-heavy document.
#include <mota/functor/member_function.hpp>
#include <mota/parser/xml_parser.hpp>
#include <mota/parser/xml_token_stream.hpp>

#include <benchmark/benchmark.h>
#include <expat.h>
#include <pugixml.hpp>

#include <cstdlib>
#include <string>

namespace {

using mota::parser::xml_parser;
using mota::parser::xml_token_stream;
using mota::strings::ustring8;

constexpr std::size_t k_size = 4u << 20;

const std::string& catalog_document() {
  static const std::string text = [] {
    std::string s = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xmc version=\"1.1\">\n";
    for (int c = 0; s.size() < k_size; ++c) {
      s += "  <!-- catalog " + std::to_string(c) + " -->\n";
      s += "  <catalog name=\"cat" + std::to_string(c) + "\" lang=\"en_US\">\n";
      for (int m = 0; m < 40; ++m) {
        const std::string n = std::to_string(m);
        s += "    <msg name=\"message_" + n + "\" type='text'>";
        s += "File &quot;{0}&quot; could not be opened &amp; was skipped (code " + n + ")</msg>\n";
        s += "    <msg name=\"count_" + n + "\"><arg name=\"n\" type=\"int\"/>";
        s += "Found {n} items &lt;&#65;&#x42;&gt; in the list</msg>\n";
        if (m % 8 == 0) s += "    <!-- group " + n + " -->\n";
      }
      s += "  </catalog>\n";
    }
    s += "</xmc>\n";
    return s;
  }();
  return text;
}

const std::string& text_document() {
  static const std::string text = [] {
    std::string s = "<?xml version=\"1.0\"?>\n<xmc version=\"1.1\">\n <doc title=\"long\">\n";
    const char* words[] = {"lorem",      "ipsum", "dolor", "sit", "amet",    "consectetur",
                           "adipiscing", "elit",  "sed",   "do",  "eiusmod", "tempor"};
    unsigned seed = 7;
    for (int p = 0; s.size() < k_size; ++p) {
      s += "  <p id=\"p" + std::to_string(p) + "\">";
      for (int w = 0; w < 120; ++w) {
        seed = seed * 1103515245u + 12345u;
        s += words[(seed >> 16) % 12];
        if (w % 40 == 39) s += " &amp;";
        s += (w % 15 == 14) ? "\n   " : " ";
      }
      s += "end.</p>\n";
    }
    s += " </doc>\n</xmc>\n";
    return s;
  }();
  return text;
}

// Our handlers: count every event and touch its size so nothing is optimised away.
struct tally {
  std::size_t events = 0, bytes = 0;
  void text(const ustring8& s) {
    ++events;
    bytes += s.size();
  }
  void pair(const ustring8& n, const ustring8& v) {
    ++events;
    bytes += n.size() + v.size();
  }
};

void bench_scanner(benchmark::State& state, const std::string& doc) {
  using one = mota::functor::member_function_t<tally, void(const ustring8&)>;
  using two = mota::functor::member_function_t<tally, void(const ustring8&, const ustring8&)>;
  tally t;
  xml_parser parser;
  parser.set_element_start_handler(one(&t, &tally::text));
  parser.set_element_end_handler(one(&t, &tally::text));
  parser.set_attribute_handler(two(&t, &tally::pair));
  parser.set_character_handler(one(&t, &tally::text));
  parser.set_space_handler(one(&t, &tally::text));
  parser.set_comment_handler(one(&t, &tally::text));
  for (auto _ : state) {
    const auto e = parser.parse(doc);
    if (e.type != xml_parser::parse_error::no_error) state.SkipWithError("parse failed");
  }
  benchmark::DoNotOptimize(t.bytes);
  state.counters["events"] =
      static_cast<double>(t.events) / static_cast<double>(state.iterations());
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * doc.size()));
}

void bench_token_stream(benchmark::State& state, const std::string& doc) {
  std::size_t tokens = 0;
  for (auto _ : state) {
    xml_token_stream stream;
    const auto e = stream.parse(doc);
    if (e.type != xml_parser::parse_error::no_error) state.SkipWithError("parse failed");
    tokens = stream.size();
  }
  state.counters["tokens"] = static_cast<double>(tokens);
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * doc.size()));
}

// expat, with each name, value and text copied into a std::string as it arrives.
struct expat_sink {
  std::string scratch;
  std::size_t events = 0, bytes = 0;
  void take(const char* s, std::size_t n) {
    scratch.assign(s, n);
    ++events;
    bytes += scratch.size();
  }
  void take(const char* s) {
    scratch.assign(s);
    ++events;
    bytes += scratch.size();
  }
};

void XMLCALL expat_start(void* data, const XML_Char* name, const XML_Char** atts) {
  auto* sink = static_cast<expat_sink*>(data);
  sink->take(name);
  for (; atts[0] != nullptr; atts += 2) {
    sink->take(atts[0]);
    sink->take(atts[1]);
  }
}
void XMLCALL expat_end(void* data, const XML_Char* name) {
  static_cast<expat_sink*>(data)->take(name);
}
void XMLCALL expat_text(void* data, const XML_Char* s, int len) {
  static_cast<expat_sink*>(data)->take(s, static_cast<std::size_t>(len));
}
void XMLCALL expat_comment(void* data, const XML_Char* s) {
  static_cast<expat_sink*>(data)->take(s);
}

void bench_expat(benchmark::State& state, const std::string& doc) {
  expat_sink sink;
  for (auto _ : state) {
    XML_Parser p = XML_ParserCreate(nullptr);
    XML_SetUserData(p, &sink);
    XML_SetElementHandler(p, expat_start, expat_end);
    XML_SetCharacterDataHandler(p, expat_text);
    XML_SetCommentHandler(p, expat_comment);
    if (XML_Parse(p, doc.data(), static_cast<int>(doc.size()), 1) != XML_STATUS_OK)
      state.SkipWithError("expat failed");
    XML_ParserFree(p);
  }
  benchmark::DoNotOptimize(sink.bytes);
  state.counters["events"] =
      static_cast<double>(sink.events) / static_cast<double>(state.iterations());
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * doc.size()));
}

void bench_pugixml(benchmark::State& state, const std::string& doc) {
  for (auto _ : state) {
    pugi::xml_document d;
    if (!d.load_buffer(doc.data(), doc.size())) state.SkipWithError("pugixml failed");
    benchmark::DoNotOptimize(d.first_child());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * doc.size()));
}

BENCHMARK_CAPTURE(bench_scanner, catalog, catalog_document())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bench_expat, catalog, catalog_document())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bench_token_stream, catalog, catalog_document())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bench_pugixml, catalog, catalog_document())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bench_scanner, text, text_document())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bench_expat, text, text_document())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bench_token_stream, text, text_document())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bench_pugixml, text, text_document())->Unit(benchmark::kMillisecond);

}  // namespace
