// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/personal_geodatabase_edit.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "engine/edit_findings.h"
#include "engine/engine_fault.h"
#include "engine/held_by_file.h"
#include "engine/ogr_source.h"
#include "engine/personal_geodatabase_create.h"
#include "engine/personal_geodatabase_values.h"
#include "jet/check.h"
#include "outputs/way_out.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

namespace fs = std::filesystem;

HeldByFile<PersonalEdit>& AllEdits() {
  static HeldByFile<PersonalEdit> edits;
  return edits;
}

// Another program at work leaves this file beside the database.
void RequireUnlocked(const std::string& path) {
  std::error_code error;
  for (const char* ending : {".ldb", ".LDB", ".laccdb"}) {
    const fs::path lock = fs::path(path).replace_extension(ending);
    if (!fs::exists(lock, error)) continue;
    RaiseEngineFault("'" + path + "' can't be written to: another program has it open ('" + lock.string() +
                     "'). Close it there; where no program has it open, delete that file.");
  }
}

[[noreturn]] void RaiseNotWritten(const std::string& path, const jet::Error& error) {
  RaiseEngineFault("'" + path + "' can't be written to: " + error.what() + WayOut(path, error.what()));
}

std::vector<std::string> FindingsOf(const std::string& path, const std::string& shown) {
  jet::Database database(path, jet::Database::Mode::Read, shown);
  return jet::CheckDatabase(database).findings;
}

}  // namespace

bool IsPersonalGeodatabase(const std::string& native_path) {
  return EndsWithIgnoringCase(native_path, ".mdb") && !native_path.starts_with("/vsi");
}

void RequireWritableGeodatabase(const std::string& native_path, PersonalUse use) {
  std::error_code error;
  if (!fs::exists(native_path, error)) return;
  if (faccessat(AT_FDCWD, native_path.c_str(), W_OK, AT_EACCESS) != 0) {
    RaiseEngineFault("'" + native_path + "' can't be written to: check its permissions.");
  }
  // The geodatabase is worked on beside its place.
  const fs::path folder = fs::absolute(native_path, error).parent_path();
  if (faccessat(AT_FDCWD, folder.c_str(), W_OK, AT_EACCESS) != 0) {
    RaiseEngineFault("'" + native_path + "' can't be written to: its folder takes no files. Check its permissions.");
  }
  RequireUnlocked(native_path);
  try {
    jet::Database database(native_path, jet::Database::Mode::Write);
    if (use == PersonalUse::NewClass) RequireRoomForClasses(database);
  } catch (const jet::Error& problem) {
    RaiseNotWritten(native_path, problem);
  }
}

std::shared_ptr<PersonalEdit> PersonalEdit::UnderWay(const std::string& native_path) {
  return AllEdits().Find(native_path);
}

std::shared_ptr<PersonalEdit> PersonalEdit::Begin(const std::string& native_path) {
  if (auto edit = UnderWay(native_path)) return edit;
  RequireWritableGeodatabase(native_path, PersonalUse::Rows);
  std::shared_ptr<PersonalEdit> edit(new PersonalEdit(RealFileKey(native_path)));
  AllEdits().Put(edit->path_, edit);
  FileChanged(edit->path_);
  return edit;
}

PersonalEdit::PersonalEdit(const std::string& key)
    : path_(key), is_new_(!fs::exists(key)), staged_(key, StagedOutput::Begin::Copy) {
  try {
    if (!is_new_) {
      database_ = std::make_shared<jet::Database>(staged_.Path().string(), jet::Database::Mode::Write, path_);
      return;
    }
    database_ = jet::Database::Create(staged_.Path().string(), PersonalDateNow(), path_);
    MakePersonalGeodatabase(*database_);
  } catch (const jet::Error& error) {
    RaiseNotWritten(path_, error);
  }
}

PersonalEdit::~PersonalEdit() {
  try {
    Publish();
  } catch (const Fault& fault) {
    // Who calls End is told by the fault; here GDAL's handler is the only listener.
    CPLError(CE_Failure, CPLE_AppDefined, "%s", fault.what());
  }
}

void PersonalEdit::End(std::shared_ptr<PersonalEdit>& edit) {
  const std::shared_ptr<PersonalEdit> last = std::move(edit);
  edit.reset();
  if (last && last.use_count() == 1) last->Publish();
}

void PersonalEdit::CheckCopy() const {
  RequireNoNewFindings(path_, FindingsOf(staged_.Path().string(), path_),
                       is_new_ ? nullptr : std::function([this] { return FindingsOf(path_, path_); }));
}

void PersonalEdit::Publish() {
  if (done_) return;
  done_ = true;
  AllEdits().Forget(path_);
  FileChanged(path_);
  if (abandoned_ || !database_) return;
  try {
    database_->Commit();
    database_.reset();
    CheckCopy();
  } catch (const jet::Error& error) {
    RaiseNotWritten(path_, error);
  }
  RequireUnlocked(path_);
  staged_.Publish();
}

void EditPersonalGeodatabase(const std::string& native_path, const std::function<void(jet::Database&)>& work) {
  std::shared_ptr<PersonalEdit> edit = PersonalEdit::Begin(native_path);
  try {
    work(*edit->Database());
  } catch (const jet::Error& error) {
    // As a part of another edit it is for that to go on or not.
    if (edit.use_count() == 1) edit->Abandon();
    RaiseNotWritten(native_path, error);
  } catch (...) {
    if (edit.use_count() == 1) edit->Abandon();
    throw;
  }
  PersonalEdit::End(edit);
}

}  // namespace tessarine::engine
