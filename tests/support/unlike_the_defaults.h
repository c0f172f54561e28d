// A drawing none of whose settings is as it is at the start.
#pragma once

#include <cstddef>

#include "drawings/drawing_record.h"
#include "state/program.h"

namespace gridwright::test {

/// Settings unlike the defaults, each within its range, so that a value in the wrong place shows.
inline void unlikeTheDefaults(Program& p, MazeKind kind) {
  ProgramState& s = p.state;
  s.mazeKind = kind;
  s.wallWidth = s.wallHeight = 12;
  s.stepX = s.stepY = kind == MazeKind::pipe ? 24 : 12;
  s.cur = s.prev = {37, 49, 46, 58};
  s.start = {13, 13, 22, 22};
  s.finish = {85, 61, 94, 70};
  s.startColor = 32768;
  s.finishColor = 65280;
  s.drawColor = 8388608;
  s.backgroundDrawColor = 128;
  s.borderDrawColor = 255;
  s.difficultyLevel = 3;
  s.drawingOff = true;
  s.mazeColor = s.keptMazeColor = 16777215;
  s.playMode = s.chosenPlayMode = PlayMode::hard;
  s.finishMethod = FinishMethod::largest;
  s.trailOff = true;
  s.creationMode = CreationMode::computer;
  s.pathSize = 2;
  s.autoMinimize = true;
  s.symmetryMode = Symmetry::vertical;
  s.colours.individualMazeColors = true;
  s.stopAtFinish = true;
  s.randomPatterns.randomPatternSize = 17;
  s.randomPatterns.randomStepsDone = 4;
  s.randomPatterns.randomPatternMode = 5;
  s.randomPatterns.randomFlagLeft = s.randomPatterns.randomFlagUp = true;
  s.randomPatterns.randomSizeVaries = s.randomPatterns.randomUsesGo = true;
  s.mazeMadeOnce = true;
  p.controls.setValue(ControlId::Check3, 0);
  p.controls.setValue(ControlId::Check14, 1);
  for (int i = 0; i < kSlots; ++i) p.colours.setMaze(i, i % 2 == 0 ? 16777215 : 65535);
  p.canvas.setBackColor(255);
  for (std::size_t list = 0; list < 12; ++list) {
    const ListPlace place = listPlace(list);
    p.steps.write(place.kind, place.direction, Steps(list + 1, static_cast<int>(list % 5) + 1));
  }
}

}  // namespace gridwright::test
