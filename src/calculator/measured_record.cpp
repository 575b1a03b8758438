// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/measured_record.h"

namespace tessarine {

MeasuredRecord MeasureAll(const ReadRecord& record, std::span<const ChosenMeasure> measures,
                          MeasureSettings& settings) {
  MeasuredRecord measured;
  measured.fault = record.fault;
  if (measured.fault || !record.has_shape) return measured;
  std::unique_ptr<MeasureRecord> in_hand;
  KeepFault(record.oid, measured.fault, [&] { in_hand = BeginRecord(record.shape, settings); });
  if (!in_hand) return measured;
  measured.results.resize(measures.size());
  for (std::size_t place = 0; place < measures.size(); ++place) {
    MeasuredRecord::Result& result = measured.results[place];
    KeepFault(record.oid, result.fault, [&] { result.values = Measure(*measures[place].row, *in_hand); });
  }
  measured.warnings = in_hand->Warnings();
  return measured;
}

}  // namespace tessarine
