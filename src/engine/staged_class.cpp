// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/staged_class.h"

#include "engine/package_index.h"
#include "engine/stamp.h"
#include "platform/fault.h"
#include "platform/work_aside.h"

namespace tessarine::engine {

StagedFeatureClass::StagedFeatureClass(std::unique_ptr<StagedOutput> staged, const std::string& layer,
                                       StagedOutput::Standing standing)
    : OgrFeatureClass(std::make_shared<OgrSource>(staged->Target().string(), staged->Path().string(), layer)),
      staged_(std::move(staged)),
      standing_(standing) {}

void StagedFeatureClass::Publish() {
  if (!staged_) Raise(kInvalidCall, "'" + Name() + "' was published or given up already.");
  const std::string layer = Source()->LayerName();
  const bool is_package = FormatFacts().store == FileStore::GeoPackage;
  Source()->Renew();
  if (is_package) {
    WorkAside([&] { IndexPackageLayer(staged_->Path(), layer); });
    StampGeoPackage(staged_->Path(), layer);
  }
  staged_->Publish(standing_);
  const auto published = std::make_shared<OgrSource>(staged_->Target().string(), layer, std::nullopt);
  staged_.reset();
  // Who has read what was there before must not go on with it.
  published->Renew();
  MoveTo(published);
}

void StagedFeatureClass::Discard() {
  if (!staged_) return;
  Source()->Renew();
  staged_.reset();
}

StagedGeodatabaseClass::StagedGeodatabaseClass(const std::string& geodatabase, const std::string& layer,
                                               std::shared_ptr<FileGdbEdit> edit)
    : OgrFeatureClass(std::make_shared<OgrSource>(geodatabase, layer, std::nullopt)), edit_(std::move(edit)) {}

StagedGeodatabaseClass::~StagedGeodatabaseClass() { Discard(); }

void StagedGeodatabaseClass::Publish() {
  if (!edit_) Raise(kInvalidCall, "'" + Name() + "' was published or given up already.");
  Source()->Renew();
  FileGdbEdit::End(edit_);
}

void StagedGeodatabaseClass::Discard() {
  if (!edit_) return;
  Source()->Renew();
  edit_->Abandon();
  edit_.reset();
}

}  // namespace tessarine::engine
