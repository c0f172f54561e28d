#include "session/menu_commands.h"

#include <algorithm>
#include <array>

#include "colours/colour_editor.h"
#include "drawing/drawing_settings.h"
#include "drawings/drawing_files.h"
#include "drawings/import_drawing.h"
#include "drawings/last_picture.h"
#include "drawings/new_drawing.h"
#include "drawings/wall_size.h"
#include "history/history.h"
#include "maze/maze_settings.h"
#include "menus/keys_sheet.h"
#include "patterns/pattern_commands.h"
#include "patterns/pattern_editor.h"
#include "patterns/pattern_sets.h"
#include "patterns/random_patterns.h"
#include "patterns/random_size.h"
#include "printing/export_maze.h"
#include "printing/page.h"
#include "printing/page_setup.h"
#include "printing/print_job.h"
#include "printing/print_window.h"
#include "session/arrivals.h"
#include "session/book_panel.h"
#include "session/defaults.h"
#include "session/heard.h"
#include "session/maze_commands.h"
#include "session/prepare_panel.h"
#include "session/setting_commands.h"
#include "session/show_regions.h"
#include "session/workshop.h"
#include "solve/finish_methods.h"
#include "solve/placesandf.h"
#include "solve/play.h"
#include "solve/rfinish.h"

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
    {Item::resetsettings, resetsettings},
    {Item::srndpatterns, srndpatterns},
    {Item::usernd, usernd},
    {Item::maxrnd, maxrnd},
    {Item::sdrawing, sdrawing},
    {Item::ldrawing, ldrawing},
    {Item::choosew, choosew},
    {Item::selectcolor, selectcolor},
    {Item::resetcolors, resetcolors},
    {Item::printwithsolutions, printwithsolutions},
    {Item::printnosolutions, printnosolutions},
    {Item::stopallprintings, stopallprintings},
    {Item::editpatterns, editpatterns},
    {Item::rightpattern, rightpattern},
    {Item::uppattern, uppattern},
    {Item::downpattern, downpattern},
    {Item::exitpattern, exitpattern},
    {Item::crpattern, crpattern},
    {Item::resetpattern, resetpattern},
    {Item::resetpatterns, resetpatterns},
    {Item::makeidentical, makeidentical},
    {Item::savepatterns, savepatterns},
    {Item::loadpatterns, loadpatterns},
    {Item::crnd1, crnd1},
    {Item::userplace, userplace},
    {Item::mostunderpasses, mostunderpasses},
    {Item::includeunderpasses, includeunderpasses},
    {Item::largestsolution, largestsolution},
    {Item::leavetrail, leavetrail},
    {Item::playmodeoff, playmodeoff},
    {Item::hardmode, hardmode},
    {Item::easymode, easymode},
    {Item::pthin, pthin},
    {Item::pthick, pthick},
    {Item::plarge, plarge},
    {Item::pnormal, pnormal},
    {Item::mode6, mode6},
    {Item::mode5, mode5},
    {Item::mode4, mode4},
    {Item::mode3, mode3},
    {Item::mode2, mode2},
    {Item::mode1, mode1},
    {Item::rfinish, rfinish},
    {Item::way4, way4},
    {Item::vertical, vertical},
    {Item::horizontal, horizontal},
    {Item::turnsoff, turnsoff},
    {Item::drawingoff, drawingoff},
    {Item::drawingon, drawingon},
    {Item::create3dpipe, create3dpipe},
    {Item::create3d, create3d},
    {Item::mazes3d, mazes3d},
    {Item::mazes3d1, mazes3d1},
    {Item::rmazes, rmazes},
    {Item::newwallsize, newwallsize},
    {Item::openpicture, openpicture},
    {Item::pastepicture, pastepicture},
    {Item::lastpicture, lastpicture},
    {Item::workshop, workshop},
    {Item::preparepicture, preparepicture},
    {Item::whiteground, whiteground},
    {Item::pagesetup, pagesetup},
    {Item::printpreview, printpreview},
    {Item::exportmaze, exportmaze},
    {Item::copymaze, copymaze},
    {Item::makebook, makebook},
    {Item::showregions, showregions},
    {Item::undo, undo},
    {Item::redo, redo},
    {Item::markcolours, markcolours},
    {Item::statusline, statusline},
    {Item::wholescreen, wholescreen},
    {Item::showkeys, showkeys},
    {Item::surroundings, surroundings},
});

}  // namespace

Command commandOf(Item item) {
  const auto* row =
      std::find_if(kCommands.begin(), kCommands.end(), [&](const Row& r) { return r.item == item; });
  return row == kCommands.end() ? nullptr : row->command;
}

EntryCommand entryCommandOf(Item item) {
  if (item == Item::openrecent) return openRecent;
  return item == Item::openexample ? openExample : nullptr;
}

}  // namespace gridwright
