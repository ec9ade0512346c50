// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

// What a person waits for who types into the search of a list of presets: typing <archive>...
// A grid with pictures is shown on the offscreen platform, words are typed letter by letter and
// taken back, and each letter is timed until the window has drawn what was found. Prints the times
// of all letters, and until the first pictures were there.

#include <rvopen/toolkit/catalogue/Catalogue.h>
#include <rvopen/widgets/PresetFilter.h>
#include <rvopen/widgets/PresetModel.h>
#include <rvopen/widgets/Thumbnails.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QListView>
#include <QTextStream>

#include <algorithm>
#include <memory>
#include <vector>

using namespace rvopen;
using namespace rvopen::widgets;

namespace {

double milliseconds(const QElapsedTimer& timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QTextStream out(stdout);
    QStringList files;
    for (int i = 1; i < argc; ++i)
        files << QFile::decodeName(argv[i]);

    QElapsedTimer timer;
    timer.start();
    const auto catalogue = std::make_shared<const toolkit::Catalogue>(files);
    out << catalogue->Count() << " presets; their catalogue after " << milliseconds(timer)
        << " ms\n";
    Thumbnails thumbnails;
    PresetModel model;
    model.SetThumbnails(&thumbnails);
    model.SetCatalogue(catalogue);
    PresetFilter filter;
    filter.setSourceModel(&model);
    QListView view;
    view.setModel(&filter);
    view.setViewMode(QListView::IconMode);
    view.setGridSize({128, 136});
    view.setIconSize({96, 96});
    view.setUniformItemSizes(true);
    view.resize(900, 700);
    view.show();
    bool hasPicture = false;
    QObject::connect(&thumbnails, &Thumbnails::PresetChanged, &view, [&] { hasPicture = true; });
    while (!hasPicture)
        QCoreApplication::processEvents();
    view.grab();
    out << "the first picture after " << milliseconds(timer) << " ms\n";

    std::vector<double> times;
    for (const char* const word : {"brass", "dark oak", "z", "new copper 12", "light"}) {
        const QString text = QString::fromLatin1(word);
        for (int i = 1; i < 2 * text.size(); ++i) {
            const QString typed = text.left(i <= text.size() ? i : 2 * text.size() - i);
            timer.restart();
            filter.SetWords(typed);
            view.grab();
            times.push_back(milliseconds(timer));
        }
        filter.SetWords(QString());
    }
    std::sort(times.begin(), times.end());
    out << times.size() << " letters: median " << times[times.size() / 2] << " ms, the longest "
        << times.back() << " ms\n";
    return 0;
}
