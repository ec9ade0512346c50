// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/widgets/UndoRecorder.h>

#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenObserver.h>
#include <rvopen/host/Ref.h>

#include <QDomDocument>
#include <QPointer>
#include <QUndoCommand>
#include <QUndoStack>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <utility>
#include <vector>

namespace rvopen::widgets {

namespace {

using Changes = std::vector<RVOpenChange>;

/// How far back another value of the same attribute is looked for: a drag sets a few by turns.
constexpr int s_attributesAtOnce = 8;

/// More elements at once than a getter creates.
constexpr std::size_t s_createdAtOnce = 64;

QDomDocument documentOf(RVOpenNode* root)
{
    return root ? root->GetDomNode().ownerDocument() : QDomDocument();
}

bool isSame(const QString& a, const QString& b)
{
    return a.isNull() == b.isNull() && a == b;
}

/// Values of attributes commute, so that the first and the last one of each are enough.
void add(Changes& changes, const RVOpenChange& change)
{
    if (change.kind == RVOpenChange::AttributeSet) {
        auto last = changes.rbegin();
        for (int i = 0; i < s_attributesAtOnce && last != changes.rend() &&
                        last->kind == RVOpenChange::AttributeSet;
             ++i, ++last) {
            if (last->node != change.node || last->name != change.name)
                continue;
            last->after = change.after;
            if (isSame(last->before, last->after))
                changes.erase(std::next(last).base());
            return;
        }
    }
    changes.push_back(change);
}

bool standsInTree(const RVOpenChange& change)
{
    QDomNode node = change.kind == RVOpenChange::AttributeSet ? change.node : change.parent;
    while (!node.isNull() && node != change.document)
        node = node.parentNode();
    return !node.isNull();
}

} // namespace

/// What is heard of the document, and how it is taken back there.
class RVOPEN_WIDGETS_NO_EXPORT UndoRecorder::Record : public RVOpenObserver {
public:
    using Root = std::function<RVOpenNode*()>;
    using TakeBack = std::function<bool(const RVOpenChange&)>;

    Record(UndoRecorder& recorder, QUndoStack* stack, Root root, TakeBack takeBack)
        : m_recorder(recorder)
        , m_stack(stack)
        , m_root(std::move(root))
        , m_takeBack(std::move(takeBack))
        , m_document(documentOf(m_root()))
    {
    }

    void Changed(const RVOpenChange& change) override;
    void BlockEnded() override;

    void begin(const QString& text)
    {
        if (m_begun++ == 0)
            m_text = text;
    }

    void end()
    {
        if (m_begun > 0 && --m_begun == 0)
            push(m_text);
    }

    bool isBegun() const
    {
        return m_begun > 0;
    }

    bool undo(Changes& changes);
    bool redo(Changes& changes);

private:
    void look(const RVOpenChange& change);
    bool isCreated(QDomNode node) const;
    void push(const QString& text);
    void forget();
    bool takeBack(const Changes& later, Changes& changes);
    bool takeBackAll(const Changes& changes);

    UndoRecorder& m_recorder;
    QPointer<QUndoStack> m_stack;
    Root m_root;
    TakeBack m_takeBack;
    QDomDocument m_document;
    Changes m_changes;               ///< Of the command to come, or of what is being taken back.
    Changes m_unasked;               ///< Additions since the last command.
    std::vector<QDomNode> m_created; ///< In the tree, by m_changes.
    QString m_text;
    int m_begun = 0;
    bool m_isInTree = false; ///< Some of the changes are.
    bool m_onlyAdds = true;  ///< Those that are.
    bool m_takesBack = false;
};

/// What was done, or undone: taking it back gives what takes that back.
class RVOPEN_WIDGETS_NO_EXPORT UndoRecorder::Command : public QUndoCommand {
public:
    Command(UndoRecorder* recorder, Changes changes, const QString& text)
        : QUndoCommand(text)
        , m_recorder(recorder)
        , m_changes(std::move(changes))
    {
    }

    void undo() override
    {
        finish(m_recorder && m_recorder->m_record->undo(m_changes));
    }

    void redo() override
    {
        // The stack does what it is given; that was done already.
        if (!std::exchange(m_isNew, false))
            finish(m_recorder && m_recorder->m_record->redo(m_changes));
    }

private:
    void finish(bool isDone)
    {
        if (isDone)
            return;
        setObsolete(true);
        if (m_recorder)
            Q_EMIT m_recorder->Failed(text());
    }

