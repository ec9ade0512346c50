// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenReader.h>
#include <rvopen/xml/DomBuilder.h>

#include <QDomDocument>
#include <QString>

#include <memory>

namespace rvopen::xml {

/// The document in a text without byte order mark, whose line ends may be of any kind. Null when
/// the text is no well-formed document or passes a bound of RVOpenLimits.h; message, line and
/// column of \p error then say why.
std::unique_ptr<QDomDocument> parse(QString text, Namespaces namespaces, ReadError& error);

/// Whether parse() would make a document of the text, for the same reason otherwise.
bool isDocument(QString text, ReadError& error);

} // namespace rvopen::xml
