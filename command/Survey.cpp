// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Survey.h"

#include "toolkit/catalogue/RowScan.h"
#include "toolkit/documents/DocumentKinds.h"
#include "toolkit/edit/Labels.h"
#include "toolkit/schema/Vocabulary.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenScanner.h>
#include <rvopen/toolkit/schema/ElementInfo.h>
#include <rvopen/toolkit/schema/ParamInfo.h>

#include <QDomElement>
#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace rvopen::command {

using namespace toolkit;

namespace {

using View = std::u16string_view;
using ScannedAttributes = std::vector<ScannedAttribute>;

/// Good as long as the view.
QString borrowed(View text)
{
    return QString::fromRawData(reinterpret_cast<const QChar*>(text.data()), int(text.size()));
}

QString owned(View text)
{
    return QString(reinterpret_cast<const QChar*>(text.data()), int(text.size()));
}

/// A copy that does not borrow.
QString kept(const QString& text)
{
    return QString(text.constData(), text.size());
}

/// The start of an element, as a scan tells of it or as a document has it.
struct Tag {
    View name;
    const ScannedAttributes& attributes;
    /// None in a scan. It knows what names with prefixes are.
    const QDomElement* element = nullptr;

    bool has(View attribute) const
    {
        return element ? element->hasAttribute(owned(attribute)) : find(attribute) != nullptr;
    }

    /// Good as long as the text of the document; empty where there is none.
    QString value(View attribute) const
    {
        if (element)
            return element->attribute(owned(attribute));
        const ScannedAttribute* const found = find(attribute);
        return !found ? QString() : found->isPlain ? borrowed(found->value) : found->Text();
    }

private:
    const ScannedAttribute* find(View attribute) const
    {
        const auto found = std::find_if(
            attributes.begin(), attributes.end(),
            [attribute](const ScannedAttribute& each) { return each.name == attribute; });
        return found == attributes.end() ? nullptr : &*found;
    }
};

/// Counts what it is told of, element by element.
class Survey {
public:
    explicit Survey(Contents& contents)
        : m_contents(contents)
    {
    }

    void begin(const Tag& tag)
    {
        Element element;
        element.kind = &kindNamed(tag.name);
        element.subCategory = kept(tag.value(u"subcat"));
        element.shaderClass = kept(tag.value(u"shaderClass"));
        countAttributes(*element.kind, tag.attributes);
        if (m_open.empty()) {
            m_contents.root = element.kind->name;
            for (const View name : {u"name", u"desc", u"type", u"zorvane_version", u"unitsScale"}) {
                if (tag.has(name))
                    m_contents.rootAttributes.insert(owned(name), kept(tag.value(name)));
            }
        } else {
            if (m_open.size() == 1)
                enterTop(element, tag);
            else
                enter(element);
            if (element.kind->isParam)
                countParam(tag);
            else
                ++element.kind->count;
        }
        m_open.push_back(element);
    }

    void end()
    {
        m_open.pop_back();
    }

    /// After the last element.
    void finish()
    {
        for (const auto& [name, kind] : m_kinds) {
            if (kind->count > 0)
                m_contents.kinds.insert(kind->name, kind->count);
            if (kind->count > 0 && !kind->isKnown)
                m_contents.unknownElements.insert(kind->name, kind->count);
        }
        m_contents.kind =
            documentKind(m_contents.root, m_contents.rootAttributes.value(QStringLiteral("type")),
                         m_hasSections);
        if (m_contents.kind == DocumentKind::Archive) {
            for (const Group& group : m_contents.groups)
                m_contents.presets += group.members;
        }
    }

private:
    /// What elements of one name have in common, looked up once.
    struct Kind {
        explicit Kind(const QString& elementName)
            : name(elementName)
            , isParam(name == QLatin1String("param"))
            , isFolder(name == QLatin1String("dir"))
            , isKnown(toolkit::FindElement(name))
            , isSection(Vocabulary::instance().isSection(name))
            , hasParams(toolkit::HasParams(name))
        {
        }

        QString name;
        bool isParam;
        bool isFolder;
        bool isKnown;
        bool isSection;
        bool hasParams;
        int count = 0;
        QHash<QString, bool> attributes;
    };

    struct Element {
        Kind* kind = nullptr;
        QString subCategory;
        QString shaderClass;
        /// The group that it stands in; below 0 without.
        int group = -1;
        /// Its children stand in a group or a folder of one.
        bool isShelf = false;
    };

    Kind& kindNamed(View name)
    {
        const auto known = m_kinds.find(name);
        if (known != m_kinds.end())
            return *known->second;
        auto kind = std::make_unique<Kind>(owned(name));
        const View kept(reinterpret_cast<const char16_t*>(kind->name.constData()), name.size());
        return *m_kinds.emplace(kept, std::move(kind)).first->second;
    }

