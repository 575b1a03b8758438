// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/output_run.h"

#include "hosts/terminal/output_checks.h"
#include "hosts/terminal/output_wishes.h"
#include "hosts/terminal/refusal.h"
#include "outputs/format_workspace.h"
#include "outputs/layer_copy.h"
#include "platform/paths.h"

namespace tessarine {

namespace {

// A layer of the name that stands is asked about by the tool.
bool MayEnter(const NamedOutput& output) {
  if (!EntersContainer(output) || Host().PlanOnly() || Stands(output.place)) return true;
  return Host().Ask(RunQuestion::ReplaceOutput, EnteringQuestion(output.place), kOutputStands);
}

// Whether there can be such a class at all: of a class with one field that every tool makes.
void RefuseUnfitFormat(const OutputPlace& place, const SpatialReferenceRef& reference) {
  if (place.IsFolder() || place.format->HasOwnWorkspace()) return;
  auto shape = std::make_shared<Field>();
  shape->Name = "Shape";
  shape->Type = esriFieldTypeGeometry;
  shape->GeometryDef = std::make_shared<GeometryDef>();
  shape->GeometryDef->GeometryType = esriGeometryPoint;
  shape->GeometryDef->SpatialReference = reference;
  auto number = std::make_shared<Field>();
  number->Name = "Uniq_ID";
  number->Type = esriFieldTypeInteger;
  auto fields = std::make_shared<Fields>();
  fields->AddField(shape);
  fields->AddField(number);
  try {
    const auto workspace =
        CreateFormatWorkspaceFactory(*place.format)->OpenFromFile(FromNativePath(place.container), 0);
    const std::string name = place.InContainer() ? place.ClassName() : place.name;
    (void)Require(Cast<IClassPlanner>(workspace), "IClassPlanner")->PlanClass(name, fields, "Shape");
  } catch (const Fault& fault) {
    throw Refusal("The output '" + place.NativePath() + "' can't be made. " + fault.Description());
  }
}

}  // namespace

ExitStatus RunInto(Session& session, const ITool& tool, const Arguments& arguments, const NamedOutput& output,
                   const SpatialReferenceRef& reference, const Envelope& extent, const CommonOptions& options) {
  const OutputPlace& place = output.place;
  RefuseUnusablePlace(place, options);
  RefuseTakenPlace(output, options);
  RefuseUnreachableReference(output, reference, extent);
  const SpatialReferenceRef made = output.wished ? output.wished : reference;
  // Of a copy the tool tries the very columns, and those of graphics are others.
  const ToolSpec& spec = tool.Spec();
  if (spec.works_on == ToolSubject::Layers && !spec.WritesIntoSource()) RefuseUnfitFormat(place, made);
  CheckDataset(place, made);
  PromisePlace(place, made, session.Host().LocalSystem());
  session.Host().SetWishes(WishesFor(output, options));
  if (!MayEnter(output)) return ExitStatus::Refused;
  return session.Run(tool, arguments);
}

}  // namespace tessarine
