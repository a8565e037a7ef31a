// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/operations/operation_description.h"

#include "manager/text_conversion.h"
#include "ui/controls/label.h"
#include "ui/translation.h"

#include <QCoreApplication>

namespace lexivore {

namespace {

constexpr qsizetype longestParameter = 200;

struct Words {
    Q_DECLARE_TR_FUNCTIONS(OperationDescription)
};

/// A parameter can hold anything: line breaks and other controls become signs that stand on one line.
QString oneLine(QString text) {
    text = shortened(text, longestParameter);
    for (QChar &unit : text) {
        if (unit.unicode() < 0x20) {
            unit = QChar(0x2400 + unit.unicode());
        } else if (unit.unicode() == 0x2028 || unit.unicode() == 0x2029) {
            unit = QChar(0x2424);
        }
    }
    return text;
}

} // namespace

std::vector<QString> parameterLines(const AppliedOperation &operation) {
    std::vector<QString> lines;
    for (const auto &[key, value] : operation.parameters) {
        lines.push_back(oneLine(toQString(key)) + ": " + oneLine(toQString(value)));
    }
    return lines;
}

QString problemOf(const AppliedOperation &operation, const OperationProblems &problems) {
    const auto found = problems.find(operation.id);
    if (found == problems.end()) {
        return {};
    }
    if (found->second.kind == OperationProblem::Kind::unknownTransformation) {
        return Words::tr("Unknown transformation");
    }
    return translatedError(found->second.description);
}

std::vector<QString> measureLines(const std::optional<OperationMeasures> &measures) {
    if (!measures) {
        return {};
    }
    return {Words::tr("Lines: %1 → %2").arg(measures->before.lines).arg(measures->after.lines),
            Words::tr("Characters: %1 → %2").arg(measures->before.characters).arg(measures->after.characters)};
}

QString shortMeasure(const std::optional<OperationMeasures> &measures) {
    if (!measures) {
        return {};
    }
    if (measures->before == measures->after) {
        return Words::tr("Same length");
    }
    return measureLines(measures)[measures->before.lines != measures->after.lines ? 0 : 1];
}

} // namespace lexivore
