// The four patterns of one kind, kept under a name and loaded again.
#pragma once

#include <array>
#include <string>

#include "state/program.h"

namespace gridwright {

void savepatterns(Program& program);  ///< "Save pattern"
void saveSetEntered(Program& program);
void saveSetEscaped(Program& program);

void loadpatterns(Program& program);  ///< "Load pattern"
void loadSetEntered(Program& program);
void loadSetEscaped(Program& program);

/// Loads the set of this base name in the present kind; a message says when it cannot be.
void loadSet(Program& program, const std::string& base);

/// Left, right, up, down.
using PatternSet = std::array<Steps, 4>;

std::string formatSet(const PatternSet& set);

/// A malformed Fault when a value is no number or no step, or a list does not even begin.
Outcome<PatternSet> parseSet(std::string_view text);

/// The ending of a kind's set files: ".pat", ".3d-pat", ".3d-pipe-pat".
std::string_view setEnding(MazeKind kind);

}  // namespace gridwright
