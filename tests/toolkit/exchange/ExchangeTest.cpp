// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/exchange/Exchange.h>

#include "../InAFolder.h"

#include <rvopen/toolkit/documents/Failure.h>

namespace rvopen::test {

namespace {

using namespace toolkit;

class Exchange : public InAFolder {
protected:
    static QByteArray archive(const char* colours)
    {
        return QByteArray("<presets name='A'><colours name='C'>") + colours +
               "</colours></presets>";
    }

    static std::string namesIn(const Document& document)
    {
        QStringList names;
        for (QDomElement preset = document.Root().firstChildElement().firstChildElement();
             !preset.isNull(); preset = preset.nextSiblingElement())
            names << preset.attribute(QStringLiteral("name")) + preset.attribute("desc");
        return joinedBy(" ", names);
    }

    const QByteArray m_ours = archive("<colour name='a' refname='a' desc='1'/>"
                                      "<colour name='b' refname='b'/>");
    const QByteArray m_theirs = archive("<colour name='a' refname='a' desc='2'/>"
                                        "<colour name='b' refname='b'/>"
                                        "<colour name='c' refname='c'/>");
};

} // namespace

TEST_F(Exchange, AnImportSaysWhatBecameOfEach)
{
    const auto imported = [this](ChangedImports changed, std::string& names) {
        const auto target = read(m_ours);
        const ImportOutcome outcome = Import(*read(m_theirs), *target, changed);
        names = namesIn(*target);
        return outcome;
    };
    std::string names;
    ImportOutcome outcome = imported(ChangedImports::Left, names);
    EXPECT_EQ(names, "a1 b c");
    EXPECT_EQ(outcome.added, 1);
    EXPECT_EQ(outcome.same, 1);
    EXPECT_EQ(outcome.left, 1);
    outcome = imported(ChangedImports::Replaced, names);
    EXPECT_EQ(names, "a2 b c");
    EXPECT_EQ(outcome.replaced, 1);
    EXPECT_EQ(outcome.left, 0);
    outcome = imported(ChangedImports::Renamed, names);
    EXPECT_EQ(outcome.renamed, 1);
    EXPECT_EQ(names.substr(0, 2), "a1");
    EXPECT_NE(names.find("2"), std::string::npos);
    EXPECT_TRUE(outcome.refused.isEmpty());
    EXPECT_THROW(Import(*read("<snapRoot/>"), *read(m_ours)), Failure);
}

TEST_F(Exchange, AMergeTakesWhatOneSideChangedAndTellsTheRest)
{
    const auto ours = read(m_ours);
    const MergeOutcome alone = Merge(read(m_ours).get(), *ours, *read(m_theirs));
    EXPECT_EQ(namesIn(*ours), "a2 b c");
    EXPECT_EQ(alone.taken, 2);
    EXPECT_TRUE(alone.conflicts.isEmpty());

    const auto both = read(m_ours);
    const MergeOutcome outcome = Merge(
        read(archive("<colour name='a' refname='a' desc='0'/>")).get(), *both, *read(m_theirs));
    ASSERT_EQ(outcome.conflicts.size(), 1);
    EXPECT_EQ(outcome.conflicts[0].ours, QStringLiteral("1"));
    EXPECT_EQ(outcome.conflicts[0].theirs, QStringLiteral("2"));
    EXPECT_EQ(namesIn(*both), "a1 b c");
    EXPECT_THROW(Merge(nullptr, *read(m_ours), *read("<snapRoot/>")), Failure);
}

} // namespace rvopen::test
