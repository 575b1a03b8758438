// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/reference_dialog.h"

#include <proj.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>

#include "hosts/windows/local_numbers.h"
#include "hosts/windows/pointer.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/readable_window.h"
#include "hosts/windows/translation.h"
#include "platform/fault.h"
#include "platform/reference_spheroid.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

void ReadReferences(PJ_CONTEXT* context, const char* authority, PJ_TYPE type, std::vector<NamedReference>& references) {
  PROJ_CRS_LIST_PARAMETERS* wanted = proj_get_crs_list_parameters_create();
  wanted->types = &type;
  wanted->typesCount = 1;
  int count = 0;
  PROJ_CRS_INFO** infos = proj_get_crs_info_list_from_database(context, authority, wanted, &count);
  proj_get_crs_list_parameters_destroy(wanted);
  for (int index = 0; index < count; ++index) {
    const PROJ_CRS_INFO& info = *infos[index];
    references.push_back({info.name, std::string(info.auth_name) + ":" + info.code});
  }
  proj_crs_info_list_destroy(infos);
}

// Geographic references first, each kind by name.
std::vector<NamedReference> ReadAllReferences() {
  std::vector<NamedReference> all;
  PJ_CONTEXT* context = proj_context_create();
  for (const PJ_TYPE type : {PJ_TYPE_GEOGRAPHIC_2D_CRS, PJ_TYPE_PROJECTED_CRS}) {
    std::vector<NamedReference> kind;
    for (const char* authority : {"EPSG", "ESRI", "IAU_2015"}) ReadReferences(context, authority, type, kind);
    std::ranges::stable_sort(kind, {}, &NamedReference::name);
    std::ranges::move(kind, std::back_inserter(all));
  }
  proj_context_destroy(context);
  return all;
}

// Text that can be nothing but a reference of its own.
bool IsDefinition(const std::string& text) {
  const std::string lower = LowerCase(text);
  return lower.starts_with("epsg:") || lower.starts_with("esri:") || lower.starts_with("+proj") ||
         lower.find('[') != std::string::npos;
}

QString Details(const SpatialReferenceRef& reference) {
  QStringList lines{ToQt(reference->Name())};
  if (const auto projected = Cast<const ProjectedCoordinateSystem>(reference)) {
    lines << Translated("Projected, unit: %1").arg(Translated(projected->CoordinateUnit().Name));
  } else if (const auto system = Cast<const GeographicCoordinateSystem>(reference)) {
    lines << Translated("Geographic, unit: %1").arg(Translated(system->CoordinateUnit().Name));
  }
  if (const auto spheroid = SpheroidBeneath(reference)) {
    lines << Translated("Spheroid: %1, semi-axes %2 m and %3 m")
                 .arg(ToQt(spheroid->Name()), InLocale(NumberText(spheroid->SemiMajorAxis())),
                      InLocale(NumberText(spheroid->SemiMinorAxis())));
  }
  return lines.join(QLatin1Char('\n'));
}

}  // namespace

const std::vector<NamedReference>& PredefinedReferences() {
  static const std::vector<NamedReference> references = ReadAllReferences();
  return references;
}

ReferenceDialog::ReferenceDialog(const SpatialReferenceRef& initial, QWidget* parent)
    : QDialog(parent),
      chosen_(initial),
      search_(new QLineEdit(this)),
      list_(new QListView(this)),
      details_(new QLabel(this)),
      ok_(new QPushButton(Translated("OK"), this)) {
  Build();
  Search(QString());
  if (initial) MarkInitial(initial);
  ShowChosen();
}

// Shows where in the list the reference stands that the dialog begins with.
void ReferenceDialog::MarkInitial(const SpatialReferenceRef& initial) {
  const std::string code = ":" + std::to_string(initial->FactoryCode());
  for (std::size_t line = 0; line < found_.size(); ++line) {
    if (found_[line]->name != initial->Name() || !found_[line]->code.ends_with(code)) continue;
    list_->setCurrentIndex(lines_.index(static_cast<int>(line)));
    chosen_ = initial;
  }
}

void ReferenceDialog::Build() {
  setObjectName(QStringLiteral("ReferenceDialog"));
  setWindowTitle(Translated("Spatial Reference"));
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  auto* cancel = new QPushButton(Translated("Cancel"), this);
  search_->setObjectName(QStringLiteral("txtSearch"));
  list_->setObjectName(QStringLiteral("lbxReferences"));
  details_->setObjectName(QStringLiteral("lblDetails"));
  ok_->setObjectName(QStringLiteral("cmdOK"));
  cancel->setObjectName(QStringLiteral("cmdCancel"));
  auto* label = new QLabel(Translated("&Search by name or code, or enter a definition:"), this);
  label->setBuddy(search_);
  search_->setPlaceholderText(QStringLiteral("utm 12n, EPSG:4326, +proj=..."));
  search_->setClearButtonEnabled(true);
  list_->setModel(&lines_);
  list_->setUniformItemSizes(true);
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  details_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  details_->setWordWrap(true);
  details_->setMinimumHeight(3 * details_->fontMetrics().lineSpacing());
  details_->setAlignment(Qt::AlignTop);
  ok_->setDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(ok_);
  buttons->addWidget(cancel);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(label);
  layout->addWidget(search_);
  auto* list_label = new QLabel(Translated("&References:"), this);
  list_label->setBuddy(list_);
  layout->addWidget(list_label);
  layout->addWidget(list_, 1);
  layout->addWidget(details_);
  layout->addLayout(buttons);
  resize(DialogUnits(font()).Size(300, 220));
  KeepReadable(*this);

  connect(search_, &QLineEdit::textChanged, this, [this](const QString& words) { Search(words); });
  connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& line) {
    if (line.isValid()) Choose(found_[static_cast<std::size_t>(line.row())]->code);
  });
  connect(list_, &QListView::doubleClicked, this, [this] {
    if (chosen_) accept();
  });
  connect(ok_, &QPushButton::clicked, this, [this] { accept(); });
  connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
}

void ReferenceDialog::Search(const QString& words) {
  const std::string typed = FromQt(words.trimmed());
  if (IsDefinition(typed)) Choose(typed);
  const QStringList wanted = ToQt(typed).split(QLatin1Char(' '), Qt::SkipEmptyParts);
  found_.clear();
  QStringList lines;
  for (const NamedReference& reference : PredefinedReferences()) {
    const QString line = ToQt(reference.name + "  [" + reference.code + "]");
    const bool all = std::all_of(wanted.begin(), wanted.end(),
                                 [&](const QString& word) { return line.contains(word, Qt::CaseInsensitive); });
    if (!all) continue;
    found_.push_back(&reference);
    lines << line;
  }
  lines_.setStringList(lines);
}

void ReferenceDialog::Choose(const std::string& text) {
  try {
    chosen_ = SpatialReferenceEnvironment::CreateFromText(text);
  } catch (const Fault&) {
    chosen_ = nullptr;  // half of a code, while it is typed
  }
  ShowChosen();
}

void ReferenceDialog::ShowChosen() {
  ok_->setEnabled(chosen_ != nullptr);
  details_->setText(chosen_ ? Details(chosen_) : Translated("No reference is chosen."));
}

SpatialReferenceRef WindowReferenceDialog::DoModalCreate(std::int32_t) {
  const PointerPause pause;
  ReferenceDialog dialog(initial_, forms_.DialogParent());
  return dialog.exec() == QDialog::Accepted ? dialog.Chosen() : nullptr;
}

}  // namespace tessarine
