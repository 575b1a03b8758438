// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/results/result_origin.h"

#include <algorithm>

#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"
#include "platform/text_formats.h"

namespace tessarine::qgis {
namespace {

std::string WrittenName(const std::string& asked, const RunJournal& journal) {
  const auto same = [&](const ChangedName& name) { return EqualsIgnoringCase(name.asked, asked); };
  const auto changed = std::ranges::find_if(journal.changed_names, same);
  return changed != journal.changed_names.end() ? changed->written : asked;
}

std::string SpheroidWords(const RunJournal& journal) {
  const auto spheroid = SpheroidOf(journal);
  if (!spheroid) return "";
  return spheroid->name.empty() ? ExactNumberText(spheroid->semi_major) + " by " + ExactNumberText(spheroid->semi_minor)
                                : spheroid->name;
}

std::string AliasOf(const FieldMeaning& meaning, const std::string& spheroid) {
  std::string about = FromQt(Translated(meaning.unit));
  if (meaning.on_spheroid && !spheroid.empty()) about += (about.empty() ? "" : ", ") + spheroid;
  return FromQt(Translated(meaning.text)) + (about.empty() ? "" : " (" + about + ")");
}

}  // namespace

ResultOrigin OriginOf(const ToolSpec& spec, const Arguments& arguments, const std::vector<FieldMeaning>& meanings,
                      const RunJournal& journal, const std::string& line) {
  ResultOrigin origin{spec.result, std::string(spec.title), std::string(spec.makes), {}, {}, {}};
  for (const ToolParameter& parameter : spec.parameters) {
    if (parameter.kind != ParameterKind::Fields) continue;
    for (const std::string& field : arguments.Get<std::vector<std::string>>(parameter.name)) {
      origin.carried.push_back(WrittenName(field, journal));
    }
  }
  const std::string spheroid = SpheroidWords(journal);
  for (const FieldMeaning& meaning : meanings) {
    origin.aliases.push_back({WrittenName(meaning.field, journal), AliasOf(meaning, spheroid)});
  }
  origin.stamp = engine::StampLines(journal, line, TESSARINE_VERSION);
  return origin;
}

}  // namespace tessarine::qgis
