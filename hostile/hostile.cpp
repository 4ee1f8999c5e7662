// Hostile-input driver: runs the library on one adversarial case (a deep tree, a huge value, a
// FIFO, a full disk, a wide directory, a long chain) and says whether the answer was right.
// scripts/hostile.sh runs every case at growing sizes, each in its own child through the
// `measure` mode, and judges how time and memory grow.
//
//   mota_hostile prepare FAMILY SIZE DIR   make the files a case reads (not measured)
//   mota_hostile case FAMILY SIZE DIR      run one case; exit 0 when every check held
//   mota_hostile measure SECONDS MEGABYTES LOG -- COMMAND...
//                                          run COMMAND in its own process group with an
//                                          address-space limit, kill the group when it
//                                          overruns, print one line of figures
//
// A case prints "ok: ..." and exits 0, or "FAIL: ..." and exits 1; a library exception that
// escapes is a failure with its message (exit 3), and so is running out of the memory limit.

#include <mota/config/base_config_item.hpp>
#include <mota/config/config_dispatch.hpp>
#include <mota/config/config_manager.hpp>
#include <mota/config/user_item.hpp>
#include <mota/exceptions/exception.hpp>
#include <mota/i18n/message_catalogs.hpp>
#include <mota/serialization/labeled_text_buffer.hpp>
#include <mota/strings/ustring.hpp>
#include <mota/system/file_utility.hpp>
#include <mota/types/variant.hpp>

#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <new>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using mota::serialization::labeled_text_buffer;
using mota::strings::ustring8;
using mota::types::variant;

// A check that did not hold: the case stops and reports it.
struct failed : std::runtime_error {
  using std::runtime_error::runtime_error;
};

void check(bool condition, const std::string& what) {
  if (!condition) throw failed(what);
}

// ---------------------------------------------------------------------------------------------
// Files

void write_file(const std::string& path, const std::string& content) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << content;
  out.close();
  if (!out) throw std::runtime_error("cannot write " + path);
}

void make_dir(const std::string& path) {
  if (::mkdir(path.c_str(), 0775) != 0 && errno != EEXIST)
    throw std::runtime_error("cannot create " + path + ": " + std::strerror(errno));
}

void make_fifo(const std::string& path) {
  ::unlink(path.c_str());
  if (::mkfifo(path.c_str(), 0600) != 0)
    throw std::runtime_error("cannot create FIFO " + path + ": " + std::strerror(errno));
}

std::string xmc_file(const std::string& body) {
  return "<?xml version=\"1.0\"?>\n<xmc version=\"1.0\">\n" + body + "</xmc>\n";
}

// ---------------------------------------------------------------------------------------------
// Labeled buffers

// A chain `depth` groups deep under the label "g"; every level holds the value "v" = its
// level number, and the innermost group holds "leaf".
void build_chain(labeled_text_buffer& root, long depth, const std::string& leaf) {
  labeled_text_buffer* level = &root;
  for (long i = 0; i < depth; ++i) {
    level->add_value("v", variant(std::to_string(i)));
    level = &level->create_group("g");
  }
  level->add_value("leaf", variant(leaf));
}

// Walks the chain down and returns the innermost group's "leaf" value; fails when a level is
// missing or holds the wrong number.
std::string chain_leaf(const labeled_text_buffer& root, long depth) {
  const labeled_text_buffer* level = &root;
  for (long i = 0; i < depth; ++i) {
    check(level->retrieve_value("v").as_string() == std::to_string(i),
          "level " + std::to_string(i) + " lost its value");
    level = level->retrieve_group("g");
    check(level != nullptr, "level " + std::to_string(i) + " lost its group");
  }
  return level->retrieve_value("leaf").as_string();
}

// The text encoding's string: its length, 0x01, its bytes, 0x01.
std::string encoded_prefix(std::size_t length) {
  return std::to_string(length) + '\x01';
}

