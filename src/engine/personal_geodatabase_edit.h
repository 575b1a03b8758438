// SPDX-License-Identifier: GPL-2.0-or-later
// The one way that a personal geodatabase is written to.
//
// Changes are made in a copy beside it. When the last who holds the edit lets go, indexes, maps and counts are made to
// fit, the copy is opened anew and walked over by a checker that believes nothing, and takes the geodatabase's place;
// where something is wrong that wasn't before, the geodatabase stays as it is and a fault tells what was found.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "engine/personal_geodatabase.h"
#include "jet/database.h"
#include "outputs/staged_output.h"

namespace tessarine::engine {

/// All changes of one geodatabase that appear together. While it lasts, this program sees the geodatabase as the edit
/// has it, others as it was.
class PersonalEdit {
 public:
  /// Joins the edit that is under way, or begins one, in a new geodatabase where there is none. A fault where it may
  /// not be written to: another program has it open, or something about it isn't known.
  [[nodiscard]] static std::shared_ptr<PersonalEdit> Begin(const std::string& native_path);
  /// The edit under way; null where there is none.
  [[nodiscard]] static std::shared_ptr<PersonalEdit> UnderWay(const std::string& native_path);
  /// Lets go. The last holder's call publishes the changes, and raises the fault where that fails.
  static void End(std::shared_ptr<PersonalEdit>& edit);

  PersonalEdit(const PersonalEdit&) = delete;
  PersonalEdit& operator=(const PersonalEdit&) = delete;
  /// Publishes what no call of `End` did; a failure leaves the geodatabase as it was.
  ~PersonalEdit();

  [[nodiscard]] const std::shared_ptr<jet::Database>& Database() const { return database_; }
  /// Nothing of this edit is kept.
  void Abandon() { abandoned_ = true; }

 private:
  explicit PersonalEdit(const std::string& key);
  void Publish();
  void CheckCopy() const;

  std::string path_;
  bool is_new_;
  StagedOutput staged_;
  std::shared_ptr<jet::Database> database_;
  bool abandoned_ = false, done_ = false;
};

/// Calls `work` with the database, as an edit or a part of the one under way.
void EditPersonalGeodatabase(const std::string& native_path, const std::function<void(jet::Database&)>& work);

}  // namespace tessarine::engine
