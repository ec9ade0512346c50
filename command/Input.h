// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Session.h"
#include "toolkit/edit/Selection.h"

#include <rvopen/toolkit/documents/Document.h>

#include <QString>
#include <QStringList>

#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <utility>

namespace rvopen::command {

/// Whether the name of a file stands for several, as "*.rvx".
bool isPattern(const QString& text);

/// Files, with each folder replaced by the documents in it and below it in the order of their
/// names, and each pattern that is no file's name ("*", "?", "[ab]") by what it fits. What cannot
/// be listed, a pattern that fits nothing, and a file whose name is not UTF-8, counts as an error.
QStringList expandedInputs(const QStringList& arguments, Session& session);

/// Calls \p use with what \p read gives for each file, in their order. With several \p jobs so many
/// are read ahead, each in a thread of its own.
template <typename Read, typename Use>
void forEachRead(const QStringList& files, int jobs, Session& session, Read read, Use use)
{
    std::deque<std::future<decltype(read(QString()))>> ahead;
    const int count = int(files.size());
    for (int at = 0, started = 0; at < count; ++at) {
        session.progress(at + 1, count, files[at]);
        if (jobs <= 1) {
            use(read(files[at]));
            continue;
        }
        for (; started < count && started < at + jobs; ++started)
            ahead.push_back(std::async(std::launch::async, read, files[started]));
        std::future<decltype(read(QString()))> next = std::move(ahead.front());
        ahead.pop_front();
        use(next.get());
    }
    session.clearProgress();
}

enum class Access {
    Reading,
    /// Each document may be written over: nobody else changes it from before it is read.
    Changing
};

/// Reads one document after the other and calls \p visit with each. One that cannot be read is
/// given to \p failed, and an error of the session unless that answers true. With several \p jobs
/// documents that are not changed are read ahead.
void forEachDocument(const QStringList& arguments, Session& session,
                     const std::function<void(toolkit::Document&)>& visit,
                     const std::function<bool(const QString&, const ReadError&)>& failed = {},
                     Access access = Access::Reading, int jobs = 1);

/// Calls \p visit with what \p part gives for each file, in their order: a document that may have
/// less than the file. Where it gives null the file is read whole. With several \p jobs they are
/// opened ahead, each in a thread of its own.
void forEachPart(const QStringList& files, Session& session,
                 const std::function<std::unique_ptr<toolkit::Document>(const QString&)>& part,
                 const std::function<void(toolkit::Document&)>& visit, int jobs = 1);

/// As forEachDocument() without more. Where the rows of the catalogue say what is selected in an
/// archive, the document may have no other presets.
void forEachSelected(const QStringList& arguments, Session& session,
                     const toolkit::Selection& selection,
                     const std::function<void(toolkit::Document&)>& visit);

/// Reads the one document of a command; throws a Failure without message after printing the error.
std::unique_ptr<toolkit::Document> readOrFail(const QString& argument, Session& session);

} // namespace rvopen::command
