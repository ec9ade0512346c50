// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenObserver.h>
#include <rvopen/widgets/ParamEditor.h>

#include <QDoubleSpinBox>

#include <memory>

class QSlider;
class QToolButton;

namespace rvopen::widgets {

/// A field for a number as documents have it, of 6 significant digits, whatever its magnitude.
class NumberField : public QDoubleSpinBox {
public:
    NumberField(const ParamFacts& facts, QWidget* parent);

    /// \name As Qt asks for it
    /// @{
    QString textFromValue(double value) const override;
    double valueFromText(const QString& text) const override;
    QValidator::State validate(QString& text, int& position) const override;
    /// @}

    /// Shows a number without telling anybody; one that it shows already it leaves alone.
    void showNumber(double number);
    /// With what is typed and not yet told of.
    double number() const;

protected:
    /// A field without focus is scrolled past.
    void wheelEvent(QWheelEvent* event) override;

private:
    /// Without the unit.
    QString typed(const QString& text) const;

    bool m_isInteger;
};

/// A field, and a slider over the usual range.
class NumberEditor : public ParamEditor {
    Q_OBJECT

public:
    NumberEditor(const ParamFacts& facts, QWidget* parent);

protected:
    void showValue(const QVariant& value) override;
    QVariant shownValue() const override;

private:
    void addSlider();
    int placeOf(double number) const;

    NumberField* m_field;
    /// Null without a usual range.
    QSlider* m_slider = nullptr;
    /// While the slider is dragged.
    std::unique_ptr<RVOpenBlock> m_drag;
};

/// Three fields.
class TripleEditor : public ParamEditor {
    Q_OBJECT

public:
    TripleEditor(const ParamFacts& facts, QWidget* parent);

protected:
    void showValue(const QVariant& value) override;
    QVariant shownValue() const override;

private:
    NumberField* m_fields[3];
};

/// The same for a colour, behind a swatch that opens a dialog.
class ColourEditor : public TripleEditor {
    Q_OBJECT

public:
    ColourEditor(const ParamFacts& facts, QWidget* parent);

protected:
    void showValue(const QVariant& value) override;

private:
    void paintSwatch();
    void openDialog();

    QToolButton* m_swatch;
};

} // namespace rvopen::widgets
