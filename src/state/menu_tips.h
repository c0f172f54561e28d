// Words that help with a menu item, shown beside it. The captions themselves never change.
//
// Where a drawing begins, drawing is turned off before the colour changes: a changed colour is painted at
// once where the square stands, and such a blot is a region of its own, which may get the start.
#pragma once

#include <array>
#include <string_view>

#include "state/menu_tree.h"

namespace gridwright {

struct MenuTip {
  Item item;
  std::string_view words;
};

inline constexpr auto kMenuTips = std::to_array<MenuTip>({
    {Item::openpicture, "a picture of any format, or a drawing, from any folder"},
    {Item::pastepicture, "the picture that another program has copied"},
    {Item::lastpicture, "what the drawing before this one left; choose it again to change back"},
    {Item::workshop, "words, shapes, stamps and the mouse, on a sheet that becomes the drawing"},
    {Item::preparepicture, "few colours, clear outlines and white paper for what is on the Canvas"},
    {Item::showregions, "the regions of this drawing in colours, and how many cells they have"},
    {Item::whiteground, "pages without the ground round the picture, which prints white"},
    {Item::pagesetup,
     "paper and margins; a title, a line for a name, and the words Start and Finish; a poster of several "
     "sheets"},
    {Item::printpreview, "the page that the window would be"},
    {Item::exportmaze, "this picture as a PNG, SVG or PDF, with its answer or without"},
    {Item::copymaze, "this picture for another program, to paste into a letter or a worksheet"},
    {Item::makebook, "many mazes and their answers in one PDF, from pictures, names and this drawing"},
    {Item::undo, "takes back what was done last"},
    {Item::redo, "does again what was taken back last"},
    {Item::markcolours, "a letter on each of the sixteen colours, and shapes on start and finish"},
    {Item::statusline, "the line under the picture"},
    {Item::wholescreen, "the window as large as the screen, and back"},
    {Item::showkeys, "the keys of this phase and what they do"},
    {Item::surroundings, "a screen reader says where you are and what lies round the square"},
    {Item::importdrawing, "a bitmap from this folder becomes the drawing"},
    {Item::rmazes, "an empty drawing; press / and then ., move to where you begin, press / again"},
    {Item::mazes3d1, "an empty drawing for mazes that pass under themselves; to draw, press / and then ."},
    {Item::mazes3d, "an empty drawing for mazes of pipes; to draw, press / and then ."},
    {Item::newwallsize, "an empty drawing with paths of another width"},
    {Item::sdrawing, "keeps the drawing, its colours, settings and patterns under a name"},
    {Item::ldrawing, "gets a kept drawing back"},
    {Item::createreg, "starts the maze; first draw a ground for it: press / and then ."},
    {Item::create3d, "switches to 3d-mazes; choose it again to start the maze"},
    {Item::create3dpipe, "switches to 3d-pipe-mazes; choose it again to start the maze"},
    {Item::changewallsize, "paths and walls of another width, 5 to 50 pixels"},
    {Item::choosew, "says which colours the maze may fill, and in which colour it does"},
    {Item::selectcolor, "the colour to draw with"},
    {Item::resetcolors, "every colour as at the start"},
    {Item::drawingoff, "the square moves without a trace"},
    {Item::horizontal, "left and right mirror each other, at the same height"},
    {Item::vertical, "above and below mirror each other, in the same columns"},
    {Item::quit2, "back to the title; the drawing is kept: File, Last picture"},
    {Item::printfff, "one page: the window as it is"},
    {Item::printwithsolutions, "two pages a maze: without and with its answer"},
    {Item::printnosolutions, "one page a maze"},
    {Item::stopallprintings, "the maze in hand goes on as an ordinary one"},
    {Item::backtodrawing, "the drawing without its maze"},
    {Item::newmaze, "another maze in the same picture"},
    {Item::nrefresh, "another maze, without the one that was made part of every maze"},
    {Item::backtomaze, "goes on with the maze where it stopped"},
    {Item::sandf, "ends the maze here; then move start and finish"},
    {Item::rfinish, "start and finish are found anew"},
    {Item::solvemaze, "the answer, or your turn when a play option is on"},
    {Item::mpdrawing, "every new maze begins with what is carved now"},
    {Item::ugenerate, "arrow keys carve; J hands over to the computer"},
    {Item::cgenerate, "the computer carves; J hands over to you"},
    {Item::easymode, "you solve it with the arrow keys"},
    {Item::hardmode, "you solve it; a step back throws you to the start"},
    {Item::leavetrail, "shows the way you came"},
    {Item::userplace, "move the finish with the arrow keys"},
    {Item::largestsolution, "the finish goes where the way is longest"},
    {Item::includeunderpasses, "the longest way, cells under corridors counted"},
    {Item::mostunderpasses, "the way with the most underpasses"},
    {Item::pthick, "for the next maze"},
    {Item::pthin, "for the next maze"},
    {Item::aon, "the window is minimized while the computer works"},
    {Item::dontusepattern, "single steps by chance"},
    {Item::usepattern, "steps as the four patterns say"},
    {Item::crnd1, "a fresh pattern by chance before each maze"},
    {Item::srndpatterns, "2 to 99 squares"},
    {Item::stopfinish, "ends the maze when both squares are reached"},
    {Item::editpatterns, "the steps that the walker takes when it turns left"},
    {Item::rightpattern, "the steps that the walker takes when it turns right"},
    {Item::uppattern, "the steps that the walker takes when it turns up"},
    {Item::downpattern, "the steps that the walker takes when it turns down"},
    {Item::crpattern, "a pattern by chance in place of this one"},
    {Item::resetpattern, "this pattern is one plain step again"},
    {Item::resetpatterns, "all four patterns are one plain step again"},
    {Item::makeidentical, "the other three become turned copies of this one"},
    {Item::savepatterns, "keeps the four patterns under a name"},
    {Item::loadpatterns, "gets four kept patterns back"},
    {Item::exitpattern, "back to the picture"},
});

}  // namespace gridwright
