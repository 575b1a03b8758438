// SPDX-License-Identifier: GPL-2.0-or-later
// The component exports, and the menus and commands as a host meets them: by their identifiers alone.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <nlohmann/json.hpp>
#include <set>

#include "helpers/fake_application.h"
#include "helpers/reported_faults.h"
#include "helpers/temporary_folder.h"
#include "helpers/test_host.h"
#include "hosts/document/document_application.h"
#include "platform/component.h"
#include "session/clsExtension.h"

namespace tessarine {
namespace {

using testing::FakeApplication;
using testing::TestHost;

template <class Interface>
std::shared_ptr<Interface> Make(const std::string& id, const char* interface_name) {
  const IClassFactory* factory = nullptr;
  if (DllGetClassObject(id.c_str(), interface_name, &factory) != kComponentOk) return nullptr;
  return Cast<Interface>(factory->CreateInstance());
}

std::string Mnemonics(const std::string& caption) {
  std::string keys;
  for (std::size_t at = caption.find('&'); at != std::string::npos; at = caption.find('&', at + 1))
    keys += caption[at + 1];
  return keys;
}

TEST(ExportsTest, ClassesAreFoundIgnoringCaseAndCheckedForTheInterface) {
  struct Row {
    const char* id;
    const char* interface_name;
    int result;
  };
  const Row rows[] = {
      {"Tessarine.clsExtension", "IExtension", kComponentOk},
      {"tessarine.CLSEXTENSION", "IPersistVariant", kComponentOk},
      {"Tessarine.clsConvertLabelPoint", "ICommand", kComponentOk},
      {"Tessarine.clsConvertLabelpoint", "ICommand", kComponentOk},
      {"Tessarine.clsMenu", "IRootLevelMenu", kComponentOk},
      {"Tessarine.clsShapeSubMenu", "IRootLevelMenu", kNoSuchInterface},
      {"Tessarine.cmdAbout", "IMenuDef", kNoSuchInterface},
      {"Tessarine.clsNothing", "ICommand", kNoSuchClass},
      {"clsExtension", "IExtension", kNoSuchClass},
      {"", "", kNoSuchClass},
  };
  for (const Row& row : rows) {
    const IClassFactory* factory = nullptr;
    EXPECT_EQ(DllGetClassObject(row.id, row.interface_name, &factory), row.result) << row.id;
    EXPECT_EQ(factory != nullptr, row.result == kComponentOk) << row.id;
  }
  const IClassFactory* factory = nullptr;
  EXPECT_NE(DllGetClassObject(nullptr, "ICommand", &factory), kComponentOk);
  EXPECT_NE(DllGetClassObject("Tessarine.cmdAbout", nullptr, &factory), kComponentOk);
  EXPECT_NE(DllGetClassObject("Tessarine.cmdAbout", "ICommand", nullptr), kComponentOk);
}

TEST(ExportsTest, TheLibraryStaysWhileItsObjectsLive) {
  EXPECT_EQ(DllCanUnloadNow(), kComponentOk);
  auto menu = Make<IMenuDef>("Tessarine.clsMenu", "IMenuDef");
  const std::shared_ptr<Object> other = menu;
  EXPECT_EQ(DllCanUnloadNow(), kComponentFalse);
  menu = nullptr;
  EXPECT_EQ(DllCanUnloadNow(), kComponentFalse);
  const_cast<std::shared_ptr<Object>&>(other).reset();
  EXPECT_EQ(DllCanUnloadNow(), kComponentOk);
}

TEST(ExportsTest, RegistrationWritesAManifestAndTakesItAway) {
  const testing::TemporaryFolder folder;
  const std::string data = folder.Native("da\"ta");
  setenv("XDG_DATA_HOME", data.c_str(), 1);
  ASSERT_EQ(DllRegisterServer(), kComponentOk);
  ASSERT_EQ(DllRegisterServer(), kComponentOk) << "twice is as good as once";
  const auto manifest = nlohmann::json::parse(std::ifstream(data + "/" + kManifestFile));
  EXPECT_EQ(manifest.at("version"), TESSARINE_VERSION);
  EXPECT_TRUE(std::filesystem::exists(manifest.at("library").get<std::string>()));
  for (const auto& component : manifest.at("classes")) {
    const auto id = component.at("id").get<std::string>();
    for (const auto& name : component.at("interfaces")) {
      const IClassFactory* factory = nullptr;
      EXPECT_EQ(DllGetClassObject(id.c_str(), name.get<std::string>().c_str(), &factory), kComponentOk) << id;
    }
  }
  EXPECT_GE(manifest.at("classes").size(), 27U);  // the extension, a toolbar, four menus, twenty-one commands
  EXPECT_EQ(DllUnregisterServer(), kComponentOk);
  EXPECT_FALSE(std::filesystem::exists(data + "/" + kManifestFile));
  EXPECT_EQ(DllUnregisterServer(), kComponentOk);

  folder.Write("file");
  setenv("XDG_DATA_HOME", folder.Native("file").c_str(), 1);
  EXPECT_EQ(DllRegisterServer(), kComponentFailed);
  unsetenv("XDG_DATA_HOME");
}

TEST(MenuTest, EveryItemLeadsToItsClassAndSeparatorsStandWhereTheyShould) {
  struct Row {
    const char* menu;
    const char* groups;  // one mark for each item
  };
  const Row rows[] = {
      {"Tessarine.clsMenu", "---G"},
      {"Tessarine.clsShapeSubMenu", "-G------G-"},
      {"Tessarine.clsGraphicsSubMenu", "-G-----"},
      {"Tessarine.clsGeodesicSubMenu", "--G"},
  };
  std::set<std::string> reached;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.menu);
    const auto menu = Make<IMenuDef>(row.menu, "IMenuDef");
    ASSERT_NE(menu, nullptr);
    std::string groups, mnemonics;
    for (std::int32_t position = 0; position < menu->ItemCount(); ++position) {
      ItemDef item;
      menu->GetItemInfo(position, item);
      groups += item.Group ? 'G' : '-';
      const auto command = Make<ICommand>(item.ID, "ICommand");
      EXPECT_TRUE(command || Make<IMenuDef>(item.ID, "IMenuDef")) << item.ID;
      EXPECT_TRUE(reached.insert(item.ID).second) << item.ID << " stands twice";
      if (command) mnemonics += Mnemonics(command->Caption());
    }
    EXPECT_EQ(groups, row.groups);
    const std::string lower = LowerCase(mnemonics);
    EXPECT_EQ(std::set<char>(lower.begin(), lower.end()).size(), lower.size()) << "a mnemonic stands twice: " << lower;
    for (const std::int32_t outside : {-1, menu->ItemCount()}) {
      ItemDef item{"kept", true, 7};
      menu->GetItemInfo(outside, item);
      EXPECT_EQ(item.ID, "kept");
      EXPECT_TRUE(item.Group);
    }
  }
  EXPECT_EQ(reached.size(), 3U + 21U) << "three menus and every command";

