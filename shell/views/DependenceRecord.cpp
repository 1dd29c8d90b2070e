// SPDX-License-Identifier: MIT
#include "shell/views/DependenceRecord.h"

#include "environment/analyses/lamport/LampArrow.h"
#include "environment/printing/OutToC.h"
#include "environment/tessel/ExpressionBase.h"
#include "visualization/depgraph/EdgeTypeColor.h"

#include <QJsonArray>

namespace Kova::Shell {

namespace {

QString kindOf(::DepGraph::EN_DepType type) {
    switch (type) {
    case ::DepGraph::DT_FLOW:
        return "flow";
    case ::DepGraph::DT_ANTI:
        return "anti";
    case ::DepGraph::DT_OUTPUT:
        return "output";
    case ::DepGraph::DT_INPUT:
        return "input";
    }
    return "unknown";
}

DependenceRecord::End endOf(const Tessel::ExpressionBase& occurrence) {
    const Tessel::SourceRange& range = occurrence.getSourceRange();
    return {QString::fromStdString(Backends::OutToC::expressionToString(occurrence)), static_cast<int>(range.beginLine),
            static_cast<int>(range.beginColumn)};
}

QJsonObject describeEnd(const DependenceRecord::End& end) {
    return {{"text", end.text}, {"line", end.line}, {"column", end.column}};
}

} // namespace

QString DependenceRecord::getVariable() const {
    return source.text == target.text ? source.text : QString("%1, %2").arg(source.text, target.text);
}

QString DependenceRecord::getCarriersText() const {
    QStringList texts;
    for (const int carrier : carriers)
        texts.append(carrier == -1 ? QString("LID") : QString::number(carrier));
    return texts.isEmpty() ? QString("?") : texts.join(", ");
}

QString DependenceRecord::getDistanceText() const {
    QStringList texts;
    for (const std::optional<long>& one : distance)
        texts.append(one ? QString::number(*one) : QString("*"));
    return texts.isEmpty() ? QString() : "(" + texts.join(", ") + ")";
}

void DependenceRecord::describe(QJsonObject& description) const {
    QJsonArray loops;
    for (const int carrier : carriers)
        loops.append(carrier);
    QJsonArray distances;
    for (const std::optional<long>& one : distance)
        distances.append(one ? QJsonValue(static_cast<qint64>(*one)) : QJsonValue());
    description["kind"] = kind;
    description["source"] = describeEnd(source);
    description["target"] = describeEnd(target);
    description["carriers"] = loops;
    description["distance"] = distances;
    description["proven"] = proven;
    description["tags"] = QJsonArray::fromStringList(tags);
}

DependenceRecord recordOf(const ::DepGraph::LampArrow& arrow, const QStringList& tags) {
    DependenceRecord record;
    record.kind = kindOf(arrow.getType());
    record.color = GUI::DepGraph::edgeTypeToColor(arrow.getType());
    record.source = endOf(*arrow.getSource());
    record.target = endOf(*arrow.getTarget());
    record.carriers = arrow.getCarriers();
    record.distance = arrow.getDistance();
    record.proven = arrow.isProven();
    record.tags = tags;
    return record;
}

} // namespace Kova::Shell
