// The keys of each phase and what they do: the one table that keys are let through by, that a person is
// shown, and that the tests drive. A key without a row does nothing.
#pragma once

#include <array>
#include <string_view>

#include "state/key_codes.h"
#include "state/modes.h"

namespace gridwright {

struct PhaseKeys {
  Phase phase;
  std::array<int, 4> codes;  ///< Key codes; 0 behind the last.
  std::string_view words;    ///< What they do, in their order.
};

inline constexpr auto kPhaseKeys = std::to_array<PhaseKeys>({
    {Phase::title, {key::escape}, "back to the title"},
    {Phase::title, {key::space}, "the next slide"},
    {Phase::patternEditing, {key::left, key::right, key::up, key::down}, "draw the next step"},
    {Phase::patternEditing, {key::G}, "walk back over the pattern"},
    {Phase::drawing, {key::J, key::L, key::I, key::K}, "move the square one cell left, right, up, down"},
    {Phase::drawing, {key::left, key::right, key::up, key::down}, "move it by its own size"},
    {Phase::drawing, {key::W, key::S, key::A, key::D}, "grow it up, down, left, right"},
    {Phase::drawing, {key::T, key::G, key::F, key::H}, "shrink it from below, above, the right, the left"},
    {Phase::drawing, {key::C}, "paint the square and jump to the centre"},
    {Phase::drawing, {key::Z, key::X}, "previous, next colour of those you draw with"},
    {Phase::drawing, {key::comma, key::period}, "draw with border colours, with background colours"},
    {Phase::drawing, {key::slash}, "drawing on or off"},
    {Phase::drawing, {key::N, key::M}, "fill a screen of one colour with the previous, next border colour"},
    {Phase::drawing, {key::quote}, "make corridors in the colour you draw with"},
    {Phase::making, {key::J}, "let the computer carve, or carve yourself"},
    {Phase::making, {key::left, key::right, key::up, key::down}, "carve, while you carve yourself"},
    {Phase::making, {key::G}, "walk back over what is carved"},
    {Phase::placing, {key::J, key::L, key::I, key::K}, "move the start left, right, up, down"},
    {Phase::placing, {key::left, key::right, key::up, key::down}, "move the finish"},
    {Phase::placing, {key::Z, key::X}, "change the start's colour"},
    {Phase::placing, {key::N, key::M}, "change the finish's colour"},
    {Phase::solving, {key::left, key::right, key::up, key::down}, "move through the maze, with play on"},
});

/// Whether the key has a row in the phase.
bool isKeyOf(Phase phase, int code);

/// What stands on the key.
std::string_view capOf(int code);

}  // namespace gridwright
