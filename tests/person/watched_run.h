// A session in a process of its own, so that one that crashes or hangs is told of like any other.
#pragma once

#include <filesystem>
#include <string>

#include "person/shorter.h"
#include "person/sitting.h"

namespace gridwright::person {

/// Runs it over a ground that is laid out anew.
/// \param patience seconds that one deed may take.
/// \returns its story; the fault of one that was brought down is the name of the signal, behind a colon the
///   line that it came in.
Story watchedRun(const Ground& ground, const Deeds& deeds, unsigned patience);

/// What two faults have in common when they are one: all before the colon.
std::string kindOf(const std::string& fault);

}  // namespace gridwright::person
