// SPDX-License-Identifier: GPL-2.0-or-later
// A host for tests: it owns the clock, answers message boxes from a script and remembers what was shown.
#pragma once

#include <cmath>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "engine/local_system.h"
#include "platform/host.h"
#include "platform/text_formats.h"

namespace tessarine::testing {

class TestClock final : public IClock {
 public:
  mutable Date now = MakeDate(2026, 3, 14, 9, 26, 53);
  /// Seconds that pass at each look.
  double step = 0.0;

  [[nodiscard]] [[gnu::noinline]] Date Now() const override {
    const Date answer = now;
    now = AddSeconds(now, step);
    return answer;
  }
  /// As many seconds as `now` went on, whatever `SetBack` did to it.
  [[nodiscard]] double SteadySeconds() const override {
    return std::round((Now().serial * 86400.0 + set_back_) * 1000.0) / 1000.0;
  }
  /// Somebody sets the clock back.
  void SetBack(double seconds) {
    now = AddSeconds(now, -seconds);
    set_back_ += seconds;
  }

 private:
  double set_back_ = 0.0;
};

struct ShownMessage {
  std::string text, title;
  MessageButtons buttons;
};

class TestMessageBox final : public IMessageBox {
 public:
  std::vector<ShownMessage> shown;
  std::deque<MessageAnswer> answers;  ///< used up one by one; then Ok, or No where the choice is Yes and No

  MessageAnswer Show(const std::string& text, const std::string& title, MessageButtons buttons, MessageIcon) override {
    shown.push_back({text, title, buttons});
    if (!answers.empty()) {
      const MessageAnswer answer = answers.front();
      answers.pop_front();
      return answer;
    }
    return buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Ok;
  }
};

class TestForms final : public IFormHost {
 public:
  /// What the user does with a modal form; a form that this leaves open counts as closed by its title bar.
  std::function<void(Form&)> modal;
  /// Called with each form that is shown without waiting for it.
  std::function<void(Form&)> modeless;
  std::vector<std::string> shown;

  void ShowModal(Form& form) override {
    shown.push_back(form.Name());
    if (modal) modal(form);
    if (form.Visible()) form.CloseByUser();
  }
  void ShowModeless(Form& form) override {
    shown.push_back(form.Name());
    if (modeless) modeless(form);
  }
  [[nodiscard]] double ScreenWidth() const override { return 1000.0; }
  [[nodiscard]] double ScreenHeight() const override { return 600.0; }
};

class TestClipboard final : public IClipboard {
 public:
  std::string rtf = "before";
  void Clear() override { rtf.clear(); }
  void SetRichText(const std::string& text) override { rtf = text; }
};

class TestRegistry final : public IRegistry {
 public:
  std::string real_version = "9.3.1";  ///< empty: the key is missing
  std::optional<std::uint32_t> number;
  mutable std::string asked_key, asked_value;

  [[nodiscard]] std::optional<std::uint32_t> QueryLocalMachineNumber(const std::string&,
                                                                     const std::string&) const override {
    return number;
  }

  [[nodiscard]] std::string QueryLocalMachine(const std::string& key, const std::string& value) const override {
    asked_key = key, asked_value = value;
    return real_version.empty() ? std::string() : real_version + '\0';
  }
};

class TestSystem final : public LocalOperatingSystem {
 public:
  std::vector<std::string> opened;
  std::string user = "ann";
  std::string program_folder;  ///< empty: where the test program lies

  [[nodiscard]] std::string UserName() const override { return user; }
  void ShellExecute(const std::string& path, const std::string&) override { opened.push_back(path); }
  [[nodiscard]] std::string ProgramFolder() const override {
    return program_folder.empty() ? LocalOperatingSystem::ProgramFolder() : program_folder;
  }
};

class TestErrorDialog final : public IErrorDialog {
 public:
  explicit TestErrorDialog(std::vector<std::string>& reports) : reports_(reports) {}
  void AppendErrorText(const std::string& text) override { text_ = text; }
  void SetVisible(bool visible) override {
    if (visible) reports_.push_back(text_);
  }

