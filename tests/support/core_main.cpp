#include <gtest/gtest.h>

#include "tests/support/own_home.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const rostermill::test::OwnHome home;
  return RUN_ALL_TESTS();
}
