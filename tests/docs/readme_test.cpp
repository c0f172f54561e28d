// What the README names is there, and what is there the README names.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "state/menu_tree.h"

namespace gridwright::test {
namespace {

const std::filesystem::path kSource = GRIDWRIGHT_SOURCE;

/// The README with every run of blanks and line ends as one blank.
std::string readme() {
  std::ifstream in(kSource / "README.md");
  const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  std::string flat;
  for (const char c : text) {
    const bool blank = c == ' ' || c == '\n';
    if (!blank || flat.empty() || flat.back() != ' ') flat += blank ? ' ' : c;
  }
  return flat;
}

/// "(1)-Horizontal " as people say it: "Horizontal".
std::string plainCaption(std::string text) {
  if (text.size() > 4 && text[0] == '(' && text[2] == ')' && text[3] == '-') text.erase(0, 4);
  const auto first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool isWithin(Item item, Item title) {
  for (; item != Item::bar; item = rowOf(item).parent)
    if (item == title) return true;
  return false;
}

/// The lines under Instructions only tell keys, and the six levels are named as "1 to 6".
bool needsNoName(Item item, const std::string& caption) {
  const bool keyLine = isWithin(item, Item::help) && !hasChildren(item);
  return keyLine || isWithin(item, Item::fddf) || caption.size() < 2;
}

TEST(TheReadme, NamesEveryItemOfTheMenus) {
  const std::string text = readme();
  const MenuModel menus;
  for (std::size_t i = 0; i < kItemCount; ++i) {
    const std::string caption = plainCaption(std::string(menus.caption(itemAt(i))));
    if (needsNoName(itemAt(i), caption)) continue;
    const bool title = rowOf(itemAt(i)).parent == Item::bar;
    EXPECT_NE(text.find(title ? "**" + caption + ".**" : "*" + caption + "*"), std::string::npos) << caption;
  }
}

TEST(TheReadme, NamesEveryExample) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(kSource / "examples"))
    if (entry.path().extension() == ".txt") names.insert(entry.path().stem());
  EXPECT_EQ(names.size(), 9U);
  EXPECT_TRUE(names.contains("name"));
  std::string list;
  for (const std::string& name : names) {
    const bool last = name == *names.rbegin();
    list += (list.empty() ? "" : last ? " and " : ", ");
    list.append("`").append(name).append("`");
  }
  EXPECT_NE(readme().find("for any of " + list), std::string::npos) << list;
}

}  // namespace
}  // namespace gridwright::test
