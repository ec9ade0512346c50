// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Selection.h"

#include "Folding.h"
#include "Labels.h"
#include "Likeness.h"
#include "Placement.h"

#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/edit/ParamValues.h>
#include <rvopen/toolkit/schema/ElementInfo.h>

#include <algorithm>

namespace rvopen::toolkit {

namespace {

/// Calls \p visit with what stands before each "/" or ":" of the path, from the longest on, until
/// it answers true. Among these are the paths of all elements above.
template <typename Visit>
bool anyAbove(const QString& path, const Visit& visit)
{
    for (int i = int(path.size()) - 1; i > 0; --i) {
        if ((path[i] == QLatin1Char('/') || path[i] == QLatin1Char(':')) && visit(path.left(i)))
            return true;
    }
    return false;
}

/// The element right below the root that it stands in, of any document.
QDomElement topOf(const QDomElement& element)
{
    QDomElement section = element;
    for (QDomElement parent = section.parentNode().toElement();
         !parent.isNull() && parent.parentNode().isElement();
         parent = parent.parentNode().toElement())
        section = parent;
    return section;
}

QString attribute(const QDomElement& element, const char* name)
{
    return element.attribute(QLatin1String(name));
}

/// Calls \p visit with the root and all elements below it.
template <typename Visit>
void forAll(const QDomElement& root, const Visit& visit)
{
    visit(root);
    for (QDomElement child = root.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        forAll(child, visit);
}

QStringList sorted(const QSet<QString>& words)
{
    QStringList list = words.values();
    list.sort();
    return list;
}

/// Says that there is no such thing, where another one is likely to be meant. One that differs in
/// case or accents only is the thing itself.
QString noSuch(const char* thing, const QString& word, const QString& likely)
{
    if (likely.isEmpty() || folded(likely) == folded(word))
        return QString();
    return QStringLiteral("there is no %1 \"%2\"").arg(QLatin1String(thing), word) +
           didYouMean(likely);
}

} // namespace

/// What there is in the documents, until something is found in one.
struct Selection::Record {
    bool isFound = false;
    QSet<QString> kinds;
    QSet<QString> subCategories;
    QSet<QString> categories;
    QSet<QString> params;
    QSet<QString> attributes;
    struct Path {
        bool isThere = false;
        /// What was meant where it is not.
        QString likely;
    };
    std::vector<Path> paths;
};

Scope::Scope(const QDomElement& root, const QVector<PathPattern::Match>& matches, bool isExact)
    : m_isEverything(false)
    , m_isExact(isExact)
{
    for (const PathPattern::Match& match : matches) {
        m_paths.insert(match.path);
        anyAbove(match.path, [this](const QString& above) {
            m_above.insert(above);
            return false;
        });
    }
    Walk(root, QString(), [this](const QDomElement& element, const QString& path) {
        if (!m_paths.contains(path))
            return m_above.contains(path);
        m_elements.append({element, path});
        return false;
    });
}

bool Scope::isEverything() const
{
    return m_isEverything;
}

QVector<PathPattern::Match> Scope::elements() const
{
    return m_elements;
}

bool Scope::covers(const QString& path) const
{
    return m_isEverything || m_paths.contains(path) ||
           anyAbove(path, [this](const QString& above) { return m_paths.contains(above); });
}

bool Scope::leadsTo(const QString& path) const
{
    return m_above.contains(path);
}

bool Scope::takes(const QString& path) const
{
    return covers(path) || (!m_isExact && leadsTo(path));
}

Selection::Selection(const SelectionTexts& texts)
    : m_texts(texts)
    , m_subCategory(folded(texts.subCategory))
    , m_category(folded(texts.category))
    , m_words(foldedWords(texts.text))
    , m_record(std::make_shared<Record>())
{
    for (const QString& path : texts.paths) {
        m_paths.emplace_back(path);
        if (!m_paths.back().Attribute().isEmpty())
            throw Failure(QStringLiteral("\"%1\" is an attribute: elements are selected, with "
                                         "[@name=value] by an attribute")
                              .arg(path));
    }
    for (const QString& condition : texts.conditions)
        m_conditions.emplace_back(condition);
}

bool Selection::isEverything() const
{
    return m_paths.empty() && !hasFilter();
}

bool Selection::isAttributeFilter(AttributeFilter& filter) const
{
    filter = {m_texts.type, m_subCategory, m_category, m_words};
    return m_paths.empty() && m_conditions.empty();
}

void Selection::noteOthers(const QString& kind, const QString& subCategory,
                           const QString& category) const
{
    if (!m_record)
        return;
    m_record->kinds.insert(kind);
    m_record->subCategories.insert(subCategory);
    m_record->categories.insert(category);
}

Scope Selection::in(const QDomElement& root) const
{
    const Scope scope = scopeIn(root);
    note(scope.isEverything() || !scope.elements().isEmpty(), root);
    return scope;
}

QVector<PathPattern::Match> Selection::items(const QDomElement& root) const
{
    const QVector<PathPattern::Match> result = itemsIn(root);
    note(!result.isEmpty(), root);
    return result;
}

QString Selection::misspelling() const
{
    if (!m_record || m_record->isFound)
        return QString();
    for (std::size_t i = 0; i < m_record->paths.size(); ++i) {
        const Record::Path& path = m_record->paths[i];
        if (!path.isThere && !path.likely.isEmpty())
            return noSuchPath(m_paths[i].Text(), path.likely);
    }
    // Kinds that the documents do not have, but might, are none that is mistyped.
    QSet<QString> kinds = m_record->kinds;
    for (const ElementInfo& info : AllElements())
        kinds.insert(info.name);
    QStringList problems{
        noSuch("kind", m_texts.type, likeliest(m_texts.type, sorted(kinds))),
        noSuch("sub-category", m_texts.subCategory,
               likeliestKind(m_texts.subCategory, sorted(m_record->subCategories))),
        noSuch("category", m_texts.category,
               likeliest(m_texts.category, sorted(m_record->categories)))};
    for (const Condition& condition : m_conditions) {
        const bool isParam = !condition.isAboutAttribute();
        problems << noSuch(
            isParam ? "parameter" : "attribute", condition.name(),
            likeliest(condition.name(), sorted(isParam ? m_record->params : m_record->attributes)));
    }
    problems.removeAll(QString());
    return problems.isEmpty() ? QString() : problems.first();
}

void Selection::note(bool isFound, const QDomElement& root) const
{
    if (!m_record || m_record->isFound)
        return;
    m_record->isFound = isFound;
    if (isFound)
        return;
    m_record->paths.resize(m_paths.size());
    for (std::size_t i = 0; i < m_paths.size(); ++i) {
        Record::Path& path = m_record->paths[i];
        path.isThere = path.isThere || !m_paths[i].Find(root).isEmpty();
        if (!path.isThere && path.likely.isEmpty())
            path.likely = likeliestPath(m_paths[i].Text(), root);
    }
    forAll(root, [this](const QDomElement& element) {
        m_record->kinds.insert(element.tagName());
        m_record->subCategories.insert(attribute(element, "subcat"));
        m_record->categories.insert(attribute(element, "cat"));
        if (isParam(element))
            m_record->params.insert(attribute(element, "name"));
        const QDomNamedNodeMap map = element.attributes();
        for (int i = 0; i < map.count(); ++i)
            m_record->attributes.insert(map.item(i).nodeName());
    });
}

Scope Selection::scopeIn(const QDomElement& root) const
{
    if (isEverything())
        return Scope();
    QVector<PathPattern::Match> named;
    for (const PathPattern& path : m_paths)
        named += path.Find(root);
    if (!hasFilter())
        return Scope(root, named, false);
    const QVector<PathPattern::Match> passing = filtered(root);
    if (m_paths.empty())
        return Scope(root, passing, true);
    // What both select: an item that a path leads to or into, as far as it does.
    const Scope byName(root, named, false);
    const Scope byFilter(root, passing, true);
    QVector<PathPattern::Match> both;
    for (const PathPattern::Match& match : passing) {
        if (byName.covers(match.path))
            both.append(match);
    }
    for (const PathPattern::Match& match : named) {
        if (byFilter.covers(match.path))
            both.append(match);
    }
    return Scope(root, both, false);
}

QVector<PathPattern::Match> Selection::itemsIn(const QDomElement& root) const
{
    if (m_paths.empty())
        return filtered(root);
    const Scope scope = scopeIn(root);
    QVector<PathPattern::Match> result;
    for (const PathPattern::Match& match : filtered(root)) {
        if (scope.takes(match.path))
            result.append(match);
    }
    return result;
}

bool Selection::hasFilter() const
{
    return !m_texts.type.isEmpty() || !m_subCategory.isEmpty() || !m_category.isEmpty() ||
           !m_words.isEmpty() || !m_conditions.empty();
}

bool Selection::isCandidate(const QDomElement& element) const
{
    if (isParam(element))
        return false;
    const ElementInfo* const info = FindElement(element.tagName());
    return (info && info->isPreset) || element.tagName() == QLatin1String("snapshot") ||
           (!m_texts.type.isEmpty() &&
            element.tagName().compare(m_texts.type, Qt::CaseInsensitive) == 0);
}

bool Selection::isOfType(const QDomElement& element) const
{
    return m_texts.type.isEmpty() ||
           element.tagName().compare(m_texts.type, Qt::CaseInsensitive) == 0 ||
           topOf(element).tagName().compare(m_texts.type, Qt::CaseInsensitive) == 0;
}

bool Selection::passes(const QDomElement& element, ParamValues& values) const
{
    if (!isOfType(element))
        return false;
    if (!m_subCategory.isEmpty() && folded(attribute(element, "subcat")) != m_subCategory)
        return false;
    if (!m_category.isEmpty() && folded(attribute(element, "cat")) != m_category)
        return false;
    return hasWords(element, m_words) &&
           std::all_of(m_conditions.begin(), m_conditions.end(), [&](const Condition& condition) {
               return condition.holds(element, values);
           });
}

QVector<PathPattern::Match> Selection::filtered(const QDomElement& root) const
{
    QVector<PathPattern::Match> result;
    ParamValues values;
    if (root.tagName() != QLatin1String("snapRoot")) {
        forEachPreset(root, [&](const Preset& preset) {
            if (passes(preset.element, values))
                result.append({preset.element, preset.path});
        });
        return result;
    }
    Walk(root, QString(), [&](const QDomElement& element, const QString& path) {
        if (!isCandidate(element) || !passes(element, values))
            return true;
        result.append({element, path});
        return false;
    });
    return result;
}

bool hasWords(const QDomElement& element, const QStringList& words)
{
    if (words.isEmpty())
        return true;
    QStringList texts;
    for (const char* const name : {"name", "refname", "cat", "desc"})
        texts << attribute(element, name);
    for (QDomElement parent = element.parentNode().toElement(); !parent.isNull();
         parent = parent.parentNode().toElement()) {
        if (parent.tagName() == QLatin1String("dir"))
            texts << IdentityOf(parent);
    }
    const QString all = folded(texts.join(QLatin1Char('\n')));
    return std::all_of(words.begin(), words.end(),
                       [&all](const QString& word) { return all.contains(word); });
}

} // namespace rvopen::toolkit
