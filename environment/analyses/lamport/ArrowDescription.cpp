// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/ArrowDescription_p.h"

#include <algorithm>

namespace DepGraph {

namespace {

std::string fill(const std::string& phrase, const std::string& name) {
    const std::size_t place = phrase.find('%');
    return place == std::string::npos ? phrase : phrase.substr(0, place) + name + phrase.substr(place + 1);
}

std::string fill(const std::string& phrase, unsigned number) {
    return fill(phrase, std::to_string(number));
}

/// "a, b and c".
std::string enumerate(const std::vector<std::string>& texts, const std::string& beforeLast) {
    std::string result;
    for (std::size_t i = 0; i < texts.size(); ++i)
        result += (i == 0 ? "" : i + 1 == texts.size() ? beforeLast : ", ") + texts[i];
    return result;
}

void replaceAll(std::string& text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

} // namespace

std::string ArrowDescription::makeSentence() const {
    std::string text = subject() + predicate();
    if (const std::string when = time(); !when.empty())
        text += ", " + when;
    if (!m_parts.condition.empty())
        text += fill(m_words.sentenceCondition, condition());
    if (m_parts.doubt != Doubt::None)
        text += fill(m_words.because, reason(m_words.sentenceReasons[static_cast<std::size_t>(m_parts.doubt)]));
    return text + '.';
}

std::string ArrowDescription::subject() const {
    const bool written = m_parts.type == DT_FLOW || m_parts.type == DT_OUTPUT;
    std::string text = fill(written ? m_words.writtenTo : m_words.readFrom, m_parts.source);
    if (m_parts.sourceLine != 0)
        text += fill(m_words.inLine, m_parts.sourceLine);
    return text + m_words.subjectEnd;
}

std::string ArrowDescription::predicate() const {
    const Event& event = m_parts.type == DT_FLOW    ? m_words.read
                         : m_parts.type == DT_INPUT ? m_words.readAgain
                                                    : m_words.overwritten;
    std::string text = m_parts.doubt == Doubt::None ? event.certain : event.possible;
    if (m_parts.target != m_parts.source)
        text += fill(m_words.as, m_parts.target);
    if (m_parts.sameOccurrence)
        text += m_words.there;
    else if (m_parts.targetLine != 0)
        text +=
            m_parts.targetLine == m_parts.sourceLine ? m_words.inSameLine : fill(m_words.inLine, m_parts.targetLine);
    return text;
}

std::string ArrowDescription::time() const {
    if (m_parts.carriersUnknown || (m_parts.withinIteration && m_parts.carriers.empty())) {
        const std::string iteration = m_parts.carriersUnknown ? m_words.unknownIteration : m_words.sameIteration;
        return m_parts.loops.empty() ? std::string() : iteration + ofAllLoops();
    }
    std::vector<std::string> times = laterIterations();
    if (m_parts.withinIteration)
        times.insert(times.begin(), m_words.sameIteration);
    return enumerate(times, m_words.disjunction);
}

/// How much later is said once for neighbours that share it: "in a later iteration of the loop over i or of the loop
/// over j".
std::vector<std::string> ArrowDescription::laterIterations() const {
    std::vector<std::string> times;
    std::string said;
    for (const CarrierPart& carrier : m_parts.carriers) {
        std::string later = m_words.laterIteration;
        if (carrier.distance == 1)
            later = m_words.nextIteration;
        else if (carrier.distance)
            later = fill(m_words.iterationsLater, m_words.countIterations(*carrier.distance));
        const std::string of = m_words.of + nameOf(carrier.loop);
        times.push_back(later == said ? of.substr(1) : later + of);
        said = later;
    }
    return times;
}

std::string ArrowDescription::ofAllLoops() const {
    std::vector<std::string> counters;
    std::vector<std::string> names;
    for (const LoopPart& loop : m_parts.loops) {
        if (!loop.counter.empty() && !loop.ambiguous)
            counters.push_back(loop.counter);
        names.push_back(nameOf(loop));
    }
    const bool together = counters.size() > 1 && counters.size() == names.size();
    return m_words.of + (together ? fill(m_words.loopsOver, enumerate(counters, m_words.conjunction))
                                  : enumerate(names, m_words.conjunction));
}

std::string ArrowDescription::nameOf(const LoopPart& loop) const {
    if (loop.counter.empty())
        return loop.line != 0 ? fill(m_words.loopInLine, loop.line)
                              : fill(m_words.loopNumber, std::to_string(loop.number));
    const std::string name = fill(m_words.loopOver, loop.counter);
    return loop.ambiguous && loop.line != 0 ? name + fill(m_words.inLine, loop.line) : name;
}

std::string ArrowDescription::makeDeveloperLine() const {
    const std::string target =
        m_parts.sameOccurrence ? m_words.sameOccurrence : occurrence(m_parts.target, m_parts.targetLine);
    return kind() + (": " + occurrence(m_parts.source, m_parts.sourceLine)) + " -> " + target + "; " + carriers() +
           vectors() + "; " + proof();
}

const char* ArrowDescription::kind() const {
    switch (m_parts.type) {
    case DT_FLOW:
        return m_words.flow;
    case DT_ANTI:
        return m_words.anti;
    case DT_OUTPUT:
        return m_words.output;
    case DT_INPUT:
        return m_words.input;
    }
    return m_words.otherKind;
}

std::string ArrowDescription::occurrence(const std::string& access, unsigned line) const {
    return line == 0 ? access : access + " (" + fill(m_words.line, line) + ')';
}

std::string ArrowDescription::carriers() const {
    if (m_parts.carriersUnknown)
        return m_words.carriersUnknown;
    std::vector<std::string> loops;
    for (const CarrierPart& carrier : m_parts.carriers) {
        const LoopPart& loop = carrier.loop;
        std::string name = loop.counter;
        if (loop.line != 0 && (name.empty() || loop.ambiguous))
            name += (name.empty() ? "" : ", ") + fill(m_words.line, loop.line);
        loops.push_back(std::to_string(loop.number) + (name.empty() ? "" : " (" + name + ')'));
    }
    const std::string carried =
        fill(loops.size() == 1 ? m_words.carriedByOne : m_words.carriedByMany, enumerate(loops, m_words.conjunction));
    if (!m_parts.withinIteration)
        return carried;
    return loops.empty() ? m_words.withinIteration : m_words.withinIteration + (m_words.also + carried);
}

/// Directions are worth a word only where a distance does not say more.
std::string ArrowDescription::vectors() const {
    if (m_parts.loops.empty())
        return {};
    std::string text;
    if (m_parts.someDistanceKnown)
        text += "; " + fill(m_words.distanceVector, m_parts.distance);
    if (!m_parts.directions.empty())
        text += "; " + fill(m_words.directionVector, m_parts.directions);
    return text;
}

std::string ArrowDescription::proof() const {
    std::string text = m_parts.doubt == Doubt::None ? m_words.proven : m_words.assumed;
    if (!m_parts.condition.empty())
        text += fill(m_words.condition, condition());
    if (m_parts.doubt != Doubt::None)
        text += ": " + reason(m_words.reasons[static_cast<std::size_t>(m_parts.doubt)]);
    return text;
}

std::string ArrowDescription::reason(const Reason& reason) const {
    if (m_parts.doubtfulLoop)
        return fill(reason.named, nameOf(*m_parts.doubtfulLoop));
    return m_parts.doubtful.empty() ? reason.unnamed : fill(reason.named, m_parts.doubtful);
}

std::string ArrowDescription::condition() const {
    std::string text = m_parts.condition;
    replaceAll(text, " and ", m_words.conjunction);
    replaceAll(text, " or ", m_words.disjunction);
    return text;
}

} // namespace DepGraph
