// SPDX-License-Identifier: GPL-2.0-or-later
// The geoprocessing factory, as a host meets it.
#include <gtest/gtest.h>

#include "frame/published/Functions.h"
#include "helpers/reported_faults.h"
#include "helpers/shapes.h"
#include "helpers/test_host.h"
#include "hosts/document/component_loader.h"

namespace tessarine {
namespace {

class TestName final : public IGPName {
 public:
  [[nodiscard]] std::string NameString() const override { return "buffer"; }
  [[nodiscard]] std::string Name() const override { return "Buffer"; }
};

class TestFunction final : public IGPFunction {
 public:
  [[nodiscard]] std::string Name() const override { return "Buffer"; }
  [[nodiscard]] std::shared_ptr<IName> FullName() const override { return std::make_shared<TestName>(); }
};

TEST(FunctionFactory, NamesItselfAndMakesNoTool) {
  testing::TestHost host;
  const testing::ReportedFaults reported;
  const auto factory = CreateComponentAs<IGPFunctionFactory>("Tessarine.clsFunctionFactory", "IGPFunctionFactory");
  EXPECT_EQ(factory->CLSID()->Value, "Tessarine.clsFunctionFactory");
  EXPECT_EQ(factory->Name(), "Tessarine Toolset");
  EXPECT_EQ(factory->Alias(), "Tessarine_FunctionFactory");
  EXPECT_EQ(factory->GetFunction("Buffer"), nullptr);
  EXPECT_EQ(factory->GetFunctionName("Buffer"), nullptr);
  EXPECT_EQ(factory->GetFunctionEnvironments(), nullptr);
  EXPECT_TRUE(host.error_reports.empty());
  EXPECT_EQ(factory->GetFunctionNames(), nullptr) << "there are none";
  ASSERT_EQ(host.error_reports.size(), 1U);
  const std::string& report = host.error_reports[0];
  EXPECT_LT(report.find("\tIGPFunctionFactory_GetFunctionNames "), report.find("\tGetFunctionName "));
}

TEST(FunctionFactory, ANameComesFromItsFunctionCountedFromOne) {
  VarArray functions;
  functions.Add(Variant(std::make_shared<TestFunction>()));
  functions.Add(Variant(1));
  EXPECT_EQ(Functions::GetFunctionName(functions, 1)->Name(), "Buffer");
  EXPECT_EQ(testing::FaultOf([&] { (void)Functions::GetFunctionName(functions, 2); }), kObjectNotSet);
  EXPECT_EQ(testing::FaultOf([&] { (void)Functions::GetFunctionName(functions, 3); }), kInvalidCall);
  EnumGPName names;
  names.Add(Functions::GetFunctionName(functions, 1));
  EXPECT_NE(names.Next(), nullptr);
  EXPECT_EQ(names.Next(), nullptr);
  names.Reset();
  EXPECT_NE(names.Next(), nullptr);
}

}  // namespace
}  // namespace tessarine