  const auto toolbar = Make<IToolBarDef>("Tessarine.clsToolBar", "IToolBarDef");
  ItemDef item;
  toolbar->GetItemInfo(1, item);
  EXPECT_EQ(item.ID, "");
  toolbar->GetItemInfo(0, item);
  EXPECT_EQ(item.ID, "Tessarine.clsMenu");
  EXPECT_EQ(toolbar->ItemCount(), 1);
}

class CommandTest : public ::testing::Test {
 protected:
  TestHost host;
  testing::ReportedFaults reported;
  std::shared_ptr<FakeApplication> application = std::make_shared<FakeApplication>();
  std::shared_ptr<MapDocument> document = std::make_shared<MapDocument>();
  std::shared_ptr<clsExtension> extension = std::make_shared<clsExtension>();

  void SetUp() override {
    application->document = document;
    application->extension = extension;
    application->templates = {"\\home\\ann\\map.json"};
    extension->Startup(Variant(application));
  }
  std::shared_ptr<ICommand> Command(const std::string& name) const {
    auto command = Make<ICommand>("Tessarine." + name, "ICommand");
    command->OnCreate(application);
    return command;
  }
};

TEST_F(CommandTest, PolygonBuildingNeedsANewerHost) {
  const auto newer = Command("clsBuildPolygon");
  EXPECT_TRUE(newer->Enabled());
  EXPECT_EQ(newer->Caption(), "Buil&d Polygons from Polylines");
  host.registry.real_version = "9.1";
  extension->Startup(Variant(application));
  const auto older = Command("clsBuildPolygon");
  EXPECT_FALSE(older->Enabled());
  EXPECT_EQ(older->Caption(), "Buil&d Polygons (Disabled: Pre-ArcGIS 9.2)");
  EXPECT_EQ(older->Tooltip(), "Disabled:  This function requires ArcGIS 9.2 or newer...");
  EXPECT_EQ(older->Message(), older->Tooltip());
  EXPECT_EQ(older->Name(), "Tessarine_BuildPolygon");
  EXPECT_TRUE(Command("clsShapesToVertices")->Enabled());
}

