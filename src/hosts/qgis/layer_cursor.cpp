// SPDX-License-Identifier: GPL-2.0-or-later
// Cursors over layers.
//
// Rows to be written come in batches that are read whole before one of them is written: many databases refuse to write
// while a reader is half done.
#include <qgsexpression.h>
#include <qgsfeatureiterator.h>
#include <qgsfeaturerequest.h>
#include <qgsvectordataprovider.h>

#include <algorithm>
#include <chrono>
#include <map>

#include "engine/data_source.h"
#include "hosts/qgis/layer_class.h"
#include "hosts/qgis/layer_row.h"
#include "hosts/qgis/values.h"
#include "hosts/windows/qt_text.h"
#include "platform/fault.h"
#include "platform/run_stop.h"

namespace tessarine::qgis {
namespace {

// The program itself takes a condition that can't be read for one that no row meets.
QString CheckedCondition(const std::string& condition, const QgsVectorLayer& layer) {
  const QgsExpression expression(ToQt(condition));
  QString problem = expression.parserErrorString();
  for (const QString& name : expression.referencedColumns()) {
    if (name != QgsFeatureRequest::ALL_ATTRIBUTES && layer.fields().lookupField(name) < 0) {
      problem = QStringLiteral("there is no field '%1'").arg(name);
    }
  }
  if (!problem.isEmpty()) {
    Raise(kInvalidCall, "The condition '" + condition + "' can't be used for the layer '" + FromQt(layer.name()) +
                            "': " + FromQt(problem.simplified()));
  }
  return expression.expression();
}

QgsFeatureRequest RequestOf(const QueryFilter* filter, const QgsVectorLayer& layer) {
  QgsFeatureRequest request;
  if (filter == nullptr) return request;
  if (!filter->WhereClause.empty()) request.setFilterExpression(CheckedCondition(filter->WhereClause, layer));
  if (!filter->SubFields.empty()) {
    QStringList names;
    for (const QString& name : ToQt(filter->SubFields).split(',', Qt::SkipEmptyParts)) names << name.trimmed();
    request.setSubsetOfAttributes(names, layer.fields());
  }
  if (filter->Geometry) request.setFilterRect(RectangleOf(filter->Geometry->Envelope()));
  return request;
}

class RowFeed {
 public:
  virtual ~RowFeed() = default;
  [[nodiscard]] virtual bool Next(QgsFeature& feature) = 0;
};

/// All rows as the layer delivers them.
class WholeFeed final : public RowFeed {
 public:
  WholeFeed(QgsVectorLayer& layer, const QgsFeatureRequest& request) : rows_(layer.getFeatures(request)) {
    // While a layer is edited its rows come from the layer, and what the iterator says is of the provider's.
    if (!layer.isEditable() && !rows_.isValid())
      Raise(kEngine, "The rows of the layer '" + FromQt(layer.name()) + "' can't be read.");
  }
  [[nodiscard]] bool Next(QgsFeature& feature) override { return rows_.nextFeature(feature); }

 private:
  QgsFeatureIterator rows_;
};

/// The rows of these identifiers, in this order. Rows that are gone are left out.
class ChosenFeed final : public RowFeed {
 public:
  ChosenFeed(std::shared_ptr<LayerClass> owner, std::vector<QgsFeatureId> oids, const QgsFeatureRequest& request,
             std::size_t batch_size)
      : owner_(std::move(owner)), oids_(std::move(oids)), request_(request), batch_size_(batch_size) {}

  [[nodiscard]] bool Next(QgsFeature& feature) override {
    while (next_ < oids_.size()) {
      if (next_ == read_) ReadBatch();
      const auto found = batch_.find(oids_[next_++]);
      if (found == batch_.end()) continue;
      feature = found->second;
      return true;
    }
    return false;
  }

 private:
  void ReadBatch() {
    batch_.clear();
    QgsFeatureIds wanted;
    for (; read_ < oids_.size() && read_ < next_ + batch_size_; ++read_) wanted.insert(oids_[read_]);
    request_.setFilterFids(wanted);
    QgsFeatureIterator rows = owner_->Layer().getFeatures(request_);
    for (QgsFeature feature; rows.nextFeature(feature);) batch_.emplace(feature.id(), feature);
  }

