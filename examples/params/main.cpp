// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

// Prints what is wrong with the values in documents: params <document>...
// The answer is 1 when there is something.

#include <rvopen/RVOpenReader.h>
#include <rvopen/toolkit/schema/ParamInfo.h>
#include <rvopen/toolkit/schema/ValueCheck.h>

#include <QDomDocument>
#include <QDomElement>
#include <QFile>
#include <QTextStream>

#include <memory>

namespace {

using namespace rvopen;

/// How many values of the element's parameters and of all below it are wrong.
int check(QTextStream& out, const QDomElement& element)
{
    int count = 0;
    const QString kind = toolkit::KindOf(element);
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const QString name = child.attribute(QStringLiteral("name"));
        const toolkit::ParamInfo* const info =
            child.tagName() == QLatin1String("param")
                ? toolkit::FindParam(element.tagName(), kind, name)
                : nullptr;
        if (info) {
            const QString text = child.attribute(QStringLiteral("val"));
            if (const toolkit::ValueFault fault = toolkit::CheckValue(*info, text)) {
                out << "  " << element.tagName() << ", " << info->label.toString() << ": "
                    << toolkit::FaultMessage(*info, fault) << '\n';
                ++count;
            }
        }
        count += check(out, child);
    }
    return count;
}

} // namespace

int main(int argc, char** argv)
{
    QTextStream out(stdout);
    int count = 0;
    for (int i = 1; i < argc; ++i) {
        const std::unique_ptr<QDomDocument> document(ReadXmlDocument(QFile::decodeName(argv[i])));
        if (!document) {
            out << argv[i] << " cannot be read\n";
            return 1;
        }
        out << argv[i] << '\n';
        count += check(out, document->documentElement());
    }
    out << count << " wrong values\n";
    return count > 0 ? 1 : 0;
}
