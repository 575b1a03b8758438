// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/expressions/expression_functions.h"

#include <qgsexpression.h>
#include <qgsfeature.h>
#include <qgsmessagelog.h>

#include <chrono>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

#include "hosts/qgis/expressions/function_table.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"
#include "platform/fault.h"

namespace tessarine::qgis {
namespace {

using std::chrono::steady_clock;

const QString kGroup = QStringLiteral("Tessarine");
constexpr int kMostOfAKind = 10;
constexpr auto kForgotten = std::chrono::minutes(1);

/// Tells the program's log what there is to know of a feature's value. A million features with one fault would fill
/// it: each text is told of ten features, and again once it hasn't come for a minute.
class FunctionLog {
 public:
  void Tell(const QString& text, const QString& about) {
    int count = 0;
    {
      const std::lock_guard lock(mutex_);
      Kind& kind = kinds_[text];
      const auto now = steady_clock::now();
      if (now - kind.last > kForgotten) kind.count = 0;
      kind.last = now;
      count = ++kind.count;
    }
    if (count > kMostOfAKind) return;
    const QString more =
        count == kMostOfAKind ? QLatin1Char(' ') + Translated("(More of these aren't told.)") : QString();
    QgsMessageLog::logMessage(about + text + more, kGroup, Qgis::Warning);
  }

 private:
  struct Kind {
    steady_clock::time_point last;
    int count = 0;
  };
  std::mutex mutex_;
  std::map<QString, Kind> kinds_;
};

FunctionLog& Log() {
  static FunctionLog log;
  return log;
}

// "tessarine_length, layer 'roads', feature 17: "
QString About(const QString& function, const QgsExpressionContext* context) {
  QString about = function;
  if (context != nullptr) {
    const QString layer = context->variable(QStringLiteral("layer_name")).toString();
    if (!layer.isEmpty()) about += QStringLiteral(", ") + Translated("layer '%1'").arg(layer);
    if (context->hasFeature()) about += QStringLiteral(", ") + Translated("feature %1").arg(context->feature().id());
  }
  return about + QStringLiteral(": ");
}

class SuiteFunction final : public QgsExpressionFunction {
 public:
  explicit SuiteFunction(const FunctionRow& row)
      : QgsExpressionFunction(QLatin1String(row.name), ParametersOf(row), kGroup, HelpOf(row), false, true),
        row_(row) {}

  QVariant func(const QVariantList& values, const QgsExpressionContext* context, QgsExpression* parent,
                const QgsExpressionNodeFunction*) override {
    try {
      FunctionCall call(*this, values, context);
      call.CheckSpheroid();
      QVariant result = row_.compute(call);
      for (const std::string_view note : call.Notes()) Log().Tell(Translated(note), About(name(), context));
      return result;
    } catch (const ArgumentError& error) {
      parent->setEvalErrorString(name() + QStringLiteral(": ") + ToQt(error.what()));
    } catch (const Fault& fault) {
      Log().Tell(Translated(LinesToQt(fault.Description())) + QLatin1Char(' ') + Translated("The result is NULL."),
                 About(name(), context));
    } catch (const std::exception& error) {
      Log().Tell(ToQt(error.what()) + QLatin1Char(' ') + Translated("The result is NULL."), About(name(), context));
    }
    return {};
  }

 private:
  static ParameterList ParametersOf(const FunctionRow& row) {
    ParameterList parameters;
    for (const FunctionArgument& argument : row.arguments) {
      parameters << Parameter(QLatin1String(argument.name), argument.optional);
    }
    return parameters;
  }

  const FunctionRow& row_;
};

// They outlive their time in the program's list, which doesn't own them.
const std::vector<std::unique_ptr<SuiteFunction>>& Functions() {
  static const auto functions = [] {
    std::vector<std::unique_ptr<SuiteFunction>> made;
    for (const FunctionRow& row : ExpressionFunctions()) made.push_back(std::make_unique<SuiteFunction>(row));
    return made;
  }();
  return functions;
}

}  // namespace

void AddExpressionFunctions() {
  // A function of the name is there already at another call.
  for (const auto& function : Functions()) QgsExpression::registerFunction(function.get());
}

void RemoveExpressionFunctions() {
  for (const auto& function : Functions()) {
    if (QgsExpression::isFunctionName(function->name())) QgsExpression::unregisterFunction(function->name());
  }
}

}  // namespace tessarine::qgis
