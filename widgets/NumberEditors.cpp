// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "NumberEditors.h"

#include <rvopen/toolkit/schema/ValueText.h>

#include <QColorDialog>
#include <QPainter>
#include <QSlider>
#include <QToolButton>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <limits>

namespace rvopen::widgets {

using namespace toolkit;

namespace {

/// Places of a slider over a range without steps, and the most over one with them.
constexpr int s_places = 1000;
constexpr int s_mostPlaces = 10000;

/// Documents have single precision.
constexpr double s_greatest = double(std::numeric_limits<float>::max());

/// Steps of a slider; the step of the range where it is a usual one.
int placesOf(const ParamFacts& facts)
{
    const double span = facts.soft.maximum - facts.soft.minimum;
    const double steps = facts.step > 0 ? std::round(span / facts.step) : s_places;
    const bool isInteger = facts.type == ValueType::Integer;
    return int(std::clamp(isInteger ? span : steps, 1.0, double(s_mostPlaces)));
}

QColor shownColour(const QVariant& value)
{
    const Triple triple = Triple::Of(value);
    const auto channel = [&triple](int i) {
        return float(std::clamp(triple.numbers[i], 0.0, 1.0));
    };
    return QColor::fromRgbF(channel(0), channel(1), channel(2));
}

QString partName(ValueType type, int i)
{
    const QString colours[] = {ParamEditor::tr("red"), ParamEditor::tr("green"),
                               ParamEditor::tr("blue")};
    const QString axes[] = {QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z")};
    return type == ValueType::Colour ? colours[i] : axes[i];
}

} // namespace

NumberField::NumberField(const ParamFacts& facts, QWidget* parent)
    : QDoubleSpinBox(parent)
    , m_isInteger(facts.type == ValueType::Integer)
{
    // No number is rounded by how many digits a field shows.
    setDecimals(m_isInteger ? 0 : 40);
    const double greatest =
        m_isInteger ? double(std::numeric_limits<int>::max()) : double(s_greatest);
    setRange(std::max(facts.hard.minimum, -greatest), std::min(facts.hard.maximum, greatest));
    setKeyboardTracking(false);
    setFocusPolicy(Qt::StrongFocus);
    if (facts.step > 0 || m_isInteger)
        setSingleStep(std::max(facts.step, m_isInteger ? 1.0 : 0.0));
    else if (facts.soft.HasMinimum() && facts.soft.HasMaximum())
        setSingleStep((facts.soft.maximum - facts.soft.minimum) / 100);
    else
        setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
}

QString NumberField::textFromValue(double value) const
{
    return m_isInteger ? QString::number(int(value)) : NumberText(value);
}

double NumberField::valueFromText(const QString& text) const
{
    // The value itself may have more digits than its text.
    double number = value();
    if (typed(text) != textFromValue(number))
        ToNumber(typed(text), number);
    return number;
}

QValidator::State NumberField::validate(QString& text, int&) const
{
    double number = 0;
    int integer = 0;
    const QString part = typed(text);
    if (!(m_isInteger ? ToInteger(part, integer) : ToNumber(part, number))) {
        const bool isPart = std::all_of(part.begin(), part.end(), [this](QChar letter) {
            return letter.isDigit() || QLatin1String("+-").contains(letter) ||
                   (!m_isInteger && QLatin1String(".eE").contains(letter));
        });
        return isPart ? QValidator::Intermediate : QValidator::Invalid;
    }
    number = m_isInteger ? integer : number;
    return number >= minimum() && number <= maximum() ? QValidator::Acceptable
                                                      : QValidator::Intermediate;
}

void NumberField::showNumber(double number)
{
    const QSignalBlocker silence(this);
    if (number != value())
        setValue(number);
}

double NumberField::number() const
{
    QString text = cleanText();
    int position = 0;
    return validate(text, position) == QValidator::Acceptable ? valueFromText(text) : value();
}

void NumberField::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QDoubleSpinBox::wheelEvent(event);
    else
        event->ignore();
}

QString NumberField::typed(const QString& text) const
{
    const bool hasUnit = !suffix().isEmpty() && text.endsWith(suffix());
    return text.left(text.size() - (hasUnit ? suffix().size() : 0)).trimmed();
}

NumberEditor::NumberEditor(const ParamFacts& facts, QWidget* parent)
    : ParamEditor(facts, parent)
    , m_field(new NumberField(facts, this))
{
    if (!facts.unit.isEmpty())
        m_field->setSuffix(QLatin1Char(' ') + facts.unit);
    addPart(m_field, QString(), 1);
    if (facts.soft.HasMinimum() && facts.soft.HasMaximum() &&
        facts.soft.minimum < facts.soft.maximum)
        addSlider();
    connect(m_field, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            [this](double number) {
                if (m_slider && !m_slider->isSliderDown()) {
                    const QSignalBlocker silence(m_slider);
                    m_slider->setValue(placeOf(number));
                }
                Q_EMIT Edited();
            });
}

void NumberEditor::showValue(const QVariant& value)
{
    m_field->showNumber(value.toDouble());
    if (m_slider && !m_slider->isSliderDown()) {
        const QSignalBlocker silence(m_slider);
        m_slider->setValue(placeOf(value.toDouble()));
    }
}

QVariant NumberEditor::shownValue() const
{
    const double number = m_field->number();
    return facts().type == ValueType::Integer ? QVariant(int(number)) : QVariant(number);
}

void NumberEditor::addSlider()
{
    m_slider = new QSlider(Qt::Horizontal, this);
    m_slider->setRange(0, placesOf(facts()));
    m_slider->setPageStep(std::max(m_slider->maximum() / 10, 1));
    addPart(m_slider, tr("slider"), 2);
    connect(m_slider, &QSlider::sliderPressed, this,
            [this] { m_drag = std::make_unique<RVOpenBlock>(); });
    connect(m_slider, &QSlider::sliderReleased, this, [this] { m_drag.reset(); });
    connect(m_slider, &QSlider::valueChanged, this, [this](int place) {
        const Range& range = facts().soft;
        const double part = double(place) / m_slider->maximum();
        // Places are no more exact than what people would type.
        const double number = range.minimum + part * (range.maximum - range.minimum);
        m_field->setValue(m_field->valueFromText(m_field->textFromValue(number)));
    });
}

int NumberEditor::placeOf(double number) const
{
    const Range& range = facts().soft;
    const double part = (number - range.minimum) / (range.maximum - range.minimum);
    return int(std::lround(std::clamp(part, 0.0, 1.0) * m_slider->maximum()));
}

TripleEditor::TripleEditor(const ParamFacts& facts, QWidget* parent)
    : ParamEditor(facts, parent)
{
    for (int i = 0; i < 3; ++i) {
        m_fields[i] = new NumberField(facts, this);
        addPart(m_fields[i], partName(facts.type, i), 1);
        connect(m_fields[i], QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
                &ParamEditor::Edited);
    }
}

void TripleEditor::showValue(const QVariant& value)
{
    const Triple triple = Triple::Of(value);
    for (int i = 0; i < 3; ++i)
        m_fields[i]->showNumber(triple.numbers[i]);
}

QVariant TripleEditor::shownValue() const
{
    Triple triple;
    for (int i = 0; i < 3; ++i)
        triple.numbers[i] = m_fields[i]->number();
    return triple.ToVariant();
}

ColourEditor::ColourEditor(const ParamFacts& facts, QWidget* parent)
    : TripleEditor(facts, parent)
    , m_swatch(new QToolButton(this))
{
    m_swatch->setFocusPolicy(Qt::StrongFocus);
    m_swatch->setToolTip(tr("Choose a colour"));
    addPart(m_swatch, tr("swatch"));
    connect(m_swatch, &QToolButton::clicked, this, &ColourEditor::openDialog);
    connect(this, &ParamEditor::Edited, this, &ColourEditor::paintSwatch);
}

void ColourEditor::showValue(const QVariant& value)
{
    TripleEditor::showValue(value);
    paintSwatch();
}

void ColourEditor::paintSwatch()
{
    QPixmap swatch(m_swatch->iconSize());
    swatch.fill(shownColour(shownValue()));
    QPainter(&swatch).drawRect(swatch.rect().adjusted(0, 0, -1, -1));
    m_swatch->setIcon(swatch);
}

void ColourEditor::openDialog()
{
    auto* const dialog = new QColorDialog(shownColour(shownValue()), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(facts().label);
    connect(dialog, &QColorDialog::colorSelected, this, [this](const QColor& colour) {
        TripleEditor::showValue(
            Triple{{double(colour.redF()), double(colour.greenF()), double(colour.blueF())}}
                .ToVariant());
        Q_EMIT Edited();
    });
    dialog->open();
}

} // namespace rvopen::widgets
