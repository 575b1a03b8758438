// SPDX-License-Identifier: GPL-2.0-or-later
// The class of a copy that is made in the copy's own format.
//
// It stands beside the place that the user named until `Publish`, which counts its rows first: a copy that lacks one
// never takes the place of anything. What the copying noted goes with the class and comes into the run's journal.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/engine_fault.h"
#include "engine/staged_class.h"
#include "outputs/scratch_folder.h"
#include "platform/run_journal.h"

namespace tessarine::engine {

/// What is known of a copy besides its rows.
struct CopyFacts {
  CopyFacts() = default;

  std::string full_name;  ///< a backslash path, of the place that the user named
  RunJournal notes;
  std::vector<std::string> foretold;
  std::vector<LeftOutRecords> left_out;      ///< records of the source that no class holds
  std::int64_t rows = 0;                     ///< that it must hold
  std::string layer;                         ///< as a file of its own calls it, once it is whole
  std::optional<std::int32_t> planned_rows;  ///< of a copy that is only planned: the source's
  std::optional<ScratchFolder> scratch;      ///< the folder of such a one, which goes with it
};

/// Fault where the copy doesn't hold all its rows.
void RequireAllRows(const CopyFacts& facts, std::int64_t held);

class CopyFactsHolder {
 public:
  explicit CopyFactsHolder(std::shared_ptr<CopyFacts> facts) : facts_(std::move(facts)) {}
  [[nodiscard]] CopyFacts& Facts() const { return *facts_; }

 private:
  std::shared_ptr<CopyFacts> facts_;
};

/// `Base` is a staged class; what it holds goes before the facts do.
template <class Base>
class CopyOf final : private CopyFactsHolder, public Base {
 public:
  template <class... Arguments>
  explicit CopyOf(std::shared_ptr<CopyFacts> facts, Arguments&&... arguments)
      : CopyFactsHolder(std::move(facts)), Base(std::forward<Arguments>(arguments)...) {}

  [[nodiscard]] std::string FullName() const override { return Facts().full_name; }
  [[nodiscard]] std::int32_t FeatureCount(const QueryFilter* filter) const override {
    return Facts().planned_rows ? *Facts().planned_rows : Base::FeatureCount(filter);
  }
  [[nodiscard]] std::vector<LeftOutRecords> LeftOut() const override { return Facts().left_out; }
  [[nodiscard]] const RunJournal* Notes() const override { return &Facts().notes; }
  [[nodiscard]] std::vector<std::string> Foretold() const override { return Facts().foretold; }
  void Publish() override {
    if (Facts().planned_rows) Raise(kInvalidCall, "'" + this->Name() + "' is only planned.");
    RequireAllRows(Facts(), Base::FeatureCount(nullptr));
    Facts().notes.written = Facts().rows;
    Base::Publish();
  }
};

}  // namespace tessarine::engine
