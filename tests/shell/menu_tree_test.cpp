#include "shell/menu_tree.h"

#include <QMenuBar>
#include <gtest/gtest.h>

#include <stdexcept>

namespace rostermill::test {
namespace {

TEST(MenuTree, RefusesRowsWithoutParentNameOfTheirOwnOrHandler) {
  const auto nothing = [](int) {};
  const MenuRow menu{"mTest", "&Test", "", MenuRow::Kind::Menu};
  const MenuRow good{"mOne", "&One", "mTest", MenuRow::Kind::Command, nothing};
  using Kind = MenuRow::Kind;
  for (const auto& [row, fault] :
       {std::pair{MenuRow{"mTwo", "", "mTset", Kind::Command, nothing}, "it names an unknown menu"},
        {MenuRow{"mTwo", "", "mOne", Kind::Separator}, "it names an unknown menu"},
        {MenuRow{"mTwo", "", "", Kind::Command, nothing}, "it names an unknown menu"},
        {MenuRow{"mOne", "", "mTest", Kind::Command, nothing}, "the name is used twice"},
        {MenuRow{"mTwo", "", "mTest"}, "it has no handler"}}) {
    QMenuBar bar;
    try {
      MenuTree().Build(bar, {menu, good, row});
      ADD_FAILURE() << fault;
    } catch (const std::logic_error& error) {
      EXPECT_EQ(error.what(), "menu item " + row.Name.toStdString() + ": " + fault);
    }
  }
  QMenuBar bar;
  MenuTree tree;
  tree.Build(bar, {menu, good});
  EXPECT_EQ(tree.Item("mOne")->text(), "&One");
  EXPECT_THROW(tree.Item("mOen"), std::logic_error);
}

}  // namespace
}  // namespace rostermill::test
