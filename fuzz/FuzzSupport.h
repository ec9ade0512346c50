// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>

/// A target: what libFuzzer and replay.cpp call with each input. Always 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// What the targets share.
namespace rvopen::fuzz {

/// \name Findings
/// @{

/// Ends the process, which makes the present input a finding.
[[noreturn]] void broken(const char* promise, const QString& detail = QString());

inline void require(bool kept, const char* promise)
{
    if (!kept)
        broken(promise);
}

/// As above; \p detail is called only when the promise is broken.
template <typename Detail>
void require(bool kept, const char* promise, Detail detail)
{
    if (!kept)
        broken(promise, detail());
}

/// Two texts that have to be the same.
void requireEqual(const QString& first, const QString& second, const char* promise);

/// Loads a snapshot document that was written, saves it, and both again: what the first load
/// brings up to date is there to stay.
void requireTextLoadsEqual(const QString& written);

/// With RVOPEN_FUZZ_TRACE set, prints what the target is about to do.
void trace(const QString& step);
bool isTracing();

/// @}

/// \name Surroundings
/// @{

/// Once per process: Qt keeps quiet, and the archive registry works in folders below scratch().
/// To be called at the start of each input: the registry forgets folders that went missing.
void prepare();
/// The same for what needs pixmaps.
void prepareWithApplication();

/// The process's own folder, deleted at its end.
QString scratch();
QString snapShotsFolder();
QString productFolder();
QString customFolder();

/// True when nothing but what prepare() made stands beside the folders that the library may write
/// to: what a document names must not lead out of them.
bool nothingEscaped();

void writeFile(const QString& path, const QByteArray& bytes);
/// Empty when there is no such file.
QByteArray readFile(const QString& path);

/// @}

} // namespace rvopen::fuzz
