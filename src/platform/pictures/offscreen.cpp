#include "platform/pictures/offscreen.h"

#include <fcntl.h>
#include <unistd.h>

#include <QGuiApplication>
#include <array>
#include <string>

namespace gridwright {

std::unique_ptr<QGuiApplication> applicationWithoutScreen(const char* name) {
  // Qt's remarks on a missing session are none of such a program's business.
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  static std::string called;  // Qt reads its arguments for as long as the application lives
  called = name;
  static std::array<char, 10> option{"-platform"};
  static std::array<char, 10> value{"offscreen"};
  static std::array<char*, 4> arguments{};
  arguments = {called.data(), option.data(), value.data(), nullptr};
  static int count = 3;
  count = 3;
  return std::make_unique<QGuiApplication>(count, arguments.data());
}

NobodyHears::NobodyHears() : kept_(::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0)) {
  const OpenFile nowhere(::open("/dev/null", O_WRONLY | O_CLOEXEC));
  if (kept_ && nowhere) ::dup2(nowhere.descriptor(), STDERR_FILENO);
}

NobodyHears::~NobodyHears() {
  if (kept_) ::dup2(kept_.descriptor(), STDERR_FILENO);
}

}  // namespace gridwright
