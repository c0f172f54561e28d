// What a person does who tries everything: the next line of a script, made up from what stands on the window.
#pragma once

#include <string>

#include "person/choices.h"
#include "state/program.h"

namespace gridwright::person {

/// A line of the headless twin's language. Most can be done just now; a few are refused, as by a person who
/// presses where nothing is.
std::string nextDeed(const Program& program, Choices& choices);

/// The same in the workshop: tools, words, stamps, pictures and its pages.
std::string workshopDeed(const Program& program, Choices& choices);

/// Another program changes the folder: a file of the kit comes, under any name, or one goes.
std::string fileDeed(Choices& choices);

/// A picture, a drawing or something else comes from outside.
std::string arrivalDeed(Choices& choices);

}  // namespace gridwright::person