 private:
  std::vector<std::string>& reports_;
  std::string text_;
};

class TestModelessFrame final : public IModelessFrame {
 public:
  void Create(const std::shared_ptr<Form>& form) override { form_ = form; }
  [[nodiscard]] std::string Caption() const override { return caption_; }
  void SetCaption(const std::string& caption) override { caption_ = caption; }
  [[nodiscard]] bool Visible() const override { return visible_; }
  void SetVisible(bool visible) override { visible_ = visible; }

 private:
  std::weak_ptr<Form> form_;
  std::string caption_;
  bool visible_ = false;
};

/// A place in the catalog that a test hands to the browse dialog.
class TestGxObject : public virtual IGxObject {
 public:
  TestGxObject(std::string full_name, std::string category)
      : full_name_(std::move(full_name)), category_(std::move(category)) {}
  [[nodiscard]] std::string FullName() const override { return full_name_; }
  [[nodiscard]] std::string Category() const override { return category_; }

 private:
  std::string full_name_, category_;
};

class TestGxDataset final : public TestGxObject, public IGxDataset {
 public:
  TestGxDataset(std::string full_name, std::string category, std::shared_ptr<IDataset> dataset)
      : TestGxObject(std::move(full_name), std::move(category)), dataset_(std::move(dataset)) {}
  [[nodiscard]] std::shared_ptr<IDataset> Dataset() const override { return dataset_; }

 private:
  std::shared_ptr<IDataset> dataset_;
};

struct BrowseAnswer {
  std::shared_ptr<IGxObject> location;  ///< nothing: the user cancels
  std::string name;
};

/// What the host remembers of one browse dialog, and the answers still to give.
struct BrowseLog {
  std::deque<BrowseAnswer> answers;
  std::vector<std::string> titles, button_captions, starting_locations, offered_names;
};

class TestGxDialog final : public IGxDialog {
 public:
  explicit TestGxDialog(BrowseLog& log) : log_(log) {}
  void AddFilter(GxFilter, bool) override {}
  void SetAllowMultiSelect(bool) override {}
  void SetTitle(const std::string& title) override { log_.titles.push_back(title); }
  void SetButtonCaption(const std::string& caption) override { log_.button_captions.push_back(caption); }
  void SetStartingLocation(const std::string& path) override { log_.starting_locations.push_back(path); }
  [[nodiscard]] std::string Name() const override { return name_; }
  void SetName(const std::string& name) override {
    name_ = name;
    log_.offered_names.push_back(name);
  }
  [[nodiscard]] std::shared_ptr<IGxObject> FinalLocation() const override { return location_; }
  bool DoModalSave(std::int32_t) override {
    if (log_.answers.empty() || !log_.answers.front().location) {
      if (!log_.answers.empty()) log_.answers.pop_front();
      return false;
    }
    location_ = log_.answers.front().location;
    name_ = log_.answers.front().name;
    log_.answers.pop_front();
    return true;
  }
  bool DoModalOpen(std::int32_t parent, std::vector<std::shared_ptr<IGxObject>>& selection) override {
    if (!DoModalSave(parent)) return false;
    selection = {location_};
    return true;
  }

 private:
  BrowseLog& log_;
  std::shared_ptr<IGxObject> location_;
  std::string name_;
};

class TestFeatureLayer final : public IGeoFeatureLayer {
 public:
  [[nodiscard]] std::string Name() const override { return name_; }
  void SetName(const std::string& name) override { name_ = name; }
  [[nodiscard]] bool Valid() const override { return class_ != nullptr; }
  void SetVisible(bool) override {}
  [[nodiscard]] std::shared_ptr<IFeatureClass> FeatureClass() const override { return class_; }
  void SetFeatureClass(const std::shared_ptr<IFeatureClass>& feature_class) override { class_ = feature_class; }
  [[nodiscard]] std::string DataSourceType() const override { return "Test Feature Class"; }
  void SetRenderer(const std::shared_ptr<IFeatureRenderer>& given) override { renderer = given; }
  std::shared_ptr<IFeatureRenderer> renderer;

