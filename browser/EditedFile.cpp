// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "EditedFile.h"

#include "FileTexts.h"

#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/host/Documents.h>
#include <rvopen/toolkit/documents/Load.h>
#include <rvopen/widgets/ArchiveModel.h>
#include <rvopen/widgets/SnapShotModel.h>

#include <QCryptographicHash>
#include <QMetaObject>

namespace rvopen::browser {

namespace {

QByteArray sumOf(const QByteArray& content)
{
    return QCryptographicHash::hash(content, QCryptographicHash::Sha1);
}

} // namespace

/// Tells of edits, whoever makes them.
class EditedFile::Watch : public RVOpenObserver {
public:
    explicit Watch(EditedFile& file)
        : m_file(file)
        , m_document(file.dom())
    {
    }

    void Changed(const RVOpenChange& change) override
    {
        if (change.document != m_document)
            return;
        ++m_file.m_revision;
        if (m_isTold)
            return;
        m_isTold = true;
        QMetaObject::invokeMethod(
            &m_file,
            [this] {
                m_isTold = false;
                Q_EMIT m_file.edited();
            },
            Qt::QueuedConnection);
    }

private:
    EditedFile& m_file;
    QDomDocument m_document;
    bool m_isTold = false;
};

std::unique_ptr<EditedFile> EditedFile::open(const QString& file, ReadError& error,
                                             const QString& journals)
{
    std::unique_ptr<EditedFile> opened(new EditedFile(file));
    if (!opened->read(error))
        return nullptr;
    opened->start(journals);
    return opened;
}

EditedFile::EditedFile(const QString& file)
    : m_file(file)
{
}

EditedFile::~EditedFile()
{
    // Before the document goes, which is no edit.
    m_watch.reset();
    m_tree.reset();
    m_recorder.reset();
    m_journal.reset();
}

QString EditedFile::file() const
{
    return m_file;
}

QString EditedFile::name() const
{
    return LastPathComponent(m_file);
}

toolkit::DocumentKind EditedFile::kind() const
{
    return m_kind;
}

QDomDocument EditedFile::dom() const
{
    RVOpenNode* const node = root();
    return node ? node->GetDomNode().ownerDocument() : QDomDocument();
}

QDomDocument EditedFile::copy() const
{
    return dom().cloneNode(true).toDocument();
}

RVOpenNode* EditedFile::root() const
{
    return m_manager ? m_manager->GetRootNode() : m_archive.root();
}

widgets::NodeModel& EditedFile::tree()
{
    return *m_tree;
}

QUndoStack& EditedFile::stack()
{
    return m_stack;
}

widgets::UndoRecorder& EditedFile::recorder()
{
    return *m_recorder;
}

bool EditedFile::isChanged() const
{
    return !m_stack.isClean();
}

quint64 EditedFile::revision() const
{
    return m_revision;
}

bool EditedFile::takeBack(const RVOpenChange& change)
{
    return m_manager ? m_manager->TakeBack(change) : change.TakeBack(root());
}

TakeBack EditedFile::changes()
{
    return [this](const RVOpenChange& change) { return takeBack(change); };
}

bool EditedFile::become(const QDomElement& wanted, const QDomElement& element, const QString& text)
{
    const widgets::UndoRecorder::Step step(*m_recorder, text);
    return becomeAs(wanted, element, changes());
}

bool EditedFile::recover(const Journal::Left& left)
{
    const widgets::UndoRecorder::Step step(*m_recorder, tr("Recover"));
    return Journal::replay(left, dom(), changes()) == left.changes;
}

QString EditedFile::journalProblem() const
{
    return m_journal->problem();
}

WriteError EditedFile::save()
{
    const WriteError error =
        m_manager ? host::save(*m_manager, m_file) : host::saveTree(m_archive.root(), m_file);
    if (!error) {
        const QByteArray content = bytesOf(m_file);
        m_sum = sumOf(content);
        m_journal->restart(content);
        m_stack.setClean();
    }
    return error;
}

bool EditedFile::isChangedOutside() const
{
    return sumOf(bytesOf(m_file)) != m_sum;
}

void EditedFile::keepMine()
{
    m_sum = sumOf(bytesOf(m_file));
    m_stack.resetClean();
}

/// What it is shows when it is read: most are archives, and those may be large.
bool EditedFile::read(ReadError& error)
{
    using toolkit::DocumentKind;
    m_archive = host::OpenArchive(m_file);
    if (m_archive)
        m_kind = toolkit::Document::Of(m_file, dom())->Kind();
    if (m_kind == DocumentKind::Archive)
        return true;
    m_archive.close();
    if (m_kind == DocumentKind::Unknown) {
        error = toolkit::LoadDocument(m_file).error;
        return false;
    }
    m_manager = std::make_unique<RVOpenManager>();
    const host::Result<> loaded = host::load(*m_manager, m_file);
    if (!loaded)
        error = loaded.error();
    return bool(loaded);
}

void EditedFile::start(const QString& journals)
{
    const QByteArray content = bytesOf(m_file);
    m_sum = sumOf(content);
    if (m_manager) {
        m_recorder = std::make_unique<widgets::UndoRecorder>(*m_manager, &m_stack);
        auto snapShots = std::make_unique<widgets::SnapShotModel>();
        snapShots->SetManager(m_manager.get());
        m_tree = std::move(snapShots);
    } else {
        m_recorder = std::make_unique<widgets::UndoRecorder>(root(), &m_stack);
        auto presets = std::make_unique<widgets::ArchiveModel>();
        presets->SetArchive(root());
        m_tree = std::move(presets);
    }
    m_tree->SetFile(m_file);
    m_journal = std::make_unique<Journal>(m_file, dom(), content, journals);
    m_watch = std::make_unique<Watch>(*this);
    connect(&m_stack, &QUndoStack::cleanChanged, this, &EditedFile::changedChanged);
}

} // namespace rvopen::browser
