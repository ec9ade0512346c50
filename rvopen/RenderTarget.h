// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

/// One image to be rendered from a snapshot: its file, format, size, aspect and quality.
///
/// Its sub-category is always "Image". Getters and setters return StatusMissing when the parameter
/// is missing or of another type, with outputs untouched unless the operation says otherwise;
/// string getters are empty then.
class RVOPEN_EXPORT RenderTarget : public RVOpenNode {
public:
    /// Binds to \p node and sets its sub-category.
    explicit RenderTarget(QDomNode node);
    /// A free-standing clone; null gives an object bound to nothing.
    explicit RenderTarget(RVOpenNode* source);
    /// Shallow: both objects wrap the same element.
    RenderTarget(const RenderTarget& other) = default;
    RenderTarget& operator=(const RenderTarget& other) = default;
    ~RenderTarget() override;

    /// Creates all parameters, on a node that has no parameter at all.
    void PopulateParams();

    /// \name Quality
    /// @{

    /// Parameter "Lighting Quality"; 1 in a new target.
    unsigned int SetLightingQuality(int quality);
    unsigned int GetLightingQuality(int* out);
    /// Parameter "Material Quality"; 0 in a new target.
    unsigned int SetMaterialQuality(int quality);
    unsigned int GetMaterialQuality(int* out);
    /// Parameter "Render Quality", a name; "Progressive Preview" in a new target.
    unsigned int SetRenderQuality(QString quality);
    QString GetRenderQuality();
    /// Parameter "Model Hint", a length in scene units. Setting it marks the parameter as a length.
    unsigned int SetModelHint(float hint);
    unsigned int GetModelHint(float* out);
    /// @}

    /// \name Size
    /// @{

    /// Parameter "Aspect Ratio": long side to short side; 1.5 in a new target.
    unsigned int SetAspectRatio(float ratio);
    unsigned int GetAspectRatio(float* out);
    /// Parameter "Use Aspect Ratio", 0 or 1: the short side follows from the long one.
    unsigned int SetUseAspectRatio(int use);
    unsigned int GetUseAspectRatio(int* out);
    /// Parameter "Landscape", 0 or 1. Created when missing.
    unsigned int SetLandscape(int landscape);
    /// 1 with StatusMissing when it cannot be read.
    unsigned int GetLandscape(int* out);
    /// Parameter "Width", in pixels.
    unsigned int SetWidth(int width);
    unsigned int GetWidth(int* out);
    /// Parameter "Height", in pixels.
    unsigned int SetHeight(int height);
    unsigned int GetHeight(int* out);

    /// The size to render, in pixels: the stored long side ("Width" in landscape, else "Height")
    /// and a short side that follows from it and the aspect ratio, rounded.
    ///
    /// The stored width and height come back as they are when the aspect ratio is not used, is not
    /// above 0 or gives a side that no int holds, and when any of the five parameters cannot be
    /// read, which is StatusMissing; an output whose own parameter cannot be read is untouched
    /// then. With a null output the other one gets its stored value.
    unsigned int GetWidthHeightUsingAspectRatio(int* width, int* height);
    /// @}

    /// \name File
    /// @{

    /// Parameter "Output Format".
    unsigned int SetOutputFormat(QString format);
    QString GetOutputFormat();
    /// Parameter "Filename": the path of the image.
    unsigned int SetFileName(QString fileName);
    QString GetFileName();
    /// Parameter "Short Filename": the image's file name without folder.
    unsigned int SetShortFileName(QString fileName);
    QString GetShortFileName();
    /// Parameter "Gamma". Created when missing.
    unsigned int SetGamma(float gamma);
    unsigned int GetGamma(float* out);
    /// @}
};

} // namespace rvopen
