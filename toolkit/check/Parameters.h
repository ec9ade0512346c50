// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/schema/ParamInfo.h>

#include <QDomElement>
#include <QString>
#include <QVarLengthArray>
#include <QVector>

namespace rvopen::toolkit {

struct Inspecting;
class References;

/// The parameters of one element, one after the other: their names, types and values.
class Parameters {
public:
    Parameters(Inspecting& inspecting, References& references, const QDomElement& owner,
               const QString& tag);

    /// \p isBehindOther says whether it stands behind a child that hides it. Its own children are
    /// left.
    void inspect(const QDomElement& param, int ordinal, bool isBehindOther);

private:
    void inspectName(const QDomElement& param, int ordinal, const QString& name);
    /// \p info is null for a parameter that is not known.
    void inspectValue(const QDomElement& param, int ordinal, const QString& name, ValueType type,
                      const ParamInfo* info, const QString& text, bool hasMore);
    void inspectRange(const QDomElement& param, int ordinal, const QString& name,
                      const QString& text);

    Inspecting& m_inspecting;
    References& m_references;
    /// Of the element.
    const QString m_tag;
    const QVector<const ParamInfo*> m_infos;
    /// Of those that were inspected.
    QVarLengthArray<QString, 16> m_names;
};

} // namespace rvopen::toolkit
