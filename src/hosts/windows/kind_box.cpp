// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/kind_box.h"

#include <algorithm>

#include "engine/format_abilities.h"
#include "hosts/windows/qt_text.h"
#include "outputs/temporary_layers.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

// What a name in a folder can be: a file of one layer, or the file of a new container.
bool IsNamedInFolder(const Format& format) {
  const bool told = !format.HasOwnWorkspace() || !format.container;
  return told && format.writable && !format.server && CanWrite(format);
}

}  // namespace

KindBox::KindBox(QWidget* parent) : QComboBox(parent) {
  for (const Format& format : AllFormats()) {
    if (IsNamedInFolder(format)) formats_.push_back(&format);
  }
  if (TemporaryLayers() != nullptr) formats_.push_back(TemporaryLayers());
  for (const Format* format : formats_) {
    const std::string ending = format->server ? "" : " (*" + std::string(format->ending) + ")";
    addItem(ToQt(std::string(format->name) + ending));
  }
}

const Format& KindBox::Picked() const { return *formats_[static_cast<std::size_t>(std::max(0, currentIndex()))]; }

const Format* KindBox::FormatOfName(const std::string& name) const {
  const auto row = std::ranges::find(formats_, FormatOfPath(name));
  return row == formats_.end() || (*row)->server ? nullptr : *row;
}

void KindBox::FollowName(const std::string& name) {
  const Format* named = FormatOfName(name);
  if (named == nullptr) return;
  setCurrentIndex(static_cast<int>(std::ranges::find(formats_, named) - formats_.begin()));
}

void KindBox::PickTemporaryLayers() {
  if (TemporaryLayers() != nullptr) setCurrentIndex(count() - 1);
}

bool KindBox::PicksTemporaryLayers() const { return &Picked() == TemporaryLayers(); }

std::string KindBox::WithoutEnding(const std::string& name) const {
  const Format* named = FormatOfName(name);
  if (named == nullptr) return name;
  std::vector<std::string_view> endings(named->other_endings.begin(), named->other_endings.end());
  endings.push_back(named->ending);
  for (const std::string_view ending : endings) {
    if (EndsWithIgnoringCase(name, ending)) return name.substr(0, name.size() - ending.size());
  }
  return name;
}

std::string KindBox::NameOfKind(const std::string& name) const {
  const std::string stem = WithoutEnding(name);
  return stem.empty() || Picked().server ? stem : stem + std::string(Picked().ending);
}

std::string KindBox::WithEnding(const std::string& name) const {
  if (PicksTemporaryLayers()) return WithoutEnding(name);
  return FormatOfName(name) != nullptr || name.empty() ? name : name + std::string(Picked().ending);
}

}  // namespace tessarine
