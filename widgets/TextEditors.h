// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/widgets/ParamEditor.h>

#include <QTimer>

#include <atomic>
#include <memory>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

namespace rvopen::widgets {

/// A box to check.
class CheckEditor : public ParamEditor {
    Q_OBJECT

public:
    CheckEditor(const ParamFacts& facts, QWidget* parent);

protected:
    void showValue(const QVariant& value) override;
    QVariant shownValue() const override;

private:
    QCheckBox* m_box;
};

/// A list of choices, with a line to type in where other values are as good.
class ChoiceEditor : public ParamEditor {
    Q_OBJECT

public:
    ChoiceEditor(const ParamFacts& facts, QWidget* parent);

protected:
    void showValue(const QVariant& value) override;
    QVariant shownValue() const override;

private:
    QComboBox* m_list;
};

/// A line of text; of what is read-only, whatever it is, one to read and to copy from.
class TextEditor : public ParamEditor {
    Q_OBJECT

public:
    TextEditor(const ParamFacts& facts, QWidget* parent);

protected:
    void showValue(const QVariant& value) override;
    QVariant shownValue() const override;

    QLineEdit* line() const;

private:
    QLineEdit* m_line;
};

/// A path, with a preview of an image and a dialog.
class FileEditor : public TextEditor {
    Q_OBJECT

public:
    FileEditor(const ParamFacts& facts, QWidget* parent, const toolkit::FindFile& find);
    ~FileEditor() override;

protected:
    void showValue(const QVariant& value) override;

private:
    void preview();
    void showPreview(const QImage& image);
    void openDialog();
    QString file() const;

    toolkit::FindFile m_find;
    /// Null for what is no image, and without somebody who finds it.
    QLabel* m_preview = nullptr;
    /// Of the path that is shown; null before there is one.
    QString m_previewed;
    QTimer m_whenTyped;
    /// True for a preview that nobody waits for any more.
    std::shared_ptr<std::atomic<bool>> m_stop;
};

} // namespace rvopen::widgets
