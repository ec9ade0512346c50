// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

// Prints where the camera of each snapshot stands: minimal <document>...

#include <rvopen/Camera.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenStatus.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShots.h>

#include <QFile>
#include <QTextStream>

namespace {

void describe(QTextStream& out, rvopen::SnapShot* snapShot)
{
    out << "  " << snapShot->GetName() << ": ";
    float from[3] = {};
    float to[3] = {};
    float up[3] = {};
    int orthographic = 0;
    float fieldOfView = 0.0f;
    rvopen::Camera* const camera = snapShot->GetCamera();
    if (camera && camera->GetPinhole(from, to, up, &orthographic, &fieldOfView) == rvopen::StatusOk)
        out << "camera at " << from[0] << ' ' << from[1] << ' ' << from[2] << '\n';
    else
        out << "no camera\n";
}

} // namespace

int main(int argc, char** argv)
{
    QTextStream out(stdout);
    for (int i = 1; i < argc; ++i) {
        rvopen::RVOpenManager manager;
        if (!manager.LoadSnapShotDocFromFile(QFile::decodeName(argv[i]))) {
            out << argv[i] << " cannot be read\n";
            return 1;
        }
        out << argv[i] << '\n';
        // Null in a document without snapshots, such as an archive.
        rvopen::SnapShots* const snapShots = manager.GetSnapShots();
        if (!snapShots) {
            out << "  no snapshot document\n";
            return 1;
        }
        for (rvopen::SnapShot* s = snapShots->GetFirstSnapShot(); s; s = s->GetNext())
            describe(out, s);
    }
    return 0;
}
