// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>
#include <rvopen/RVOpenReader.h>

#include <QString>
#include <QtGlobal>

#include <string_view>
#include <vector>

namespace rvopen {

/// An attribute as a scan meets it. Its views are good until the scan ends.
struct ScannedAttribute {
    /// As it stands there, with its prefix.
    std::u16string_view name;
    /// Between the quotes, as it stands there.
    std::u16string_view value;
    /// The value is what it stands for: it has no reference, and no white space but blanks.
    bool isPlain = true;

    /// What the value stands for, as a document has it.
    RVOPEN_EXPORT QString Text() const;
};

/// A pass over a document that tells of its elements and builds nothing. It takes and refuses the
/// same files as ReadXmlDocument(), with the same messages and places, in a fraction of the time
/// and with no more memory than text and file take. Who wants to know derives from it; objects in
/// several threads do not know of each other.
class RVOPEN_EXPORT XmlScan {
public:
    XmlScan();
    virtual ~XmlScan();
    XmlScan(const XmlScan&) = delete;
    XmlScan& operator=(const XmlScan&) = delete;

    /// Tells of what is in the file. False when it is no document; what stands before the place of
    /// the error was told of then. \p error, if given, is set either way, as is LastReadError().
    bool ScanFile(const QString& path, ReadError* error = nullptr);

protected:
    /// \name What is told
    /// In the order of the document. These do nothing. Views are good until the scan ends.
    /// @{

    /// An element begins.
    virtual void StartElement(std::u16string_view name,
                              const std::vector<ScannedAttribute>& attributes);
    /// The element that began last and has not ended ends.
    virtual void EndElement();
    /// Text in an element, white space or not, as it stands there; with \p isPlain there is no
    /// reference in it. Text between the same two tags may come in several parts, of which
    /// sections of characters are some.
    virtual void Text(std::u16string_view text, bool isPlain);
    /// @}

    /// \name Where it stands
    /// In bytes of the file, while something is told.
    /// @{

    /// Of the first byte of the tag or text.
    qint64 Offset();
    /// Of the first byte behind it.
    qint64 EndOffset();
    /// @}

private:
    class Source;
    friend class Source;

    Source* m_source = nullptr;
};

} // namespace rvopen