 private:
  std::string name_;
  std::shared_ptr<IFeatureClass> class_;
};

class TestRenderer final : public ISimpleRenderer {
 public:
  std::shared_ptr<ISymbol> symbol;
  void SetSymbol(const std::shared_ptr<ISymbol>& given) override { symbol = given; }
};

/// The dialog for references: it answers what the host was given, and remembers what it began with.
class TestReferenceDialog final : public ISpatialReferenceDialog2 {
 public:
  TestReferenceDialog(SpatialReferenceRef answer, SpatialReferenceRef& initial)
      : answer_(std::move(answer)), initial_(initial) {}
  void SetInitial(const SpatialReferenceRef& reference) override { initial_ = reference; }
  [[nodiscard]] SpatialReferenceRef DoModalCreate(std::int32_t) override { return answer_; }

 private:
  SpatialReferenceRef answer_;
  SpatialReferenceRef& initial_;
};

/// The host of a test while it lives; put one on the stack.
class TestHost final : public IHost {
 public:
  TestHost() : previous_(SetHost(this)) {}
  ~TestHost() override { SetHost(previous_); }
  TestHost(const TestHost&) = delete;
  TestHost& operator=(const TestHost&) = delete;

  TestClock clock;
  TestMessageBox messages;
  TestForms forms;
  TestClipboard clipboard;
  TestRegistry registry;
  TestSystem system;
  BrowseLog browse;
  std::vector<std::string> error_reports;
  std::shared_ptr<IPrinter> printer;  ///< nothing: the printer dialog is cancelled
  std::function<void()> on_pump;
  int pumps = 0, pointer_restored = 0, beeps = 0;
  SpatialReferenceRef chosen_reference;   ///< nothing: the dialog for references is cancelled
  SpatialReferenceRef initial_reference;  ///< what that dialog began with
  RunJournal journal;
  bool plan_only = false;
  bool stop_requested = false;
  std::int32_t stop_at_question = 0;  ///< the stop comes when it is asked for this often; 0: never

  IClock& Clock() override { return clock; }
  IMessageBox& MessageBox() override { return messages; }
  IFormHost& Forms() override { return forms; }
  IClipboard& Clipboard() override { return clipboard; }
  IRegistry& Registry() override { return registry; }
  IOperatingSystem& System() override { return system; }
  void PumpEvents() override {
    ++pumps;
    if (on_pump) on_pump();
  }
  [[nodiscard]] bool StopRequested() const override {
    ++stop_questions_;
    return stop_requested || (stop_at_question > 0 && stop_questions_ >= stop_at_question);
  }
  void RestoreMousePointer() override { ++pointer_restored; }
  std::shared_ptr<IErrorDialog> CreateErrorDialog() override {
    return std::make_shared<TestErrorDialog>(error_reports);
  }
  std::shared_ptr<IModelessFrame> CreateModelessFrame() override { return std::make_shared<TestModelessFrame>(); }
  std::shared_ptr<IGxDialog> CreateGxDialog() override { return std::make_shared<TestGxDialog>(browse); }
  std::shared_ptr<ISpatialReferenceDialog2> CreateSpatialReferenceDialog() override {
    return std::make_shared<TestReferenceDialog>(chosen_reference, initial_reference);
  }
  std::shared_ptr<IPrinter> ChoosePrinter() override { return printer; }
  std::shared_ptr<IFeatureLayer> CreateFeatureLayer() override { return std::make_shared<TestFeatureLayer>(); }
  std::shared_ptr<ISimpleRenderer> CreateSimpleRenderer() override { return std::make_shared<TestRenderer>(); }
  void Beep() override { ++beeps; }
  RunJournal& Journal() override { return journal; }
  [[nodiscard]] bool PlanOnly() const override { return plan_only; }

 private:
  IHost* previous_;
  mutable std::int32_t stop_questions_ = 0;
};

}  // namespace tessarine::testing