    QPointer<UndoRecorder> m_recorder;
    Changes m_changes;
    bool m_isNew = true;
};

void UndoRecorder::Record::Changed(const RVOpenChange& change)
{
    if (m_document.isNull()) {
        if (change.kind == RVOpenChange::DocumentAboutToBeReset)
            return;
        m_document = documentOf(m_root());
    }
    if (change.document.isNull() || change.document != m_document)
        return;
    switch (change.kind) {
    case RVOpenChange::DocumentAboutToBeReset:
        forget();
        m_unasked.clear();
        if (m_stack)
            m_stack->clear();
        break;
    case RVOpenChange::DocumentReset:
        m_document = change.replacement;
        break;
    case RVOpenChange::ChildAboutToBeRemoved:
        break;
    default:
        look(change);
        add(m_changes, change);
    }
}

void UndoRecorder::Record::BlockEnded()
{
    if (m_begun > 0 || m_takesBack)
        return;
    if (!m_isInTree || !m_onlyAdds) {
        push(UndoRecorder::tr("Edit"));
        return;
    }
    m_unasked.insert(m_unasked.end(), m_changes.begin(), m_changes.end());
    forget();
}

bool UndoRecorder::Record::undo(Changes& changes)
{
    Changes all = changes;
    all.insert(all.end(), m_unasked.begin(), m_unasked.end());
    if (!takeBack({}, all))
        return false;
    changes = std::move(all);
    return true;
}

bool UndoRecorder::Record::redo(Changes& changes)
{
    return takeBack(m_unasked, changes);
}

/// What the change says of those that there are since the last command.
void UndoRecorder::Record::look(const RVOpenChange& change)
{
    if (!standsInTree(change))
        return;
    m_isInTree = true;
    if (!m_onlyAdds)
        return;
    if (change.kind == RVOpenChange::ChildInserted && m_created.size() < s_createdAtOnce)
        m_created.push_back(change.node);
    else
        m_onlyAdds = change.kind == RVOpenChange::AttributeSet ? isCreated(change.node)
                                                               : isCreated(change.parent);
}

bool UndoRecorder::Record::isCreated(QDomNode node) const
{
    for (; !node.isNull(); node = node.parentNode()) {
        if (std::find(m_created.begin(), m_created.end(), node) != m_created.end())
            return true;
    }
    return false;
}

void UndoRecorder::Record::push(const QString& text)
{
    if (m_isInTree && !m_changes.empty() && m_stack) {
        // Where no command is left it is part of what all of them start from.
        Changes changes = m_stack->index() > 0 ? std::exchange(m_unasked, {}) : Changes();
        changes.insert(changes.end(), m_changes.begin(), m_changes.end());
        m_unasked.clear();
        forget();
        m_stack->push(new Command(&m_recorder, std::move(changes), text));
    }
    forget();
}

void UndoRecorder::Record::forget()
{
    m_changes.clear();
    m_created.clear();
    m_isInTree = false;
    m_onlyAdds = true;
}

/// Takes back what came later and then \p changes, which become what takes that back. False, with
/// all as it was, where that cannot be.
bool UndoRecorder::Record::takeBack(const Changes& later, Changes& changes)
{
    // An edit on its way lies above the command.
    Q_ASSERT(m_changes.empty() && !m_takesBack);
    m_takesBack = true;
    bool isDone = false;
    {
        const RVOpenBlock block;
        isDone = takeBackAll(later);
        const Changes laterBack = std::exchange(m_changes, {});
        isDone = isDone && takeBackAll(changes);
        Changes back = std::exchange(m_changes, {});
        if (isDone) {
            changes = std::move(back);
        } else {
            takeBackAll(back);
            takeBackAll(laterBack);
        }
    }
    if (isDone)
        m_unasked.clear();
    forget();
    m_takesBack = false;
    return isDone;
}

bool UndoRecorder::Record::takeBackAll(const Changes& changes)
{
    for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
        if (!m_takeBack(*change))
            return false;
    }
    return true;
}

UndoRecorder::UndoRecorder(RVOpenManager& manager, QUndoStack* stack, QObject* parent)
    : QObject(parent)
    , m_record(std::make_unique<Record>(
          *this, stack, [&manager] { return manager.GetRootNode(); },
          [&manager](const RVOpenChange& change) { return manager.TakeBack(change); }))
{
}

UndoRecorder::UndoRecorder(RVOpenNode* root, QUndoStack* stack, QObject* parent)
    : QObject(parent)
    , m_record(std::make_unique<Record>(
          *this, stack, [ref = host::Ref<>(root)] { return ref.get(); },
          [ref = host::Ref<>(root)](const RVOpenChange& change) {
              return change.TakeBack(ref.get());
          }))
{
}

UndoRecorder::~UndoRecorder() = default;

void UndoRecorder::Begin(const QString& text)
{
    m_record->begin(text);
}

void UndoRecorder::End()
{
    m_record->end();
}

bool UndoRecorder::IsBegun() const
{
    return m_record->isBegun();
}

UndoRecorder::Step::Step(UndoRecorder& recorder, const QString& text)
    : m_recorder(recorder)
{
    m_recorder.Begin(text);
}

UndoRecorder::Step::~Step()
{
    m_recorder.End();
}

} // namespace rvopen::widgets
