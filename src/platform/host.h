// SPDX-License-Identifier: GPL-2.0-or-later
// What the suite asks of its host without holding an object of it: the clock, message boxes, the host's own dialogs,
// services of the operating system. One host at a time serves the process.
//
// Whoever makes a host owns it, sets it with `SetHost` and takes it back, with `SetHost(nullptr)`, before it dies. The
// host and all that it returns belong to one thread, that of the windows or of the program's `main`; another thread
// that works for the suite brings a host of its own (thread_host.h). Forms, commands and the error dialog ask
// `Host()`; a run is handed a `RunContext` and asks for nothing else.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/data.h"
#include "platform/date.h"
#include "platform/form.h"
#include "platform/map.h"
#include "platform/run_context.h"

namespace tessarine {

enum class MessageButtons { Ok, OkCancel, YesNo };
enum class MessageIcon { None, Exclamation };
enum class MessageAnswer { Ok, Cancel, Yes, No };

class IMessageBox {
 public:
  virtual ~IMessageBox() = default;
  virtual MessageAnswer Show(const std::string& text, const std::string& title,
                             MessageButtons buttons = MessageButtons::Ok, MessageIcon icon = MessageIcon::None) = 0;
};

/// A window that shows a fault report, selectable for copying, until the user closes it.
class IErrorDialog : public virtual Object {
 public:
  virtual void AppendErrorText(const std::string& text) = 0;
  virtual void SetVisible(bool visible) = 0;
};

class IFormHost {
 public:
  virtual ~IFormHost() = default;
  /// Shows a loaded form and returns when it was hidden or unloaded.
  virtual void ShowModal(Form& form) = 0;
  /// Shows a loaded form and returns at once; the view lives until the form is hidden or unloaded.
  virtual void ShowModeless(Form& form) = 0;
  /// The usable size of the screen in dialog units, for forms that place themselves.
  [[nodiscard]] virtual double ScreenWidth() const = 0;
  [[nodiscard]] virtual double ScreenHeight() const = 0;
};

/// A non-modal parent window of a form, with a caption.
class IModelessFrame : public virtual Object {
 public:
  virtual void Create(const std::shared_ptr<Form>& form) = 0;
  [[nodiscard]] virtual std::string Caption() const = 0;
  virtual void SetCaption(const std::string& caption) = 0;
  [[nodiscard]] virtual bool Visible() const = 0;
  virtual void SetVisible(bool visible) = 0;
};

/// A catalog item: a folder, a geodatabase, a feature dataset or a class.
class IGxObject : public virtual Object {
 public:
  [[nodiscard]] virtual std::string FullName() const = 0;
  /// "Folder", "Shapefile", "File Geodatabase", "File Geodatabase Feature Dataset" and so on.
  [[nodiscard]] virtual std::string Category() const = 0;
};

/// A catalog item that is a dataset.
class IGxDataset : public virtual IGxObject {
 public:
  [[nodiscard]] virtual std::shared_ptr<IDataset> Dataset() const = 0;
};

/// What a browse dialog lets the user pick.
enum class GxFilter { FeatureClasses, Tables, TextFiles };

/// The host's browse dialog.
class IGxDialog : public virtual Object {
 public:
  virtual void AddFilter(GxFilter filter, bool is_default) = 0;
  virtual void SetAllowMultiSelect(bool allow) = 0;
  virtual void SetTitle(const std::string& title) = 0;
  virtual void SetButtonCaption(const std::string& caption) = 0;
  virtual void SetStartingLocation(const std::string& path) = 0;
  [[nodiscard]] virtual std::string Name() const = 0;
  virtual void SetName(const std::string& name) = 0;
  [[nodiscard]] virtual std::shared_ptr<IGxObject> FinalLocation() const = 0;
  /// True when the user confirmed.
  virtual bool DoModalSave(std::int32_t parent) = 0;
  virtual bool DoModalOpen(std::int32_t parent, std::vector<std::shared_ptr<IGxObject>>& selection) = 0;
};

/// The host's dialog for choosing a reference.
class ISpatialReferenceDialog2 : public virtual Object {
 public:
  /// The reference that the dialog begins with; null for none.
  virtual void SetInitial(const SpatialReferenceRef&) {}
  /// Null when the user gave up.
  [[nodiscard]] virtual SpatialReferenceRef DoModalCreate(std::int32_t parent) = 0;
};

/// A printer as rich text sees it. Measures are twips, 1440 to the inch.
class IPrinter : public virtual Object {
 public:
  [[nodiscard]] virtual double PageWidth() const = 0;
  [[nodiscard]] virtual double PageHeight() const = 0;
  /// The margins that the device can't print on.
  [[nodiscard]] virtual double PhysicalOffsetX() const = 0;
  [[nodiscard]] virtual double PhysicalOffsetY() const = 0;
  virtual void StartDocument(const std::string& title) = 0;
  /// Draws the text from character `first` into the rectangle and returns the first character that didn't fit.
  virtual std::int32_t FormatRange(const std::string& rtf, std::int32_t first, double left, double top, double right,
                                   double bottom) = 0;
  virtual void NewPage() = 0;
  virtual void EndDocument() = 0;
};

class IClipboard {
 public:
  virtual ~IClipboard() = default;
  virtual void Clear() = 0;
  /// Puts rich text on the clipboard, as RTF and in every other form the host knows.
  virtual void SetRichText(const std::string& rtf) = 0;
};

/// A read-only registry of the machine. Keys use backslashes.
class IRegistry {
 public:
  virtual ~IRegistry() = default;
  /// The text value with its terminating null, empty when it isn't there.
  [[nodiscard]] virtual std::string QueryLocalMachine(const std::string& key, const std::string& value) const = 0;
  /// The double-word value; empty when it isn't there or is a text.
  [[nodiscard]] virtual std::optional<std::uint32_t> QueryLocalMachineNumber(const std::string&,
                                                                             const std::string&) const {
    return std::nullopt;
  }
};

/// Services of the operating system. All paths are backslash paths.
class IOperatingSystem {
 public:
  virtual ~IOperatingSystem() = default;
  /// True for files and folders alike.
  [[nodiscard]] virtual bool Exists(const std::string& path) const = 0;
  [[nodiscard]] virtual bool IsFile(const std::string& path) const = 0;
  /// The whole text of a file as UTF-8, without a byte order mark; bytes that are no UTF-8 are read as Latin-1. Fault
  /// 76 when there is no such file, 5 when it can't be read.
  [[nodiscard]] virtual std::string ReadTextFile(const std::string& path) const = 0;
  /// The absolute form of the path; empty when there is none.
  [[nodiscard]] virtual std::string LongPathName(const std::string& path) const = 0;
  [[nodiscard]] virtual std::string UserName() const = 0;
  /// Opens a file with its default viewer, working in the given folder.
  virtual void ShellExecute(const std::string& path, const std::string& folder) = 0;
  /// The folder that the program and its manual lie in.
  [[nodiscard]] virtual std::string ProgramFolder() const = 0;
};

class IHost : public IRunFeedback, public IRunServices {
 public:
  [[nodiscard]] virtual IClock& Clock() = 0;
  [[nodiscard]] virtual IMessageBox& MessageBox() = 0;
  [[nodiscard]] virtual IFormHost& Forms() = 0;
  [[nodiscard]] virtual IClipboard& Clipboard() = 0;
  [[nodiscard]] virtual IRegistry& Registry() = 0;

