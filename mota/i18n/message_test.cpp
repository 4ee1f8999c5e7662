#include <mota/i18n/catalog.hpp>
#include <mota/i18n/message.hpp>

#include <gtest/gtest.h>

#include <string>
#include <vector>

using mota::generic::varg_list;
using mota::i18n::catalog_t;
using mota::i18n::message_item;
using mota::i18n::message_t;
using mota::strings::ustring16;
using mota::strings::ustring32;
using mota::strings::ustring8;
using mota::types::variant;

namespace {

const ustring8 kSep(1, '\x01');

message_t with_locale(const char* name, const char* locale) {
  message_t m(name, {message_item(name)});
  m._orginal_locale(locale);
  return m;
}

}  // namespace

TEST(Message, ArgumentCountValidityAndRendering) {
  message_t only_text("t", {message_item("a"), message_item("b")});
  EXPECT_EQ(0u, only_text.argument_count());
  EXPECT_TRUE(only_text.has_valid_args(varg_list()));
  EXPECT_FALSE(message_t().has_valid_args(varg_list()));

  message_t m("greeting", {message_item("Hello "), message_item("who", message_item::string),
                           message_item(", you have "),
                           message_item("n" + kSep + "fieldsize" + kSep + "3", message_item::int_),
                           message_item(" mails.")});
  EXPECT_EQ(2u, m.argument_count());
  varg_list one;
  one.push_back("who", variant(ustring8("Ann")));
  EXPECT_FALSE(m.has_valid_args(one));  // fewer entries than slots
  one.push_back("other", variant(1));
  EXPECT_FALSE(m.has_valid_args(one));  // "n" is missing
  one.push_back("n", variant(7));
  EXPECT_TRUE(m.has_valid_args(one));  // extra entries are fine

  // the template keys by the whole stored text, the check looks up the bare name
  varg_list list = m.arguments();
  ASSERT_EQ(2u, list.count());
  EXPECT_EQ("who", list[0u].name());
  EXPECT_EQ("n" + kSep + "fieldsize" + kSep + "3", list[1u].name());
  EXPECT_TRUE(list[1u].value() == mota::types::nil);
  EXPECT_FALSE(m.has_valid_args(list));

  // renders in item order, in every encoding
  varg_list args;
  args.push_back("who", variant(ustring8("J\xC3\xBCrgen")));
  args.push_back("n", variant(7));
  const std::string expected = "Hello J\xC3\xBCrgen, you have   7 mails.";
  EXPECT_EQ(expected, m.as_string(args));
  EXPECT_EQ(expected, m.as_utf8(args));
  EXPECT_EQ(expected, m.as_ustring(args));
  EXPECT_EQ(m.as_wstring(args), m.as_utf32(args));
  EXPECT_EQ(static_cast<wchar_t>(0xFC), m.as_wstring(args).at(7));
  EXPECT_EQ(m.as_wstring(args).size(), m.as_utf16(args).size());
  EXPECT_EQ(0xFCu, m.as_utf16(args).at(7));
}

TEST(Message, FieldsAssignmentAndNil) {
  message_t m("name", {message_item("x")}, "meta text");
  m.name("other");
  m._orginal_locale("de_DE");
  message_t copy;
  copy = m;
  message_t& same = copy;
  copy = same;  // self-assignment keeps everything
  EXPECT_EQ("other", copy.name());
  EXPECT_EQ("meta text", copy.meta());
  EXPECT_EQ("de_DE", copy._orginal_locale());
  EXPECT_EQ(1u, copy.size());

  copy = mota::types::nil;
  EXPECT_TRUE(copy == mota::types::nil);
  EXPECT_EQ("", copy._orginal_locale());
  // the locale is not looked at by the nil test; meta or name alone make it non-nil
  message_t only_locale;
  only_locale._orginal_locale("en");
  EXPECT_TRUE(only_locale.equal(mota::types::nil));
  EXPECT_FALSE(message_t("", {}, "m") == mota::types::nil);
  EXPECT_TRUE(message_t("n", {}) != mota::types::nil);
}

TEST(Catalog, MessagesNilMessageAndLanguageCache) {
  catalog_t cat;
  EXPECT_TRUE(cat == mota::types::nil);
  cat._name(ustring32(L"\u00e9rr"));
  EXPECT_EQ("\xc3\xa9rr", cat.name());
  cat._name("errors");
  cat.message("a", with_locale("a", "en"));
  cat.message(ustring16{'b'}, with_locale("b", "de"));
  cat.message(ustring32(L"c"), with_locale("c", "de"));
  EXPECT_EQ(3u, cat.size());
  EXPECT_TRUE(cat.has_message(ustring16{'b'}));
  EXPECT_FALSE(cat.has_message("d"));
  EXPECT_EQ("de", cat.message(ustring32(L"c"))._orginal_locale());
  EXPECT_EQ(&catalog_t::m_nil_message, &cat.message("d"));
  EXPECT_EQ(3u, cat.size());  // lookups never insert
  cat.message("a", with_locale("a", "fr"));
  EXPECT_EQ("fr", cat.message("a")._orginal_locale());

  catalog_t copy(cat);
  EXPECT_EQ(3u, copy.size());
  EXPECT_EQ("errors", copy.name());
  copy = mota::types::nil;
  EXPECT_TRUE(copy == mota::types::nil);
  EXPECT_EQ("", copy.name());  // the nil test looks at the messages only

  // the language set is a cache
  cat.message("a", with_locale("a", "en_US"));
  std::vector<std::string> langs(cat.languages_begin(), cat.languages_end());
  EXPECT_EQ((std::vector<std::string>{"de", "en_US"}), langs);
  EXPECT_TRUE(cat.is_language_loaded("en-US"));
  EXPECT_TRUE(cat.is_language_loaded("en.US"));
  EXPECT_TRUE(cat.is_language_loaded(ustring16{'d', 'e'}));
  EXPECT_FALSE(cat.is_language_loaded("fr"));
  // storing a message drops the generated set; the next query rebuilds it
  cat.message("d", with_locale("d", "fr"));
  EXPECT_TRUE(cat.is_language_loaded("fr"));
  langs.assign(cat.languages_begin(), cat.languages_end());
  EXPECT_EQ((std::vector<std::string>{"de", "en_US", "fr"}), langs);
}
