// How many mazes a book has, and in which pictures.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/book/book_record.h"

namespace gridwright::book {

/// How many mazes a plan asks for with so many pictures; one more than a book may have stands for all beyond.
int mazesAsked(const BookPlan& plan, std::size_t pictures);

/// What is against so many pictures, in one line: there would be too many mazes. Nothing where there would
/// not.
std::optional<std::string> whyTooMany(const BookPlan& plan, std::size_t pictures);

/// Which picture is the one of maze `index`, from 0: with `--total` the pictures take turns, else all mazes
/// of one come before those of the next.
std::size_t pictureOf(const BookPlan& plan, std::size_t pictures, int index);

}  // namespace gridwright::book
