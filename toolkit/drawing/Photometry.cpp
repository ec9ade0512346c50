// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Photometry.h"

#include "Vec.h"

#include <rvopen/Finish.h>
#include <rvopen/ParamHelper.h>

namespace rvopen::toolkit::drawing {

double luminanceOf(double flux, double area)
{
    // An even radiator sends the flux into a half space that weighs pi.
    return flux > 0 && area > 0 ? flux / (Pi * area) : 0;
}

double luminanceOf(Finish* finish)
{
    float flux = 0;
    float area = 0;
    ParamHelper* const params = finish->GetParamHelper();
    params->GetValFloat(QStringLiteral("light intensity"), &flux);
    params->GetValFloat(QStringLiteral("object area"), &area);
    return luminanceOf(double(flux), double(area));
}

} // namespace rvopen::toolkit::drawing
