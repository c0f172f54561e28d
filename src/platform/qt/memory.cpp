#include "platform/qt/memory.h"

#include <QFile>
#include <QStandardPaths>
#include <system_error>

namespace gridwright {

namespace {

QString nameOf(std::string_view key) {
  return QString::fromLatin1(key.data(), static_cast<qsizetype>(key.size()));
}

}  // namespace

// A link is followed, since people keep their configuration in another place; a pipe would hold up the start.
Memory::Memory(const std::filesystem::path& file) {
  std::error_code failed;
  const auto type = std::filesystem::status(file, failed).type();
  if (type != std::filesystem::file_type::regular && type != std::filesystem::file_type::not_found) return;
  settings_ = std::make_unique<QSettings>(QFile::decodeName(file.c_str()), QSettings::IniFormat);
  if (settings_->status() == QSettings::FormatError) settings_->clear();
}

// A byte is a letter in there, whatever language a path is in.
std::string Memory::value(std::string_view key) const {
  return settings_ ? settings_->value(nameOf(key)).toString().toLatin1().toStdString() : std::string();
}

void Memory::put(std::string_view key, const std::string& value) {
  if (!settings_) return;
  if (value.empty()) {
    settings_->remove(nameOf(key));
  } else {
    settings_->setValue(nameOf(key), QString::fromLatin1(value.data(), static_cast<qsizetype>(value.size())));
  }
  settings_->sync();
}

std::filesystem::path memoryFile() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  return std::filesystem::path(QFile::encodeName(folder).toStdString()) / "gridwright" / "gridwright.conf";
}

}  // namespace gridwright
