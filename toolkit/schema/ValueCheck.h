// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/schema/ParamInfo.h>

namespace rvopen::toolkit {

/// What may be wrong with a value. All but the last two end in a value that the library cannot
/// read, or reads as 0.
enum class Fault {
    None,
    Empty, ///< Nothing where there has to be something.
    NoNumber,
    DecimalComma,    ///< A number but for its comma.
    NotFinite,       ///< "nan", infinite, or beyond single precision.
    NoInteger,       ///< A number with a fraction, or beyond 32 bits.
    NotThreeNumbers, ///< Fewer or more.
    NoHexadecimal,
    ForbiddenCharacter, ///< One that no document may contain.
    OutsideRange,
    NoChoice,
};

/// A fault and where it is.
struct ValueFault {
    /// None where nothing is wrong.
    Fault fault = Fault::None;
    /// The part of the text that is wrong, such as the second number of a colour.
    QString part;

    /// Whether something is wrong.
    explicit operator bool() const
    {
        return fault != Fault::None;
    }
};

/// What is wrong with a stored text as a value of the type.
RVOPEN_TOOLKIT_EXPORT ValueFault CheckText(ValueType type, const QString& text);

/// What is wrong with a stored text as the value of that parameter or attribute: as one of its
/// type, by its hard range, and by its choices unless these are open. What the library itself
/// creates is not wrong, nor is an empty attribute, which reads as an absent one.
RVOPEN_TOOLKIT_EXPORT ValueFault CheckValue(const ParamInfo& info, const QString& text);

/// A sentence in English about a fault that CheckValue() found: "200 is not above 0 and below 180".
/// Empty for none.
RVOPEN_TOOLKIT_EXPORT QString FaultMessage(const ParamInfo& info, const ValueFault& fault);

} // namespace rvopen::toolkit
