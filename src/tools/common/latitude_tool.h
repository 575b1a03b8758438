// SPDX-License-Identifier: GPL-2.0-or-later
// A tool that rewrites latitudes from one system to the other: both directions are one class with a row each.
#pragma once

#include "tools/common/planetary_parts.h"

namespace tessarine {

struct LatitudeRow {
  std::string_view name, title, text, makes, example;
  CommandTexts command;
  const char* dialog_caption;
  const PlanetaryWork& work;
};

class LatitudeTool final : public Tool {
 public:
  explicit LatitudeTool(const LatitudeRow& row);

  [[nodiscard]] const ToolSpec& Spec() const override { return spec_; }
  [[nodiscard]] const CommandTexts& Command() const override { return row_.command; }
  [[nodiscard]] std::optional<Arguments> Ask(const std::shared_ptr<IApplication>& application) const override;
  [[nodiscard]] std::optional<Objection> Validate(const Arguments& arguments,
                                                  const std::shared_ptr<IApplication>& application) const override;
  [[nodiscard]] std::string Run(RunContext& context, const Arguments& arguments,
                                const std::shared_ptr<IApplication>& application) const override;
  [[nodiscard]] std::string Plan(RunContext& context, const Arguments& arguments,
                                 const std::shared_ptr<IApplication>& application) const override;

 private:
  LatitudeRow row_;
  std::string why_no_other_reference_;
  ToolSpec spec_;
};

}  // namespace tessarine
