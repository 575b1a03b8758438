// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/processing/choice_parameter.h"

#include <qgsapplication.h>
#include <qgscheckablecombobox.h>
#include <qgsgui.h>
#include <qgsprocessingguiregistry.h>
#include <qgsprocessingparametertype.h>
#include <qgsprocessingregistry.h>
#include <qgsprocessingwidgetwrapper.h>

#include <algorithm>
#include <utility>

#include "hosts/windows/translation.h"

namespace tessarine::qgis {
namespace {

const QString kType = QStringLiteral("tessarine_choice");

/// The program's own choice of words, under a type of its own: the type decides which box a dialog shows.
class WordParameter final : public QgsProcessingParameterEnum {
 public:
  WordParameter(const QString& name, const QString& label, const QStringList& words, ChoiceOf of, bool optional)
      : QgsProcessingParameterEnum(name, label, words, of == ChoiceOf::Several, QVariant(), optional, true) {}
  [[nodiscard]] QgsProcessingParameterDefinition* clone() const override { return new WordParameter(*this); }
  [[nodiscard]] QString type() const override { return kType; }
};

class WordParameterType final : public QgsProcessingParameterType {
 public:
  [[nodiscard]] QgsProcessingParameterDefinition* create(const QString& name) const override {
    return new WordParameter(name, QString(), {}, ChoiceOf::One, false);
  }
  [[nodiscard]] QString description() const override { return Translated("A choice among words."); }
  [[nodiscard]] QString name() const override { return Translated("Choice"); }
  [[nodiscard]] QString id() const override { return kType; }
  // Only the suite's tools have them: a modeler can't add one to a model.
  [[nodiscard]] ParameterFlags flags() const override { return {}; }
  [[nodiscard]] QStringList acceptedPythonTypes() const override { return {QStringLiteral("str")}; }
  [[nodiscard]] QStringList acceptedStringValues() const override { return {Translated("A word of the list")}; }
};

QStringList WordsOf(const QVariant& value) {
  return value.type() == QVariant::String ? QStringList{value.toString()} : value.toStringList();
}

/// A box that shows the words in the user's language, and holds them as they are.
class WordBox final : public QgsAbstractProcessingParameterWidgetWrapper {
 public:
  WordBox(const QgsProcessingParameterDefinition& definition, QgsProcessingGui::WidgetType dialog)
      : QgsAbstractProcessingParameterWidgetWrapper(&definition, dialog) {}

 protected:
  QWidget* createWidget() override {
    const auto& parameter = static_cast<const QgsProcessingParameterEnum&>(*parameterDefinition());
    if (parameter.allowMultiple()) {
      several_ = new QgsCheckableComboBox;
      several_->setDefaultText(Translated("Choose one or more"));
      for (const QString& word : parameter.options()) {
        several_->addItemWithCheckState(Translated(word), Qt::Unchecked, word);
      }
      connect(several_, &QgsCheckableComboBox::checkedItemsChanged, this, [this] { emit widgetValueHasChanged(this); });
      box_ = several_;
    } else {
      box_ = new QComboBox;
      if (parameter.flags().testFlag(QgsProcessingParameterDefinition::FlagOptional)) {
        box_->addItem(QLatin1Char('[') + Translated("none") + QLatin1Char(']'), QVariant());
      }
      for (const QString& word : parameter.options()) box_->addItem(Translated(word), word);
      connect(box_, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
              [this] { emit widgetValueHasChanged(this); });
    }
    box_->setToolTip(parameter.toolTip());
    return box_;
  }

  void setWidgetValue(const QVariant& value, QgsProcessingContext&) override {
    const QStringList words = WordsOf(value);
    if (several_ == nullptr) {
      box_->setCurrentIndex(words.isEmpty() ? (box_->itemData(0).isValid() ? -1 : 0) : box_->findData(words.front()));
      return;
    }
    for (int line = 0; line < several_->count(); ++line) {
      const bool chosen = words.contains(several_->itemData(line).toString());
      several_->setItemCheckState(line, chosen ? Qt::Checked : Qt::Unchecked);
    }
    order_ = words;
  }

  // What was given keeps its order, which is that of the fields; what is chosen here comes after it.
  [[nodiscard]] QVariant widgetValue() const override {
    if (several_ == nullptr) return box_->currentData();
    QVariantList chosen = several_->checkedItemsData();
    const auto place_of = [this](const QVariant& word) {
      const int place = order_.indexOf(word.toString());
      return place < 0 ? order_.size() : place;
    };
    std::stable_sort(chosen.begin(), chosen.end(),
                     [&](const QVariant& one, const QVariant& other) { return place_of(one) < place_of(other); });
    return chosen;
  }

 private:
  QStringList order_;
  QComboBox* box_ = nullptr;
  QgsCheckableComboBox* several_ = nullptr;
};

class WordBoxFactory final : public QgsProcessingParameterWidgetFactoryInterface {
 public:
  [[nodiscard]] QString parameterType() const override { return kType; }
  QgsAbstractProcessingParameterWidgetWrapper* createWidgetWrapper(const QgsProcessingParameterDefinition* parameter,
                                                                   QgsProcessingGui::WidgetType dialog) override {
    return new WordBox(*parameter, dialog);  // the dialog owns it
  }

 protected:
  [[nodiscard]] QStringList compatibleParameterTypes() const override {
    return {QgsProcessingParameterEnum::typeName(), QgsProcessingParameterString::typeName(), kType};
  }
  [[nodiscard]] QStringList compatibleOutputTypes() const override { return {QStringLiteral("outputString")}; }
};

}  // namespace

std::unique_ptr<QgsProcessingParameterDefinition> ChoiceParameter(const QString& name, const QString& label,
                                                                  const QStringList& words, ChoiceOf of,
                                                                  bool optional) {
  return std::make_unique<WordParameter>(name, label, words, of, optional);
}

void AddChoiceParameters() {
  QgsProcessingRegistry& known = *QgsApplication::processingRegistry();
  if (known.parameterType(kType) == nullptr) known.addParameterType(new WordParameterType);  // the registry owns it
}

void AddChoiceBoxes() {
  auto factory = std::make_unique<WordBoxFactory>();
  // The registry takes no second one of a type, and owns the one that it takes.
  if (QgsGui::processingGuiRegistry()->addParameterWidgetFactory(factory.get())) (void)factory.release();
}

}  // namespace tessarine::qgis
