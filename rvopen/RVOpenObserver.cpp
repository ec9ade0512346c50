// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenObserver.h>

#include <rvopen/model/Changes.h>
#include <rvopen/model/TakingBack.h>

#include <QtGlobal>

#include <utility>

namespace rvopen {

namespace {

/// A walk over the observers, which may end meanwhile.
struct Walk {
    RVOpenObserver* next;
    Walk* outer;
};

/// What a thread observes. Trivial to destroy, since archives are closed when the library is
/// unloaded, after the thread's own data.
struct Audience {
    RVOpenObserver* first = nullptr;
    Walk* walk = nullptr;
    int blocks = 0;
    int hostBlocks = 0; ///< Those of them that are no operation of the library.
    int quiet = 0;
    int making = 0;
};

thread_local Audience t_audience;

template <typename Visit>
void forEachObserver(Visit visit)
{
    Walk walk{t_audience.first, t_audience.walk};
    t_audience.walk = &walk;
    while (RVOpenObserver* const observer = walk.next) {
        walk.next = Observers::next(observer);
        visit(observer);
    }
    t_audience.walk = walk.outer;
}

} // namespace

namespace changes {

std::atomic<int> s_observers{0};

} // namespace changes

void Observers::add(RVOpenObserver* observer)
{
    // In front: who comes while a change is told hears of the next one first.
    observer->m_home = &t_audience;
    observer->m_next = t_audience.first;
    if (observer->m_next)
        observer->m_next->m_previous = observer;
    t_audience.first = observer;
    changes::s_observers.fetch_add(1, std::memory_order_relaxed);
}

void Observers::remove(RVOpenObserver* observer)
{
    Q_ASSERT(observer->m_home == &t_audience);
    for (Walk* walk = t_audience.walk; walk; walk = walk->outer) {
        if (walk->next == observer)
            walk->next = observer->m_next;
    }
    if (observer->m_next)
        observer->m_next->m_previous = observer->m_previous;
    if (observer->m_previous)
        observer->m_previous->m_next = observer->m_next;
    else
        t_audience.first = observer->m_next;
    changes::s_observers.fetch_sub(1, std::memory_order_relaxed);
}

RVOpenObserver* Observers::next(const RVOpenObserver* observer)
{
    return observer->m_next;
}

bool Observers::areListening()
{
    return t_audience.first && t_audience.quiet == 0;
}

bool Observers::areBeingTold()
{
    return t_audience.walk && t_audience.making == 0;
}

void Observers::beginMaking()
{
    ++t_audience.making;
}

void Observers::endMaking()
{
    --t_audience.making;
}

void Observers::tell(const RVOpenChange& change)
{
    const changes::Scope<&Observers::beginBlock, &Observers::endBlock> block;
    const bool isReset = change.kind == RVOpenChange::DocumentReset;
    forEachObserver([&](RVOpenObserver* observer) {
        if (!observer->m_hearsAll) {
            if (change.document.isNull() || observer->m_document != change.document)
                return;
            if (isReset)
                observer->m_document = change.replacement;
        }
        observer->m_wasTold = true;
        observer->Changed(change);
    });
}

void Observers::beginBlock()
{
    ++t_audience.blocks;
}

void Observers::endBlock()
{
    if (--t_audience.blocks > 0)
        return;
    forEachObserver([](RVOpenObserver* observer) {
        if (std::exchange(observer->m_wasTold, false))
            observer->BlockEnded();
    });
}

void Observers::beginQuiet()
{
    ++t_audience.quiet;
}

void Observers::endQuiet()
{
    --t_audience.quiet;
}

int RVOpenChange::Row() const
{
    int row = 0;
    for (QDomNode sibling = previous; !sibling.isNull(); sibling = sibling.previousSibling())
        ++row;
    return row;
}

bool RVOpenChange::TakeBack(RVOpenNode* root) const
{
    return TakingBack({root}).takeBack(*this);
}

RVOpenObserver::RVOpenObserver()
    : m_hearsAll(true)
{
    Observers::add(this);
}

RVOpenObserver::RVOpenObserver(const QDomDocument& document)
    : m_document(document)
    , m_hearsAll(false)
{
    Observers::add(this);
}

RVOpenObserver::~RVOpenObserver()
{
    Observers::remove(this);
}

void RVOpenObserver::BlockEnded() {}

RVOpenBlock::RVOpenBlock()
{
    ++t_audience.hostBlocks;
    Observers::beginBlock();
}

RVOpenBlock::~RVOpenBlock()
{
    --t_audience.hostBlocks;
    Observers::endBlock();
}

bool RVOpenBlock::IsOpen()
{
    return t_audience.hostBlocks > 0;
}

} // namespace rvopen
