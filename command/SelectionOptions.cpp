// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "SelectionOptions.h"

#include "Arguments.h"
#include "Session.h"

#include <rvopen/toolkit/schema/ElementInfo.h>

namespace rvopen::command {

using namespace toolkit;

namespace {

/// The kinds and sections that --type is usually asked for.
QStringList usualTypes()
{
    QStringList types;
    for (const ElementInfo& info : AllElements()) {
        if (info.isPreset || info.isSection)
            types << info.name;
    }
    return types;
}

QStringList usualSubCategories()
{
    QStringList kinds;
    for (const ElementInfo& info : AllElements()) {
        if (info.isPreset && info.kindAttribute == QLatin1String("subcat"))
            kinds << info.kinds;
    }
    kinds.removeDuplicates();
    return kinds;
}

} // namespace

void SelectionOptions::declare(Arguments& arguments)
{
    arguments.option("--select", m_texts.paths, "PATH",
                     "What has this path, as \"material[@cat=Metals]\", or stands in it; may be "
                     "repeated");
    arguments.option("--type", m_texts.type, "KIND",
                     "Presets of one kind: material, camera, ..., or of a "
                     "section: materials, ...",
                     usualTypes());
    arguments.option("--subcat", m_texts.subCategory, "NAME", "Presets of one sub-category",
                     usualSubCategories());
    arguments.option("--category", m_texts.category, "NAME", "Presets of one category");
    arguments.option("--text", m_texts.text, "WORDS",
                     "Presets with all these words, in any case and without accents, in names, "
                     "category, folder or description");
    arguments.option("--where", m_texts.conditions, "CONDITION",
                     "Presets with such a value, as \"roughness > 0.8\" or \"@desc ~ grey\"; may "
                     "be repeated");
}

Selection SelectionOptions::selection()
{
    m_selection = Selection(m_texts);
    return m_selection;
}

void SelectionOptions::tellMisspelling(Session& session) const
{
    const QString misspelling = m_selection.misspelling();
    if (!misspelling.isEmpty())
        session.warning(QStringLiteral("rvopen"), misspelling);
}

QVector<Subject> selectedOf(const QVector<Subject>& subjects, const Scope& scope)
{
    QVector<Subject> result;
    for (const Subject& subject : subjects) {
        if (scope.takes(subject.path))
            result.append(subject);
    }
    return result;
}

} // namespace rvopen::command
