// SPDX-License-Identifier: GPL-2.0-or-later
// The suite in an application with a document, a host that remembers, and a folder that goes away again.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "helpers/fake_application.h"
#include "helpers/reported_faults.h"
#include "helpers/temporary_folder.h"
#include "helpers/test_host.h"
#include "hosts/document/document_layer.h"
#include "hosts/document/map_document.h"
#include "session/clsExtension.h"

namespace tessarine::testing {

class SuiteTest : public ::testing::Test {
 protected:
  TestHost host;
  ReportedFaults reported;
  TemporaryFolder folder;
  std::shared_ptr<FakeApplication> application = std::make_shared<FakeApplication>();
  std::shared_ptr<MapDocument> document = std::make_shared<MapDocument>();
  std::shared_ptr<clsExtension> extension = std::make_shared<clsExtension>();

  SuiteTest() {
    application->document = document;
    application->extension = extension;
  }
};

}  // namespace tessarine::testing
