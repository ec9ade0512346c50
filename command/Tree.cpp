// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "Outline.h"
#include "SelectionOptions.h"
#include "Session.h"
#include "toolkit/edit/Labels.h"

#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/edit/ParamValues.h>

#include <QJsonArray>

#include <algorithm>
#include <limits>
#include <thread>

namespace rvopen::command {

using namespace toolkit;

namespace {

using Attributes = QVector<QPair<QString, QString>>;

/// In the order of their names; those that a path shows already are left out.
Attributes attributesOf(const QDomElement& element)
{
    Attributes result;
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.count(); ++i) {
        const QDomNode attribute = attributes.item(i);
        if (!isParam(element) || (attribute.nodeName() != QLatin1String("name") &&
                                  attribute.nodeName() != QLatin1String("type") &&
                                  attribute.nodeName() != QLatin1String("val")))
            result.append({attribute.nodeName(), attribute.nodeValue()});
    }
    std::sort(result.begin(), result.end());
    return result;
}

const int s_allLevels = std::numeric_limits<int>::max();

struct Child {
    QDomElement element;
    QString label;
    QString path;
};

bool isLong(const QString& attribute)
{
    return attribute == QLatin1String("xmlImage");
}

class Tree : public Command {
public:
    const char* name() const override
    {
        return "tree";
    }

    const char* summary() const override
    {
        return "Print the tree of a document with names and values";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description("Each line is a part of a path that get and set take; with --paths "
                              "it is the whole path. Lengths are in scene units. What is "
                              "selected is printed with what it stands in; exit code 1 when "
                              "there is none.");
        arguments.positional("files", m_files, "Documents, archives, folders, or \"-\"");
        arguments.option("-d,--depth", m_depth, "N", "Only so many levels");
        arguments.flag("-p,--params", m_params, "Parameters and attributes with their values");
        arguments.flag("--paths", m_paths, "One line for each, \"path = value\"");
        m_selection.declare(arguments);
        arguments.example("rvopen tree --depth 2 snapshots/house.xml", "an overview");
        arguments.example("rvopen tree --params --paths snapshots/product.xml | grep Colour",
                          "all colours with their paths");
    }

    int run(Session& session) override
    {
        const Selection selection = m_selection.selection();
        bool isFound = selection.isEverything();
        QJsonArray files;
        const auto show = [&](const QString& file, const QDomElement& root) {
            m_scope = selection.in(root);
            if (!m_scope.isEverything() && m_scope.elements().isEmpty())
                return;
            isFound = true;
            files.append(print(file, root, session));
        };
        // Values and attributes, and what is selected by them, the whole document has.
        if (m_depth < s_allLevels && !m_params && selection.isEverything())
            forEachOutline(session, show);
        else
            forEachDocument(m_files, session,
                            [&](Document& document) { show(document.Name(), document.Root()); });
        m_selection.tellMisspelling(session);
        if (session.json) {
            QJsonObject result = Session::envelope(name());
            result.insert(QStringLiteral("files"), files);
            session.out.json(result);
        }
        return session.result(isFound ? ExitFine : ExitFindings);
    }

private:
    /// Gives back what goes into the object that is printed at the end, if one is.
    QJsonObject print(const QString& file, const QDomElement& root, Session& session)
    {
        ParamValues values;
        m_values = &values;
        m_out = &session.out;
        if (session.json) {
            QJsonObject result = object(root, QString(), 0);
            result.insert(QStringLiteral("file"), file);
            return result;
        }
        if (m_paths) {
            printPaths(root);
        } else {
            m_out->line(m_out->styled(visible(file + QLatin1String("  ")), Style::Dim) +
                        described(root, root.tagName()));
            printChildren(root, QString(), QString(), 1);
        }
        return QJsonObject();
    }

    /// Read ahead by all processors.
    template <typename Show>
    void forEachOutline(Session& session, Show show) const
    {
        const int jobs = std::max(1, int(std::thread::hardware_concurrency()));
        // With --paths there is one level at least.
        const auto read = [levels = std::max(1, m_depth)](const QString& file) {
            return outlineOf(file, levels);
        };
        forEachRead(expandedInputs(m_files, session), jobs, session, read,
                    [&](const Outline& outline) {
                        if (outline.dom.isNull())
                            session.error(outline.error);
                        else
                            show(outline.name, outline.dom.documentElement());
                    });
    }

    bool isShown(const QDomElement& element, const QString& path) const
    {
        return (m_params || !isParam(element) || !element.firstChildElement().isNull()) &&
               (m_scope.covers(path) || m_scope.leadsTo(path));
    }

