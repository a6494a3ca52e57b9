#pragma once

#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include "tests/support/dialogs.h"
#include "tests/support/sample.h"
#include "toolkit/form.h"

namespace rostermill::test {

/// The sample league, and an area for the forms that show it.
class ScreenTest : public testing::Test {
 protected:
  ~ScreenTest() override { EXPECT_EQ(DialogsStillExpected(), 0); }

  LeagueData& League() const { return LeagueOf(*session_); }

  std::unique_ptr<LeagueSession> session_ = SampleSession();
  ChildArea area_;
};

}  // namespace rostermill::test
