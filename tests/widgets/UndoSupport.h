// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/widgets/UndoRecorder.h>

#include "../ManagerSupport.h"

#include <rvopen/Background.h>
#include <rvopen/Colour.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/RVOpenObserver.h>

#include <QUndoStack>

#include <gtest/gtest.h>

namespace rvopen::widgets {

/// A manager whose edits a stack has.
class UndoRecorderTest : public ::testing::Test {
protected:
    SnapShot* current()
    {
        return manager.GetCurrentSnapShot();
    }
    MaterialRepository* palette()
    {
        return current()->GetMaterialRepository();
    }
    QString text() const
    {
        return manager.GetSnapShotDocumentAsString();
    }
    QDomDocument document()
    {
        return manager.GetRootNode()->GetDomNode().ownerDocument();
    }
    /// A command of its own.
    Material* addMaterial(const char* name)
    {
        const UndoRecorder::Step step(recorder, QStringLiteral("Add"));
        return addByItself(name);
    }
    Material* addByItself(const char* name)
    {
        Material* const material = palette()->CreateMaterial();
        material->SetLinkName(QLatin1String(name));
        palette()->AddMaterial(material);
        return material;
    }
    QStringList materials()
    {
        QStringList names;
        for (Material* at = palette()->GetFirstMaterial(); at; at = at->GetNext())
            names << at->GetLinkName();
        return names;
    }

    RVOpenManager manager;
    QUndoStack stack;
    UndoRecorder recorder{manager, &stack};
};

} // namespace rvopen::widgets