std::string labeled_chain(long depth, std::ostream& out) {
  std::string detail;
  {
    labeled_text_buffer root;
    build_chain(root, depth, "end");
    const std::string text = root.as_str();
    check(!text.empty(), "as_str gave nothing");

    {
      std::unique_ptr<labeled_text_buffer> copy(root.clone());
      check(chain_leaf(*copy, depth) == "end", "the clone lost the leaf");
      check(copy->as_str() == text, "the clone writes another text");
    }

    labeled_text_buffer back;
    try {
      back.assign(text);
      check(back.as_str() == text, "the text read back writes another text");
      detail = "read back whole";
    } catch (const mota::exceptions::exception& e) {
      // Refusing text nested past the reader's bound is a clean answer too.
      detail = std::string("read back refused: ") + e.get_message();
    }
    out << "text " << text.size() << " bytes; ";
  }  // every tree is destroyed here
  return detail;
}

std::string labeled_leaf(long kilobytes, std::ostream& out) {
  constexpr int depth = 255;
  const std::size_t size = static_cast<std::size_t>(kilobytes) * 1024;
  std::string leaf(size, ' ');
  for (std::size_t i = 0; i < size; ++i)
    leaf[i] = static_cast<char>('a' + i % 26);

  // Written outside in, so that building the text costs its own size once. lengths[k] is the
  // size of the text of the group k levels above the innermost one.
  const std::string value_part = encoded_prefix(4) + "leaf" + '\x01' + encoded_prefix(size);
  std::vector<std::size_t> lengths(depth + 1);
  lengths[0] = value_part.size() + size + 1;
  const std::string group_label = encoded_prefix(2) + "g " + '\x01';
  for (int k = 1; k <= depth; ++k) {
    lengths[k] = group_label.size() + encoded_prefix(lengths[k - 1]).size() + lengths[k - 1] + 1;
  }
  std::string text;
  text.reserve(lengths[depth]);
  for (int k = depth; k >= 1; --k)
    text += group_label + encoded_prefix(lengths[k - 1]);
  text += value_part;
  text += leaf;
  text.append(depth + 1, '\x01');
  check(text.size() == lengths[depth], "the hostile text was built wrong");

  labeled_text_buffer buffer;
  buffer.assign(text);
  const labeled_text_buffer* level = &buffer;
  for (int i = 0; i < depth; ++i) {
    level = level->retrieve_group("g");
    check(level != nullptr, "group " + std::to_string(i) + " is missing");
  }
  check(level->retrieve_value("leaf").as_string() == leaf, "the leaf came back changed");
  out << "text " << text.size() << " bytes; ";
  return "255 groups read";
}

std::string labeled_overlay(long depth, std::ostream&) {
  labeled_text_buffer target;
  build_chain(target, depth, "old");
  labeled_text_buffer source(target);
  labeled_text_buffer* level = &source;
  for (long i = 0; i < depth; ++i)
    level = level->retrieve_group("g");
  level->add_value("leaf", variant(std::string("new")));

  target.overlay(source);
  check(chain_leaf(target, depth) == "new", "the overlay missed the innermost value");
  return "chain overlaid onto its copy";
}

// ---------------------------------------------------------------------------------------------
// XMC catalogs

constexpr int include_chain = 30;

std::string xmc_dir(const std::string& dir, long messages) {
  return dir + "/xmc_" + std::to_string(messages);
}

// File i holds `messages` messages and includes file i+1 twice: a load that reads an included
// file again for every include reads the last one 2^29 times.
void prepare_xmc_include(long messages, const std::string& dir) {
  const std::string here = xmc_dir(dir, messages);
  make_dir(here);
  for (int i = 0; i < include_chain; ++i) {
    std::string body = "<catalog name=\"c\" lang=\".\">\n";
    for (long j = 0; j < messages; ++j) {
      body += "<msg name=\"m" + std::to_string(i) + "_" + std::to_string(j) + "\">text " +
              std::to_string(i) + " " + std::to_string(j) + "</msg>\n";
    }
    body += "</catalog>\n";
    if (i + 1 < include_chain) {
      const std::string next = "f" + std::to_string(i + 1) + ".xmc";
      body += "<include file=\"" + next + "\"/>\n<include file=\"" + next + "\"/>\n";
    }
    write_file(here + "/f" + std::to_string(i) + ".xmc", xmc_file(body));
  }
}

