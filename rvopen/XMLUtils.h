// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>

#include <QObject>
#include <QPixmap>
#include <QString>

class QDomDocument;

namespace rvopen {

class RVOpenNode;

/// Reading XML files, file-safe and unique names, and the preview images of nodes.
///
/// No operation uses state of the object, and none reports errors beyond its result. A null node
/// gives an empty result. Pixmaps need a QGuiApplication.
class RVOPEN_EXPORT XMLUtils : public QObject {
public:
    XMLUtils();
    ~XMLUtils() override;

    /// The document in the file, read as UTF-8 unless it starts with another Unicode byte order
    /// mark, with namespace processing. Null when the file cannot be read or is not well-formed.
    /// The caller owns the result. The file is not changed.
    QDomDocument* ReadXmlDocument(const QString& path);

    /// \name Preview images
    /// Paths are joined with backslashes where the interface promises them, on every platform.
    /// @{

    /// Category, backslash, path, as far as the node has them; empty without both.
    QString ThumbPathFromRVOpenNode(RVOpenNode* node);
    /// Folder of the node's thumbnail: "\sethumbs\" and the thumbnail path below
    /// \p archiveFolder, or for a node of a user archive the "thumbs" folder of the thumbnail path
    /// below the custom archives folder.
    QString ImagePathFromRVOpenNode(RVOpenNode* node, const QString& archiveFolder);
    /// Base name of the node's image file: image name, else display name, else reference name, with
    /// a dash for each colon and made file-safe; empty when the node has none of them.
    QString GetImageName(RVOpenNode* node);
    /// The preview: the image embedded in "xmlImage" (hexadecimal text of data for qUncompress()),
    /// else the thumbnail file. A member of a snapshot collection has its file in the snapshots
    /// folder; for one that is no snapshot the folder of the collection's name is created there.
    /// Any other node has it in ImagePathFromRVOpenNode(). Null when there is no image or it cannot
    /// be decoded; an embedded image that cannot be decoded is not replaced by a file. Embedded
    /// images are bounded: 16 MiB compressed, 64 MiB as a file, 8192 pixels a side and 16 million
    /// pixels. Names that lead out of the folders with ".." reach no file and make no folder.
    QPixmap QPixmapFromRVOpenNode(RVOpenNode* node, const QString& archiveFolder);
    /// @}

    /// \name Names
    /// @{

    /// A name for a new child of \p parent: \p name with dashes for slashes and backslashes and
    /// blanks for line feeds if no child has it, else \p name as it is with the next number in
    /// brackets, "Sky (3)".
    QString CheckNameDuplication(RVOpenNode* parent, const QString& name);
    /// Makes \p text usable as a file name, in place: each of the ten characters
    /// \ / : * ? " < > | % becomes "%" and its code in hexadecimal. A text whose only such
    /// characters are backslashes stays as it is. Returns \p text.
    static QString& ReplaceIllegalCharacters(QString& text);
    /// @}
};

} // namespace rvopen
