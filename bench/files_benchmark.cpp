// Saving and loading a drawing of 1000 by 1000, against the system's own write and read of its bitmap
// (limit 3).
#include <benchmark/benchmark.h>

#include <QImage>
#include <QString>
#include <chrono>
#include <filesystem>
#include <memory>

#include "drawings/drawing_files.h"
#include "platform/headless/headless_desktop.h"
#include "platform/shared/image_files.h"
#include "session/title.h"
#include "state/program.h"

namespace gridwright::bench {
namespace {

struct Drawing {
  Drawing() : desktop("bench", "", HeadlessOptions{{1000, 1000}, {}, {}, {}}) {
    std::filesystem::create_directories(folder);
    program = std::make_unique<Program>(desktop, folder);
    program->canvas.resize({1000, 1000});
    paintTitle(*program);
    program->state.phase = Phase::drawing;
  }
  ~Drawing() { std::filesystem::remove_all(folder); }
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

  void save() {
    sdrawing(*program);
    program->controls.setText(ControlId::text1, "bench");
    saveEntered(*program);
  }
  void load() {
    ldrawing(*program);
    program->controls.setText(ControlId::Text4, "bench");
    loadEntered(*program);
  }

  std::filesystem::path folder = std::filesystem::temp_directory_path() / "gridwright-bench-files";
  HeadlessDesktop desktop;
  std::unique_ptr<Program> program;
};

void systemWrite(benchmark::State& state) {
  Drawing drawing;
  const QImage image = imageOf(drawing.program->canvas.image());
  const QString path = QString::fromStdString((drawing.folder / "system.bmp").string());
  for (auto _ : state) benchmark::DoNotOptimize(image.save(path, "BMP"));
}
void systemRead(benchmark::State& state) {
  Drawing drawing;
  const QString path = QString::fromStdString((drawing.folder / "system.bmp").string());
  imageOf(drawing.program->canvas.image()).save(path, "BMP");
  for (auto _ : state) benchmark::DoNotOptimize(QImage(path, "BMP"));
}
void saveDrawing(benchmark::State& state) {
  Drawing drawing;
  for (auto _ : state) drawing.save();
  if (!std::filesystem::exists(drawing.folder / "bench.maze")) state.SkipWithError("nothing was saved");
}
void loadDrawing(benchmark::State& state) {
  Drawing drawing;
  drawing.save();
  for (auto _ : state) drawing.load();
}
BENCHMARK(systemWrite)->Unit(benchmark::kMillisecond);
BENCHMARK(saveDrawing)->Unit(benchmark::kMillisecond);
BENCHMARK(systemRead)->Unit(benchmark::kMillisecond);
BENCHMARK(loadDrawing)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace gridwright::bench
