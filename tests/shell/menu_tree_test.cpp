#include "shell/menu_tree.h"

#include <QMenuBar>
#include <gtest/gtest.h>

#include <stdexcept>

namespace rostermill {
namespace {

// Would catch a mistyped name in the menu's table, which left an item out or dead without a word.
TEST(MenuTree, RefusesRowsWithoutParentNameOfTheirOwnOrHandler) {
  const auto nothing = [](int) {};
  const MenuRow menu{"mTest", "&Test", "", MenuRow::Kind::Menu};
  const MenuRow good{"mOne", "&One", "mTest", MenuRow::Kind::Command, nothing};
  const auto build = [&](const MenuRow& row) {
    QMenuBar bar;
    MenuTree tree;
    tree.Build(bar, {menu, good, row});
  };
  for (const auto& [row, fault] : {
           std::pair{MenuRow{"mTwo", "&Two", "mTset", MenuRow::Kind::Command, nothing},
                     "menu item mTwo: it names an unknown menu"},
           {MenuRow{"mTwo", "&Two", "mOne", MenuRow::Kind::Separator},
            "menu item mTwo: it names an unknown menu"},
           {MenuRow{"mTwo", "&Two", "", MenuRow::Kind::Command, nothing},
            "menu item mTwo: it names an unknown menu"},
           {MenuRow{"mOne", "&Two", "mTest", MenuRow::Kind::Command, nothing},
            "menu item mOne: the name is used twice"},
           {MenuRow{"mTwo", "&Two", "mTest"}, "menu item mTwo: it has no handler"},
       }) {
    try {
      build(row);
      ADD_FAILURE() << fault;
    } catch (const std::logic_error& error) {
      EXPECT_STREQ(error.what(), fault);
    }
  }
  QMenuBar bar;
  MenuTree tree;
  tree.Build(bar, {menu, good});
  EXPECT_EQ(tree.Item("mOne")->text(), "&One");
  EXPECT_THROW(tree.Item("mOen"), std::logic_error);
}

}  // namespace
}  // namespace rostermill
