// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/ValueText.h>

#include <rvopen/RVOpenStatus.h>

#include <QIODevice>
#include <QTextStream>

#include <cstddef>

namespace rvopen::valueText {

namespace {

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

/// A place in a text that numbers are read from. Reads digits with or without a point, which is how
/// nearly all numbers are written, in a fraction of the time that the general way takes, and to the
/// same bit: the digits and the power of ten are exact, so that the quotient is the nearest double.
/// What is written in another way is not read.
class PlainReader {
public:
    explicit PlainReader(const QString& text)
        : m_at(text.constData())
        , m_end(m_at + text.size())
    {
    }

    bool atEnd() const
    {
        return m_at == m_end;
    }

    bool blank()
    {
        return take(QLatin1Char(' '));
    }

    bool number(double& value)
    {
        constexpr int maxDigits = 15;
        static constexpr double powersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
        const bool isNegative = take(QLatin1Char('-'));
        qint64 digits = 0;
        const std::ptrdiff_t whole = readDigits(digits, maxDigits);
        if (whole == 0)
            return false;
        std::ptrdiff_t decimals = 0;
        if (take(QLatin1Char('.'))) {
            decimals = readDigits(digits, maxDigits - whole);
            if (decimals == 0)
                return false;
        }
        const double magnitude = static_cast<double>(digits) / powersOfTen[decimals];
        value = isNegative ? -magnitude : magnitude;
        return true;
    }

private:
    bool take(QLatin1Char c)
    {
        const bool isThere = m_at != m_end && *m_at == c;
        m_at += isThere ? 1 : 0;
        return isThere;
    }

    std::ptrdiff_t readDigits(qint64& digits, std::ptrdiff_t most)
    {
        const QChar* const start = m_at;
        for (; m_at != m_end && m_at - start < most && isDigit(*m_at); ++m_at)
            digits = digits * 10 + (m_at->unicode() - u'0');
        return m_at - start;
    }

    const QChar* m_at;
    const QChar* m_end;
};

float floatOf(const QString& text)
{
    PlainReader reader(text);
    double value = 0.0;
    return reader.number(value) && reader.atEnd() ? static_cast<float>(value) : text.toFloat();
}

bool readPlainTriple(const QString& text, float* a, float* b, float* c)
{
    PlainReader reader(text);
    double values[3] = {};
    if (!reader.number(values[0]) || !reader.blank() || !reader.number(values[1]) ||
        !reader.blank() || !reader.number(values[2]) || !reader.atEnd())
        return false;
    *a = static_cast<float>(values[0]);
    *b = static_cast<float>(values[1]);
    *c = static_cast<float>(values[2]);
    return true;
}

} // namespace

QString fromFloat(float value)
{
    return QString::number(static_cast<double>(value), 'g', 6);
}

QString fromBool(int value)
{
    return value != 0 ? QStringLiteral("1") : QStringLiteral("0");
}

QString fromTriple(float a, float b, float c)
{
    QString text = fromFloat(a);
    text += QLatin1Char(' ');
    text += fromFloat(b);
    text += QLatin1Char(' ');
    text += fromFloat(c);
    return text;
}

QString fromTriple(const float* triple)
{
    return fromTriple(triple[0], triple[1], triple[2]);
}

unsigned int toFloat(const QString& text, float* out)
{
    if (text.isEmpty())
        return StatusMissing;
    if (out)
        *out = floatOf(text);
    return StatusOk;
}

unsigned int toInt(const QString& text, int* out)
{
    if (text.isEmpty())
        return StatusMissing;
    if (out)
        *out = text.size() == 1 && isDigit(text[0]) ? text[0].unicode() - u'0' : text.toInt();
    return StatusOk;
}

unsigned int toBool(const QString& text, int* out)
{
    int number = 0;
    const unsigned int status = toInt(text, &number);
    if (status == StatusOk && out)
        *out = number >= 1 ? 1 : 0;
    return status;
}

void toTriple(const QString& text, float* a, float* b, float* c)
{
    if (readPlainTriple(text, a, b, c))
        return;
    QString copy = text;
    QTextStream stream(&copy, QIODevice::ReadOnly);
    stream >> *a >> *b >> *c;
}

unsigned int toTriple(const QString& text, float* out)
{
    if (text.isEmpty() || !out)
        return StatusMissing;
    toTriple(text, out, out + 1, out + 2);
    return StatusOk;
}

} // namespace rvopen::valueText
