// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "TextEditors.h"

#include <rvopen/toolkit/drawing/PicturePlan.h>
#include <rvopen/toolkit/schema/ValueText.h>

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QThreadPool>
#include <QToolButton>

#include <utility>

namespace rvopen::widgets {

using namespace toolkit;

namespace {

constexpr int s_previewSide = 24;
/// Somebody who types a path names many files on the way.
constexpr int s_typingPause = 300; // ms

QString textOf(const QVariant& value)
{
    switch (int(value.userType())) {
    case QMetaType::QVariantList: {
        const Triple triple = Triple::Of(value);
        return NumberText(triple.numbers[0]) + QLatin1Char(' ') + NumberText(triple.numbers[1]) +
               QLatin1Char(' ') + NumberText(triple.numbers[2]);
    }
    case QMetaType::Double:
    case QMetaType::Float:
        return NumberText(value.toDouble());
    default:
        return value.toString();
    }
}

} // namespace

CheckEditor::CheckEditor(const ParamFacts& facts, QWidget* parent)
    : ParamEditor(facts, parent)
    , m_box(new QCheckBox(this))
{
    addPart(m_box, QString(), 1);
    connect(m_box, &QCheckBox::clicked, this, &ParamEditor::Edited);
}

void CheckEditor::showValue(const QVariant& value)
{
    m_box->setChecked(value.toBool());
}

QVariant CheckEditor::shownValue() const
{
    return m_box->isChecked();
}

ChoiceEditor::ChoiceEditor(const ParamFacts& facts, QWidget* parent)
    : ParamEditor(facts, parent)
    , m_list(new QComboBox(this))
{
    m_list->addItems(facts.choices);
    m_list->setEditable(facts.areChoicesOpen);
    m_list->setInsertPolicy(QComboBox::NoInsert);
    addPart(m_list, QString(), 1);
    connect(m_list, QOverload<int>::of(&QComboBox::activated), this, &ParamEditor::Edited);
}

void ChoiceEditor::showValue(const QVariant& value)
{
    const QString text = textOf(value);
    const int place = m_list->findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive);
    // What a document has is shown although it is no choice.
    m_list->setPlaceholderText(text);
    m_list->setCurrentIndex(place);
    if (m_list->isEditable())
        m_list->setEditText(text);
}

QVariant ChoiceEditor::shownValue() const
{
    if (!m_list->isEditable() && m_list->currentIndex() < 0)
        return m_list->placeholderText();
    return m_list->currentText();
}

TextEditor::TextEditor(const ParamFacts& facts, QWidget* parent)
    : ParamEditor(facts, parent)
    , m_line(new QLineEdit(this))
{
    m_line->setReadOnly(facts.isReadOnly);
    addPart(m_line, QString(), 1);
    connect(m_line, &QLineEdit::editingFinished, this, [this] {
        if (IsEdited())
            Q_EMIT Edited();
    });
}

void TextEditor::showValue(const QVariant& value)
{
    const QString text = textOf(value);
    if (text != m_line->text())
        m_line->setText(text);
}

QVariant TextEditor::shownValue() const
{
    return m_line->text();
}

QLineEdit* TextEditor::line() const
{
    return m_line;
}

FileEditor::FileEditor(const ParamFacts& facts, QWidget* parent, const FindFile& find)
    : TextEditor(facts, parent)
    , m_find(find)
{
    auto* const button = new QToolButton(this);
    button->setText(QStringLiteral("\u2026"));
    button->setFocusPolicy(Qt::StrongFocus);
    button->setToolTip(facts.content == Content::Folder ? tr("Choose a folder")
                                                        : tr("Choose a file"));
    addPart(button, tr("dialog"));
    connect(button, &QToolButton::clicked, this, &FileEditor::openDialog);
    if (facts.content != Content::ImageFile || !find)
        return;
    m_preview = new QLabel(this);
    m_preview->setFixedSize(s_previewSide, s_previewSide);
    m_preview->setAlignment(Qt::AlignCenter);
    addPart(m_preview, tr("preview"));
    m_whenTyped.setSingleShot(true);
    m_whenTyped.setInterval(s_typingPause);
    connect(&m_whenTyped, &QTimer::timeout, this, &FileEditor::preview);
    connect(line(), &QLineEdit::textEdited, &m_whenTyped, QOverload<>::of(&QTimer::start));
}

FileEditor::~FileEditor()
{
    if (m_stop)
        *m_stop = true;
}

void FileEditor::showValue(const QVariant& value)
{
    TextEditor::showValue(value);
    if (m_preview)
        preview();
}

void FileEditor::preview()
{
    const QString path = line()->text();
    if (!m_previewed.isNull() && m_previewed == path)
        return;
    m_previewed = path.isNull() ? QLatin1String("") : path;
    if (m_stop)
        *m_stop = true;
    m_stop = std::make_shared<std::atomic<bool>>(false);
    showPreview(QImage());
    if (path.isEmpty())
        return;
    // Neither a slow disk nor a large image is waited for.
    QThreadPool::globalInstance()->start(
        [editor = QPointer<FileEditor>(this), stop = m_stop, find = m_find, path] {
            const QString found = *stop ? QString() : find(path);
            QImage image = found.isEmpty() ? QImage() : ReadPicture(found, stop.get());
            if (!image.isNull())
                image = image.scaled(s_previewSide, s_previewSide, Qt::KeepAspectRatio,
                                     Qt::SmoothTransformation);
            QMetaObject::invokeMethod(QCoreApplication::instance(), [editor, stop, image] {
                if (!*stop && editor)
                    editor->showPreview(image);
            });
        });
}

void FileEditor::showPreview(const QImage& image)
{
    m_preview->setPixmap(QPixmap::fromImage(image));
    m_preview->setToolTip(image.isNull() ? tr("No image") : line()->text());
}

void FileEditor::openDialog()
{
    auto* const dialog = new QFileDialog(this, facts().label);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    switch (facts().content) {
    case Content::Folder:
        dialog->setFileMode(QFileDialog::Directory);
        break;
    case Content::OutputFile:
        dialog->setAcceptMode(QFileDialog::AcceptSave);
        dialog->setFileMode(QFileDialog::AnyFile);
        break;
    default:
        dialog->setFileMode(QFileDialog::ExistingFile);
        break;
    }
    const QString now = file();
    if (!now.isEmpty())
        dialog->setDirectory(QFileInfo(now).absolutePath());
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& path) {
        TextEditor::showValue(QDir::toNativeSeparators(path));
        if (m_preview)
            preview();
        Q_EMIT Edited();
    });
    dialog->open();
}

QString FileEditor::file() const
{
    const QString path = line()->text();
    return path.isEmpty() || !m_find ? path : m_find(path);
}

} // namespace rvopen::widgets
