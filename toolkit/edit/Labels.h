// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QHash>
#include <QString>
#include <QStringList>

#include <string>
#include <string_view>

namespace rvopen::toolkit {

/// \name The parts of readable paths
/// What NodePath.h says of them is put together here.
/// @{

/// Stands before signs that would mean something.
const QLatin1Char EscapeSign('\\');

bool isParam(const QDomElement& element);

/// The texts of the children of one element, asked for in document order.
class Labels {
public:
    QString next(const QDomElement& child);
    /// The same for a child whose label without number is known.
    QString next(const QString& label);

private:
    QHash<QString, int> m_counts;
};

QString joined(const QString& parentPath, const QString& label);
QString attributePath(const QString& path, const QString& attribute);

/// What the element is called among its neighbours, without the number of one that comes later.
QString labelOf(const QDomElement& element);
/// The same of an element that is no parameter.
QString labelOf(const QString& kind, const QString& identity);
/// Appends that in UTF-8.
void appendLabel(std::string_view kind, std::string_view identity, std::string& path);
/// That of the one that is the \p number th of those called the same, from 1.
QString numbered(const QString& label, int number);

/// Whether the text consists of the parts with anything between them; of one part alone, whether it
/// is that.
bool hasParts(const QString& text, const QStringList& parts);

/// Splits "path=value" at the first "=" that is no part of a name; false when there is none.
bool splitAssignment(const QString& text, QString& path, QString& value);
/// @}

} // namespace rvopen::toolkit
