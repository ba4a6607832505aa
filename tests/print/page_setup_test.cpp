#include "print/page_setup.h"

#include "tests/fakes/fake_settings.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

TEST(PageSetup, HasItsUsualValuesWithoutAnyStored) {
  FakeSettings settings;
  EXPECT_EQ(LoadPageSetup(settings), (PageSetup{{250, 200, 250, 200}, "&f", "Page &p"}));
}

// An empty header is one that the user does not want.
TEST(PageSetup, AnEmptyPatternIsNotTheUsualOne) {
  FakeSettings settings;
  settings.values = {{"PageHeader", ""}, {"PageMargins", "1,2,3,4"}};
  EXPECT_EQ(LoadPageSetup(settings), (PageSetup{{1, 2, 3, 4}, "", "Page &p"}));
}

TEST(PageSetup, ComesBackAsItWasStored) {
  FakeSettings settings;
  PageSetup setup{{381, 127, 254, 508}, "&l&F&r&d", ""};
  StorePageSetup(settings, setup);
  EXPECT_EQ(settings.values["PageMargins"], "381,127,254,508");
  EXPECT_EQ(LoadPageSetup(settings), setup);
}

}  // namespace
}  // namespace tarrow
