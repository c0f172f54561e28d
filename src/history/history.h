// Undo and redo of the drawing, and of what is carved by hand.
//
// The rooms that paint know nothing of it. Before a person's input is handed on, and at the head of each pass
// of the drawing, it looks at what differs from the last look, in the picture and in a few values: that
// belongs to the input before. Inputs that go on with one another are one step, what a panel does is one from
// its opening to its closing, and what changes nothing is none. Changes that no person asked for, such as a
// square that a smaller window has driven away, belong to no step.
//
// Everything here does nothing while `program.history` is null.
#pragma once

#include <cstddef>

#include "state/key_codes.h"
#include "state/program.h"

namespace gridwright {

/// The steps of the drawing take no more bytes than that, nor do those of a carving; the oldest go.
inline constexpr std::size_t kHistoryBytes = std::size_t{64} << 20;

/// A drawing begins: nothing can be taken back. From then on it looks at each pass of the drawing.
void beginHistory(Program& program, std::size_t mostBytes = kHistoryBytes);

/// The drawing stands on the Canvas again after a maze, which is no step; a wall size or a kind that was
/// chosen meanwhile is one.
void comeBackToDrawing(Program& program);

/// A step begins: what a person does next has nothing to do with what was done before.
void beginStep(Program& program);

/// The same with every key; expects that the key was taken and is not handed on yet.
void noteKey(Program& program, int code, KeyGo go);

/// The same with every item; a few of them end what can be taken back of a carving.
void noteItem(Program& program, Item item);

/// The window has another size: a square that it drives away is nobody's step.
void noteResize(Program& program);

/// A drawing file is about to be loaded: its step holds all the values that such a file does, and the
/// patterns.
void noteLoad(Program& program);

/// A maze begins, or goes on after another phase: nothing carved before can be taken back.
void beginCarving(Program& program);

/// "Undo", "Redo". In the drawing one step: picture and values as they were, nothing painted. In a maze
/// carved by hand "Undo" takes back what the last arrow key that carved anything has carved, and puts the
/// walker where that key found it; no number is drawn. Nothing where there is no step.
void undo(Program& program);
void redo(Program& program);

/// How many steps can be taken back, and done again, in the drawing, and the bytes they take.
struct HistorySize {
  std::size_t toUndo = 0, toRedo = 0, bytes = 0;
};
HistorySize historySize(const Program& program);

}  // namespace gridwright
