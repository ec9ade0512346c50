// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>

namespace rvopen::fuzz {

/// A byte string read from its front as the choices that a host makes. At its end every choice is
/// the first one: a shorter input is a simpler session.
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size)
        : m_next(data)
        , m_end(data + size)
    {
    }

    bool isEmpty() const
    {
        return m_next == m_end;
    }

    unsigned byte()
    {
        return isEmpty() ? 0 : *m_next++;
    }

    /// 0 to \p count - 1; 0 for a count of 0.
    unsigned below(std::size_t count)
    {
        return count < 2 ? 0 : byte() % static_cast<unsigned>(count);
    }

    bool flag()
    {
        return byte() % 2 != 0;
    }

    int integer()
    {
        static constexpr int special[] = {0, 1, 2, 3, -1, 640, 0x7fffffff, -0x7fffffff - 1};
        const unsigned choice = byte();
        return choice < std::size(special) ? special[choice] : static_cast<int>(choice) - 128;
    }

    float number()
    {
        using Limits = std::numeric_limits<float>;
        static constexpr float special[] = {0.0f,
                                            1.0f,
                                            -1.0f,
                                            0.1f,
                                            1.0f / 3.0f,
                                            1e-7f,
                                            1e7f,
                                            Limits::max(),
                                            -Limits::max(),
                                            Limits::min(),
                                            Limits::denorm_min(),
                                            -0.0f,
                                            2.0f,
                                            Limits::infinity(),
                                            -Limits::infinity(),
                                            Limits::quiet_NaN()};
        const unsigned choice = byte();
        return choice < std::size(special) ? special[choice] : static_cast<float>(choice) / 7 - 20;
    }

    void triple(float (&out)[3])
    {
        for (float& component : out)
            component = number();
    }

    /// One of the words that mean something to the library or trouble to a writer of XML, or a few
    /// of the bytes that follow.
    QString text()
    {
        static const QString words[] = {
            QString(),
            QStringLiteral("A"),
            QStringLiteral("B"),
            QStringLiteral("CurrSnapshot"),
            QStringLiteral("Plain"),
            QStringLiteral("Graduated"),
            QStringLiteral("Horizon"),
            QStringLiteral("Image"),
            QStringLiteral("Image3D"),
            QStringLiteral("Reflection"),
            QStringLiteral("Depth Cue"),
            QStringLiteral("lit appearance"),
            QStringLiteral("Colour"),
            QStringLiteral("Enabled"),
            QStringLiteral("C:\\Textures\\oak.png"),
            QStringLiteral("/textures/oak.png"),
            QStringLiteral("..\\..\\out"),
            QStringLiteral("../../out"),
            QStringLiteral("a:b*c?d\"e<f>g|h%"),
            QStringLiteral("1 0.5 0"),
            QStringLiteral("0"),
            QStringLiteral(" \t\r\n"),
            QStringLiteral("]]>&amp;<!-- --><?x?>'"),
            QString::fromUtf8("\xC3\xA9 \xF0\x9F\x98\x80"),
            QString(QChar(1)) + QChar(0x1f),
            QString(QChar(0xffff)) + QChar(0xd800),
            QString(300, QLatin1Char('x')),
        };
        const unsigned choice = byte();
        if (choice < std::size(words))
            return words[choice];
        QByteArray bytes;
        for (unsigned i = 0; i < choice % 8 && !isEmpty(); ++i)
            bytes += static_cast<char>(byte());
        return QString::fromUtf8(bytes);
    }

    /// The bytes before the next NUL, which goes too: a text at the front of the choices.
    QByteArray section()
    {
        QByteArray bytes;
        while (!isEmpty()) {
            const char next = static_cast<char>(byte());
            if (next == '\0')
                break;
            bytes += next;
        }
        return bytes;
    }

    QByteArray rest()
    {
        const QByteArray bytes(reinterpret_cast<const char*>(m_next),
                               static_cast<int>(m_end - m_next));
        m_next = m_end;
        return bytes;
    }

private:
    const std::uint8_t* m_next;
    const std::uint8_t* m_end;
};

} // namespace rvopen::fuzz
