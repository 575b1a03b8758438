// SPDX-License-Identifier: GPL-2.0-or-later
// Starts the map program's libraries with a profile of their own, on no screen.
#include <gtest/gtest.h>
#include <qgsapplication.h>

#include "helpers/temporary_folder.h"
#include "hosts/windows/qt_text.h"

int main(int argument_count, char** arguments) {
  ::testing::InitGoogleTest(&argument_count, arguments);
  const tessarine::testing::TemporaryFolder profile;
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  setenv("HOME", profile.Native().c_str(), 1);
  QgsApplication application(argument_count, arguments, true, tessarine::ToQt(profile.Native()));
  QgsApplication::init(tessarine::ToQt(profile.Native()));
  QgsApplication::initQgis();
  const int status = RUN_ALL_TESTS();
  QgsApplication::exitQgis();
  return status;
}
