// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenScanner.h>

#include <rvopen/files/DocumentFiles.h>
#include <rvopen/xml/BytePlaces.h>
#include <rvopen/xml/TextDecoding.h>
#include <rvopen/xml/XmlReferences.h>
#include <rvopen/xml/XmlScanner.h>

namespace rvopen {

QString ScannedAttribute::Text() const
{
    return xml::valueOf(*this);
}

/// Hands on what a scanner tells.
class XmlScan::Source : public xml::NoHandler {
public:
    Source(XmlScan& scan, const QByteArray& bytes, xml::View text)
        : m_scan(scan)
        , m_places(bytes, text)
    {
        m_scan.m_source = this;
    }
    ~Source()
    {
        m_scan.m_source = nullptr;
    }
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;

    qint64 offset()
    {
        return m_places.offsetOf(m_event.data());
    }
    qint64 endOffset()
    {
        return m_places.offsetOf(m_event.data() + m_event.size());
    }

    void startTag(const xml::StartTag& tag)
    {
        m_event = tag.text;
        m_scan.StartElement(tag.name, tag.attributes);
    }
    void endTag(xml::View tag)
    {
        m_event = tag;
        m_scan.EndElement();
    }
    void characters(const xml::Characters& characters)
    {
        m_event = characters.text;
        m_scan.Text(characters.text, characters.isPlain);
    }
    void cdata(xml::View text)
    {
        m_event = text;
        m_scan.Text(text, true);
    }

private:
    XmlScan& m_scan;
    xml::BytePlaces m_places;
    xml::View m_event;
};

XmlScan::XmlScan() = default;
XmlScan::~XmlScan() = default;

bool XmlScan::ScanFile(const QString& path, ReadError* error)
{
    ReadError failure;
    failure.file = path;
    QByteArray bytes;
    QString text;
    bool isDocument = readText(path, bytes, text, failure);
    if (isDocument) {
        // Bytes are searched more quickly than characters, of which none is coded without its
        // number.
        if (bytes.contains('\r'))
            normaliseLineEnds(text);
        xml::Scanner scanner(xml::viewOf(text));
        Source source(*this, bytes, xml::viewOf(text));
        isDocument = xml::scan(scanner, source);
        if (!isDocument)
            scanner.describe(failure);
    }
    tellOfReading(isDocument ? ReadError() : failure, error);
    return isDocument;
}

void XmlScan::StartElement(std::u16string_view, const std::vector<ScannedAttribute>&) {}

void XmlScan::EndElement() {}

void XmlScan::Text(std::u16string_view, bool) {}

qint64 XmlScan::Offset()
{
    return m_source ? m_source->offset() : 0;
}

qint64 XmlScan::EndOffset()
{
    return m_source ? m_source->endOffset() : 0;
}

} // namespace rvopen
