// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/spheroid_book.h"

#include <qgsellipsoidutils.h>
#include <qgsmessagelog.h>
#include <qgsprocessingfeedback.h>

#include <QDateTime>
#include <QFileInfo>
#include <chrono>
#include <map>
#include <mutex>

#include "hosts/document/spheroid_names.h"
#include "hosts/qgis/processing/run_host.h"
#include "hosts/qgis/values.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"
#include "platform/fault.h"
#include "platform/paths.h"
#include "platform/thread_host.h"

namespace tessarine::qgis {
namespace {

using std::chrono::steady_clock;

constexpr auto kLookInterval = std::chrono::seconds(1);

// What the program takes for an ellipsoid.
std::optional<NamedSpheroid> EllipsoidOfProgram(const QString& text) {
  if (text.isEmpty() || text == QStringLiteral("NONE")) return std::nullopt;
  const QgsEllipsoidUtils::EllipsoidParameters known = QgsEllipsoidUtils::ellipsoidParameters(text);
  NamedSpheroid spheroid{FromQt(text), 0, known.semiMajor, known.semiMinor};
  return known.valid && WhyUnusable(spheroid).empty() ? std::optional(std::move(spheroid)) : std::nullopt;
}

/// What was read of the catalogue, and what was found in it.
class Book {
 public:
  [[nodiscard]] std::vector<NamedSpheroid> Spheroids() {
    const std::lock_guard lock(mutex_);
    Refresh();
    return spheroids_;
  }

  [[nodiscard]] NamedSpheroid Find(const QString& text) {
    const std::lock_guard lock(mutex_);
    Refresh();
    const auto known = found_.find(text);
    if (known != found_.end()) return known->second;
    return found_.emplace(text, Search(text)).first->second;
  }

 private:
  void Refresh() {
    const auto now = steady_clock::now();
    if (looked_ && now - *looked_ < kLookInterval) return;
    QgsProcessingFeedback silent(false);
    RunHost host(silent);
    const ThreadHostScope scope(host);
    const auto catalog = SpheroidCatalog();
    const QFileInfo file(ToQt(ToNativePath(catalog->CustomFile())));
    const QDateTime written = file.exists() ? file.lastModified() : QDateTime();
    if (!looked_ || written != written_) Read(*catalog);
    written_ = written;
    looked_ = now;
  }

  void Read(const ISpheroidCatalog& catalog) {
    spheroids_.clear();
    found_.clear();
    for (const SpheroidList list : kSpheroidLists) {
      try {
        for (NamedSpheroid& spheroid : catalog.Spheroids(list)) spheroids_.push_back(std::move(spheroid));
      } catch (const Fault& fault) {
        QgsMessageLog::logMessage(Translated(LinesToQt(fault.Description())), QStringLiteral("Tessarine"),
                                  Qgis::Warning);
      }
    }
  }

  [[nodiscard]] NamedSpheroid Search(const QString& text) const {
    const std::string name = FromQt(text);
    for (const NamedSpheroid& spheroid : spheroids_) {
      if (!IsCalled(spheroid, name)) continue;
      if (const std::string why = WhyUnusable(spheroid); !why.empty()) Raise(kInvalidCall, why);
      return spheroid;
    }
    if (const auto known = EllipsoidOfProgram(text)) return *known;
    Raise(kInvalidCall, "there is no spheroid '" + name + "'." + NearSpheroidsText(name, spheroids_));
  }

  std::mutex mutex_;
  std::optional<steady_clock::time_point> looked_;
  QDateTime written_;
  std::vector<NamedSpheroid> spheroids_;
  std::map<QString, NamedSpheroid> found_;
};

Book& TheBook() {
  static Book book;
  return book;
}

}  // namespace

std::vector<NamedSpheroid> SpheroidsOfCatalog() {
  std::vector<NamedSpheroid> usable = TheBook().Spheroids();
  std::erase_if(usable, [](const NamedSpheroid& spheroid) { return !WhyUnusable(spheroid).empty(); });
  return usable;
}

NamedSpheroid SpheroidCalled(const QString& text) { return TheBook().Find(text.trimmed()); }

std::optional<NamedSpheroid> SpheroidOfSetting(const QString& ellipsoid) {
  const std::optional<NamedSpheroid> set = EllipsoidOfProgram(ellipsoid);
  return set ? std::optional(TheBook().Find(ellipsoid)) : std::nullopt;
}

std::optional<NamedSpheroid> SpheroidOf(const QgsCoordinateReferenceSystem& system) {
  const auto geographic = GeographicOf(ReferenceOf(system));
  if (!geographic || !geographic->Datum() || !geographic->Datum()->Spheroid()) return std::nullopt;
  const Spheroid& own = *geographic->Datum()->Spheroid();
  NamedSpheroid spheroid{own.Name(), 0, own.SemiMajorAxis(), own.SemiMinorAxis()};
  return WhyUnusable(spheroid).empty() ? std::optional(std::move(spheroid)) : std::nullopt;
}

}  // namespace tessarine::qgis
