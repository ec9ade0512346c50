// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/drawing/Picture.h>

#include <QDomDocument>
#include <QImage>
#include <QtGlobal>

#include <array>
#include <atomic>
#include <iostream>
#include <thread>

namespace {

std::atomic<int> s_messages{0};

void countMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                  const QString& /*text*/)
{
    ++s_messages;
}

QImage drawn()
{
    QDomDocument document;
    document.appendChild(document.createElement(QStringLiteral("material")));
    return rvopen::toolkit::DrawPicture(document.documentElement(),
                                        {rvopen::toolkit::MinPictureSize, false});
}

} // namespace

/// A program without an application draws its first pictures in several threads at once. Prints
/// what was wrong.
int main()
{
    qInstallMessageHandler(countMessage);
    std::array<QImage, 4> pictures;
    std::array<std::thread, 4> threads;
    std::atomic<std::size_t> waiting{threads.size()};
    for (std::size_t i = 0; i < threads.size(); ++i) {
        threads[i] = std::thread([&pictures, &waiting, i] {
            for (--waiting; waiting > 0;)
                std::this_thread::yield();
            pictures[i] = drawn();
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    // The threads are gone, and one of them has made the application.
    int faults = drawn() != pictures[0] ? 1 : 0;
    for (const QImage& picture : pictures)
        faults += picture.isNull() || picture != pictures[0] ? 1 : 0;
    if (faults > 0)
        std::cout << faults << " pictures are wrong\n";
    const int before = s_messages;
    qWarning("to whom it was");
    if (s_messages != before + 1)
        std::cout << "Messages go elsewhere\n";
    return faults > 0 || s_messages != before + 1 ? 1 : 0;
}
