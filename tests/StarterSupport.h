// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenSchema.h>

#include <QDirIterator>
#include <QString>
#include <QStringList>

#include <gmock/gmock.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

/// The starter installation in data/install, for the tests on it.
namespace rvopen::test {

inline const QString s_data = QStringLiteral(RVOPEN_DATA_DIR);
inline const QString s_install = QStringLiteral(RVOPEN_DATA_DIR "/install");
inline const QString s_archives = QStringLiteral(RVOPEN_DATA_DIR "/install/xml");

inline std::vector<std::string> filesBelow(const QString& folder, const QStringList& names)
{
    std::vector<std::string> files;
    QDirIterator it(folder, names, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files.push_back(it.next().toStdString());
    std::sort(files.begin(), files.end());
    return files;
}

struct Preset {
    QString section;
    RVOpenNode* node;

    std::string name() const
    {
        return node->GetRefName().toStdString();
    }
};

/// The presets of archives, which stay open as long as the object is there.
class OpenArchives {
public:
    explicit OpenArchives(const std::vector<std::string>& files)
    {
        for (const std::string& file : files) {
            RVOpenNode* const root = m_manager.LoadArchive(QString::fromStdString(file));
            EXPECT_TRUE(root) << file;
            m_roots.emplace_back(root);
            for (RVOpenNode* section = root->GetChild(1, 1); section; section = section->GetNext(1))
                collect(section->GetNodeName(), section);
        }
    }

    const std::vector<Preset>& presets() const
    {
        return m_presets;
    }

private:
    void collect(const QString& section, RVOpenNode* parent)
    {
        for (RVOpenNode* node = parent->GetChild(1, 0); node; node = node->GetNext(1)) {
            if (RVOpenSchema::isNodeDir(node))
                collect(section, node);
            else
                m_presets.push_back({section, node});
        }
    }

    RVOpenManager m_manager;
    std::vector<std::unique_ptr<RVOpenNode>> m_roots;
    std::vector<Preset> m_presets;
};

/// With the presets of the three archives.
class StarterTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        s_open = new OpenArchives(filesBelow(s_install, {"*.rvx"}));
    }

    static void TearDownTestSuite()
    {
        delete s_open;
        s_open = nullptr;
    }

    static const std::vector<Preset>& presets()
    {
        return s_open->presets();
    }

    /// The preset of a reference name; fails when there is none.
    static RVOpenNode* find(const std::string& refName)
    {
        const auto found =
            std::find_if(presets().cbegin(), presets().cend(),
                         [&refName](const Preset& preset) { return preset.name() == refName; });
        if (found == presets().cend())
            throw std::runtime_error("there is no preset " + refName);
        return found->node;
    }

private:
    inline static OpenArchives* s_open = nullptr;
};

} // namespace rvopen::test
