// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/MaterialRepository.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShots.h>

#include <QString>

#include <initializer_list>

/// Who makes mistakes, and how it is said what came of them.
namespace rvopen::test {

inline const QString s_document = QStringLiteral(
    "<snapRoot unitsScale='1'><snapshots name='Model SnapShots'>"
    "<snapshot name='a'><camera name='eye'><param name='Field Of View' type='float' val='40'/>"
    "</camera><snapShotSettings/></snapshot><snapshot name='b'/><snapshot name='c'/></snapshots>"
    "<snapshot name='CurrSnapshot'><camera name='now'>"
    "<param name='Field Of View' type='float' val='50'/></camera>"
    "<snapShotSettings><param name='Selected' type='boolean' val='0'/></snapShotSettings>"
    "<background subcat='Plain'/><materialRepository>"
    "<material name='wall' linkname='W'><colour refname='red'/><finish name='matt'/></material>"
    "<material name='roof' linkname='R'/></materialRepository></snapshot></snapRoot>");

/// A host's document.
struct Host : RVOpenManager {
    Host()
    {
        LoadSnapShotDocFromString(s_document);
    }

    SnapShot* current() const
    {
        return GetCurrentSnapShot();
    }
    SnapShot* first() const
    {
        return GetSnapShots()->GetFirstSnapShot();
    }
    SnapShot* second() const
    {
        return first()->GetNext();
    }
    MaterialRepository* palette() const
    {
        return current()->GetMaterialRepository();
    }
    QString text() const
    {
        return GetSnapShotDocumentAsString();
    }
    bool has(const char* text) const
    {
        return this->text().contains(QLatin1String(text));
    }
};

inline QString expectText(const QString& is, const char* shall)
{
    return is == QLatin1String(shall)
               ? QString()
               : QStringLiteral("\"%1\" instead of \"%2\"").arg(is, QLatin1String(shall));
}

inline QString expect(bool isSo, const char* what)
{
    return isSo ? QString() : QStringLiteral("not so: ") + QLatin1String(what);
}

/// The first complaint.
inline QString all(std::initializer_list<QString> outcomes)
{
    for (const QString& outcome : outcomes) {
        if (!outcome.isEmpty())
            return outcome;
    }
    return QString();
}

} // namespace rvopen::test
