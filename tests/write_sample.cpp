// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/SnapShot.h>

#include <QByteArray>
#include <QDomDocument>
#include <QFile>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <cstdio>
#include <memory>

/// Writes documents to the standard output in each way that the library has. The same in every
/// process and with every version of Qt.
namespace {

const char s_document[] = R"(<?xml version='1.0' encoding="utf-8"?>
<!DOCTYPE snapRoot PUBLIC "public" "system?a=b&c='d'">
<!-- before -->
<snapRoot zorvane_version="3.1" unitsScale="1" type="snapStudio" name="SnapRoot" xmlns:x="urn:x">
  <snapshots name="Model SnapShots" sort="name" cat="c" subCat="s" refName="r" path="p"/>
  <snapshot name="CurrSnapshot" x:z="1" x:a="2" b="&lt;&#9;&#10;&#13;&quot;&apos;&gt;]]&gt;">
    <camera archiveType="Custom" archiveFilename="lenses" refName="r" name="Studio 1">
      <param val="0.1" type="float" prop="D" name="Field Of View"/>
      <param name="Pinhole" val="1 2 3" type="point" tip="é😀" z="26" y="25" x="24" w="23" v="22"/>
      <param type="int" name="Twist" val="4"/>
    </camera>
    <?keep the order?>
    <note>mixed <b>text</b> and <![CDATA[<sections>]]> &notes; &#xA0;</note>
  </snapshot>
</snapRoot>
<?after?>
)";

const char s_archive[] = R"(<?xml version="1.0"?>
<presets type="Custom" name="Presets" cat="c" xmlns="urn:presets" xmlns:b="urn:b" xmlns:a="urn:a">
  <camera z="1" b:name="1" a:name="2" name="3"><b:param b:val="4" a:val="5" val="6"/></camera>
  <camera xml:lang="en" name="2"/>
</presets>
)";

/// What has another form in the text than in the document.
void addUnwritable(QDomElement element)
{
    QDomDocument document = element.ownerDocument();
    QString controls;
    for (const int code : {0, 1, 0x1F, 0xFFFE, 0xFFFF, 0xD83D})
        controls += QChar(static_cast<ushort>(code));
    const QStringList names{"val", "1", "a b", ":c", "d:e", "f:g:h", QString(QChar(7)), "é"};
    for (const QString& name : names)
        element.setAttribute(name, controls);
    element.appendChild(document.createTextNode(controls));
    element.appendChild(document.createCDATASection("]]>" + controls));
    element.appendChild(document.createComment("--" + controls + '-'));
    element.appendChild(document.createProcessingInstruction("p", "?>" + controls));
    element.appendChild(document.createEntityReference("nothing"));
}

void print(const char* title, const QByteArray& bytes)
{
    std::printf("== %s\n%s", title, bytes.constData());
}

QByteArray saved(rvopen::RVOpenManager& manager, rvopen::RVOpenNode* root, const QString& path)
{
    QFile file(path);
    if (!manager.SaveArchive(path, root) || !file.open(QIODevice::ReadOnly))
        return "not saved\n";
    return file.readAll();
}

} // namespace

int main()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("sample.rvx");
    rvopen::RVOpenManager manager;
    manager.LoadSnapShotDocFromString(QString::fromUtf8(s_document));
    rvopen::SnapShot* const snapShot = manager.GetCurrentSnapShot();
    if (!snapShot)
        return 1;
    print("text as read", manager.GetSnapShotDocumentAsString().toUtf8());

    addUnwritable(snapShot->GetDomNode().firstChildElement("camera"));
    print("text", manager.GetSnapShotDocumentAsString().toUtf8());
    print("text of a snapshot", snapShot->CreateSnapShotDocumentAsString().toUtf8());
    print("file", saved(manager, snapShot, path));

    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return 1;
    file.write(s_archive);
    file.close();
    const std::unique_ptr<rvopen::RVOpenNode> archive(manager.LoadArchive(path));
    if (!archive)
        return 1;
    print("archive", saved(manager, archive.get(), path));
    return 0;
}
