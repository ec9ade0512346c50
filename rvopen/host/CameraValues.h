// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>
#include <rvopen/host/Values.h>

#include <optional>

namespace rvopen {
class Camera;
}

namespace rvopen::host {

/// Where a camera stands and what it sees, as one value: parameters "From", "To", "Up",
/// "Orthographic" and "Field Of View" of Camera, in its units.
struct Pinhole {
    Point from;                ///< Where the camera stands.
    Point to;                  ///< What it looks at.
    Vector up;                 ///< What is above in the picture.
    bool orthographic = false; ///< Whether lines that are parallel stay so.
    float fieldOfView = 0;     ///< In degrees.

    /// Nothing where one of the five cannot be read, but "Orthographic", which is off then, and for
    /// null.
    [[nodiscard]] RVOPEN_EXPORT static std::optional<Pinhole> read(Camera* camera);
    /// Sets the five parameters and creates those that are missing. False, with nothing changed,
    /// where setValue() could not set one of them.
    [[nodiscard]] RVOPEN_EXPORT bool write(Camera* camera) const;

    /// Whether all parts are equal.
    friend bool operator==(const Pinhole& a, const Pinhole& b)
    {
        return a.from == b.from && a.to == b.to && a.up == b.up &&
               a.orthographic == b.orthographic && a.fieldOfView == b.fieldOfView;
    }
    /// Whether one part differs.
    friend bool operator!=(const Pinhole& a, const Pinhole& b)
    {
        return !(a == b);
    }
};

/// The distances from a camera between which something is drawn: its parameters "Near" and "Far".
struct Clipping {
    float nearDistance = 0; ///< What is nearer is not drawn.
    float farDistance = 0;  ///< What is farther is not drawn.

    /// Nothing where one of the two cannot be read, and for null.
    [[nodiscard]] RVOPEN_EXPORT static std::optional<Clipping> read(Camera* camera);
    /// As Pinhole::write().
    [[nodiscard]] RVOPEN_EXPORT bool write(Camera* camera) const;

    /// Whether all parts are equal.
    friend bool operator==(const Clipping& a, const Clipping& b)
    {
        return a.nearDistance == b.nearDistance && a.farDistance == b.farDistance;
    }
    /// Whether one part differs.
    friend bool operator!=(const Clipping& a, const Clipping& b)
    {
        return !(a == b);
    }
};

} // namespace rvopen::host
