// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>

#include <QString>

#include <thread>

/// What a host must not do: one document in two threads at once.
int main()
{
    rvopen::RVOpenManager manager;
    manager.LoadSnapShotDocFromString(QStringLiteral("<snapRoot><snapshot/></snapRoot>"));
    rvopen::RVOpenNode* const root = manager.GetRootNode();
    std::thread other([root] { root->GetChild(1, 1); });
    root->GetChild(1, 1);
    other.join();
}
