// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenReader.h>

#include <QtGlobal>

#include <optional>
#include <utility>
#include <variant>

namespace rvopen::host {

/// What an operation that reads gives: the value, or why there is none.
template <typename Value = std::monostate>
class [[nodiscard]] Result {
public:
    /// It went well.
    Result(Value value)
        : m_value(std::move(value))
    {
    }
    /// It did not.
    Result(ReadError error)
        : m_error(std::move(error))
    {
    }

    /// Whether there is a value.
    explicit operator bool() const
    {
        return m_value.has_value();
    }
    /// File, place and message; all empty with a value.
    const ReadError& error() const
    {
        return m_error;
    }

    /// \name The value
    /// There has to be one, which is asserted.
    /// @{
    Value& operator*() &
    {
        Q_ASSERT(m_value);
        return *m_value;
    }
    const Value& operator*() const&
    {
        Q_ASSERT(m_value);
        return *m_value;
    }
    Value&& operator*() &&
    {
        Q_ASSERT(m_value);
        return *std::move(m_value);
    }
    Value* operator->()
    {
        Q_ASSERT(m_value);
        return &*m_value;
    }
    const Value* operator->() const
    {
        Q_ASSERT(m_value);
        return &*m_value;
    }
    /// @}

private:
    std::optional<Value> m_value;
    ReadError m_error;
};

} // namespace rvopen::host
