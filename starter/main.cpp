// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Comparison.h"
#include "Models.h"
#include "Presets.h"
#include "Tables.h"
#include "Textures.h"

#include <rvopen/RVOpenManager.h>

#include <QDir>
#include <QGuiApplication>

#include <cstdio>
#include <exception>

namespace {

void make(const QString& tablesFolder, const QString& data)
{
    using namespace rvopen::starter;

    const Tables tables(tablesFolder);
    rvopen::RVOpenManager manager;
    const QString archives = data + QLatin1String("/install/xml");
    makeTextures(tables, archives);
    const Presets presets(manager, tables);
    presets.save(archives);
    makeModels(tables, presets, archives, data);
}

/// Says what differs, and whether nothing does.
bool compare(const QString& kept, const QString& made)
{
    const QStringList differences = rvopen::starter::differences(kept, made);
    for (const QString& difference : differences)
        std::fprintf(stderr, "%s\n", difference.toLocal8Bit().constData());
    return differences.isEmpty();
}

} // namespace

/// starter make <tables> <data>: makes the installation folder and the sample models in <data>.
/// starter compare <data> <data>: says which files of the second folder are not those of the first.
int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString command = arguments.value(1);
    try {
        if (argc == 4 && command == QLatin1String("make")) {
            make(arguments[2], arguments[3]);
            return 0;
        }
        if (argc == 4 && command == QLatin1String("compare"))
            return compare(arguments[2], arguments[3]) ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s: %s\n", argv[0], failure.what());
        return 1;
    }
    std::fprintf(stderr,
                 "Usage: %s make <folder of the tables> <folder of the data>\n"
                 "       %s compare <folder of data> <folder of data>\n",
                 argv[0], argv[0]);
    return 2;
}