    void enterTop(Element& element, const Tag& tag)
    {
        element.isShelf = true;
        const QString& kind = element.kind->name;
        m_hasSections = m_hasSections || element.kind->isSection;
        if (element.kind->isParam)
            return;
        const QString name = tag.value(u"name");
        QString identity = name;
        for (const View other : {u"refname", u"linkname"}) {
            if (identity.isEmpty())
                identity = tag.value(other);
        }
        const QString path = m_labels.next(labelOf(kind, identity));
        if (kind != QLatin1String("snapshots") && !element.kind->isSection)
            return;
        element.group = int(m_contents.groups.size());
        m_contents.groups.append({path, kind, kept(name), 0});
    }

    void enter(Element& element)
    {
        const Element& parent = m_open.back();
        element.group = parent.group;
        element.isShelf = parent.isShelf && element.kind->isFolder;
        if (parent.group >= 0 && parent.isShelf && !element.kind->isFolder &&
            !element.kind->isParam)
            ++m_contents.groups[parent.group].members;
    }

    void countParam(const Tag& tag)
    {
        const QString name = tag.value(u"name");
        const QString type = tag.value(u"type");
        const auto counted = m_contents.params.find(type);
        if (counted != m_contents.params.end())
            ++*counted;
        else
            m_contents.params.insert(kept(type), 1);
        const Kind& owner = *m_open.back().kind;
        if (owner.hasParams && !toolkit::FindParam(owner.name, kindOfOwner(), name))
            ++m_contents.unknownParams[owner.name + QLatin1Char(':') + name];
    }

    QString kindOfOwner() const
    {
        const Element& owner = m_open.back();
        switch (kindSourceOf(owner.kind->name)) {
        case KindSource::ShaderClass:
            return owner.shaderClass;
        case KindSource::Grandparent:
            return m_open.size() > 2 ? m_open[m_open.size() - 3].kind->name : QString();
        case KindSource::SubCategory:
            break;
        }
        return owner.subCategory;
    }

    void countAttributes(Kind& kind, const ScannedAttributes& attributes)
    {
        for (const ScannedAttribute& attribute : attributes) {
            const QString name = borrowed(attribute.name);
            auto known = kind.attributes.find(name);
            if (known == kind.attributes.end())
                known = kind.attributes.insert(owned(attribute.name),
                                               Vocabulary::instance().isAttribute(kind.name, name));
            const bool isOfRoot = m_open.empty() && (name == QLatin1String("type") ||
                                                     name == QLatin1String("zorvane_version") ||
                                                     name == QLatin1String("unitsScale"));
            if (!*known && !isOfRoot)
                ++m_contents.unknownAttributes[attributePath(kind.name, name)];
        }
    }

    Contents& m_contents;
    std::unordered_map<View, std::unique_ptr<Kind>> m_kinds;
    /// From the root on.
    std::vector<Element> m_open;
    Labels m_labels;
    bool m_hasSections = false;
};

/// Surveys a file as long as its names are what stands there.
class SurveyScan : private XmlScan {
public:
    explicit SurveyScan(Contents& contents)
        : m_survey(contents)
    {
    }

    bool run(const QString& path)
    {
        if (!ScanFile(path) || m_needsDom)
            return false;
        m_survey.finish();
        return true;
    }

private:
    void StartElement(View name, const ScannedAttributes& attributes) override
    {
        m_needsDom = m_needsDom || catalogue::isInNamespace(name);
        for (const ScannedAttribute& attribute : attributes)
            m_needsDom = m_needsDom || catalogue::isInNamespace(attribute.name);
        m_survey.begin({name, attributes});
    }

    void EndElement() override
    {
        m_survey.end();
    }

    Survey m_survey;
    bool m_needsDom = false;
};

View viewOf(const QString& text)
{
    return View(reinterpret_cast<const char16_t*>(text.constData()), std::size_t(text.size()));
}

void surveyElement(const QDomElement& element, Survey& survey)
{
    const QDomNamedNodeMap map = element.attributes();
    std::vector<QString> texts;
    for (int i = 0; i < int(map.count()); ++i) {
        texts.push_back(map.item(i).nodeName());
        texts.push_back(map.item(i).nodeValue());
    }
    ScannedAttributes attributes;
    for (std::size_t i = 0; i < texts.size(); i += 2)
        attributes.push_back({viewOf(texts[i]), viewOf(texts[i + 1]), true});
    const QString name = element.tagName();
    survey.begin({viewOf(name), attributes, &element});
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        surveyElement(child, survey);
    survey.end();
}

} // namespace

bool survey(const QString& argument, Contents& contents, ReadError& error)
{
    const QFileInfo file(PathToOpen(argument));
    if (argument != QLatin1String("-") && file.isFile() && SurveyScan(contents).run(argument)) {
        contents.name = argument;
        contents.size = file.size();
        return true;
    }
    contents = Contents();
    const std::unique_ptr<Document> document = Document::Read(argument, error);
    if (!document)
        return false;
    Survey survey(contents);
    surveyElement(document->Root(), survey);
    survey.finish();
    contents.name = document->Name();
    contents.size = document->Size();
    return true;
}

} // namespace rvopen::command
