// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Labels.h"

#include "Becoming.h"
#include "EditedFile.h"

#include <rvopen/RVOpenObserver.h>
#include <rvopen/toolkit/catalogue/Catalogue.h>
#include <rvopen/toolkit/edit/Links.h>

#include <QFormLayout>
#include <QLineEdit>

namespace rvopen::browser {

namespace {

const QString s_refName = QStringLiteral("refname");

bool isTaken(const QString& refName, const QDomElement& element, const QDomElement& root)
{
    for (const QDomElement& preset : toolkit::PresetsIn(root)) {
        if (preset != element && preset.tagName() == element.tagName() &&
            preset.attribute(s_refName) == refName)
            return true;
    }
    return false;
}

bool write(EditedFile& file, const QDomElement& element, const QString& attribute,
           const QString& text)
{
    QDomElement wanted = element.cloneNode(true).toElement();
    if (text.isEmpty())
        wanted.removeAttribute(attribute);
    else
        wanted.setAttribute(attribute, text);
    return becomeAs(wanted, element, file.changes());
}

} // namespace

Labels::Labels(QWidget* parent)
    : QWidget(parent)
{
    auto* const layout = new QFormLayout(this);
    layout->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    const auto add = [this, layout](const char* attribute, const QString& label) {
        auto* const line = new QLineEdit;
        line->setAccessibleName(label);
        layout->addRow(label, line);
        m_fields.append({QLatin1String(attribute), line});
        connect(line, &QLineEdit::editingFinished, this, [this, field = m_fields.last()] {
            if (!m_element.isNull() && field.line->text() != m_element.attribute(field.attribute))
                Q_EMIT changed(field.attribute, field.line->text());
        });
    };
    add("cat", tr("Category"));
    add("subcat", tr("Tag"));
    add("desc", tr("Description"));
    add("refname", tr("Reference name"));
}

void Labels::showElement(const QDomElement& element, bool isEdited)
{
    const bool isSame = element == m_element;
    m_element = element;
    for (const Field& field : m_fields) {
        const QString text = element.attribute(field.attribute);
        // What is being typed stays, as long as it is of the same one.
        const bool isTyped = isSame && field.line->hasFocus() && field.line->isModified();
        if (field.line->text() != text && !isTyped)
            field.line->setText(text);
        field.line->setReadOnly(!isEdited);
        field.line->setEnabled(!element.isNull());
    }
}

bool setLabel(EditedFile& file, const QDomElement& element, const QString& attribute,
              const QString& text)
{
    const QDomElement root = file.dom().documentElement();
    const QString before = element.attribute(attribute);
    QVector<QDomElement> users;
    if (attribute == s_refName && !text.isEmpty()) {
        if (isTaken(text, element, root))
            return false;
        // All are looked up first: a path may have the name in it.
        for (const toolkit::Link& link : toolkit::LinksTo(element.tagName(), before, root))
            users.append(elementAt(file.dom(), link.path));
    }
    const widgets::UndoRecorder::Step step(file.recorder(), Labels::tr("Describe"));
    const RVOpenBlock block;
    bool isDone = write(file, element, attribute, text);
    for (const QDomElement& user : users)
        isDone = write(file, user, attribute, text) && isDone;
    return isDone;
}

} // namespace rvopen::browser
