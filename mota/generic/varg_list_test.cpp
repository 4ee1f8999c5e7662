#include <mota/generic/varg_list.hpp>

#include <mota_test.hpp>

#include <stdexcept>
#include <string>
#include <vector>

using mota::generic::argument;
using mota::generic::varg_list;
using mota::types::nil;
using mota::types::variant;

namespace {

using names = std::vector<std::string>;

names names_of(const varg_list& list) {
  names found;
  for (const argument& arg : list)
    found.push_back(arg.name());
  return found;
}

}  // namespace

TEST(VargList, ConstructorTakesTwentySixArgumentsAndStopsAtTheFirstNil) {
  const argument a("a", 1), b("b", 2);
  EXPECT_EQ(names{"a"}, names_of(varg_list(a, nil, b)));
  // A named argument with a nil value does not stop the list; an unnamed value does not either.
  const argument named_nil("n", variant());
  EXPECT_EQ((names{"a", "n", "", "b"}), names_of(varg_list(a, named_nil, argument(variant(5)), b)));
  EXPECT_TRUE(varg_list() == nil);
  EXPECT_EQ(0u, varg_list(argument()).count());
  std::vector<argument> args;
  for (int i = 0; i < 26; ++i)
    args.emplace_back(std::string(1, static_cast<char>('a' + i)), i);
  const varg_list list(args[0], args[1], args[2], args[3], args[4], args[5], args[6], args[7],
                       args[8], args[9], args[10], args[11], args[12], args[13], args[14], args[15],
                       args[16], args[17], args[18], args[19], args[20], args[21], args[22],
                       args[23], args[24], args[25]);
  ASSERT_EQ(26u, list.count());
  EXPECT_EQ(25, list["z"].value().as_int());
  EXPECT_EQ("z", list[25u].name());
  // Duplicates among the parameters are refused one by one without stopping the list.
  EXPECT_EQ((names{"a", "b"}), names_of(varg_list(args[0], args[0], args[1])));
}

TEST(VargList, NamedPushesAreUniqueUnnamedAppendPositionsAreCheckedNamesFallBackToNil) {
  varg_list list;
  EXPECT_TRUE(list.push_back("x", 1));
  EXPECT_FALSE(list.push_back(argument("x", 3)));
  EXPECT_TRUE(list.push_back(argument(variant(4))));
  EXPECT_TRUE(list.push_back(argument(variant(5))));
  // Names compare exactly: no case folding, no trimming, length matters.
  EXPECT_TRUE(list.push_back("X", 6));
  EXPECT_TRUE(list.push_back("x ", 7));
  EXPECT_TRUE(list.push_back(std::string("x\0y", 3), 8));
  EXPECT_EQ((names{"x", "", "", "X", "x ", std::string("x\0y", 3)}), names_of(list));
  EXPECT_EQ(1, list["x"].value().as_int());
  EXPECT_EQ(8, list[std::string("x\0y", 3)].value().as_int());
  EXPECT_TRUE(list != nil);
  varg_list abc(argument("a", 1), argument("b", 2), argument("c", 3));
  abc[0u] = argument("z", 26);
  const varg_list& constant = abc;
  EXPECT_EQ(26, constant[0u].value().as_int());
  EXPECT_EQ("c", abc.at(2u).name());
  const char* const past = "vector::_M_range_check: __n (which is 3) >= this->size() (which is 3)";
  EXPECT_THROWS_STD(abc.at(3u), std::out_of_range, past);
  EXPECT_THROWS_STD(abc[3u], std::out_of_range, past);
  EXPECT_THROWS_STD(constant[3u], std::out_of_range, past);
  // A name that is not there gives the nil argument; an unnamed one is reachable by position only.
  abc.push_back(argument(variant(4)));
  EXPECT_EQ(&varg_list::nil_argument, &abc.at("nope"));
  EXPECT_TRUE(abc.at("nope") == nil);
  EXPECT_TRUE(abc.has_argument("b"));
  EXPECT_FALSE(abc.has_argument("a"));
  EXPECT_EQ(abc.end(), abc.find("a"));
  EXPECT_FALSE(abc.has_argument(""));
  EXPECT_EQ(&varg_list::nil_argument, &abc[""]);
}

TEST(VargList, EraseFormsAndCopiesThatShareValuesButNotTheList) {
  varg_list list(argument("a", 1), argument("b", 2), argument("c", 3), argument("d", 4),
                 argument("e", 5));
  list.erase(5u);
  list.erase("missing");
  list.erase("b");
  list.erase(0u);
  list.erase(list.begin());
  EXPECT_EQ((names{"d", "e"}), names_of(list));
  list.erase(list.begin(), list.begin() + 1);
  EXPECT_EQ(names{"e"}, names_of(list));
  list.erase();
  EXPECT_TRUE(list == nil);
  list.push_back("f", 6);
  list.clear();
  EXPECT_TRUE(list.empty());
  EXPECT_TRUE(list.push_back("f", 7));  // a removed name may be pushed again
  varg_list source(argument("a", 1));
  varg_list copy(source);
  copy.push_back("b", 2);
  EXPECT_EQ(1u, source.count());
  varg_list assigned;
  assigned = copy;
  assigned.assign(assigned);
  EXPECT_EQ((names{"a", "b"}), names_of(assigned));
  EXPECT_EQ(&source[0u].value().held(), &assigned[0u].value().held());
}