struct RunOfACommand {
  const char* command;
  const char* dialog;
};

// One of each kind of run that begins with a dialog.
constexpr RunOfACommand kRuns[] = {
    {"clsShapesToVertices", "frmLayerFields"}, {"clsConvertGeometry", "frmGeometry"},
    {"clsBuildPolygon", "frmBuildParams"},     {"clsWrapBoundary", "frmBoundaryWrap"},
    {"OCentricToOGraphic", "frmGeoCentric"},
};

TEST_F(CommandTest, ACancelledDialogLeavesEverythingAsItWas) {
  for (const RunOfACommand& run : kRuns) {
    SCOPED_TRACE(run.command);
    extension->ShouldContinue = true;
    host.forms.shown.clear();
    Command(run.command)->OnClick();
    EXPECT_EQ(host.forms.shown, std::vector<std::string>{run.dialog});
    EXPECT_FALSE(extension->ShouldContinue);
    EXPECT_FALSE(document->Dirty());
    EXPECT_TRUE(host.error_reports.empty());
  }
}

TEST_F(CommandTest, WithoutTheExtensionARunEndsInAReport) {
  application->extension = nullptr;
  for (const RunOfACommand& run : kRuns) {
    SCOPED_TRACE(run.command);
    const auto command = Command(run.command);
    host.error_reports.clear();
    command->OnClick();
    ASSERT_FALSE(host.error_reports.empty());
    EXPECT_NE(host.error_reports.back().find("\tICommand_OnClick "), std::string::npos);
    EXPECT_NE(host.error_reports.back().find("clsExtension"), std::string::npos);
    EXPECT_TRUE(host.forms.shown.empty());
  }
}

TEST_F(CommandTest, AHookThatIsNoApplicationIsReported) {
  const auto command = Make<ICommand>("Tessarine.clsSelAllElements", "ICommand");
  command->OnCreate(document);
  EXPECT_EQ(host.error_reports.size(), 1U);
  command->OnClick();
  EXPECT_EQ(host.error_reports.size(), 2U);
  EXPECT_NE(host.error_reports[1].find("\tICommand_OnClick "), std::string::npos);
}

TEST(DocumentApplicationTest, SettingsTravelWithADocumentThatBecameDirty) {
  TestHost host;
  const testing::ReportedFaults reported;
  const auto document = std::make_shared<MapDocument>();
  document->settings = {3.0, "\\old", "", false, true};  // a document of an older version
  const auto application = std::make_shared<DocumentApplication>(document, nullptr);
  application->Start();
  const auto extension = FindExtension(application);
  ASSERT_NE(extension, nullptr);
  EXPECT_EQ(host.error_reports.size(), 1U);
  EXPECT_TRUE(extension->ProgressDialogAutoClose);
  EXPECT_EQ(application->FindExtensionByCLSID(UID("tessarine.CLSextension")), extension);

  extension->DirectoryPath = "\\new";
  application->Stop();
  EXPECT_EQ(document->settings.size(), 5U) << "a clean document stays as it is";
  EXPECT_EQ(FindExtension(application), nullptr);

  application->Start();
  FindExtension(application)->DirectoryPath = "\\new";
  document->SetDirty();
  application->Stop();
  ASSERT_EQ(document->settings.size(), 12U);
  EXPECT_EQ(document->settings[1], Variant("\\new"));
}

TEST(DocumentApplicationTest, ClicksByIdentifier) {
  TestHost host;
  host.registry.real_version = "9.1";
  const auto application = std::make_shared<DocumentApplication>(std::make_shared<MapDocument>(), nullptr);
  application->Start();
  EXPECT_TRUE(application->Click("Tessarine.clsSelAllElements"));
  EXPECT_FALSE(application->Click("Tessarine.clsBuildPolygon"));
  EXPECT_THROW((void)application->Click("Tessarine.clsNothing"), Fault);
  EXPECT_THROW((void)application->Click("Tessarine.clsMenu"), Fault);
  application->Stop();
}

}  // namespace
}  // namespace tessarine
