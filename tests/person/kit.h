// The files that a made-up person has at hand: whole ones, broken ones, and names that no file bears.
#pragma once

#include <array>
#include <filesystem>
#include <string_view>

namespace gridwright::person {

/// What `makeKit` lays out, all of it.
inline constexpr auto kKitFiles = std::to_array<std::string_view>(
    {"room.bmp",    "halls.bmp",  "comb.bmp",    "tiny.bmp",   "wide.bmp",  "near.bmp",  "numbers.bmp",
     "paper.bmp",   "soft.png",   "cut.bmp",     "lying.bmp",  "words.bmp", "empty.bmp", "shape.svg",
     "torn.svg",    "cut.png",    "good.maze",   "good.bmp",   "cut.maze",  "far0.maze", "far1.maze",
     "far2.maze",   "far3.maze",  "words.maze",  "good.pat",   "cut.pat",   "turns.pat", "good.steps",
     "turns.steps", "long.steps", "words.steps", "empty.steps"});

/// Into an empty folder. What it writes is the same each time.
void makeKit(const std::filesystem::path& folder);

/// What a session finds in its folder to begin with: whole files and broken ones, and a folder, a pipe and
/// links that bear names of pictures.
void layOut(const std::filesystem::path& kit, const std::filesystem::path& folder);

}  // namespace gridwright::person