  [[nodiscard]] virtual std::shared_ptr<IErrorDialog> CreateErrorDialog() = 0;
  [[nodiscard]] virtual std::shared_ptr<IModelessFrame> CreateModelessFrame() = 0;
  [[nodiscard]] virtual std::shared_ptr<ISpatialReferenceDialog2> CreateSpatialReferenceDialog() = 0;
  /// Shows the printer dialog; null when the user cancelled it.
  [[nodiscard]] virtual std::shared_ptr<IPrinter> ChoosePrinter() = 0;

  /// The record of the run in hand.
  [[nodiscard]] virtual RunJournal& Journal() = 0;
  // IRunFeedback, by message boxes
  void Tell(const std::string& text, const std::string& title) override;
  [[nodiscard]] bool Ask(RunQuestion question, const std::string& text, const std::string& title) override;

  /// True when runs shall only be planned: commands show their plan as the report and write nothing.
  [[nodiscard]] virtual bool PlanOnly() const = 0;
  /// How many threads a run may keep busy.
  [[nodiscard]] virtual unsigned Jobs() const { return 1; }
};

/// The host of this process; fault 91 before one was set.
[[nodiscard]] IHost& Host();
/// Sets the host, or null when it goes away; returns the one before.
IHost* SetHost(IHost* host);
/// What a run gets that is begun by the host of this process.
[[nodiscard]] RunContext HostContext();
/// What the context of the thread's run says, or else the host of this process; false where there is neither.
[[nodiscard]] bool StopRequested();

}  // namespace tessarine
