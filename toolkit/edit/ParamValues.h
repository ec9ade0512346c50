// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/Param.h>
#include <rvopen/toolkit/ToolkitExport.h>

#include <QDomElement>
#include <QString>
#include <QVariant>

namespace rvopen::toolkit {

/// The values of a document's parameters as the host sees them, lengths in scene units. One object
/// serves all parameters of one document, whose units scale is looked up once.
class RVOPEN_TOOLKIT_EXPORT ParamValues {
public:
    /// For one document.
    ParamValues();
    ~ParamValues();
    ParamValues(const ParamValues&) = delete;
    ParamValues& operator=(const ParamValues&) = delete;

    /// For people and for Set(): "true", "0.5", "1 0 0". The stored text for a type that the
    /// library does not know.
    QString Text(const QDomElement& param);
    /// A number, a truth, a list of three numbers or a text, by the type of the parameter; invalid
    /// for a value that is absent.
    QVariant Value(const QDomElement& param);

    /// The text as a value of the parameter, checked but not set yet: by its type, by what
    /// ParamInfo tells of it where it stands, and by its own range. Empty when it is one, otherwise
    /// what is wrong.
    QString Check(const QDomElement& param, const QString& text);
    /// Sets a text that Check() found good.
    void Set(const QDomElement& param, const QString& text);

private:
    Param m_param;
};

} // namespace rvopen::toolkit
