// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

// What a person waits for who types into the search of rvopen-browser: typing <path>...
// The window is shown on the offscreen platform, words are typed letter by letter and taken back,
// and each letter is timed until the window has drawn what was found; what it leaves for later is
// timed by itself, since the next letter waits for that. Prints the times of all letters, and until
// the first pictures were there.

#include "MainWindow.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <vector>

using namespace rvopen;

namespace {

double milliseconds(const QElapsedTimer& timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

void print(QTextStream& out, const char* what, std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    out << times.size() << ' ' << what << ": median " << times[times.size() / 2]
        << " ms, the longest " << times.back() << " ms\n";
}

} // namespace

int main(int argc, char** argv)
{
    QElapsedTimer timer;
    timer.start();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QTextStream out(stdout);
    QStringList paths;
    for (int i = 1; i < argc; ++i)
        paths << QFile::decodeName(argv[i]);

    const QTemporaryDir folder;
    browser::Memory memory(folder.filePath(QStringLiteral("settings.ini")));
    browser::Workspace workspace(memory, folder.filePath(QStringLiteral("journal")));
    browser::MainWindow window(workspace);
    window.show();
    out << "the window after " << milliseconds(timer) << " ms\n";
    bool hasPicture = false;
    QObject::connect(&workspace.thumbnails(), &widgets::Thumbnails::PresetChanged, &window,
                     [&] { hasPicture = true; });
    workspace.open(paths);
    while (!hasPicture)
        QCoreApplication::processEvents();
    window.grab();
    out << "the first picture of " << workspace.presets().rowCount() << " presets after "
        << milliseconds(timer) << " ms\n";
    while (workspace.isScanning() || workspace.thumbnails().Waiting() > 0)
        QCoreApplication::processEvents();

    std::vector<double> letters;
    std::vector<double> rests;
    for (const char* const word : {"brass", "dark oak", "z", "new copper 12", "light"}) {
        const QString text = QString::fromLatin1(word);
        for (int i = 1; i < 2 * text.size(); ++i) {
            const QString typed = text.left(i <= text.size() ? i : 2 * text.size() - i);
            timer.restart();
            window.search().setText(typed);
            window.grab();
            letters.push_back(milliseconds(timer));
            timer.restart();
            QCoreApplication::processEvents();
            rests.push_back(milliseconds(timer));
        }
        window.search().clear();
        QCoreApplication::processEvents();
    }
    print(out, "letters", letters);
    print(out, "rests", rests);
    return 0;
}
