// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QString>
#include <QVector>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QLineEdit;
QT_END_NAMESPACE

namespace rvopen::browser {

class EditedFile;

/// What a preset or a snapshot says of itself, to be edited: category, tag, description, and the
/// name that others refer to it by.
class Labels : public QWidget {
    Q_OBJECT

public:
    explicit Labels(QWidget* parent = nullptr);

    /// \p element may be null; it is edited where \p isEdited.
    void showElement(const QDomElement& element, bool isEdited);

Q_SIGNALS:
    /// Somebody wrote something else.
    void changed(const QString& attribute, const QString& text);

private:
    struct Field {
        QString attribute;
        QLineEdit* line;
    };

    QVector<Field> m_fields;
    QDomElement m_element;
};

/// Gives the element another text, as one step to undo. With its reference name go all that refer
/// to it in the file. False where somebody else has that reference name, and nothing is changed
/// then.
bool setLabel(EditedFile& file, const QDomElement& element, const QString& attribute,
              const QString& text);

} // namespace rvopen::browser
