// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/ValueText.h>

#include <rvopen/RVOpenStatus.h>

#include <QIODevice>
#include <QTextStream>

namespace rvopen::valueText {

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
    return fromFloat(a) + QLatin1Char(' ') + fromFloat(b) + QLatin1Char(' ') + fromFloat(c);
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
        *out = text.toFloat();
    return StatusOk;
}

unsigned int toInt(const QString& text, int* out)
{
    if (text.isEmpty())
        return StatusMissing;
    if (out)
        *out = text.toInt();
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
