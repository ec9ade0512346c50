// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/widgets/UndoRecorder.h>

#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenObserver.h>
#include <rvopen/host/Ref.h>

#include <QDomDocument>
#include <QMetaObject>
#include <QPointer>
#include <QUndoCommand>
#include <QUndoStack>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <set>
#include <utility>
#include <vector>

namespace rvopen::widgets {

namespace {

using Changes = std::vector<RVOpenChange>;
using Nodes = std::vector<QDomNode>;

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

void addAll(Changes& changes, const Changes& later)
{
    for (const RVOpenChange& change : later)
        add(changes, change);
}

/// What has to stand in the document for the change to be one of it.
QDomNode placeOf(const RVOpenChange& change)
{
    return change.kind == RVOpenChange::AttributeSet ? change.node : change.parent;
}

bool standsIn(const QDomDocument& document, QDomNode node)
{
    while (!node.isNull() && node != document)
        node = node.parentNode();
    return !node.isNull();
}

bool contains(const Nodes& nodes, const QDomNode& node)
{
    return std::find(nodes.begin(), nodes.end(), node) != nodes.end();
}

/// One of them, or in one of them.
bool isBelow(const Nodes& nodes, QDomNode node)
{
    while (!nodes.empty() && !node.isNull() && !contains(nodes, node))
        node = node.parentNode();
    return !nodes.empty() && !node.isNull();
}

/// The outermost of what the changes were made in and stands in no tree now.
Nodes outsideOf(const Changes& changes)
{
    Nodes nodes;
    for (const RVOpenChange& change : changes) {
        for (QDomNode node : {change.node, placeOf(change)}) {
            while (!node.parentNode().isNull())
                node = node.parentNode();
            if (node != change.document && (nodes.empty() || nodes.back() != node))
                nodes.push_back(node);
        }
    }
    return nodes;
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
            close(m_text, true);
    }

    bool isBegun() const
    {
        return m_begun > 0;
    }

    void enter(const Command* command)
    {
        m_commands.insert(command);
    }

    void leave(const Command* command)
    {
        m_commands.erase(command);
    }

    bool undo(Changes& changes);
    bool redo(Changes& changes);

private:
    void look(const RVOpenChange& change);
    bool wasInTree(const RVOpenChange& change) const;
    void close(const QString& text, bool isAsked);
    void forget();
    void forgetAll();
    bool takeBack(const Changes& later, Changes& changes);
    bool takeBackAll(const Changes& changes);

    UndoRecorder& m_recorder;
    QPointer<QUndoStack> m_stack;
    Root m_root;
    TakeBack m_takeBack;
    QDomDocument m_document;
    std::set<const Command*> m_commands;
    Changes m_changes; ///< Of the command to come, or of what is being taken back.
    Changes m_unasked; ///< Since the last command, what is none: it goes with that or the next one.
    Nodes m_out;       ///< Taken out by either.
    Nodes m_created;   ///< In the tree, by m_changes.
    QString m_text;
    int m_begun = 0;
    bool m_isInTree = false; ///< Some of the changes are.
    bool m_onlyAdds = true;  ///< Those that are.
    bool m_isAsked = false;  ///< Some were made in a block of somebody who edits.
    bool m_takesBack = false;
};

/// What was done, or undone: taking it back gives what takes that back.
class RVOPEN_WIDGETS_NO_EXPORT UndoRecorder::Command : public QUndoCommand {
public:
    Command(UndoRecorder* recorder, Changes changes, const QString& text)
        : QUndoCommand(text)
        , m_recorder(recorder)
        , m_changes(std::move(changes))
        , m_out(outsideOf(m_changes))
    {
        recorder->m_record->enter(this);
    }
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    ~Command() override
    {
        if (m_recorder)
            m_recorder->m_record->leave(this);
    }

    void undo() override
    {
        carryOut(&Record::undo);
    }

    void redo() override
    {
        // The stack does what it is given; that was done already.
        if (!std::exchange(m_isNew, false))
            carryOut(&Record::redo);
    }

    /// What stands in no tree and has to stay as it is for the command.
    const Nodes& out() const
    {
        return m_out;
    }

private:
    void carryOut(bool (Record::*way)(Changes&))
    {
        // One of several that are one command of the stack stays there when it failed.
        if (isObsolete())
            return;
        if (m_recorder && ((*m_recorder->m_record).*way)(m_changes)) {
            m_out = outsideOf(m_changes);
            return;
        }
        setObsolete(true);
        if (m_recorder) {
            // The stack is in the middle of its own work, and who is told may use it.
            QMetaObject::invokeMethod(
                m_recorder.data(),
                [recorder = m_recorder.data(), text = text()] { Q_EMIT recorder->Failed(text); },
                Qt::QueuedConnection);
        }
    }

