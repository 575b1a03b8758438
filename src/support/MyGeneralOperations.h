// SPDX-License-Identifier: GPL-2.0-or-later
// The general operations that dialogs and runs share.
#pragma once

#include "support/dataset_names.h"
#include "support/elapsed_time.h"
#include "support/layer_listing.h"
#include "support/numeric_helpers.h"
#include "support/output_datasets.h"
#include "support/output_kinds.h"
