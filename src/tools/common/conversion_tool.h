// SPDX-License-Identifier: GPL-2.0-or-later
// A tool that makes a new class of a layer's features, record by record or one of all: a row that tells what it is
// called, takes, asks and makes, with a step for each feature. The files of the conversions hold nothing but their
// rows.
#pragma once

#include "conversion/conversion_runs.h"
#include "conversion/field_choice.h"
#include "conversion/layer_fields_texts.h"
#include "conversion/modCreateVertices.h"
#include "tools/common/tool_parts.h"
#include "tools/tool.h"

namespace tessarine {

/// How a conversion is called in commands, and what a reader of its help wants to know.
struct ConversionWords {
  std::string_view name;
  std::string_view text;
  std::string_view takes;
  std::string_view makes;
  std::string_view example;
  ToolResult result = ToolResult::Features;
};

struct ConversionRow {
  ConversionWords words;
  CommandTexts command;
  LayerFieldsTexts dialog;
  modCreateVertices::ConversionRun run;
};

class ConversionTool final : public Tool {
 public:
  explicit ConversionTool(const ConversionRow& row);

  [[nodiscard]] const ConversionRow& Row() const { return row_; }
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
  [[nodiscard]] modCreateVertices::ConversionChoices Choices(const Arguments& arguments,
                                                             const OutputOfRun& output) const;
  [[nodiscard]] OutputOfRun Output(const Arguments& arguments) const;
  [[nodiscard]] static FieldChoice ChosenFields(const Arguments& arguments);

  ConversionRow row_;
  ToolSpec spec_;
};

}  // namespace tessarine