  std::shared_ptr<LayerClass> owner_;
  std::vector<QgsFeatureId> oids_;
  QgsFeatureRequest request_;
  std::size_t batch_size_;
  std::map<QgsFeatureId, QgsFeature> batch_;
  std::size_t next_ = 0, read_ = 0;
};

class LayerCursor : public IFeatureCursor {
 public:
  LayerCursor(std::shared_ptr<LayerClass> owner, std::unique_ptr<RowFeed> feed, const QueryFilter* filter,
              Recycling recycling)
      : owner_(std::move(owner)),
        traits_(owner_->Traits()),
        feed_(std::move(feed)),
        region_(filter != nullptr ? filter->Geometry : nullptr),
        recycling_(recycling) {}

  [[nodiscard]] std::shared_ptr<IFeature> NextFeature() override {
    QgsFeature feature;
    while (feed_ && feed_->Next(feature)) {
      if (!Matches(feature)) continue;
      if (recycling_ == Recycling::Yes && recycled_) {
        recycled_->Refill(feature);
        return recycled_;
      }
      auto row = std::make_shared<LayerRow>(traits_, feature, owner_);
      if (recycling_ == Recycling::Yes) recycled_ = row;
      return row;
    }
    return nullptr;
  }
  [[nodiscard]] std::shared_ptr<IRow> NextRow() override { return NextFeature(); }
  void UpdateFeature(const std::shared_ptr<IFeature>& feature) override { UpdateRow(feature); }
  void UpdateRow(const std::shared_ptr<IRow>&) override { Raise(kInvalidCall, "This cursor only reads rows."); }
  std::int64_t InsertFeature(const IFeatureBuffer& buffer) override { return InsertRow(buffer); }
  std::int64_t InsertRow(const IRowBuffer&) override { Raise(kInvalidCall, "This cursor can't insert rows."); }
  void Flush() override {}
  void Close() override {
    Flush();
    feed_ = nullptr;
  }

 protected:
  [[nodiscard]] LayerClass& Owner() const { return *owner_; }

 private:
  [[nodiscard]] bool Matches(const QgsFeature& feature) const {
    if (!region_) return true;
    const GeometryRef shape = ShapeOf(feature.geometry(), traits_->shape_type, traits_->reference);
    return shape && !shape->IsEmpty() && !dynamic_cast<const IRelationalOperator&>(*region_).Disjoint(*shape);
  }

  std::shared_ptr<LayerClass> owner_;
  std::shared_ptr<const LayerTraits> traits_;
  std::unique_ptr<RowFeed> feed_;
  GeometryRef region_;
  Recycling recycling_;
  std::shared_ptr<LayerRow> recycled_;
};

/// How many rows are written together: as many as the provider takes in a small part of a second, so that the program's
/// windows have their turn in between; and no more than `most`.
class PacedBatch {
 public:
  explicit PacedBatch(std::size_t most) : most_(most), size_(std::min(most, kFirst)) {}

  [[nodiscard]] std::size_t Size() const { return size_; }

  /// Writes so many rows, and learns from how long it takes.
  template <class Write>
  void Time(std::size_t count, Write&& write) {
    const auto begin = std::chrono::steady_clock::now();
    std::forward<Write>(write)();
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    // What is left at the end tells little.
    if (count < size_) return;
    const double fitting = static_cast<double>(count) * std::clamp(kTurn / took, 0.25, 2.0);
    size_ = std::clamp(static_cast<std::size_t>(fitting), std::min(kLeast, most_), most_);
  }

 private:
  static constexpr std::size_t kFirst = 200, kLeast = 20;
  static constexpr std::chrono::duration<double> kTurn{0.06};

