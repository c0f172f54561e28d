#include "state/work_picture.h"

namespace gridwright {

void paintWorkPicture(Program& program, std::string_view name) {
  program.canvas.setAutoRedraw(true);
  program.canvas.paintPicture(program.pictures.load(name));
}

}  // namespace gridwright
