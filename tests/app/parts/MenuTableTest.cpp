#include "app/parts/MenuTable.h"

#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <set>

namespace lobegraph {
namespace {

using enum Control;

TEST(MenuTable, EveryButtonAndBoxOfThePanelIsInReachWhileThePanelIsHidden) {
  std::multiset<Control> offered;
  for (const MenuRow& row : MenuTable())
    if (row.Id) offered.insert(*row.Id);
  for (const ControlRow& row : ControlTable()) {
    const bool onThePlotOnly = row.Id == cmdClearLeftY || row.Id == cmdClearRightY;
    const bool presses = row.Kind == ControlKind::Button || row.Kind == ControlKind::CheckBox;
    EXPECT_EQ(offered.count(row.Id), presses && !onThePlotOnly ? 1U : 0U) << row.Name;
  }
}

TEST(MenuTable, KeysAreDistinct) {
  std::set<std::string_view> keys;
  for (const MenuRow& row : MenuTable())
    if (!row.Keys.empty()) {
      EXPECT_TRUE(keys.insert(row.Keys).second) << row.Keys;
    }
}

TEST(MenuTable, NoTitleTakesALetterOfAButton) {
  std::set<int> letters;
  for (const ControlRow& row : ControlTable())
    if (const auto mark = row.Caption.find('&'); mark != std::string_view::npos)
      letters.insert(std::tolower(row.Caption[mark + 1]));
  for (const MenuRow& row : MenuTable())
    if (const auto mark = row.Menu.find('&'); mark != std::string_view::npos) {
      EXPECT_FALSE(letters.contains(std::tolower(row.Menu[mark + 1]))) << row.Menu;
    }
}

TEST(MenuTable, EachCommandStandsThereOnceWithACaption) {
  std::map<MenuCommand, int> found;
  for (const MenuRow& row : MenuTable()) {
    if (row.Id || row.Command == MenuCommand::None) continue;
    ++found[row.Command];
    EXPECT_FALSE(row.Caption.empty());
  }
  EXPECT_EQ(found.size(), static_cast<std::size_t>(MenuCommand::About)) << "all but None";
  for (const auto& [command, count] : found) EXPECT_EQ(count, 1);
}

TEST(MenuTable, TheStandardKeysDoWhatTheyDoEverywhere) {
  std::map<std::string_view, std::string_view> names;
  for (const MenuRow& row : MenuTable())
    if (!row.Keys.empty()) names[row.Keys] = row.Id ? RowOf(*row.Id).Name : row.Caption;
  EXPECT_EQ(names["Ctrl+O"], "cmdGetData");
  EXPECT_EQ(names["Ctrl+S"], "cmdSaveData");
  EXPECT_EQ(names["Ctrl+P"], "cmdPrint");
  EXPECT_EQ(names["Ctrl+Q"], "cmdExit");
  EXPECT_EQ(names["Ctrl+Z"], "Undo");
  EXPECT_EQ(names["Ctrl+C"], "Copy picture");
  EXPECT_EQ(names["F1"], "Guide");
  EXPECT_EQ(names["F4"], "Figures");
  EXPECT_EQ(names["F11"], "Full screen");
}

}  // namespace
}  // namespace lobegraph
