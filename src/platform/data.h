// SPDX-License-Identifier: GPL-2.0-or-later
// Stored data: workspaces, feature classes, tables, rows and cursors.
//
// Every call that fails raises a fault whose description names the dataset, field or file. Paths are the suite's own
// backslash paths. The engine provides all of it on GDAL; a host may provide feature classes of its own.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/field.h"
#include "platform/geometry.h"
#include "platform/object.h"
#include "platform/value_change.h"
#include "platform/variant.h"

namespace tessarine {

class RunJournal;

enum esriFeatureType : std::int32_t {
  esriFTSimple = 1,
  esriFTSimpleJunction = 7,
  esriFTSimpleEdge = 8,
  esriFTComplexJunction = 9,
  esriFTComplexEdge = 10,
  esriFTAnnotation = 11,
};

/// Names a class by ProgID or class identifier; compared ignoring case.
class UID final : public virtual Object {
 public:
  UID() = default;
  explicit UID(std::string value) : Value(std::move(value)) {}

  std::string Value;
};

/// Which rows a search takes. Empty members restrict nothing.
struct QueryFilter {
  std::string WhereClause;  ///< an SQL condition in the syntax of the data's format
  std::string SubFields;    ///< names joined by commas; fields left out read as empty
  GeometryRef Geometry;     ///< rows whose shape shares a point with this one, in the data's reference
};

class IRowBuffer : public virtual Object {
 public:
  [[nodiscard]] virtual FieldsRef Fields() const = 0;
  /// Attribute access by field index; fault 5 outside the list.
  [[nodiscard]] virtual Variant Value(std::int32_t index) const = 0;
  /// Returns what became of a value that the field can't hold as it is; that never is a fault. Fault 5 outside the
  /// list and for fields that can't be written at all.
  virtual ValueChange SetValue(std::int32_t index, const Variant& value) = 0;
};

/// Whether a cursor may hand out one object for all rows, which then holds the row it is at. Yes saves an object a row;
/// No where a row is looked at after the next one was asked for.
enum class Recycling : std::uint8_t { No, Yes };

class ITable;
class IClass;

/// A stored row.
class IRow : public virtual IRowBuffer {
 public:
  [[nodiscard]] virtual std::int64_t OID() const = 0;
  [[nodiscard]] virtual bool HasOID() const = 0;
  virtual void Store() = 0;
  virtual void Delete() = 0;
  /// The class that the row belongs to.
  [[nodiscard]] virtual std::shared_ptr<IClass> Table() const = 0;
};

/// A row with a shape, before insertion.
class IFeatureBuffer : public virtual IRowBuffer {
 public:
  /// The shape itself; null when the row has none.
  [[nodiscard]] virtual GeometryRef Shape() const = 0;
  /// The buffer keeps the reference and reads it when the row is written.
  virtual void SetShape(const GeometryRef& shape) = 0;
};

class IFeature : public virtual IRow, public virtual IFeatureBuffer {
 public:
  /// A private copy of the shape.
  [[nodiscard]] virtual GeometryRef ShapeCopy() const = 0;
  [[nodiscard]] virtual Envelope Extent() const = 0;
};

/// A walk over rows, or the road by which rows are inserted.
class ICursor : public virtual Object {
 public:
  /// The next row, null at the end. A recycling cursor returns the same object each time, refilled.
  [[nodiscard]] virtual std::shared_ptr<IRow> NextRow() = 0;
  /// Writes the attributes, and the shape only if it was set, of the row that was read last.
  virtual void UpdateRow(const std::shared_ptr<IRow>& row) = 0;
  /// Inserts a copy of the buffer and returns the new row's identifier, -1 while it is not known yet.
  virtual std::int64_t InsertRow(const IRowBuffer& buffer) = 0;
  /// Writes all buffered rows. Rows that were never flushed may be lost when the cursor goes away by a fault.
  virtual void Flush() = 0;
  /// Writes all and lets the data go; what could not be written is told as a fault. The cursor is of no use after it.
  virtual void Close() { Flush(); }
};

class IFeatureCursor : public virtual ICursor {
 public:
  [[nodiscard]] virtual std::shared_ptr<IFeature> NextFeature() = 0;
  virtual void UpdateFeature(const std::shared_ptr<IFeature>& feature) = 0;
  virtual std::int64_t InsertFeature(const IFeatureBuffer& buffer) = 0;
};

class IWorkspace;

/// A named text property of a dataset, as "Datafile Format".
class IPropertySet : public virtual Object {
 public:
  /// Empty when there is no such property.
  [[nodiscard]] virtual Variant GetProperty(std::string_view name) const = 0;
};

/// Identity of a stored dataset.
class IDataset : public virtual Object {
 public:
  [[nodiscard]] virtual std::string Name() const = 0;
  [[nodiscard]] virtual std::string FullName() const = 0;
  [[nodiscard]] virtual std::string BrowseName() const = 0;
  /// "Shapefile Feature Class", "File Geodatabase Feature Class" and so on, as a catalog shows it.
  [[nodiscard]] virtual std::string Category() const = 0;
  [[nodiscard]] virtual std::shared_ptr<IWorkspace> Workspace() const = 0;
  [[nodiscard]] virtual std::shared_ptr<IPropertySet> PropertySet() const = 0;
  /// Removes the dataset from its workspace for good.
  virtual void Delete() = 0;
};

/// Changes of stored data that others see at once, when the edit ends. Edits of the same data that overlap end
/// together.
class IEdit : public virtual Object {
 public:
  /// Ends this edit, and raises the fault where its changes can't be kept; the data are as before then. An edit that is
  /// let go ends too, in silence.
  virtual void Finish() = 0;
  /// Nothing of it is kept: the data are as before.
  virtual void Abandon() = 0;
};

/// What a class is made of on this machine, for the comparison with outputs.
struct DatasetFiles {
  std::vector<std::string> files;    ///< native paths of files and folders; of data in an archive, the archive's
  std::vector<std::string> classes;  ///< what is read of files that hold several classes; "" where that isn't known
};

/// A class that lies in files. Classes of servers and of memory have none.
class IDatasetFiles : public virtual Object {
 public:
  [[nodiscard]] virtual DatasetFiles Files() const = 0;
};

/// A new class, made beside its place. Until it is published, whatever stood under its name stands there still; one
/// that is never published leaves nothing.
class IStagedDataset : public virtual Object {
 public:
  /// Puts the class in its place; what it was allowed to replace goes away. All cursors on it must be closed. A fault
  /// leaves the old data as they were.
  virtual void Publish() = 0;
  /// Gives the new class up; it is of no use after it.
  virtual void Discard() = 0;
  /// What was noted while the class was made, ahead of its run; null where nothing was.
  [[nodiscard]] virtual const RunJournal* Notes() const { return nullptr; }
  /// What the class can't keep of its source, known before a value is read: whole sentences.
  [[nodiscard]] virtual std::vector<std::string> Foretold() const { return {}; }
};

/// What tables and feature classes share.
class IClass : public virtual Object {
 public:
  /// -1 for an unknown name; case doesn't count.
  [[nodiscard]] virtual std::int32_t FindField(std::string_view name) const = 0;
  [[nodiscard]] virtual FieldsRef Fields() const = 0;
  virtual void AddField(const FieldRef& field) = 0;
  /// Adds the fields in this order. The first that can't be added ends it by its fault; those before it stay.
  virtual void AddFields(std::span<const FieldRef> fields) {
    for (const FieldRef& field : fields) AddField(field);
  }
  /// Until the edit ends, others see the data as they were. Null where the format has no such edits.
  [[nodiscard]] virtual std::shared_ptr<IEdit> BeginEdit() { return nullptr; }
};

/// How the rows of a class may be changed.
class IObjectClassInfo2 : public virtual Object {
 public:
  /// True when rows can be written outside of an edit session; False for data that can only be read.
  [[nodiscard]] virtual bool CanBypassEditSession() const = 0;
};

/// A class that may be kept in versions.
class IVersionedObject : public virtual Object {
 public:
  [[nodiscard]] virtual bool IsRegisteredAsVersioned() const = 0;
};

class ITable : public virtual IClass, public virtual IDataset {
 public:
  [[nodiscard]] virtual std::int32_t RowCount(const QueryFilter* filter) const = 0;
  [[nodiscard]] virtual std::shared_ptr<ICursor> SearchRows(const QueryFilter* filter, Recycling recycling) = 0;
  [[nodiscard]] virtual std::shared_ptr<IRow> GetRow(std::int64_t oid) = 0;
  [[nodiscard]] virtual std::shared_ptr<ICursor> InsertRows(bool use_buffering) = 0;
  [[nodiscard]] virtual std::shared_ptr<ICursor> UpdateRows(const QueryFilter* filter, Recycling recycling) = 0;
};

/// What has a place: layers and feature classes.
class IGeoDataset : public virtual Object {
 public:
  /// Never null: `UnknownCoordinateSystem` for data without a declared reference.
  [[nodiscard]] virtual SpatialReferenceRef SpatialReference() const = 0;
  [[nodiscard]] virtual Envelope Extent() const = 0;
};

/// Records of one kind of shape that no class holds.
struct LeftOutRecords {
  std::string kind;  ///< "GEOMETRYCOLLECTION"
  std::vector<std::int64_t> oids;
};

class IFeatureClass : public virtual IClass, public virtual IDataset, public virtual IGeoDataset {
 public:
  [[nodiscard]] virtual esriGeometryType ShapeType() const = 0;
  [[nodiscard]] virtual std::string ShapeFieldName() const = 0;
  [[nodiscard]] virtual std::string AliasName() const = 0;
  /// With no filter, all.
  [[nodiscard]] virtual std::int32_t FeatureCount(const QueryFilter* filter) const = 0;
  [[nodiscard]] virtual std::shared_ptr<IFeatureCursor> Search(const QueryFilter* filter, Recycling recycling) = 0;
  [[nodiscard]] virtual std::shared_ptr<IFeatureCursor> Update(const QueryFilter* filter, Recycling recycling) = 0;
  [[nodiscard]] virtual std::shared_ptr<IFeatureCursor> Insert(bool use_buffering) = 0;
  [[nodiscard]] virtual std::shared_ptr<IFeatureBuffer> CreateFeatureBuffer() = 0;
  /// The records of its layer that neither this class nor one for another kind of shape has among its rows. Takes a
  /// walk over all records where the layer mixes shapes, and is empty for all others.
  [[nodiscard]] virtual std::vector<LeftOutRecords> LeftOut() const { return {}; }
  /// Fault 5 when there is no such row.
  [[nodiscard]] virtual std::shared_ptr<IFeature> GetFeature(std::int64_t oid) = 0;
};

/// Rows selected in a layer or table.
class ISelectionSet : public virtual Object {
 public:
  [[nodiscard]] virtual std::int32_t Count() const = 0;
  /// A cursor over the selected rows in the order of their identifiers; an `IFeatureCursor` for features.
  [[nodiscard]] virtual std::shared_ptr<ICursor> Search(const QueryFilter* filter, Recycling recycling) = 0;
};

/// A selection whose rows can be changed.
class ISelectionSet2 : public virtual ISelectionSet {
 public:
  /// Like `Search`, with a cursor that also writes rows back.
  [[nodiscard]] virtual std::shared_ptr<ICursor> Update(const QueryFilter* filter, Recycling recycling) = 0;
};

/// The edit session of a workspace. A part of the published face that nothing here calls.
class IWorkspaceEdit : public virtual Object {
 public:
  virtual void StartEditing(bool with_undo) = 0;
  virtual void StartEditOperation() = 0;
  virtual void StopEditOperation() = 0;
  virtual void StopEditing(bool save_edits) = 0;
  [[nodiscard]] virtual bool IsBeingEdited() const = 0;
};

class IWorkspace : public virtual Object {
 public:
  /// Without a trailing separator.
  [[nodiscard]] virtual std::string PathName() const = 0;
};

class IFeatureDataset : public virtual IDataset, public virtual IGeoDataset {
 public:
  [[nodiscard]] virtual std::shared_ptr<IFeatureClass> CreateFeatureClass(
      const std::string& name, const FieldsRef& fields, const std::shared_ptr<UID>& clsid,
      const std::shared_ptr<UID>& extclsid, esriFeatureType feature_type, const std::string& shape_field,
      const std::string& config_keyword) = 0;
};

class IFeatureWorkspace : public virtual IWorkspace {
 public:
  // The three openings fail when the name is not there.
  [[nodiscard]] virtual std::shared_ptr<ITable> OpenTable(const std::string& name) = 0;
  [[nodiscard]] virtual std::shared_ptr<IFeatureClass> OpenFeatureClass(const std::string& name) = 0;
  [[nodiscard]] virtual std::shared_ptr<IFeatureDataset> OpenFeatureDataset(const std::string& name) = 0;
  /// True when anything stands under this name, in whatever state it is: a class, a table, a part of either.
  [[nodiscard]] virtual bool HoldsName(const std::string&) { return false; }
  /// The next class of this name takes the place of what stands there; without this it can't be created.
  virtual void AllowReplacing(const std::string&) {}
  /// Creates an empty feature class with the given fields. The shape field's `GeometryDef` gives shape type and
  /// reference; an OID field names the identifier where the format has one.
  [[nodiscard]] virtual std::shared_ptr<IFeatureClass> CreateFeatureClass(
      const std::string& name, const FieldsRef& fields, const std::shared_ptr<UID>& clsid,
      const std::shared_ptr<UID>& extclsid, esriFeatureType feature_type, const std::string& shape_field,
      const std::string& config_keyword) = 0;
};

class IWorkspaceFactory : public virtual Object {
 public:
  /// Opens a folder, a `.gdb` folder or a `.mdb` file; the window is the owner of any prompt.
  [[nodiscard]] virtual std::shared_ptr<IFeatureWorkspace> OpenFromFile(const std::string& path,
                                                                        std::int32_t window) = 0;
  [[nodiscard]] virtual bool IsWorkspace(const std::string& path) const = 0;
  /// True when the folder holds data that this factory opens.
  [[nodiscard]] virtual bool ContainsWorkspace(const std::string& folder) const = 0;
};

// The three factories, made by the engine.
[[nodiscard]] std::shared_ptr<IWorkspaceFactory> CreateShapefileWorkspaceFactory();
[[nodiscard]] std::shared_ptr<IWorkspaceFactory> CreateFileGDBWorkspaceFactory();
[[nodiscard]] std::shared_ptr<IWorkspaceFactory> CreateAccessWorkspaceFactory();

}  // namespace tessarine
