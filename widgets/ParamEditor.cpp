// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/widgets/ParamEditor.h>

#include "NumberEditors.h"
#include "TextEditors.h"

#include <QApplication>
#include <QHBoxLayout>

namespace rvopen::widgets {

using namespace toolkit;

ParamEditor::ParamEditor(const ParamFacts& facts, QWidget* parent)
    : QWidget(parent)
    , m_facts(facts)
{
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    // In a cell what is below must not show through.
    setAutoFillBackground(true);
    setToolTip(facts.help);
    connect(qApp, &QApplication::focusChanged, this, &ParamEditor::focusMoved);
}

ParamEditor::~ParamEditor()
{
    // Parts that lose the focus when they go must not call what is gone already.
    disconnect(qApp, nullptr, this, nullptr);
    for (QWidget* const part : findChildren<QWidget*>())
        part->blockSignals(true);
}

ParamEditor* ParamEditor::Make(const ParamFacts& facts, QWidget* parent, const FindFile& find)
{
    if (facts.isReadOnly)
        return new TextEditor(facts, parent);
    if (!facts.choices.isEmpty())
        return new ChoiceEditor(facts, parent);
    switch (facts.type) {
    case ValueType::Boolean:
        return new CheckEditor(facts, parent);
    case ValueType::Float:
    case ValueType::Integer:
        return new NumberEditor(facts, parent);
    case ValueType::Colour:
        return new ColourEditor(facts, parent);
    case ValueType::Vector:
    case ValueType::Point:
        return new TripleEditor(facts, parent);
    default:
        break;
    }
    if (facts.content == Content::Text || facts.content == Content::FileName)
        return new TextEditor(facts, parent);
    return new FileEditor(facts, parent, find);
}

void ParamEditor::SetValue(const QVariant& value)
{
    showValue(value);
    m_unedited = shownValue();
}

QVariant ParamEditor::Value() const
{
    return shownValue();
}

bool ParamEditor::IsEdited() const
{
    return shownValue() != m_unedited;
}

const ParamFacts& ParamEditor::facts() const
{
    return m_facts;
}

void ParamEditor::addPart(QWidget* part, const QString& name, int stretch)
{
    part->setAccessibleName((m_facts.label + QLatin1Char(' ') + name).trimmed());
    part->setAccessibleDescription(m_facts.help);
    layout()->addWidget(part);
    static_cast<QHBoxLayout*>(layout())->setStretchFactor(part, stretch);
    if (!focusProxy() && part->focusPolicy() != Qt::NoFocus)
        setFocusProxy(part);
}

void ParamEditor::focusMoved(const QWidget* from, const QWidget* to)
{
    // Lists and dialogs of the parts are windows, and yet belong to them.
    const auto isHere = [this](const QWidget* at) {
        while (at && at != this)
            at = at->parentWidget();
        return at != nullptr;
    };
    if (to && isHere(from) && !isHere(to))
        Q_EMIT Left();
}

} // namespace rvopen::widgets
