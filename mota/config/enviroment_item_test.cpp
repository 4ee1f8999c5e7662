#include <mota/config/enviroment_item.hpp>

#include <gtest/gtest.h>
#include <config_test.hpp>

#include <string>

using mota::config::enviroment_item;
using mota_test::render;

TEST(ConfigEnvironment, SplitsEachEntryAtItsFirstEquals) {
  const char* envp[] = {"HOME=/home/u", "LS=a=b:c", "EMPTY=", "X==y", nullptr, "NOT=read"};
  enviroment_item env(envp);
  env.load();
  // "==" is one token, so "X==y" has no "=" token to split at.
  EXPECT_EQ("EMPTY=0:\nHOME=0:/home/u\nLS=0:a=b:c\nX==y=0:\n", render(env));
  env.unload();
  EXPECT_EQ("", render(env));

  enviroment_item null(nullptr);
  null.load();
  EXPECT_EQ("", render(null));
}
