// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/output_run.h"

#include "hosts/terminal/form_answers.h"
#include "hosts/terminal/output_checks.h"

namespace tessarine {

ExitStatus RunInto(Session& session, const std::string& class_id, FormScript& script, const OutputPlace& place,
                   const SpatialReferenceRef& reference, const CommonOptions& options) {
  RefuseUnusablePlace(place, options);
  RefuseTakenName(place, options);
  CheckDataset(place, reference);
  const PreparedPlace prepared(place, reference, session.Host().LocalSystem());
  if (place.InContainer()) session.Host().SetBrowsePlace(prepared.Browse());
  return session.Run(class_id, &script);
}

}  // namespace tessarine
