// The largest size of random patterns, and its panel.
#pragma once

#include "state/program.h"

namespace gridwright {

void srndpatterns(Program& program);  ///< "Change maximum size of random patterns"
void randomSizeEntered(Program& program);
void randomSizeEscaped(Program& program);

void maxrnd(Program& program);  ///< "Random patterns are allways size ..."
void usernd(Program& program);  ///< "Random patterns are any size from ..."

}  // namespace gridwright
