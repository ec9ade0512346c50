// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

class QDomDocument;

namespace rvopen::toolkit {

/// Makes the bytes the content of the file, which no signal interrupts unless it is a named pipe.
/// One that nobody reads gets some seconds for somebody to come. Empty when it was written, else
/// why not: "it could not be written: No space left on device"; the file is as it was then.
QString problemOfWriting(const QByteArray& bytes, const QString& path);

/// The same for a document.
QString problemOfWriting(const QDomDocument& document, int indent, const QString& path);

/// The same; throws a Failure that names the file.
void writeOrFail(const QByteArray& bytes, const QString& path);

} // namespace rvopen::toolkit
