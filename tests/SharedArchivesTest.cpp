// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenManager.h>

#include <rvopen/RVOpenLimits.h>
#include <rvopen/RVOpenReader.h>

#include "ManagerSupport.h"

#include <QDateTime>
#include <QDomElement>
#include <QFile>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace rvopen {
namespace {

using test::InstallFolder;

QString archive(const QString& name)
{
    return QStringLiteral("<archive><colours><colour refname='%1'/></colours></archive>").arg(name);
}

/// The default archives of one installation, seen by several managers.
class SharedArchivesTest : public ::testing::Test {
protected:
    SharedArchivesTest()
    {
        m_install.write("Default", archive("red"));
    }

    std::unique_ptr<RVOpenManager> initialised() const
    {
        auto manager = std::make_unique<RVOpenManager>();
        manager->Initialise(3, 1, m_install.path());
        return manager;
    }
    static RVOpenNode* preset(RVOpenManager& manager)
    {
        RVOpenNode* const section = manager.GetRVOpenNodeFromType("colours", true);
        return section ? section->GetChild(1, 1) : nullptr;
    }
    /// The reference name of the preset that a look-up finds.
    static QString found(RVOpenManager& manager)
    {
        const RVOpenNode* const node = preset(manager);
        return node ? node->GetRefName() : QStringLiteral("(none)");
    }

    InstallFolder m_install;
};

TEST_F(SharedArchivesTest, WhatOneManagerWritesNoOtherSees)
{
    const auto first = initialised();
    const auto second = initialised();
    preset(*first)->SetRefName("changed");
    RVOpenNode* const section = preset(*first)->GetParent();
    section->GetDomNode().toElement().setAttribute("name", "raw");
    const auto third = initialised();

    EXPECT_EQ(found(*first), "changed");
    for (RVOpenManager* const other : {second.get(), third.get()}) {
        EXPECT_EQ(found(*other), "red");
        EXPECT_EQ(preset(*other)->GetParent()->GetName(), "");
    }
}

TEST_F(SharedArchivesTest, AnArchiveIsAsItWasWhenTheManagerWasInitialised)
{
    const auto changed = initialised();
    m_install.write("Default", archive("new"));
    const auto removed = initialised();
    QFile::remove(m_install.archive("Default"));
    const auto without = initialised();

    EXPECT_EQ(found(*changed), "red");
    EXPECT_EQ(found(*removed), "new");
    EXPECT_EQ(found(*without), "(none)");
}

TEST_F(SharedArchivesTest, AFileOfTheSameSizeAndTimeIsReadAnew)
{
    const auto before = initialised();
    QFile file(m_install.archive("Default"));
    const QDateTime time = QFileInfo(file).lastModified();
    m_install.write("Default", archive("ned"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
    file.close();

    EXPECT_EQ(found(*initialised()), "ned");
    EXPECT_EQ(found(*before), "red");
}

TEST_F(SharedArchivesTest, AFaultIsToldOfToEachManager)
{
    m_install.write("Product_extra", "<archive/>");
    m_install.write("Architectural_extra", "<archive>\n<a></b></archive>");
    for (int i = 0; i < 2; ++i) {
        const auto manager = initialised();
        EXPECT_TRUE(LastReadError().file.endsWith("Architectural_extra.rvx"));
        EXPECT_EQ(LastReadError().line, 2);
        EXPECT_NE(LastReadError().message, QString());
        EXPECT_EQ(found(*manager), "red");
    }
    m_install.write("Architectural_extra", "<archive/>");
    EXPECT_EQ(found(*initialised()), "red");
    EXPECT_EQ(LastReadError().message, QString());
}

TEST_F(SharedArchivesTest, BoundsHoldForAFileThatIsKnownAsWell)
{
    const qint64 size = GetMaxInputSize();
    const qint64 memory = GetMaxDocumentMemory();
    EXPECT_EQ(found(*initialised()), "red");
    SetMaxInputSize(20);
    EXPECT_EQ(found(*initialised()), "(none)");
    SetMaxInputSize(size);
    SetMaxDocumentMemory(1);
    EXPECT_EQ(found(*initialised()), "(none)");
    SetMaxDocumentMemory(memory);
    EXPECT_EQ(found(*initialised()), "red");
}

TEST_F(SharedArchivesTest, ExtraArchivesAreMergedOnceForEachManager)
{
    m_install.write("Product_extra", archive("extra"));
    const auto first = initialised();
    const auto second = initialised();
    for (RVOpenManager* const manager : {first.get(), second.get()}) {
        manager->SetArchiveNode("Product.rvx", "Zorvane");
        const QDomNode colours = manager->GetRVOpenNodeFromType("colours", true)->GetDomNode();
        manager->GetRVOpenNodeFromType("colours", true);
        EXPECT_EQ(colours.childNodes().count(), 2);
        EXPECT_EQ(colours.lastChild().toElement().attribute("refname"), "extra");
    }
}

TEST_F(SharedArchivesTest, MoreArchivesThanAreRememberedAreReadAll)
{
    std::vector<std::unique_ptr<InstallFolder>> folders;
    std::vector<std::unique_ptr<RVOpenManager>> managers;
    for (int i = 0; i < 40; ++i) {
        folders.push_back(std::make_unique<InstallFolder>());
        folders.back()->write("Default", archive(QString::number(i)));
        managers.push_back(std::make_unique<RVOpenManager>());
        managers.back()->Initialise(3, 1, folders.back()->path());
    }
    for (std::size_t i = 0; i < managers.size(); ++i)
        EXPECT_EQ(found(*managers[i]), QString::number(i));
}

} // namespace
} // namespace rvopen
