// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>

#include <QString>
#include <QStringView>
#include <QVector>

#include <limits>
#include <optional>

class QDomElement;

namespace rvopen {

class Param;
class RVOpenNode;

namespace toolkit {

/// What a value is. All but Bytes are types of parameters.
enum class ValueType {
    Float,
    Integer,
    Boolean,
    String,
    Shader,
    Colour,
    Vector,
    Point,
    Bytes, ///< Hexadecimal text, in an attribute alone.
};

/// What a number counts.
enum class Unit {
    None,
    Factor,
    Ratio,
    Percent,
    Degrees,
    SceneLength, ///< Of points, each coordinate.
    SceneArea,
    Pixels,
    Steps,
    Lumens,
    RefractiveIndex,
    Exponent,
};

/// What a text is about.
enum class Content {
    Text,
    ImageFile,  ///< Path of an image that is read.
    OutputFile, ///< Path of a file that is written.
    FileName,   ///< Without folder.
    Folder,
};

/// What the numbers of a colour, or of an image, mean.
enum class ColourSpace {
    None,
    Srgb, ///< Encoded as sRGB; of an image of floating-point numbers, linear light.
    Data, ///< No colours: opacity, heights or normals.
};

/// Numbers from a least to a greatest, either of which may be missing or excluded.
struct Range {
    double minimum = -std::numeric_limits<double>::infinity();
    double maximum = std::numeric_limits<double>::infinity();
    bool excludesMinimum = false;
    bool excludesMaximum = false;

    constexpr bool HasMinimum() const
    {
        return minimum > -std::numeric_limits<double>::infinity();
    }

    constexpr bool HasMaximum() const
    {
        return maximum < std::numeric_limits<double>::infinity();
    }

    /// False for what is no number.
    constexpr bool Contains(double number) const
    {
        return (excludesMinimum ? number > minimum : number >= minimum) &&
               (excludesMaximum ? number < maximum : number <= maximum);
    }
};

/// The values that a user interface should offer.
struct Choices {
    const QStringView* first = nullptr;
    int count = 0;
    /// Any other value is as good; these are the usual ones.
    bool areOpen = false;

    const QStringView* begin() const
    {
        return first;
    }

    const QStringView* end() const
    {
        return first + count;
    }

    RVOPEN_TOOLKIT_EXPORT bool Contains(QStringView text) const;
};

/// What is known of one parameter, or attribute, of one kind of element. Texts live as long as the
/// library; those of values are as documents have them, lengths with a units scale of 1.
///
/// Ranges are in scene units. The hard range has no end but 0 for what is stored as a length, so
/// that it holds for stored values as well; of colours, vectors and points they are the ranges of
/// each number.
struct ParamInfo {
    /// Its name; empty for an attribute that every element may have.
    QStringView element;
    /// What KindOf() tells of the element; empty where the kind does not matter.
    QStringView kind;
    QStringView name;
    /// For people, in English: a few words, and a sentence.
    QStringView label;
    QStringView help;
    ValueType type = ValueType::String;
    Unit unit = Unit::None;
    Content content = Content::Text;
    ColourSpace colourSpace = ColourSpace::None;
    bool isAttribute = false;
    /// Stored in document units: letter "D" in the "prop" of the parameter.
    bool isLength = false;
    /// Missing in the oldest documents.
    bool isLater = false;
    /// Values outside of it make no sense.
    Range hard;
    /// What a user interface should offer, and in which steps. A step of 0 where none is usual.
    Range soft;
    double step = 0;
    /// What a reset should give; null where nothing is usual.
    QStringView defaultValue;
    /// What the library gives a parameter that it creates with its element; null where it creates
    /// none. It may be outside of the hard range, and then means that the value is not set.
    QStringView createdValue;
    /// What a getter of the library answers where the value is missing; null where it leaves its
    /// output as it is.
    QStringView absentValue;
    Choices choices;
};

/// Rows of a table of this library, for range-based loops.
struct ParamInfos {
    const ParamInfo* first = nullptr;
    int count = 0;

    const ParamInfo* begin() const
    {
        return first;
    }

    const ParamInfo* end() const
    {
        return first + count;
    }
};

/// \name Tables
/// Rows of one element stand together, in the order in which the library creates the parameters.
/// @{
RVOPEN_TOOLKIT_EXPORT ParamInfos AllParams();
RVOPEN_TOOLKIT_EXPORT ParamInfos AllAttributes();
/// @}

/// \name Kinds of elements
/// What decides which parameters an element has: the shader class of a finish, the element whose
/// shader a plain colour or a map belongs to ("diffuse", "transparency", "bump"), and of any other
/// the sub-category.
/// @{
RVOPEN_TOOLKIT_EXPORT QString KindOf(const QDomElement& element);
RVOPEN_TOOLKIT_EXPORT QString KindOf(const RVOpenNode& node);
/// @}

/// \name Look-ups
/// Names are case-sensitive. A row of exactly that kind comes before one for every kind. Pointers
/// are good for as long as the library is loaded; null for what is not known.
/// @{

/// Whether the names of an element's parameters are known, for one of its kinds at least.
RVOPEN_TOOLKIT_EXPORT bool HasParams(const QString& element);
/// The parameters of an element of that kind, each once; none where they are not known.
RVOPEN_TOOLKIT_EXPORT QVector<const ParamInfo*> ParamsOf(const QString& element,
                                                         const QString& kind = QString());
RVOPEN_TOOLKIT_EXPORT const ParamInfo* FindParam(const QString& element, const QString& kind,
                                                 const QString& name);
/// That of the node's element and kind.
RVOPEN_TOOLKIT_EXPORT const ParamInfo* FindParam(const RVOpenNode& owner, const QString& name);
/// By the element that the parameter stands in.
RVOPEN_TOOLKIT_EXPORT const ParamInfo* FindParam(const Param& param);
RVOPEN_TOOLKIT_EXPORT const ParamInfo* FindAttribute(const QString& element, const QString& name);
/// @}

/// \name Names
/// @{

/// "float", "integer", ...: what the "type" of a parameter says; "bytes" for Bytes.
RVOPEN_TOOLKIT_EXPORT QString TypeName(ValueType type);
/// The type of a parameter that says so; nothing for a text that is none.
RVOPEN_TOOLKIT_EXPORT std::optional<ValueType> TypeNamed(const QString& name);
/// "degrees", "scene units", ...; empty for None.
RVOPEN_TOOLKIT_EXPORT QString UnitName(Unit unit);
/// "srgb" or "data"; empty for None.
RVOPEN_TOOLKIT_EXPORT QString ColourSpaceName(ColourSpace space);
/// "0 to 1", "from 0", "above 0 and below 180"; empty for a range without ends.
RVOPEN_TOOLKIT_EXPORT QString RangeText(const Range& range);
/// @}

} // namespace toolkit
} // namespace rvopen
