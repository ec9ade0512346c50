// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/schema/ValueText.h>

#include <QString>

#include <ostream>
#include <string>

namespace rvopen::test {

/// A text and what a reader of texts gives for it: "refused" where it does not take it and leaves
/// the value that was there.
struct TextCase {
    const char* text;
    const char* value;
};

inline void PrintTo(const TextCase& one, std::ostream* out)
{
    *out << '"' << one.text << '"';
}

template <typename Value>
std::string valueOf(bool (*read)(const QString&, Value&), const char* text, Value before)
{
    Value value = before;
    const bool isRead = read(QString::fromUtf8(text), value);
    if (!isRead && value == before)
        return "refused";
    return (isRead ? "" : "changed to ") + toolkit::NumberText(double(value)).toStdString();
}

inline std::string tripleOf(bool (*read)(const QString&, float (&)[3]), const char* text)
{
    float triple[3] = {7, 8, 9};
    const bool isRead = read(QString::fromUtf8(text), triple);
    std::string result;
    for (const float number : triple)
        result += (result.empty() ? "" : " ") + toolkit::NumberText(double(number)).toStdString();
    if (isRead)
        return result;
    return result == "7 8 9" ? "refused" : "changed to " + result;
}

} // namespace rvopen::test
