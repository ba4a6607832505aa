#include "project/options/options.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

TEST(ProjectOptions, HaveTheirPresetsByEnvironment) {
  EXPECT_EQ("Compiler", OptionKey(0));
  EXPECT_EQ("FileFilter", OptionKey(kOptionFileFilter));
  EXPECT_EQ("HelpEnv", OptionKey(kOptionCount - 1));
  EXPECT_EQ("cl386.exe /nologo /D_X86_=1", OptionPreset(0, 0));
  EXPECT_EQ("ztc.com", OptionPreset(0, 3));
  EXPECT_EQ("", OptionPreset(0, 4));
  for (int environment = 0; environment < kEnvironmentCount - 1; ++environment)
    for (int option = 0; option < kOptionCount; ++option) EXPECT_NE(" ", OptionPreset(option, environment));
  EXPECT_EQ('|', OptionPreset(kOptionFileFilter, 0).back());
}

}  // namespace
}  // namespace tarrow
