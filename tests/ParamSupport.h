// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "TestSupport.h"

namespace rvopen::test {

/// A document and an object over its root element.
template <typename Class>
struct Bound {
    explicit Bound(const QString& xml)
        : document(parse(xml))
        , object(bind<Class>(document.documentElement()))
    {
    }
    explicit Bound(const char* xml)
        : Bound(QString::fromUtf8(xml))
    {
    }

    Class* operator->() const
    {
        return object.get();
    }
    Class* get() const
    {
        return object.get();
    }
    QDomElement element() const
    {
        return document.documentElement();
    }

    QDomDocument document;
    std::unique_ptr<Class> object;
};

inline std::string attributeText(const QDomElement& element, const char* name)
{
    const QString attribute = QString::fromLatin1(name);
    return element.hasAttribute(attribute) ? element.attribute(attribute).toStdString() : "(none)";
}

/// The parameter elements under an element in their order, one line each: "Name: type = val", and
/// the property letters in brackets where there are any.
inline std::string paramsOf(const QDomElement& element)
{
    const QString tag = QStringLiteral("param");
    std::string lines;
    for (QDomElement param = element.firstChildElement(tag); !param.isNull();
         param = param.nextSiblingElement(tag)) {
        lines += attributeText(param, "name") + ": " + attributeText(param, "type") + " = " +
                 attributeText(param, "val");
        if (param.hasAttribute(QStringLiteral("prop")))
            lines += " [" + attributeText(param, "prop") + "]";
        lines += '\n';
    }
    return lines;
}

/// A "param" element as text. \p val is XML text.
inline QString param(const char* name, const char* type, const char* val)
{
    return QStringLiteral("<param name=\"%1\" type=\"%2\" val=\"%3\"/>")
        .arg(QString::fromUtf8(name), QString::fromUtf8(type), QString::fromUtf8(val));
}

/// Names the tests of a table by the rows' member "name".
struct RowName {
    template <typename Row>
    std::string operator()(const ::testing::TestParamInfo<Row>& row) const
    {
        return row.param.name;
    }
};

} // namespace rvopen::test
