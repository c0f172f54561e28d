#include "core/menu_commands.h"

#include <algorithm>
#include <array>

#include "core/setting_commands.h"
#include "core/wall_size.h"
#include "files/import_drawing.h"
#include "files/print_window.h"
#include "maze/maze_commands.h"
#include "solve/placesandf.h"

namespace gridwright {

namespace {

struct Row {
  Item item;
  Command command;
};

constexpr auto kCommands = std::to_array<Row>({
    {Item::importdrawing, importdrawing},
    {Item::createreg, createreg},
    {Item::changewallsize, changewallsize},
    {Item::quit2, quit2},
    {Item::printfff, printfff},
    {Item::backtodrawing, backtodrawing},
    {Item::newmaze, newmaze},
    {Item::nrefresh, nrefresh},
    {Item::backtomaze, backtomaze},
    {Item::sandf, sandf},
    {Item::solvemaze, solvemaze},
    {Item::mpdrawing, mpdrawing},
    {Item::ugenerate, ugenerate},
    {Item::cgenerate, cgenerate},
    {Item::aon, aon},
    {Item::aoff, aoff},
    {Item::dontusepattern, dontusepattern},
    {Item::usepattern, usepattern},
    {Item::gofinish, gofinish},
    {Item::stopfinish, stopfinish},
});

}  // namespace

Command commandOf(Item item) {
  const auto* row =
      std::find_if(kCommands.begin(), kCommands.end(), [&](const Row& r) { return r.item == item; });
  return row == kCommands.end() ? nullptr : row->command;
}

}  // namespace gridwright
