// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>

#include <QString>

#include <optional>

namespace rvopen {
class RVOpenNode;
}

namespace rvopen::host {

/// Value of a "colour" parameter.
struct Rgb {
    float red = 0;   ///< From 0 to 1.
    float green = 0; ///< From 0 to 1.
    float blue = 0;  ///< From 0 to 1.

    /// Whether all parts are equal.
    friend bool operator==(const Rgb& a, const Rgb& b)
    {
        return a.red == b.red && a.green == b.green && a.blue == b.blue;
    }
    /// Whether one part differs.
    friend bool operator!=(const Rgb& a, const Rgb& b)
    {
        return !(a == b);
    }
};

/// Three coordinates; what they are of is a type of its own, as it is in documents.
template <typename Kind>
struct Triple {
    float x = 0; ///< The first.
    float y = 0; ///< The second.
    float z = 0; ///< The third.

    /// Whether all parts are equal.
    friend bool operator==(const Triple& a, const Triple& b)
    {
        return a.x == b.x && a.y == b.y && a.z == b.z;
    }
    /// Whether one part differs.
    friend bool operator!=(const Triple& a, const Triple& b)
    {
        return !(a == b);
    }
};

/// Value of a "point" parameter.
using Point = Triple<struct PointKind>;
/// Value of a "vector" parameter.
using Vector = Triple<struct VectorKind>;

/// \name Reading a parameter
/// The value of the parameter with that display name, exactly, among the children of \p node, also
/// where it stands behind children that are no parameters. False, with \p out untouched, where
/// there is none, it is of another type or, but for a text, empty, and for null. Numbers are in
/// scene units; a float is read from an "integer" as well. What is no number reads as 0. Nothing is
/// created.
/// @{
[[nodiscard]] RVOPEN_EXPORT bool readValue(RVOpenNode* node, const QString& name, float& out);
[[nodiscard]] RVOPEN_EXPORT bool readValue(RVOpenNode* node, const QString& name, int& out);
[[nodiscard]] RVOPEN_EXPORT bool readValue(RVOpenNode* node, const QString& name, bool& out);
[[nodiscard]] RVOPEN_EXPORT bool readValue(RVOpenNode* node, const QString& name, QString& out);
[[nodiscard]] RVOPEN_EXPORT bool readValue(RVOpenNode* node, const QString& name, Rgb& out);
[[nodiscard]] RVOPEN_EXPORT bool readValue(RVOpenNode* node, const QString& name, Point& out);
[[nodiscard]] RVOPEN_EXPORT bool readValue(RVOpenNode* node, const QString& name, Vector& out);

/// Nothing where it cannot be read: `host::value<float>(camera, "Field Of View")`.
template <typename Value>
[[nodiscard]] std::optional<Value> value(RVOpenNode* node, const QString& name)
{
    Value read{};
    return readValue(node, name, read) ? std::optional<Value>(read) : std::nullopt;
}
/// The fallback where it cannot be read.
template <typename Value>
[[nodiscard]] Value value(RVOpenNode* node, const QString& name, const Value& fallback)
{
    Value read = fallback;
    return readValue(node, name, read) ? read : fallback;
}
/// @}

/// \name Writing a parameter
/// Sets the value of the parameter with that display name, which is found as for reading; where
/// there is none it is created as the last child, of the type that belongs to the value. False,
/// with nothing changed, where it is of another type, for null, and where \p node is bound to
/// nothing or stands for an archive that cannot be opened. Numbers are in scene units, written with
/// 6 significant digits; an int is set to a "float" as well. Also what is marked as read-only is
/// set.
/// @{
[[nodiscard]] RVOPEN_EXPORT bool setValue(RVOpenNode* node, const QString& name, float value);
[[nodiscard]] RVOPEN_EXPORT bool setValue(RVOpenNode* node, const QString& name, double value);
[[nodiscard]] RVOPEN_EXPORT bool setValue(RVOpenNode* node, const QString& name, int value);
[[nodiscard]] RVOPEN_EXPORT bool setValue(RVOpenNode* node, const QString& name, bool value);
[[nodiscard]] RVOPEN_EXPORT bool setValue(RVOpenNode* node, const QString& name,
                                          const QString& value);
/// Of UTF-8: a pointer would be taken as a bool otherwise.
[[nodiscard]] RVOPEN_EXPORT bool setValue(RVOpenNode* node, const QString& name, const char* value);
[[nodiscard]] RVOPEN_EXPORT bool setValue(RVOpenNode* node, const QString& name, const Rgb& value);
[[nodiscard]] RVOPEN_EXPORT bool setValue(RVOpenNode* node, const QString& name,
                                          const Point& value);
[[nodiscard]] RVOPEN_EXPORT bool setValue(RVOpenNode* node, const QString& name,
                                          const Vector& value);
/// @}

} // namespace rvopen::host
