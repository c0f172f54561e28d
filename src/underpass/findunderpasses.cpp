#include "underpass/findunderpasses.h"

#include <array>
#include <optional>

#include "underpass/tunnel_search.h"

namespace gridwright {

namespace {

/// The real maze: colour sets, whole cells, and the probe's leading edge.
class MazeGround {
 public:
  static constexpr bool endsAtCrossings = true;

  explicit MazeGround(Program& program)
      : program_(program), s_(program.state), u_(program.state.underpass), pixels_(program.pixels()) {}

  [[nodiscard]] bool maze(int x, int y) const { return pixels_.maze(x, y); }
  [[nodiscard]] bool free(int x, int y) const { return pixels_.free(x, y); }
  [[nodiscard]] int margin() const { return s_.shortUnderpasses ? 0 : 1; }
  [[nodiscard]] Position past(int n) const {
    return {u_.probeLeadX + n * s_.deltaX, u_.probeLeadY + n * s_.deltaY};
  }

  /// All four cells around the one past the probe are closed. These scans have no margin.
  [[nodiscard]] bool trapPastProbe() const {
    const int w = s_.wallWidth;
    const int h = s_.wallHeight;
    const Square cell = u_.probe.moved(s_.deltaX, s_.deltaY);
    struct Neighbour {
      int dx, dy;  // from the cell
      int x, y;    // its probe pixel
    };
    const int x = u_.probe.left + s_.deltaX;
    const Position lead = past(1);
    const std::array<Neighbour, 4> around = {{{-w, 0, x - w, lead.y},
                                              {w, 0, x + w, lead.y},
                                              {0, -h, lead.x, u_.probe.top + s_.deltaY - h},
                                              {0, h, lead.x, u_.probe.bottom + s_.deltaY + h}}};
    for (const Neighbour& n : around) {
      if (!firstNotFree(cell.moved(n.dx, n.dy), 0) && !pixels_.closed(n.x, n.y)) return false;
    }
    return true;
  }

  [[nodiscard]] bool probeScanPasses() const { return !firstNotFree(u_.probe, margin()); }
  void moveProbe() { putProbe(s_, u_.probe.moved(s_.deltaX, s_.deltaY)); }

  [[nodiscard]] bool stoppedByBorder() const {
    const auto stopped = firstNotFree(u_.probe, margin());
    return (stopped && program_.colours.isNoGround(*stopped)) || pixels_.border(u_.probe.left, u_.probe.top);
  }
  [[nodiscard]] bool nextIsGround() const {
    const Position next = past(1);
    return free(next.x, next.y) && !firstNotFree(u_.probe.moved(s_.deltaX, s_.deltaY), margin());
  }

 private:
  /// The first pixel that is not free in the square widened by 1 and the margin, at a stride of as
  /// much; nothing when the scan passes.
  [[nodiscard]] std::optional<Colour> firstNotFree(const Square& square, int margin) const {
    if (!s_.mazeMadeOnce) return std::nullopt;
    const int stride = 1 + margin;
    if (stride == 1 &&
        pixels_.allFree(square.left - 1, square.top - 1, square.right + 1, square.bottom + 1)) {
      return std::nullopt;
    }
    for (int y = square.top - stride; y <= square.bottom + stride; y += stride) {
      for (int x = square.left - stride; x <= square.right + stride; x += stride) {
        const Colour pixel = pixels_.at(x, y);
        if (!program_.colours.isFree(pixel)) return pixel;
      }
    }
    return std::nullopt;
  }

  Program& program_;
  ProgramState& s_;
  UnderpassState& u_;
  Pixels pixels_;
};

}  // namespace

void putProbe(ProgramState& state, const Square& square) {
  UnderpassState& u = state.underpass;
  u.probe = square;
  u.probeLeadX = state.deltaX > 0 ? square.right : square.left;
  u.probeLeadY = state.deltaY > 0 ? square.bottom : square.top;
}

void findunderpasses(Program& program) {
  MazeGround ground(program);
  TunnelSearch(program, ground).run();
}

}  // namespace gridwright
