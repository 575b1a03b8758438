// The plan of a conversion: what its run would read, make and ask.
#include "conversion/field_transfer.h"
#include "conversion/modCreateVertices.h"
#include "conversion/output_target.h"
#include "conversion/run_reports.h"
#include "platform/host.h"
#include "platform/rich_text.h"
#include "platform/trap.h"
#include "support/MyGeneralOperations.h"
#include "support/attempt.h"
#include "support/output_chooser.h"

namespace tessarine::modCreateVertices {
namespace {

using namespace MyGeneralOperations;

std::shared_ptr<IFeatureWorkspace> OpenTarget(const OutputTarget& target) {
  const auto factory = target.kind == kFileGeodatabase       ? CreateFileGDBWorkspaceFactory()
                       : target.kind == kPersonalGeodatabase ? CreateAccessWorkspaceFactory()
                                                             : CreateShapefileWorkspaceFactory();
  return Attempt([&] { return factory->OpenFromFile(WithoutTrailingSlash(target.directory), 0); });
}

bool OutputExists(const OutputTarget& target) {
  const std::shared_ptr<IFeatureWorkspace> workspace = OpenTarget(target);
  return workspace && CheckIfFeatureClassExists(workspace, target.name);
}

std::string KindText(const OutputTarget& target) {
  const std::string kind = DirectoryTypeText(target.kind);
  return target.InDataset() ? kind + ", feature dataset " + EscapeRtf(target.feature_dataset) : kind;
}

const char* ShapeWord(esriGeometryType type) {
  switch (type) {
    case esriGeometryPoint:
      return "point";
    case esriGeometryMultipoint:
      return "multipoint";
    case esriGeometryPolyline:
      return "polyline";
    case esriGeometryPolygon:
      return "polygon";
    default:
      return "unknown";
  }
}

std::string FieldLines(const FieldTransfer& transfer) {
  std::string lines;
  const std::int32_t own_count =
      transfer.OutputFields()->Count() - static_cast<std::int32_t>(transfer.Chosen().size());
  for (std::int32_t index = 0; index < transfer.OutputFields()->Count(); ++index) {
    lines += "       " + EscapeRtf(transfer.OutputFields()->Element(index).AsObject<Field>()->Name);
    if (index >= own_count) {
      lines += "  <--  " + EscapeRtf(transfer.Chosen()[static_cast<std::size_t>(index - own_count)].input);
    }
    lines += "\\par\r\n";
  }
  return lines;
}

}  // namespace

std::string PlanConversion(const ConversionRun& run, const std::shared_ptr<IFeatureLayer>& layer,
                           const std::shared_ptr<VarArray>& fields, bool all_records, const std::string& path,
                           const std::shared_ptr<IApplication>&, const std::shared_ptr<clsExtension>& extension) {
  return Trap("PlanConversion", [&]() -> std::string {
    const std::shared_ptr<IFeatureClass> input = Require(layer->FeatureClass(), "FeatureClass");
    const OutputTarget target = SplitOutputPath(path, *extension);
    const FieldTransfer transfer(*input, run, *fields);
    const std::string question =
        OutputExists(target) ? "  ** Feature Class Already Exists: the run would ask whether to overwrite it.\\par\r\n"
                             : "  ** None\\par\r\n";
    return "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}\r\n"
           "\\viewkind4\\uc1\\pard\\qc\\b\\f0\\fs16 " +
           std::string(run.Words.ReportTitle) +
           ", planned only: nothing was written\\par\r\n\\pard Input:\\b0\\par\r\n"
           "  ** Input Feature Layer: " +
           EscapeRtf(layer->Name()) + "\\par\r\n  ** " +
           std::string(all_records ? run.Words.AllLabel : run.Words.SelectedLabel) +
           std::to_string(extension->AnalysisRecordCount) + ")\\par\r\n  ** Spatial Reference:  " +
           EscapeRtf(input->SpatialReference()->Name()) + "\\par\r\n\\b Output:\\b0\\par\r\n  ** " +
           PathForReport(path) + "\\par\r\n  ** " + KindText(target) + ", " +
           ShapeWord(OutputGeometry(run.Shape, input->ShapeType())) + "\\par\r\n\\b Fields:\\b0\\par\r\n" +
           FieldLines(transfer) + "\\b Questions:\\b0\\par\r\n" + question + "}";
  });
}

}  // namespace tessarine::modCreateVertices
