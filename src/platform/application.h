// SPDX-License-Identifier: GPL-2.0-or-later
// The host application and its document, and what the suite implements for the host to call.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/map.h"
#include "platform/object.h"
#include "platform/variant.h"

namespace tessarine {

class IStepProgressor : public virtual Object {
 public:
  [[nodiscard]] virtual std::int32_t Position() const = 0;
  virtual void SetPosition(std::int32_t position) = 0;
};

/// The moving picture of a status bar while a run of unknown length works.
class IAnimationProgressor : public virtual Object {
 public:
  virtual void Show() = 0;
  virtual void Hide() = 0;
  virtual void Play() = 0;
  virtual void Stop() = 0;
  virtual void SetMessage(const std::string& message) = 0;
};

class IStatusBar : public virtual Object {
 public:
  virtual void SetMessage(std::int32_t panel, const std::string& text) = 0;
  [[nodiscard]] virtual std::shared_ptr<IAnimationProgressor> ProgressAnimation() = 0;
  [[nodiscard]] virtual std::shared_ptr<IStepProgressor> ProgressBar() = 0;
  virtual void ShowProgressBar(const std::string& text, std::int32_t minimum, std::int32_t maximum, std::int32_t step,
                               bool one_panel) = 0;
  virtual void StepProgressBar() = 0;
  virtual void HideProgressBar() = 0;
};

class ITemplates : public virtual Object {
 public:
  [[nodiscard]] virtual std::int32_t Count() const = 0;
  /// The document's own file path is the last item.
  [[nodiscard]] virtual std::string Item(std::int32_t index) const = 0;
};

class ICommandItem : public virtual Object {
 public:
  virtual void Execute() = 0;
};

class ICommandBars : public virtual Object {
 public:
  /// Null when the host has no such command.
  [[nodiscard]] virtual std::shared_ptr<ICommandItem> Find(const UID& uid, bool no_recurse, bool no_create) = 0;
};

class IDocument : public virtual Object {
 public:
  [[nodiscard]] virtual std::shared_ptr<ICommandBars> CommandBars() const = 0;
};

class IMxDocument : public virtual IDocument {
 public:
  [[nodiscard]] virtual std::shared_ptr<IActiveView> ActiveView() const = 0;
  [[nodiscard]] virtual std::shared_ptr<IMap> FocusMap() const = 0;
  [[nodiscard]] virtual std::shared_ptr<IPageLayout> PageLayout() const = 0;
  /// The layer selected in the table of contents, null when none is.
  [[nodiscard]] virtual std::shared_ptr<ILayer> SelectedLayer() const = 0;
  virtual void AddLayer(const std::shared_ptr<ILayer>& layer) = 0;
  /// Redraws the table of contents.
  virtual void UpdateContents() = 0;
};

class IDocumentDirty : public virtual Object {
 public:
  /// Marks the document as changed, so that the host offers to save it.
  virtual void SetDirty() = 0;
};

class IApplication : public virtual Object {
 public:
  [[nodiscard]] virtual std::shared_ptr<IDocument> Document() const = 0;
  [[nodiscard]] virtual std::shared_ptr<IStatusBar> StatusBar() const = 0;
  [[nodiscard]] virtual std::shared_ptr<ITemplates> Templates() const = 0;
  /// The one instance of the extension; null when the host has none of this identifier.
  [[nodiscard]] virtual ObjectRef FindExtensionByCLSID(const UID& uid) const = 0;
};

enum esriEditState : std::int32_t {
  esriStateNotEditing = 0,
  esriStateEditing = 1,
  esriStateEditingUnfocused = 2,
};

/// The host's editor, an extension of the identifier "esriEditor.Editor"; hosts without one have none.
class IEditor : public virtual Object {
 public:
  [[nodiscard]] virtual esriEditState EditState() const = 0;
};

/// An open window that shows a table.
class ITableWindow : public virtual Object {
 public:
  /// Reads the table again and repaints.
  virtual void Refresh() = 0;
};

/// What an application has that can show tables.
class ITableWindows : public virtual Object {
 public:
  /// The window that shows the layer's table, null when none is open.
  [[nodiscard]] virtual std::shared_ptr<ITableWindow> FindViaLayer(const std::shared_ptr<ILayer>& layer) const = 0;
};

// What the suite implements.

class IExtension : public virtual Object {
 public:
  [[nodiscard]] virtual std::string Name() const = 0;
  /// The data is the `IApplication`.
  virtual void Startup(const Variant& initialization_data) = 0;
  virtual void Shutdown() = 0;
};

/// Sequential reading and writing of variants in a document stream.
class IVariantStream : public virtual Object {
 public:
  /// Raises a fault at the end of the stream.
  [[nodiscard]] virtual Variant Read() = 0;
  virtual void Write(const Variant& value) = 0;
};

class IPersistVariant : public virtual Object {
 public:
  [[nodiscard]] virtual std::shared_ptr<UID> ID() const = 0;
  virtual void Load(IVariantStream& stream) = 0;
  virtual void Save(IVariantStream& stream) = 0;
};

/// A picture from the program's resources, named by its resource id.
class Picture final : public virtual Object {
 public:
  explicit Picture(std::int32_t resource_id) : resource_id_(resource_id) {}
  [[nodiscard]] std::int32_t ResourceId() const { return resource_id_; }

 private:
  std::int32_t resource_id_;
};

class ICommand : public virtual Object {
 public:
  [[nodiscard]] virtual bool Enabled() const = 0;
  [[nodiscard]] virtual bool Checked() const = 0;
  [[nodiscard]] virtual std::string Name() const = 0;
  [[nodiscard]] virtual std::string Caption() const = 0;
  [[nodiscard]] virtual std::string Tooltip() const = 0;
  [[nodiscard]] virtual std::string Message() const = 0;
  [[nodiscard]] virtual std::string HelpFile() const = 0;
  [[nodiscard]] virtual std::int32_t HelpContextID() const = 0;
  [[nodiscard]] virtual std::shared_ptr<Picture> Bitmap() const = 0;
  [[nodiscard]] virtual std::string Category() const = 0;
  /// The hook is the `IApplication`.
  virtual void OnCreate(const ObjectRef& hook) = 0;
  virtual void OnClick() = 0;
};

/// What a toolbar or menu tells about one of its items.
struct ItemDef {
  std::string ID;  ///< a ProgID; stays empty for a position outside the table
  bool Group = false;
  std::int32_t SubType = 0;
};

class IToolBarDef : public virtual Object {
 public:
  [[nodiscard]] virtual std::int32_t ItemCount() const = 0;
  virtual void GetItemInfo(std::int32_t position, ItemDef& item) const = 0;
  [[nodiscard]] virtual std::string Name() const = 0;
  [[nodiscard]] virtual std::string Caption() const = 0;
};

class IMenuDef : public virtual Object {
 public:
  [[nodiscard]] virtual std::int32_t ItemCount() const = 0;
  virtual void GetItemInfo(std::int32_t position, ItemDef& item) const = 0;
  [[nodiscard]] virtual std::string Name() const = 0;
  [[nodiscard]] virtual std::string Caption() const = 0;
};

/// Marks a menu that stands at the root of a toolbar or menu bar.
class IRootLevelMenu : public virtual Object {};

}  // namespace tessarine
