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

/// Numbers from a least to a greatest.
struct Range {
    /// Infinite where there is none.
    double minimum = -std::numeric_limits<double>::infinity();
    /// Infinite where there is none.
    double maximum = std::numeric_limits<double>::infinity();
    /// The minimum itself is outside.
    bool excludesMinimum = false;
    /// The maximum itself is outside.
    bool excludesMaximum = false;

    /// Whether it ends below.
    constexpr bool HasMinimum() const
    {
        return minimum > -std::numeric_limits<double>::infinity();
    }

    /// Whether it ends above.
    constexpr bool HasMaximum() const
    {
        return maximum < std::numeric_limits<double>::infinity();
    }

    /// Whether the number is inside; false for what is no number.
    constexpr bool Contains(double number) const
    {
        return (excludesMinimum ? number > minimum : number >= minimum) &&
               (excludesMaximum ? number < maximum : number <= maximum);
    }
};

/// The values that a user interface should offer, for range-based loops.
struct Choices {
    /// Null for none.
    const QStringView* first = nullptr;
    /// How many there are.
    int count = 0;
    /// Any other value is as good; these are the usual ones.
    bool areOpen = false;

    /// Of the loop.
    const QStringView* begin() const
    {
        return first;
    }

    /// Of the loop.
    const QStringView* end() const
    {
        return first + count;
    }

    /// Whether the text is one of them.
    RVOPEN_TOOLKIT_EXPORT bool Contains(QStringView text) const;
};

/// What is known of one parameter, or attribute, of one kind of element. Texts live as long as the
/// library; those of values are as documents have them, lengths with a units scale of 1.
///
/// Ranges are in scene units; those of colours, vectors and points are the ranges of each number.
/// The hard range of what is stored as a length ends at 0 or nowhere, so that it holds for stored
/// values as well.
struct ParamInfo {
    /// Its name; empty for an attribute that every element may have.
    QStringView element;
    /// What KindOf() tells of the element; empty where the kind does not matter.
    QStringView kind;
    /// Of the parameter or attribute.
    QStringView name;
    /// For people, in English: a few words.
    QStringView label;
    /// For people, in English: a sentence.
    QStringView help;
    /// Of the value.
    ValueType type = ValueType::String;
    /// Of a number, or of each of a point.
    Unit unit = Unit::None;
    /// Of a string.
    Content content = Content::Text;
    /// Of a colour or an image file.
    ColourSpace colourSpace = ColourSpace::None;
    /// An attribute of the element, and no parameter.
    bool isAttribute = false;
    /// Stored in document units: letter "D" in the "prop" of the parameter.
    bool isLength = false;
    /// Missing in the oldest documents.
    bool isLater = false;
    /// Values outside of it make no sense.
    Range hard;
    /// What a user interface should offer.
    Range soft;
    /// In which steps; 0 where none is usual.
    double step = 0;
    /// What a reset should give; null where nothing is usual.
    QStringView defaultValue;
    /// What the library gives a parameter that it creates with its element; null where it creates
    /// none. It may be outside of the hard range, and then means that the value is not set.
    QStringView createdValue;
    /// What a getter of the library answers where the value is missing; null where it leaves its
    /// output as it is.
    QStringView absentValue;
    /// Of a string or an integer.
    Choices choices;
};

/// Rows of a table of this library, for range-based loops.
struct ParamInfos {
    /// Good for as long as the library is loaded.
    const ParamInfo* first = nullptr;
    /// How many there are.
    int count = 0;

    /// Of the loop.
    const ParamInfo* begin() const
    {
        return first;
    }

    /// Of the loop.
    const ParamInfo* end() const
    {
        return first + count;
    }
};

/// The parameters of all elements. Rows of one element stand together, those of one kind in the
/// order in which the library creates the parameters.
RVOPEN_TOOLKIT_EXPORT ParamInfos AllParams();
/// The attributes of all elements, first those that every element may have.
RVOPEN_TOOLKIT_EXPORT ParamInfos AllAttributes();

/// What decides which parameters an element has: the shader class of a finish, the element whose
/// shader a plain colour or a map belongs to ("diffuse", "transparency", "bump"), and of any other
/// the sub-category.
RVOPEN_TOOLKIT_EXPORT QString KindOf(const QDomElement& element);
/// That of the node's element.
RVOPEN_TOOLKIT_EXPORT QString KindOf(const RVOpenNode& node);

/// Whether the names of an element's parameters are known, for one of its kinds at least.
RVOPEN_TOOLKIT_EXPORT bool HasParams(const QString& element);
/// The parameters of an element of that kind, each once; none where they are not known. A row of
/// exactly that kind comes in the place of one for every kind. The rows are good for as long as the
/// library is loaded.
RVOPEN_TOOLKIT_EXPORT QVector<const ParamInfo*> ParamsOf(const QString& element,
                                                         const QString& kind = QString());
/// That of the name among ParamsOf(); null for none. Names are case-sensitive.
RVOPEN_TOOLKIT_EXPORT const ParamInfo* FindParam(const QString& element, const QString& kind,
                                                 const QString& name);
/// That of the node's element and kind; null for none.
RVOPEN_TOOLKIT_EXPORT const ParamInfo* FindParam(const RVOpenNode& owner, const QString& name);
/// That of the parameter's name in the element that it stands in; null for none.
RVOPEN_TOOLKIT_EXPORT const ParamInfo* FindParam(const Param& param);
/// The element's own attribute of that name, else that of every element; null for none. A parameter
/// has its own alone.
RVOPEN_TOOLKIT_EXPORT const ParamInfo* FindAttribute(const QString& element, const QString& name);

/// "float", "integer", ...: what the "type" of a parameter says; "bytes" for Bytes.
RVOPEN_TOOLKIT_EXPORT QString TypeName(ValueType type);
/// The type of a parameter that says so; nothing for a text that is none.
RVOPEN_TOOLKIT_EXPORT std::optional<ValueType> TypeNamed(const QString& name);
/// "degrees", "scene units", ...; empty for None.
RVOPEN_TOOLKIT_EXPORT QString UnitName(Unit unit);
/// "srgb" or "data"; empty for None.
RVOPEN_TOOLKIT_EXPORT QString ColourSpaceName(ColourSpace space);
/// The range that a "param" element states itself, "rangeMin" to "rangeMax", in scene units.
RVOPEN_TOOLKIT_EXPORT Range OwnRange(const QDomElement& param);
/// "0 to 1", "from 0", "above 0 and below 180"; empty for a range without ends.
RVOPEN_TOOLKIT_EXPORT QString RangeText(const Range& range);

} // namespace toolkit
} // namespace rvopen
