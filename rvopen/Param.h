// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

#include <memory>

namespace rvopen {

class InnerSnapRoot;

/// One typed, named value of a model object: a "param" element with "name", "type" and "val".
///
/// Units: a "float" parameter whose "prop" contains "D" is a length. It is stored in document units
/// and presented in scene units: writing multiplies by the document's units scale ("unitsScale" of
/// its first "snapRoot", 1 when absent or empty), reading divides by it. The scale is read once per
/// parameter object and kept for its life. Where the root element is no "snapRoot", as in archives,
/// the first one is looked for in the whole document, once for all parameters as long as the
/// document is not changed. Range attributes are never converted.
///
/// Typed getters and setters return StatusMissing and touch nothing when the parameter has another
/// type. "prop" containing "R" marks a parameter as read-only; that is reported, not enforced.
class RVOPEN_EXPORT Param : public RVOpenNode {
public:
    /// Bound to nothing.
    Param();
    /// Shallow, as RVOpenNode's.
    Param(const Param&) = default;
    Param& operator=(const Param&) = default;
    ~Param() override;

    /// Binds the parameter to \p node. The units scale already read is kept.
    virtual void SetDomNode(QDomNode node);

    using RVOpenNode::GetNext;
    /// The next sibling that no look-up of ParamHelper steps over, if its object exists already and
    /// is a parameter, else null.
    Param* GetNext();

    /// \name Type and properties
    /// 1 or 0. A parameter without "type" is of no type.
    /// @{
    int IsFloat() const;
    int IsBool() const;
    int IsShader() const;
    int IsColour() const;
    int IsVector() const;
    int IsPoint() const;
    int IsString() const;
    int IsInt() const;
    /// "prop" contains "D": the value is a length.
    int IsDimensional() const;
    /// "prop" contains "R".
    int IsReadOnly() const;
    /// @}

    /// \name Setting type and value together
    /// Whatever the type was before. Arrays hold three floats.
    /// @{
    void SetTypeFloat(float sceneValue);
    void SetTypeInt(int newValue);
    void SetTypeBool(int newValue);
    void SetTypeString(QString newValue);
    void SetTypeShader(QString newValue);
    void SetTypeColour(float* const rgb);
    void SetTypeVector(float* const vector);
    void SetTypePoint(float* const point);
    /// @}

    /// \name Typed values
    /// StatusMissing for another type, a null output or a value that is absent or empty. A text
    /// that is no number reads as 0 with StatusOk. String getters answer an empty string instead.
    /// @{

    /// Scene units. A dimensional output is divided by the units scale even when no value was read:
    /// initialise it with the default in document units.
    unsigned int GetValFloat(float* out);
    /// Scene units; written with 6 significant digits.
    unsigned int SetValFloat(float newValue);
    unsigned int GetValInt(int* out) const;
    unsigned int SetValInt(int newValue);
    /// 1 when the stored integer is 1 or more, else 0.
    unsigned int GetValBool(int* out) const;
    /// Writes "1" for any non-zero value, else "0".
    unsigned int SetValBool(int newValue);
    unsigned int GetValColour(float* const out) const;
    unsigned int SetValColour(float* const newValue);
    unsigned int GetValVector(float* const out) const;
    unsigned int SetValVector(float* const newValue);
    unsigned int GetValPoint(float* const out) const;
    unsigned int SetValPoint(float* const newValue);
    QString GetValString() const;
    unsigned int SetValString(QString newValue);
    QString GetValShaderType() const;
    unsigned int SetValShaderType(QString newValue);
    /// @}

    /// The range of a float value: "rangeMin" to "rangeMax", narrowed where "centre" and "range"
    /// are there to the centre plus or minus that percentage of its magnitude, clipped to the outer
    /// range. StatusMissing, with the outputs untouched, for another type or without an outer
    /// range. Either output may be null.
    unsigned int GetFloatRange(float* outMin, float* outMax) const;

private:
    bool isType(const QString& type) const;
    QString value() const;
    unsigned int setValue(const QString& text);
    void setTypeAndValue(const QString& type, const QString& text);
    float toDocumentUnits(float sceneValue);
    float GetUnitsScale();

    float m_unitsScale = 0.0f; ///< 0: not yet read.
    /// Held so that the other parameters of the document find it; null under a "snapRoot".
    std::shared_ptr<const InnerSnapRoot> m_innerSnapRoot;
};

} // namespace rvopen