std::string xmc_include(long messages, const std::string& dir, std::ostream&) {
  mota::i18n::message_catalogs catalogs;
  const auto result =
      catalogs.load_file(ustring8(xmc_dir(dir, messages) + "/f0.xmc"), ustring8("en"));
  check(result.type == 0, "load failed: " + result.message);
  const std::size_t expected = static_cast<std::size_t>(include_chain * messages);
  check(catalogs.size(ustring8("c")) == expected, "catalog holds " +
                                                      std::to_string(catalogs.size(ustring8("c"))) +
                                                      " messages, not " + std::to_string(expected));
  check(catalogs.has_message(ustring8("c"), ustring8("m29_" + std::to_string(messages - 1))),
        "the last file's last message is missing");
  return std::to_string(expected) + " messages";
}

std::string catalog_dir(const std::string& dir, long count) {
  return dir + "/dirs_" + std::to_string(count);
}

// `count` subdirectories, the first of which holds the one catalog file.
void prepare_catalog_dirs(long count, const std::string& dir) {
  const std::string top = catalog_dir(dir, count);
  make_dir(top);
  for (long i = 0; i < count; ++i)
    make_dir(top + "/d" + std::to_string(i));
  write_file(top + "/d0/one.xmc",
             xmc_file("<catalog name=\"c\" lang=\".\"><msg name=\"m\">hello</msg></catalog>\n"));
}

std::string catalog_dirs(long count, const std::string& dir, std::ostream&) {
  mota::i18n::message_catalogs catalogs;
  const auto result = catalogs.load_directory(ustring8(catalog_dir(dir, count)), ustring8("en"));
  check(result.type == 0, "load failed: " + result.message);
  check(catalogs.has_message(ustring8("c"), ustring8("m")), "the one catalog was not loaded");
  return "one catalog among " + std::to_string(count) + " directories";
}

// ---------------------------------------------------------------------------------------------
// FIFOs and full disks

// One FIFO serves every FIFO case. Its name ends in ".cfg" because the configuration file item
// adds that extension to a name that has none.
void prepare_fifo(const std::string& dir) {
  make_fifo(dir + "/fifo.cfg");
  write_file(dir + "/fifo_include.xmc",
             xmc_file("<catalog name=\"c\" lang=\".\"><msg name=\"m\">x</msg></catalog>\n"
                      "<include file=\"fifo.cfg\"/>\n"));
}

std::string fifo_load_file(const std::string& dir, std::ostream&) {
  ustring8 content("untouched");
  const int result = mota::system::load_file(ustring8(dir + "/fifo.cfg"), content);
  check(result == 1, "load_file returned " + std::to_string(result) + ", not 1");
  check(content == "untouched", "load_file changed the out string");
  return "load_file refused the FIFO";
}

std::string fifo_xmc_include(const std::string& dir, std::ostream&) {
  mota::i18n::message_catalogs catalogs;
  const auto result = catalogs.load_file(ustring8(dir + "/fifo_include.xmc"), ustring8("en"));
  check(result.type != 0, "an include naming a FIFO loaded without error");
  check(catalogs.size() == 0, "a failed load merged catalogs");
  return "kind " + std::to_string(result.type);
}

std::string store_full(std::ostream&) {
  const std::string content(1 << 16, 'x');
  const int result = mota::system::store_file(ustring8("/dev/full"), ustring8(content));
  check(result == 1, "store_file to /dev/full returned " + std::to_string(result) + ", not 1");
  return "store_file reported the full device";
}

// ---------------------------------------------------------------------------------------------
// Configuration

// A dispatch whose one item is a user item filled by the given function.
class user_dispatch : public mota::config::config_dispatch {
 public:
  using filler = std::function<void(mota::config::base_config_item&)>;
  explicit user_dispatch(filler fill) : m_fill(std::move(fill)) {}
  void setup(item_list& items) override {
    auto* item = new mota::config::user_item();
    m_fill(*item);
    append(items, item);
  }
  void load(item_list& items) override { load_each(items); }
  void unload(item_list& items) override { unload_each(items); }
  void save(item_list&) override {}
  user_dispatch* clone() const override { return new user_dispatch(*this); }

 private:
  filler m_fill;
};

