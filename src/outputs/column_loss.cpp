// SPDX-License-Identifier: GPL-2.0-or-later
#include "outputs/column_loss.h"

namespace tessarine {

std::string ForetoldLoss(const Field& field, MadeColumn made) {
  const bool date = field.Type == esriFieldTypeDate;
  if (date && made == MadeColumn::Text) {
    return field.Content == DateContent::Time ? "times of day become texts." : "dates become texts.";
  }
  if (date && field.Content == DateContent::DayAndTime && made == MadeColumn::Day) {
    return "times of day are left out, the format keeps days only.";
  }
  if (field.Type == esriFieldTypeInteger64 && made == MadeColumn::Double) {
    return "whole numbers beyond 9,007,199,254,740,992 that no double holds exactly become null.";
  }
  const bool cut = field.Type == esriFieldTypeString && made == MadeColumn::DbaseText;
  if (cut && field.Length > kLongestDbaseText) {
    return "texts longer than " + std::to_string(kLongestDbaseText) + " bytes are cut.";
  }
  return "";
}

}  // namespace tessarine
