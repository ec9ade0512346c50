// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "EditedFile.h"

#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/host/Documents.h>
#include <rvopen/toolkit/documents/Load.h>
#include <rvopen/widgets/ArchiveModel.h>
#include <rvopen/widgets/SnapShotModel.h>

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QMetaObject>

namespace rvopen::browser {

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
        if (change.document != m_document || m_isTold)
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
    const toolkit::Load load = toolkit::LoadDocument(file);
    opened->m_kind = load.kind;
    if (!load) {
        error = load.error;
        return nullptr;
    }
    if (load.kind == toolkit::DocumentKind::Archive) {
        opened->m_archive = host::OpenArchive(file);
        error = opened->m_archive.error();
        if (!opened->m_archive)
            return nullptr;
    } else {
        opened->m_manager = std::make_unique<RVOpenManager>();
        const host::Result<> loaded = host::load(*opened->m_manager, file);
        if (!loaded) {
            error = loaded.error();
            return nullptr;
        }
    }
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

RVOpenNode* EditedFile::root() const
{
    return m_manager ? m_manager->GetRootNode() : m_archive.root();
}

RVOpenManager* EditedFile::manager() const
{
    return m_manager.get();
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

bool EditedFile::takeBack(const RVOpenChange& change)
{
    return m_manager ? m_manager->TakeBack(change) : change.TakeBack(root());
}

bool EditedFile::recover(const Journal::Left& left)
{
    const widgets::UndoRecorder::Step step(*m_recorder, tr("Recover"));
    return Journal::replay(left, dom(), [this](const RVOpenChange& change) {
               return takeBack(change);
           }) == left.changes;
}

QString EditedFile::journalProblem() const
{
    return m_journal->problem();
}

WriteError EditedFile::save()
{
    const WriteError error = saveCopy(m_file);
    if (!error) {
        m_sum = sumOf(m_file);
        m_journal->restart();
        m_stack.setClean();
    }
    return error;
}

WriteError EditedFile::saveCopy(const QString& file) const
{
    return m_manager ? host::save(*m_manager, file) : host::saveTree(m_archive.root(), file);
}

bool EditedFile::isChangedOutside() const
{
    return sumOf(m_file) != m_sum;
}

void EditedFile::keepMine()
{
    m_sum = sumOf(m_file);
    m_stack.resetClean();
}

QByteArray EditedFile::sumOf(const QString& file)
{
    QFile opened(PathToOpen(file));
    QCryptographicHash sum(QCryptographicHash::Sha1);
    if (!opened.open(QIODevice::ReadOnly) || !sum.addData(&opened))
        return QByteArray();
    return sum.result();
}

void EditedFile::start(const QString& journals)
{
    m_sum = sumOf(m_file);
    m_recorder = m_manager ? std::make_unique<widgets::UndoRecorder>(*m_manager, &m_stack)
                           : std::make_unique<widgets::UndoRecorder>(root(), &m_stack);
    if (m_manager) {
        auto snapShots = std::make_unique<widgets::SnapShotModel>();
        snapShots->SetManager(m_manager.get());
        m_tree = std::move(snapShots);
    } else {
        auto presets = std::make_unique<widgets::ArchiveModel>();
        presets->SetArchive(root());
        m_tree = std::move(presets);
    }
    m_tree->SetFile(m_file);
    m_journal = std::make_unique<Journal>(m_file, dom(), journals);
    m_watch = std::make_unique<Watch>(*this);
    connect(&m_stack, &QUndoStack::cleanChanged, this, &EditedFile::changedChanged);
}

} // namespace rvopen::browser
