// Captions, visibility and check marks of the menu: what the phases and the running loops show.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Whether the menus stand as a running loop's last pass left them, for the same values: then its rules
/// have nothing to say. Otherwise `noteLoopRules` follows when they were applied.
bool loopRulesStand(const Program& program);
void noteLoopRules(Program& program);

/// Marks the one item of a group.
void markOne(MenuModel& menus, std::initializer_list<Item> group, Item marked);

/// Every full pass of `makemaze`: who creates, the key help of this phase, and the rules below.
void declaremenus1(Program& program);

/// The settings that only some kinds have, and the mark of the difficulty.
void mazemenus(Program& program);

/// Each solver pass: the key help of solving.
void keysmenu(Program& program);

/// Whether a run that was set up waits for a maze to be begun: the one on the Canvas, if there is one,
/// is past the moment at which it would be printed.
bool runWaitsForMaze(const ProgramState& state);

/// Whether a job has printed the maze in hand, and its answer is still to come.
bool answerIsDue(const ProgramState& state);

/// The print items while no job is set up, or the job's progress.
void printStatus(Program& program);
/// While `printTotal` is 0: the print items back to idle.
void printmenus(Program& program);

/// `create3dpipe`, `changewallsize`, `createreg`, `create3d` by `mazeMadeOnce` and kind; left alone
/// while a panel is open.
void showCreateItems(Program& program);

/// Ticks the create item of the kind.
void markKind(Program& program);

/// The marks of all settings by their values, as a pass of the drawing loop shows them.
void markSettings(Program& program);

/// The two captions that tell the size of random patterns.
void captionRandomSizes(Program& program);

/// Help titles: the one of the phase is enabled, the others are not.
void enableKeyHelp(Program& program, Item title);

/// Window captions by kind.
void captionDrawing(Program& program);
void captionMaking(Program& program);

}  // namespace gridwright