std::string config_indirect(long count, std::ostream&) {
  using mota::config::base_config_item;
  mota::config::config_manager manager;
  manager.init(user_dispatch([count](base_config_item& item) {
    for (long i = 0; i + 1 < count; ++i) {
      item.set(ustring8("k" + std::to_string(i)), variant(std::string("k" + std::to_string(i + 1))),
               base_config_item::indirect_flag);
    }
    item.set(ustring8("k" + std::to_string(count - 1)), variant(std::string("end")), 0);
  }));
  const variant value = manager.get_value(ustring8("k0"), variant(std::string("default")));
  check(value.as_string() == "end", "k0 gave \"" + value.as_string() + "\", not \"end\"");
  return "followed " + std::to_string(count) + " keys";
}

// A counting sink, so that dumping a huge tree costs no memory here.
class counting_buffer : public std::streambuf {
 public:
  std::size_t count = 0;

 protected:
  int_type overflow(int_type c) override {
    if (c != traits_type::eof()) ++count;
    return traits_type::not_eof(c);
  }
  std::streamsize xsputn(const char*, std::streamsize n) override {
    count += static_cast<std::size_t>(n);
    return n;
  }
};

std::string config_deep_key(long components, std::ostream&) {
  std::string key = "a";
  std::string assignment = "b";
  for (long i = 1; i < components; ++i) {
    key += ".a";
    assignment += ".b";
  }
  assignment += "=deep";

  mota::config::user_item item;
  item.set(ustring8(key), variant(std::string("value")), 0);
  item.set(ustring8(assignment), 0);
  const auto* node = item.get_value(ustring8(key));
  check(node != nullptr && node->second.as_string() == "value", "the deep key is not found");
  const std::string other = assignment.substr(0, assignment.size() - 5);
  node = item.get_value(ustring8(other));
  check(node != nullptr && node->second.as_string() == "deep",
        "the deep key set from \"key=value\" text is not found");

  counting_buffer sink;
  std::ostream dump(&sink);
  item.dump(dump);
  check(sink.count > key.size() + other.size(), "the dump is shorter than its keys");

  std::unique_ptr<mota::config::user_item> copy(item.clone());
  node = copy->get_value(ustring8(key));
  check(node != nullptr && node->second.as_string() == "value", "the clone lost the deep key");
  return "dump " + std::to_string(sink.count) + " bytes";
}

// ---------------------------------------------------------------------------------------------
// Modes

int usage() {
  std::cerr << "usage: mota_hostile prepare|case FAMILY SIZE DIR\n"
               "       mota_hostile measure SECONDS MEGABYTES LOG -- COMMAND...\n";
  return 64;
}

int prepare(const std::string& family, long size, const std::string& dir) {
  if (family == "xmc_include") {
    prepare_xmc_include(size, dir);
  } else if (family == "catalog_dirs") {
    prepare_catalog_dirs(size, dir);
  } else if (family.rfind("fifo_", 0) == 0) {
    prepare_fifo(dir);
  }
  return 0;
}

int run_case(const std::string& family, long size, const std::string& dir) {
  std::ostringstream note;
  std::string detail;
  if (family == "empty") {
    detail = "nothing done";
  } else if (family == "labeled_chain") {
    detail = labeled_chain(size, note);
  } else if (family == "labeled_leaf") {
    detail = labeled_leaf(size, note);
  } else if (family == "labeled_overlay") {
    detail = labeled_overlay(size, note);
  } else if (family == "xmc_include") {
    detail = xmc_include(size, dir, note);
  } else if (family == "fifo_load_file") {
    detail = fifo_load_file(dir, note);
  } else if (family == "fifo_xmc_include") {
    detail = fifo_xmc_include(dir, note);
  } else if (family == "catalog_dirs") {
    detail = catalog_dirs(size, dir, note);
  } else if (family == "config_indirect") {
    detail = config_indirect(size, note);
  } else if (family == "store_full") {
    detail = store_full(note);
  } else if (family == "config_deep_key") {
    detail = config_deep_key(size, note);
  } else {
    std::cerr << "mota_hostile: unknown family " << family << "\n";
    return 64;
  }
  std::cout << "ok: " << note.str() << detail << std::endl;
  return 0;
}

double seconds(const timeval& t) {
  return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) / 1e6;
}

