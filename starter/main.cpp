// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Models.h"
#include "Presets.h"
#include "Tables.h"
#include "Textures.h"

#include <rvopen/RVOpenManager.h>

#include <QDir>
#include <QGuiApplication>

#include <cstdio>
#include <exception>

/// starter <tables> <data>: makes the installation folder and the sample models in <data>.
int main(int argc, char** argv)
{
    using namespace rvopen::starter;

    if (argc != 3) {
        std::fprintf(stderr, "Usage: %s <folder of the tables> <folder of the data>\n", argv[0]);
        return 2;
    }
    const QGuiApplication application(argc, argv);
    const Tables tables(QString::fromLocal8Bit(argv[1]));
    const QString data = QString::fromLocal8Bit(argv[2]);
    try {
        rvopen::RVOpenManager manager;
        const QString archives = data + QLatin1String("/install/xml");
        makeTextures(tables, archives);
        const Presets presets(manager, tables);
        presets.save(archives);
        makeModels(tables, presets, archives, data);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s: %s\n", argv[0], failure.what());
        return 1;
    }
    return 0;
}