    /// The label with what is known of the element behind it.
    QString described(const QDomElement& element, const QString& label) const
    {
        QString line = m_out->styled(visible(label), isParam(element) ? Style::Cyan : Style::Bold);
        if (isParam(element)) {
            if (m_params && element.attribute(QStringLiteral("type")) != QLatin1String("shader"))
                line += QLatin1String(" = ") + visible(m_values->Text(element));
            return line;
        }
        if (!m_params) {
            for (const char* attribute : {"subcat", "refname"}) {
                const QString value = element.attribute(QLatin1String(attribute));
                if (!value.isEmpty() && value != IdentityOf(element))
                    line += m_out->styled(QLatin1String("  ") + visible(value), Style::Dim);
            }
            return line;
        }
        for (const auto& attribute : attributesOf(element)) {
            if (attribute.first == QLatin1String("name"))
                continue;
            const QString value =
                isLong(attribute.first)
                    ? QStringLiteral("(%1 characters)").arg(attribute.second.size())
                    : attribute.second;
            line += m_out->styled(QLatin1String("  @") +
                                      visible(attribute.first + QLatin1Char('=') + value),
                                  Style::Dim);
        }
        return line;
    }

    void printChildren(const QDomElement& parent, const QString& parentPath, const QString& indent,
                       int depth) const
    {
        if (depth > m_depth)
            return;
        Labels labels;
        QVector<Child> children;
        for (QDomElement child = parent.firstChildElement(); !child.isNull();
             child = child.nextSiblingElement()) {
            const QString label = labels.next(child);
            const QString path = joined(parentPath, label);
            if (isShown(child, path))
                children.append({child, label, path});
        }
        for (int i = 0; i < int(children.size()); ++i) {
            const bool isLast = i + 1 == int(children.size());
            m_out->line(indent + QString::fromUtf8(isLast ? "└─ " : "├─ ") +
                        described(children[i].element, children[i].label));
            printChildren(children[i].element, children[i].path,
                          indent + QString::fromUtf8(isLast ? "   " : "│  "), depth + 1);
        }
    }

    void printPaths(const QDomElement& root) const
    {
        if (m_scope.isEverything())
            printAttributes(root, QString());
        Walk(root, QString(), [this](const QDomElement& element, const QString& path) {
            if (!m_scope.covers(path))
                return m_scope.leadsTo(path) && depthOf(element) < m_depth;
            if (isParam(element)) {
                if (m_params &&
                    element.attribute(QStringLiteral("type")) != QLatin1String("shader"))
                    m_out->line(visible(path) + QLatin1String(" = ") +
                                visible(m_values->Text(element)));
            } else {
                m_out->line(visible(path));
            }
            printAttributes(element, path);
            return depthOf(element) < m_depth;
        });
    }

    static int depthOf(const QDomElement& element)
    {
        int depth = 0;
        for (QDomNode node = element.parentNode(); node.isElement(); node = node.parentNode())
            ++depth;
        return depth;
    }

    void printAttributes(const QDomElement& element, const QString& path) const
    {
        if (!m_params)
            return;
        for (const auto& attribute : attributesOf(element))
            m_out->line(visible(attributePath(path, attribute.first)) + QLatin1String(" = ") +
                        visible(attribute.second));
    }

    QJsonObject object(const QDomElement& element, const QString& path, int depth) const
    {
        QJsonObject result{{QStringLiteral("kind"), element.tagName()},
                           {QStringLiteral("path"), path}};
        const QString identity = IdentityOf(element);
        if (!identity.isEmpty())
            result.insert(QStringLiteral("name"), identity);
        QJsonObject attributes;
        for (const auto& attribute : attributesOf(element))
            attributes.insert(attribute.first, attribute.second);
        if (m_params && !attributes.isEmpty())
            result.insert(QStringLiteral("attributes"), attributes);
        if (m_params && isParam(element)) {
            result.insert(QStringLiteral("type"), element.attribute(QStringLiteral("type")));
            result.insert(QStringLiteral("value"),
                          QJsonValue::fromVariant(m_values->Value(element)));
        }
        QJsonArray children;
        if (depth < m_depth) {
            Labels labels;
            for (QDomElement child = element.firstChildElement(); !child.isNull();
                 child = child.nextSiblingElement()) {
                const QString childPath = joined(path, labels.next(child));
                if (isShown(child, childPath))
                    children.append(object(child, childPath, depth + 1));
            }
        }
        if (!children.isEmpty())
            result.insert(QStringLiteral("children"), children);
        return result;
    }

    QStringList m_files;
    int m_depth = s_allLevels;
    bool m_params = false;
    bool m_paths = false;
    SelectionOptions m_selection;
    /// Of the document that is being printed.
    Scope m_scope;
    ParamValues* m_values = nullptr;
    Output* m_out = nullptr;
};

} // namespace

std::unique_ptr<Command> makeTree()
{
    return std::make_unique<Tree>();
}

} // namespace rvopen::command
