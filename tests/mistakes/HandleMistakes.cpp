// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Host.h"
#include "Mistakes.h"

#include <rvopen/Camera.h>
#include <rvopen/DirectoryHandler.h>
#include <rvopen/Foreground.h>
#include <rvopen/RVOpenObserver.h>
#include <rvopen/host/Children.h>
#include <rvopen/host/Find.h>
#include <rvopen/host/OpenArchive.h>
#include <rvopen/host/Owned.h>
#include <rvopen/host/Ref.h>
#include <rvopen/host/Values.h>

#include <QFile>
#include <QTemporaryDir>

#include <utility>

namespace rvopen::test {

namespace {

QString refAfterReplacing()
{
    Host host;
    const host::Ref<Camera> camera(host.current()->GetCamera());
    host.current()->AddCamera(host.first()->GetCamera());
    return all({expect(!camera, "the handle is null"),
                expect(host.current()->GetCamera() != nullptr, "there is another camera")});
}

QString refAfterLoad()
{
    Host host;
    const host::Ref<Camera> camera(host.current()->GetCamera());
    host.LoadSnapShotDocFromString(s_document);
    return expect(!camera, "the handle is null");
}

QString deleteTwiceThroughRef()
{
    Host host;
    const host::Ref<SnapShot> second(host.second());
    host.GetSnapShots()->DeleteNode(second.get());
    const QString once = host.text();
    host.GetSnapShots()->DeleteNode(second.get());
    return all({expect(!second, "the handle is null"), expectText(host.text(), qPrintable(once))});
}

QString deleteInLoop()
{
    Host host;
    int seen = 0;
    for (SnapShot* const each : host::children<SnapShot>(host.GetSnapShots())) {
        ++seen;
        host.GetSnapShots()->DeleteNode(each);
    }
    return all({expect(seen == 3, "the loop meets all"),
                expect(host.GetNumSnapShots() == 0, "all are gone")});
}

QString appendTwice()
{
    Host host;
    host::Owned<SnapShot> copy = host::clone(host.first());
    SnapShot* const added = host::append(host.GetSnapShots(), std::move(copy));
    SnapShot* const again = host::append(host.GetSnapShots(), std::move(copy));
    return all({expect(added != nullptr && !again, "the second time there is nothing to add"),
                expect(host.GetNumSnapShots() == 4, "it is there once")});
}

QString appendBelowItself()
{
    Host host;
    host::Owned<SnapShot> copy = host::clone(host.first());
    SnapShot* const self = copy.get();
    SnapShot* const added = host::append(self, std::move(copy));
    return expect(!added && copy.get() == self, "the caller has it still");
}

QString dropClone()
{
    Host host;
    const QString before = host.text();
    {
        const host::Owned<SnapShot> copy = host::clone(host.first());
        copy->SetName(QStringLiteral("nobody's"));
    }
    return expectText(host.text(), qPrintable(before));
}

QString detachStranger()
{
    Host host;
    const QString before = host.text();
    const host::Owned<SnapShot> none = host::detach(host.current(), host.first());
    return all({expect(!none, "there is nothing"), expectText(host.text(), qPrintable(before))});
}

QString findWhatIsLacking()
{
    Host host;
    const QString before = host.text();
    return all({expect(host::find<Foreground>(host.current()) == nullptr, "it gives null"),
                expectText(host.text(), qPrintable(before))});
}

QString setOfAnotherType()
{
    Host host;
    const QString before = host.text();
    const bool isSet = host::setValue(host.current()->GetCamera(), "Field Of View", "wide");
    return all({expect(!isSet, "it says so"), expectText(host.text(), qPrintable(before))});
}

QString closeArchiveOfHandle()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.rvx"));
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            return QStringLiteral("there is no file");
        file.write("<presets type='UserArchives'><colours/></presets>");
    }
    GetDirectoryHandler()->SetCustomArchivesFolder(folder.path());
    const host::OpenArchive archive(path);
    const bool wasOpen = archive.root() != nullptr;
    GetDirectoryHandler()->CloseArchive(path);
    return expect(wasOpen && archive.root() == nullptr, "the handle has no root");
}

/// Keeps the last change that it hears of.
class LastChange : public RVOpenObserver {
public:
    void Changed(const RVOpenChange& change) override
    {
        last = change;
    }

    RVOpenChange last;
};

QString takeBackTwice()
{
    Host host;
    LastChange observer;
    host.GetSnapShots()->DeleteNode(host.first());
    const RVOpenChange gone = observer.last;
    const bool isFirst = host.TakeBack(gone);
    const QString once = host.text();
    const bool isSecond = host.TakeBack(gone);
    return all(
        {expect(isFirst && !isSecond, "it says so"), expectText(host.text(), qPrintable(once))});
}

QString takeBackInAnotherDocument()
{
    Host host;
    Host other;
    LastChange observer;
    host.first()->SetName(QStringLiteral("z"));
    const QString before = other.text();
    return all({expect(!other.TakeBack(observer.last), "it says so"),
                expectText(other.text(), qPrintable(before)),
                expect(host.has("\"z\""), "it stays")});
}

} // namespace

const std::vector<Mistake>& handleMistakes()
{
    static const std::vector<Mistake> list = {
        {"Using a `host::Ref` after its component was replaced", "the handle is null",
         refAfterReplacing},
        {"Using a `host::Ref` after a load", "the same", refAfterLoad},
        {"`DeleteNode()` twice of what a `host::Ref` has", "the second time nothing changes",
         deleteTwiceThroughRef},
        {"`DeleteNode()` in a loop over `host::children()`", "right: the loop goes on",
         deleteInLoop},
        {"`host::append()` of what was given away already", "nothing is added", appendTwice},
        {"`host::append()` of something to itself", "nothing is added, and the caller has it still",
         appendBelowItself},
        {"Forgetting what `host::clone()` gave", "it goes, and the document is as it was",
         dropClone},
        {"`host::detach()` of what is no child there", "null, and nothing changes", detachStranger},
        {"`host::find()` of what a snapshot lacks", "null, and nothing is created",
         findWhatIsLacking},
        {"`host::setValue()` of a text where a number stands", "false, and nothing changes",
         setOfAnotherType},
        {"`CloseArchive()` of what a `host::OpenArchive` has", "its root is null",
         closeArchiveOfHandle},
        {"`TakeBack()` of one change twice", "false, and nothing changes", takeBackTwice},
        {"`TakeBack()` of a change of another document", "false, and nothing changes",
         takeBackInAnotherDocument},
    };
    return list;
}

} // namespace rvopen::test