    QPointer<UndoRecorder> m_recorder;
    Changes m_changes;
    Nodes m_out;
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
        forgetAll();
        if (m_stack)
            m_stack->clear();
        break;
    case RVOpenChange::DocumentReset:
        m_document = change.replacement;
        break;
    case RVOpenChange::ChildAboutToBeRemoved:
        break;
    default:
        if (m_takesBack)
            m_changes.push_back(change);
        else
            look(change);
    }
}

void UndoRecorder::Record::BlockEnded()
{
    if (m_begun == 0 && !m_takesBack)
        close(UndoRecorder::tr("Edit"), m_isAsked);
}

/// With all that came behind it, also where that is not a command yet. It comes back with the
/// command, unless what is to be redone behind that was made without it.
bool UndoRecorder::Record::undo(Changes& changes)
{
    Changes later = m_unasked;
    addAll(later, m_changes);
    if (m_stack && m_stack->canRedo())
        return takeBack(later, changes);
    Changes all = changes;
    addAll(all, later);
    if (!takeBack({}, all))
        return false;
    changes = std::move(all);
    return true;
}

/// Not over an edit on its way, which ends what there is to redo.
bool UndoRecorder::Record::redo(Changes& changes)
{
    return m_changes.empty() && takeBack(m_unasked, changes);
}

/// Keeps the change, and what it says of those that there are since the last command.
void UndoRecorder::Record::look(const RVOpenChange& change)
{
    const bool isInTree = standsIn(m_document, placeOf(change));
    // What nobody had in the tree need not be taken back: it goes, and comes, as it is.
    if (!isInTree && !wasInTree(change))
        return;
    add(m_changes, change);
    if (change.kind == RVOpenChange::ChildRemoved)
        m_out.push_back(change.node);
    else if (change.kind == RVOpenChange::ChildInserted && isInTree && !m_out.empty() &&
             m_out.back() == change.node)
        m_out.pop_back();
    if (!isInTree)
        return;
    m_isInTree = true;
    m_isAsked = m_isAsked || RVOpenBlock::IsOpen();
    if (!m_onlyAdds)
        return;
    if (change.kind == RVOpenChange::ChildInserted && m_created.size() < s_createdAtOnce)
        m_created.push_back(change.node);
    else
        m_onlyAdds = isBelow(m_created, placeOf(change));
}

/// Whether what stands in no tree now was taken out of it, or changed there, by what can be undone.
bool UndoRecorder::Record::wasInTree(const RVOpenChange& change) const
{
    const QDomNode place = placeOf(change);
    const auto isOf = [&](const Nodes& out) {
        return isBelow(out, place) || contains(out, change.node);
    };
    return isOf(m_out) || std::any_of(m_commands.begin(), m_commands.end(),
                                      [&](const Command* command) { return isOf(command->out()); });
}

/// Makes a command of the changes, unless they are for the one before or behind them.
void UndoRecorder::Record::close(const QString& text, bool isAsked)
{
    const bool isCommand = m_isInTree && (isAsked || !m_onlyAdds) && !m_changes.empty();
    // Where there is no command they are part of what all of them start from.
    if (!m_stack || (!isCommand && m_stack->count() == 0)) {
        forgetAll();
        return;
    }
    if (m_stack->count() == 0)
        m_unasked.clear();
    addAll(m_unasked, m_changes);
    forget();
    if (!isCommand)
        return;
    Changes changes = std::exchange(m_unasked, {});
    m_out.clear();
    m_stack->push(new Command(&m_recorder, std::move(changes), text));
}

/// The changes of the command to come.
void UndoRecorder::Record::forget()
{
    m_changes.clear();
    m_created.clear();
    m_isInTree = false;
    m_onlyAdds = true;
    m_isAsked = false;
}

void UndoRecorder::Record::forgetAll()
{
    forget();
    m_unasked.clear();
    m_out.clear();
}

/// Takes back what came later and then \p changes, which become what takes that back. False, with
/// all as it was, where that cannot be.
bool UndoRecorder::Record::takeBack(const Changes& later, Changes& changes)
{
    Q_ASSERT(!m_takesBack);
    m_takesBack = true;
    Changes pending = std::exchange(m_changes, {});
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
    m_takesBack = false;
    if (isDone)
        forgetAll();
    else
        m_changes = std::move(pending);
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
