// SPDX-License-Identifier: GPL-2.0-or-later
#include "graphics/graphics_run.h"

#include "platform/fault.h"
#include "platform/run_scope.h"
#include "shapes/MyGeometricOperations.h"
#include "support/MyGeneralOperations.h"
#include "support/attribute_copy.h"
#include "support/rows_on_disk.h"

namespace tessarine {
namespace {

using namespace MyGeometricOperations;

constexpr std::int32_t kPieceCount = 200;
constexpr const char* kClassTitle = "Specify New Feature Class Name:";

FieldRef NumberField(const char* name) {
  auto field = std::make_shared<Field>();
  field->Name = field->AliasName = name;
  field->Type = esriFieldTypeDouble;
  field->Precision = 16;
  field->Scale = 8;
  return field;
}

FieldRef NameField() {
  auto field = std::make_shared<Field>();
  field->Name = field->AliasName = "Name";
  field->Type = esriFieldTypeString;
  field->Length = 50;
  return field;
}

std::shared_ptr<VarArray> FieldsOf(GraphicMeasure measure, bool names) {
  auto fields = std::make_shared<VarArray>();
  switch (measure) {
    case GraphicMeasure::Coordinates:
      fields->Add(NumberField("X_Coord"));
      fields->Add(NumberField("Y_Coord"));
      break;
    case GraphicMeasure::Length:
      fields->Add(NumberField("Length"));
      break;
    case GraphicMeasure::Area:
      fields->Add(NumberField("Area"));
      break;
  }
  if (names) fields->Add(NameField());
  return fields;
}

void MakeSimple(const GeometryRef& shape) {
  if (const auto topology = Cast<ITopologicalOperator>(shape)) topology->Simplify();
}

class GraphicWriter {
 public:
  GraphicWriter(RunJournal& journal, const std::shared_ptr<IFeatureClass>& target, const GraphicConversion& conversion,
                SpatialReferenceRef output, const SpatialReferenceRef& map, NameCounts& names)
      : journal_(journal),
        conversion_(conversion),
        output_(std::move(output)),
        label_(GeographicOf(map)),
        names_(names),
        unique_id_(target->FindField("Unique_ID")),
        x_(target->FindField("X_Coord")),
        y_(target->FindField("Y_Coord")),
        length_(target->FindField("Length")),
        area_(target->FindField("Area")),
        name_(target->FindField("Name")),
        buffer_(target->CreateFeatureBuffer()),
        cursor_(target->Insert(true)) {}

  void WriteAll(const GraphicList& list, bool with_names) {
    for (std::int32_t index = 0; index < list.Count(); ++index) {
      static_cast<void>(WorkOnRecord(journal_, ++element_, [&] {
        WriteElement(list.shapes->Element(index).AsObject<IGeometry>(),
                     with_names ? &list.names->Element(index) : nullptr);
        ++journal_.written;
      }));
    }
  }

  void Finish() {
    cursor_->Flush();
    cursor_->Close();
  }

 private:
  void WriteElement(const GeometryRef& own, const std::string* name) {
    const GeometryRef shape = Placed(Straightened(own));
    MakeSimple(shape);
    buffer_->SetShape(shape);
    if (unique_id_ >= 0) Put(unique_id_, record_);
    Measure(shape);
    if (name != nullptr) Put(name_, *name);
    WriteRow([this] { cursor_->InsertFeature(*buffer_); });
    ++record_;
    if (name != nullptr) names_.Add(*name);
  }

  // A copy without true curves, of the shape that the class takes.
  [[nodiscard]] GeometryRef Straightened(const GeometryRef& own) const {
    const GeometryRef copy = CloneOf(*Require(own, "Geometry"));
    GeometryRef shape = copy;
    if (conversion_.geometry_type == esriGeometryPolygon) shape = CurveToPolygon(copy, kPieceCount);
    if (conversion_.geometry_type == esriGeometryPolyline) shape = CurveToPolyline(copy, kPieceCount);
    return Require(shape, "Geometry");
  }

  [[nodiscard]] GeometryRef Placed(const GeometryRef& shape) const {
    if (!IsKnown(shape->SpatialReference()) && label_) shape->SetSpatialReference(label_);
    if (!MyGeneralOperations::CompareSpatialReferences(shape->SpatialReference(), output_)) shape->Project(output_);
    return shape;
  }

  void Put(std::int32_t index, const Variant& value) {
    NoteMeasureChange(journal_, *buffer_->Fields()->Field(index), buffer_->SetValue(index, value), element_);
  }

  // A copy in longitude and latitude, in degrees.
  static GeometryRef OnTheGlobe(const GeometryRef& shape) {
    GeometryRef copy = CloneOf(*shape);
    const SpatialReferenceRef own = copy->SpatialReference();
    const SpatialReferenceRef degrees = MyGeometricOperations::DegreesOf(own);
    if (!degrees || own == degrees) return copy;
    MyGeometricOperations::BringToDegrees(*copy);
    MakeSimple(copy);
    return copy;
  }

  void Measure(const GeometryRef& shape) {
    switch (conversion_.measure) {
      case GraphicMeasure::Coordinates: {
        const auto point = Cast<Point>(shape);
        const bool empty = Require(point, "IPoint")->IsEmpty();
        Put(x_, empty ? Variant(Null()) : Variant(point->X()));
        Put(y_, empty ? Variant(Null()) : Variant(point->Y()));
        return;
      }
      case GraphicMeasure::Length:
        Put(length_, SpheroidalPolylineLength(Cast<Polyline>(OnTheGlobe(shape))));
        return;
      case GraphicMeasure::Area: {
        double longitude = 0.0, latitude = 0.0;
        Put(area_, SphericalPolygonArea(Cast<Polygon>(OnTheGlobe(shape)), false, longitude, latitude));
        return;
      }
    }
  }

  RunJournal& journal_;
  const GraphicConversion& conversion_;
  SpatialReferenceRef output_, label_;
  NameCounts& names_;
  std::int32_t unique_id_, x_, y_, length_, area_, name_;
  std::shared_ptr<IFeatureBuffer> buffer_;
  std::shared_ptr<IFeatureCursor> cursor_;
  std::int32_t record_ = 1;
  std::int64_t element_ = 0;  // of all lists, from 1
};

}  // namespace

bool IsKnown(const SpatialReferenceRef& reference) {
  return reference && !Is<const UnknownCoordinateSystem>(reference);
}

MyGeneralOperations::OutputRequest GraphicsRequest(esriGeometryType geometry_type, GraphicMeasure measure, bool names,
                                                   const SpatialReferenceRef& reference, const OutputPlace& place) {
  MyGeneralOperations::OutputRequest request;
  request.geometry_type = geometry_type;
  request.reference = reference;
  request.place = place;
  request.fields = FieldsOf(measure, names);
  request.dialog_title = kClassTitle;
  request.add_unique_id = true;
  request.projects = true;
  return request;
}

void FillGraphicsClass(RunJournal& journal, const std::shared_ptr<IFeatureClass>& target,
                       const GraphicConversion& conversion, const GraphicSet& set, const SpatialReferenceRef& output,
                       const SpatialReferenceRef& map, NameCounts& names) {
  const bool with_names = conversion.AnyNameIn(set);
  GraphicWriter writer(journal, target, conversion, output, map, names);
  writer.WriteAll(set.*conversion.first.list, with_names);
  if (conversion.second.list != nullptr) writer.WriteAll(set.*conversion.second.list, with_names);
  writer.Finish();
  CheckRowsWritten(journal, *target);
}

}  // namespace tessarine