  std::size_t most_, size_;
};

/// Writes back what was set in the rows, a batch at a time.
class WritingCursor final : public LayerCursor {
 public:
  WritingCursor(std::shared_ptr<LayerClass> owner, std::unique_ptr<RowFeed> feed, const QueryFilter* filter,
                Recycling recycling, std::size_t most_at_once)
      : LayerCursor(std::move(owner), std::move(feed), filter, recycling),
        provider_(Provider()),
        selected_(Owner().Layer().selectedFeatureIds()),
        batch_(most_at_once) {
    if (provider_) provider_->enterUpdateMode();
  }
  ~WritingCursor() override {
    if (provider_) provider_->leaveUpdateMode();
  }

  void UpdateRow(const std::shared_ptr<IRow>& row) override {
    const auto own = Cast<LayerRow>(row);
    if (!own) Raise(kInvalidCall, "A row of another source can't be written to this layer.");
    own->AddChanges(changes_);
    if (ChangeCount() >= batch_.Size()) Flush();
  }

  void Flush() override {
    batch_.Time(ChangeCount(), [&] { Owner().Change(changes_); });
    wrote_ = wrote_ || !changes_.attributes.isEmpty() || !changes_.shapes.isEmpty();
    wrote_shapes_ = wrote_shapes_ || !changes_.shapes.isEmpty();
    changes_ = {};
  }

  void Close() override {
    LayerCursor::Close();
    if (provider_) provider_->leaveUpdateMode();
    provider_ = nullptr;
    if (wrote_) Owner().ShowChanges(wrote_shapes_);
    // Some formats are read anew as soon as they are written, by which the program clears it.
    if (wrote_ && Owner().Layer().selectedFeatureIds() != selected_) Owner().Layer().selectByIds(selected_);
    wrote_ = wrote_shapes_ = false;
  }

 private:
  [[nodiscard]] std::size_t ChangeCount() const {
    return static_cast<std::size_t>(changes_.attributes.size()) + static_cast<std::size_t>(changes_.shapes.size());
  }

  // None where the layer's edit buffer takes the changes.
  [[nodiscard]] QgsVectorDataProvider* Provider() const {
    QgsVectorLayer& layer = Owner().Layer();
    if (!Owner().CanBypassEditSession()) {
      Raise(kEngine, "The attributes of the layer '" + FromQt(layer.name()) + "' can only be read.");
    }
    return layer.isEditable() ? nullptr : layer.dataProvider();
  }

  QPointer<QgsVectorDataProvider> provider_;
  QgsFeatureIds selected_;  // when the walk began
  PacedBatch batch_;
  RowChanges changes_;
  bool wrote_ = false, wrote_shapes_ = false;
};

/// Appends rows.
class InsertingCursor final : public IFeatureCursor {
 public:
  InsertingCursor(std::shared_ptr<LayerClass> owner, std::size_t batch_size)
      : owner_(std::move(owner)), batch_size_(batch_size) {}

  [[nodiscard]] std::shared_ptr<IFeature> NextFeature() override { return nullptr; }
  [[nodiscard]] std::shared_ptr<IRow> NextRow() override { return nullptr; }
  void UpdateFeature(const std::shared_ptr<IFeature>& feature) override { UpdateRow(feature); }
  void UpdateRow(const std::shared_ptr<IRow>&) override { Raise(kInvalidCall, "This cursor only inserts rows."); }
  std::int64_t InsertFeature(const IFeatureBuffer& buffer) override { return InsertRow(buffer); }
  std::int64_t InsertRow(const IRowBuffer& buffer) override {
    const auto* own = dynamic_cast<const LayerRow*>(&buffer);
    if (own == nullptr) Raise(kInvalidCall, "A row of another source can't be inserted into this layer.");
    rows_ << own->ForInsert();
    if (static_cast<std::size_t>(rows_.size()) >= batch_size_) Flush();
    return -1;
  }
  void Flush() override {
    if (rows_.isEmpty()) return;
    QgsVectorLayer& layer = owner_->Layer();
    const bool done = layer.isEditable() ? layer.addFeatures(rows_, QgsFeatureSink::FastInsert)
                                         : layer.dataProvider()->addFeatures(rows_, QgsFeatureSink::FastInsert);
    if (!done) {
      Raise(kEngine, "Rows can't be added to the layer '" + FromQt(layer.name()) +
                         "': " + FromQt(layer.dataProvider()->errors().join(QStringLiteral("; "))));
    }
    rows_.clear();
  }
  void Close() override {
    Flush();
    owner_->ShowChanges(true);
  }

