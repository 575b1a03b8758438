// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/system_information.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QScreen>
#include <QStandardPaths>
#include <QSysInfo>
#include <QThread>

#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"
#include "platform/paths.h"

namespace tessarine {
namespace {

QString LineOf(const char* path, const char* begin) {
  QFile file{QLatin1String(path)};
  if (!file.open(QIODevice::ReadOnly)) return {};
  for (const QByteArray& line : file.readAll().split('\n')) {
    if (line.startsWith(begin)) return QString::fromUtf8(line.mid(line.indexOf(':') + 1)).simplified();
  }
  return {};
}

QString InformationText() {
  QStringList lines = {
      Translated("System: %1").arg(QSysInfo::prettyProductName()),
      Translated("Kernel: %1").arg(QSysInfo::kernelType() + QLatin1Char(' ') + QSysInfo::kernelVersion()),
      Translated("Processor: %1, %2 at once")
          .arg(LineOf("/proc/cpuinfo", "model name"), QString::number(QThread::idealThreadCount())),
      Translated("Memory: %1, available %2")
          .arg(LineOf("/proc/meminfo", "MemTotal"), LineOf("/proc/meminfo", "MemAvailable")),
      QStringLiteral("Qt: ") + QLatin1String(qVersion()) + QStringLiteral(", ") + QGuiApplication::platformName()};
  for (const QScreen* screen : QGuiApplication::screens()) {
    lines << Translated("Screen: %1 x %2").arg(screen->size().width()).arg(screen->size().height());
  }
  return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

}  // namespace

std::string SystemInformationPath() {
  for (const char* program : {"hardinfo", "hardinfo2", "kinfocenter"}) {
    const QString path = QStandardPaths::findExecutable(QLatin1String(program));
    if (!path.isEmpty()) return FromNativePath(FromQt(path));
  }
  QFile file(QDir(QStandardPaths::writableLocation(QStandardPaths::TempLocation))
                 .filePath(QStringLiteral("tessarine-system-information.txt")));
  const QByteArray text = InformationText().toUtf8();
  if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) return "";
  return FromNativePath(FromQt(file.fileName()));
}

}  // namespace tessarine
