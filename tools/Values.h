// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/Param.h>

#include <QDomElement>
#include <QJsonValue>
#include <QString>

namespace rvopen::tools {

/// The values of a document's parameters as the host sees them, lengths in scene units. One object
/// serves all parameters of one document, whose units scale is looked up once.
class ParamValues {
public:
    ParamValues();
    ~ParamValues();
    ParamValues(const ParamValues&) = delete;
    ParamValues& operator=(const ParamValues&) = delete;

    /// For people and for set(): "true", "0.5", "1 0 0". The stored text for a type that the
    /// library does not know.
    QString text(const QDomElement& param);
    /// Null for a value that is absent.
    QJsonValue json(const QDomElement& param);

    /// The text as a value of the parameter's type, checked but not set yet. Empty when it is one,
    /// otherwise what is wrong.
    QString check(const QDomElement& param, const QString& text);
    /// Sets a text that check() found good.
    void set(const QDomElement& param, const QString& text);

private:
    Param m_param;
};

/// Three numbers between blanks or commas, as people write them.
bool toTriple(const QString& text, float (&triple)[3]);
/// The same, or "#rrggbb".
bool toColour(const QString& text, float (&colour)[3]);
/// true, yes, on, 1 and their opposites.
bool toBoolean(const QString& text, bool& value);

} // namespace rvopen::tools