// Runs the command in a process group of its own, so that killing the group on a timeout also
// ends whatever it started. Prints: status (exit, signal or timeout), its code, wall and CPU
// milliseconds and the peak resident set in kilobytes.
int measure(double timeout, long megabytes, const std::string& log, char** command) {
  const auto start = std::chrono::steady_clock::now();
  const pid_t pid = ::fork();
  if (pid < 0) {
    std::perror("fork");
    return 70;
  }
  if (pid == 0) {
    ::setpgid(0, 0);
    const int in = ::open("/dev/null", O_RDONLY);
    const int out = ::open(log.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (in < 0 || out < 0) _exit(126);
    ::dup2(in, 0);
    ::dup2(out, 1);
    ::dup2(out, 2);
    ::close(in);
    ::close(out);
    const rlim_t bytes = static_cast<rlim_t>(megabytes) << 20;
    const rlimit memory{bytes, bytes};
    ::setrlimit(RLIMIT_AS, &memory);
    // The same stack everywhere, whatever the calling shell allows, so that deep recursion
    // fails alike on every machine; and no core files from the crashes this run provokes.
    rlimit stack{};
    ::getrlimit(RLIMIT_STACK, &stack);
    stack.rlim_cur = 8u << 20;
    if (stack.rlim_max != RLIM_INFINITY && stack.rlim_max < stack.rlim_cur)
      stack.rlim_cur = stack.rlim_max;
    ::setrlimit(RLIMIT_STACK, &stack);
    const rlimit no_core{0, 0};
    ::setrlimit(RLIMIT_CORE, &no_core);
    ::execv(command[0], command);
    std::fprintf(stderr, "cannot run %s: %s\n", command[0], std::strerror(errno));
    _exit(127);
  }
  ::setpgid(pid, pid);

  int status = 0;
  rusage usage{};
  bool timed_out = false;
  for (;;) {
    const pid_t done = ::wait4(pid, &status, WNOHANG, &usage);
    if (done == pid) break;
    if (done < 0 && errno != EINTR) {
      std::perror("wait4");
      return 70;
    }
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    if (!timed_out && elapsed.count() > timeout) {
      timed_out = true;
      ::kill(-pid, SIGKILL);
      ::kill(pid, SIGKILL);
    }
    // A child stuck where even SIGKILL does not reach (an uninterruptible wait) is left
    // behind rather than holding up the whole run; its figures are unknown.
    if (timed_out && elapsed.count() > timeout + 10) {
      usage = rusage{};
      break;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
  // Whatever the command left running in its group goes too.
  ::kill(-pid, SIGKILL);

  const char* kind = "exit";
  int code = 0;
  if (timed_out) {
    kind = "timeout";
  } else if (WIFSIGNALED(status)) {
    kind = "signal";
    code = WTERMSIG(status);
  } else {
    code = WEXITSTATUS(status);
  }
  const double cpu = seconds(usage.ru_utime) + seconds(usage.ru_stime);
  std::printf("%s %d %.0f %.0f %ld\n", kind, code, wall.count() * 1000, cpu * 1000,
              static_cast<long>(usage.ru_maxrss));
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return usage();
  const std::string mode = argv[1];
  if (mode == "measure") {
    if (argc < 7 || std::string(argv[5]) != "--") return usage();
    return measure(std::atof(argv[2]), std::atol(argv[3]), argv[4], argv + 6);
  }
  if (argc != 5 || (mode != "prepare" && mode != "case")) return usage();
  const std::string family = argv[2];
  const long size = std::atol(argv[3]);
  const std::string dir = argv[4];
  try {
    return mode == "prepare" ? prepare(family, size, dir) : run_case(family, size, dir);
  } catch (const failed& e) {
    std::cout << "FAIL: " << e.what() << std::endl;
    return 1;
  } catch (const std::bad_alloc&) {
    std::cout << "FAIL: out of memory" << std::endl;
    return 3;
  } catch (const mota::exceptions::exception& e) {
    std::cout << "FAIL: exception: " << e.get_message() << std::endl;
    return 3;
  } catch (const std::exception& e) {
    std::cout << "FAIL: exception: " << e.what() << std::endl;
    return 3;
  }
}
