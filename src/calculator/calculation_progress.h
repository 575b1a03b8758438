// What a person sees of a calculation while it works: the status bar always, the progress meter for long runs.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "frame/clsExtension.h"
#include "platform/application.h"
#include "platform/date.h"
#include "support/frmOrlProgressMeter.h"

namespace tessarine {

class CalculationProgress {
 public:
  /// `singular` and `plural` name the shapes, as "Point" and "Points".
  CalculationProgress(std::string singular, std::string plural, const std::string& layer_name,
                      const std::shared_ptr<IApplication>& application, std::int32_t count, bool show_meter);

  /// Called at the start of each record, numbered from 1. Brings everything up to date once a second and at the last
  /// record; that is also when a stop is seen. False when the user stopped the run.
  [[nodiscard]] bool Step(std::int32_t record);
  /// The run went to its end.
  void Finish();

 private:
  void OpenMeter();
  [[nodiscard]] bool UpdateMeter(std::int32_t record);

  std::string singular_, plural_, prefix_;
  std::shared_ptr<IApplication> application_;
  std::shared_ptr<IStatusBar> status_bar_;
  std::shared_ptr<frmOrlProgressMeter> meter_;
  std::int32_t count_;
  Date begin_, last_update_;
};

}  // namespace tessarine
