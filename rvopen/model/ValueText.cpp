// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/model/ValueText.h>

#include <rvopen/RVOpenStatus.h>

#include <QIODevice>
#include <QTextStream>

#include <cmath>
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

/// What numbers of everyday size look like with 6 significant digits, in a fraction of the time
/// that the general way takes. The arithmetic is exact; false where it would have to round half of
/// the last digit, or up to another power of ten.
bool writePlain(float value, QString& text)
{
    static constexpr quint64 powersOfTen[] = {1,      10,      100,      1000,      10000,
                                              100000, 1000000, 10000000, 100000000, 1000000000};
    constexpr int significant = 6;
    const float magnitude = std::fabs(value);
    if (!(magnitude > 1e-4f && magnitude < 1e6f))
        return false;
    int decimals = 0;
    for (double least = 1e5; static_cast<double>(magnitude) < least; least /= 10.0)
        ++decimals;

    // The value is mantissa / 2^shift, with at most 24 bits in the mantissa.
    int exponent = 0;
    const float fraction = std::frexp(magnitude, &exponent);
    const auto mantissa = static_cast<quint64>(std::ldexp(fraction, 24));
    const int shift = 24 - exponent;
    const quint64 scaled = mantissa * powersOfTen[decimals];
    const quint64 rest = scaled & ((quint64(1) << shift) - 1);
    const quint64 half = quint64(1) << (shift - 1);
    quint64 digits = (scaled >> shift) + (rest > half ? 1 : 0);
    if (rest == half || digits >= powersOfTen[significant])
        return false;
    for (; decimals > 0 && digits % 10 == 0; --decimals)
        digits /= 10;

    char buffer[16];
    char* const end = buffer + sizeof buffer;
    char* at = end;
    for (int i = 0; i < decimals || digits > 0 || i == decimals; ++i) {
        if (i == decimals && i > 0)
            *--at = '.';
        *--at = static_cast<char>('0' + digits % 10);
        digits /= 10;
    }
    if (value < 0.0f)
        *--at = '-';
    text = QLatin1String(at, static_cast<int>(end - at));
    return true;
}

} // namespace

QString fromFloat(float value)
{
    QString text;
    if (writePlain(value, text))
        return text;
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