 private:
  std::shared_ptr<LayerClass> owner_;
  std::size_t batch_size_;
  QgsFeatureList rows_;
};

}  // namespace

std::shared_ptr<IFeatureCursor> LayerClass::OpenReader(const QueryFilter* filter, Recycling recycling) {
  if (stored_) return stored_->Search(filter, recycling);
  auto feed = std::make_unique<WholeFeed>(Layer(), RequestOf(filter, Layer()));
  return std::make_shared<LayerCursor>(shared_from_this(), std::move(feed), filter, recycling);
}

std::shared_ptr<IFeatureCursor> LayerClass::OpenChosen(std::vector<QgsFeatureId> oids, const QueryFilter* filter,
                                                       Recycling recycling, ChosenFor purpose) {
  const bool writing = purpose == ChosenFor::Writing;
  if (stored_) {
    const auto rows = Cast<ISelectionSet2>(SelectByOids(stored_, {oids.begin(), oids.end()}));
    return Cast<IFeatureCursor>(writing ? rows->Update(filter, recycling) : rows->Search(filter, recycling));
  }
  if (filter != nullptr && !filter->WhereClause.empty()) {
    // A request takes identifiers or a condition, not both.
    QgsFeatureRequest request = RequestOf(filter, Layer());
    request.setNoAttributes().setFlags(QgsFeatureRequest::NoGeometry);
    std::vector<QgsFeatureId> met;
    QgsFeatureIterator rows = Layer().getFeatures(request);
    for (QgsFeature row; rows.nextFeature(row);) {
      if (std::ranges::binary_search(oids, row.id())) met.push_back(row.id());
    }
    std::ranges::sort(met);
    oids = std::move(met);
  }
  QgsFeatureRequest request = RequestOf(filter, Layer());
  request.setFilterRect(QgsRectangle());
  auto feed = std::make_unique<ChosenFeed>(shared_from_this(), std::move(oids), request, batches_.read);
  if (writing) {
    return std::make_shared<WritingCursor>(shared_from_this(), std::move(feed), filter, recycling, batches_.write);
  }
  return std::make_shared<LayerCursor>(shared_from_this(), std::move(feed), filter, recycling);
}

std::shared_ptr<IFeatureCursor> LayerClass::OpenUpdater(const QueryFilter* filter, Recycling recycling) {
  if (stored_) return stored_->Update(filter, recycling);
  QgsFeatureRequest request = RequestOf(filter, Layer());
  if (Layer().isEditable()) {
    // A walk over an edit buffer isn't disturbed by what goes there meanwhile.
    auto feed = std::make_unique<WholeFeed>(Layer(), request);
    return std::make_shared<WritingCursor>(shared_from_this(), std::move(feed), filter, recycling, batches_.write);
  }
  if (filter == nullptr || filter->WhereClause.empty()) request.setNoAttributes();
  if (filter == nullptr || !filter->Geometry) request.setFlags(QgsFeatureRequest::NoGeometry);
  std::vector<QgsFeatureId> oids;
  QgsFeatureIterator rows = Layer().getFeatures(request);
  for (QgsFeature row; rows.nextFeature(row);) {
    oids.push_back(row.id());
    if (oids.size() % batches_.read == 0) EndIfStopped();
  }
  rows.close();
  auto feed = std::make_unique<ChosenFeed>(shared_from_this(), std::move(oids), QgsFeatureRequest(), batches_.read);
  return std::make_shared<WritingCursor>(shared_from_this(), std::move(feed), filter, recycling, batches_.write);
}

std::shared_ptr<IFeatureCursor> LayerClass::OpenInserter() {
  return std::make_shared<InsertingCursor>(shared_from_this(), batches_.write);
}

}  // namespace tessarine::qgis
