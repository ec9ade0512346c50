// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "GeneratedDocuments.h"

#include <functional>
#include <utility>

namespace rvopen::bench {

namespace {

const long s_presetsPerFolder = 50;

/// Writes elements, counting and indenting them.
class Text {
public:
    Text()
    {
        m_document.text = QStringLiteral("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n");
    }

    void open(const QString& tag, const QString& attributes = QString())
    {
        start(tag, attributes);
        m_document.text += QLatin1String(">\n");
        ++m_depth;
    }

    void close(const QString& tag)
    {
        --m_depth;
        indent();
        m_document.text += QLatin1String("</") + tag + QLatin1String(">\n");
    }

    void empty(const QString& tag, const QString& attributes = QString())
    {
        start(tag, attributes);
        m_document.text += QLatin1String("/>\n");
    }

    void param(const char* name, const char* type, const QString& value, bool dimensional = false)
    {
        const QLatin1String quote("\"");
        empty(QStringLiteral("param"), QLatin1String("name=\"") + QLatin1String(name) + quote +
                                           QLatin1String(dimensional ? " prop=\"D\"" : "") +
                                           QLatin1String(" type=\"") + QLatin1String(type) +
                                           QLatin1String("\" val=\"") + value + quote);
    }
    void number(const char* name, double value, bool dimensional = false)
    {
        param(name, "float", QString::number(value, 'g', 6), dimensional);
    }
    void integer(const char* name, long value)
    {
        param(name, "integer", QString::number(value));
    }
    void flag(const char* name, bool value)
    {
        param(name, "boolean", QString::number(value ? 1 : 0));
    }
    void string(const char* name, const QString& value)
    {
        param(name, "string", value);
    }
    void triple(const char* name, const char* type, double a, double b, double c)
    {
        const QLatin1Char blank(' ');
        param(name, type,
              QString::number(a, 'g', 6) + blank + QString::number(b, 'g', 6) + blank +
                  QString::number(c, 'g', 6));
    }

    long elements() const
    {
        return m_document.elements;
    }
    Document take(long parts)
    {
        m_document.parts = parts;
        return std::move(m_document);
    }

private:
    void start(const QString& tag, const QString& attributes)
    {
        indent();
        m_document.text += QLatin1Char('<') + tag;
        if (!attributes.isEmpty())
            m_document.text += QLatin1Char(' ') + attributes;
        ++m_document.elements;
    }

    void indent()
    {
        m_document.text += QString(m_depth * 2, QLatin1Char(' '));
    }

    Document m_document;
    int m_depth = 0;
};

/// A number between 0 and 1 with a few digits, different for neighbours.
double fraction(long number)
{
    return static_cast<double>((number * 7919) % 997) / 1000.0;
}

void colour(Text& text, const char* name, long number)
{
    text.triple(name, "colour", fraction(number), fraction(number + 1), fraction(number + 2));
}

void plainColour(Text& text, long number)
{
    text.open(QStringLiteral("plainColour"), QStringLiteral("enabled=\"1\""));
    colour(text, "Colour", number);
    text.close(QStringLiteral("plainColour"));
}

void map(Text& text, long number)
{
    text.open(QStringLiteral("map"), QStringLiteral("enabled=\"1\""));
    text.string("Texture", QStringLiteral("C:\\Textures\\surface_%1.jpg").arg(number % 300));
    text.number("Width", 0.5 + fraction(number), true);
    text.number("Height", 0.5 + fraction(number), true);
    text.number("S Offset", fraction(number), true);
    text.number("T Offset", 0.0, true);
    text.flag("S Reflect", false);
    text.flag("T Reflect", number % 2 == 0);
    text.number("Rotation", fraction(number) * 90.0);
    text.flag("Use Alpha", false);
    text.close(QStringLiteral("map"));
}

void shaderColour(Text& text, long number, bool withMap)
{
    text.open(QStringLiteral("param"),
              QStringLiteral("name=\"Colour\" type=\"shader\" val=\"colour\""));
    plainColour(text, number);
    if (withMap)
        map(text, number);
    text.close(QStringLiteral("param"));
}

void material(Text& text, long number, const QString& more)
{
    text.open(QStringLiteral("material"),
              more +
                  QStringLiteral(" name=\"Material %1\" refname=\"material.%1\" subcat=\"%2\"")
                      .arg(number)
                      .arg(number % 7 == 0 ? QStringLiteral("Glass") : QStringLiteral("Opaque")));
    text.open(QStringLiteral("colour"),
              QStringLiteral("name=\"Colour %1\" refname=\"colour.%1\"").arg(number));
    text.open(QStringLiteral("diffuse"), QStringLiteral("enabled=\"1\""));
    shaderColour(text, number, true);
    text.close(QStringLiteral("diffuse"));
    text.close(QStringLiteral("colour"));
    text.open(QStringLiteral("finish"),
              QStringLiteral("name=\"Finish %1\" refname=\"finish.%1\" shaderClass=\"lit "
                             "appearance\"")
                  .arg(number % 40));
    const char* const factors[] = {"diffuse factor", "specular factor", "transmission factor",
                                   "mirror factor",  "roughness",       "refraction",
                                   "light intensity"};
    long step = number;
    for (const char* const factor : factors)
        text.number(factor, fraction(++step));
    text.number("object area", 1.0, true);
    text.number("object size", 1.0, true);
    colour(text, "light colour", number);
    text.close(QStringLiteral("finish"));
    text.open(QStringLiteral("transparency"));
    text.flag("InvertMask", false);
    shaderColour(text, number + 5, false);
    text.close(QStringLiteral("transparency"));
    text.open(QStringLiteral("bump"));
    text.flag("Use Diffuse", false);
    text.flag("Is Normal Map", number % 3 == 0);
    text.number("Height", fraction(number));
    text.number("Softness", 0.5);
    shaderColour(text, number + 9, true);
    text.close(QStringLiteral("bump"));
    text.close(QStringLiteral("material"));
}

void palette(Text& text, const std::function<bool(long made)>& goOn)
{
    text.open(QStringLiteral("materialRepository"));
    for (long number = 1; goOn(number - 1); ++number)
        material(text, number, QStringLiteral("linkname=\"Object%1\"").arg(number));
    text.close(QStringLiteral("materialRepository"));
}

void background(Text& text, long number, const QString& more)
{
    text.open(QStringLiteral("background"),
              QStringLiteral("name=\"Background %1\" refname=\"background.%1\" subcat=\"Horizon\"")
                      .arg(number) +
                  more);
    colour(text, "Sky Colour", number);
    colour(text, "Horizon Sky Colour", number + 1);
    colour(text, "Horizon Ground Colour", number + 2);
    colour(text, "Ground Colour", number + 3);
    text.close(QStringLiteral("background"));
}

void settings(Text& text, long number)
{
    text.open(QStringLiteral("snapShotSettings"));
    text.number("Ambient Lights Intensity Scale", 1.0);
    text.number("Twist", fraction(number));
    text.triple("Orientation Up", "vector", 0, 0, 1);
    text.triple("Orientation North", "vector", 0, 1, 0);
    text.triple("Orientation Front Face", "vector", 0, -1, 0);
    text.string("Image File Name", QStringLiteral("icon_Snapshot%1.jpg").arg(number));
    text.string("Session Folder", QStringLiteral("C:\\Sessions\\House"));
    text.string("Reflected Env Path", QStringLiteral("C:\\Environments\\suburb.hdr"));
    text.number("Reflected Env Intensity", 0.8);
    text.flag("Reflect BackPlate", false);
    text.flag("Selected", number == 1);
    text.close(QStringLiteral("snapShotSettings"));
}

void scenery(Text& text)
{
    text.open(QStringLiteral("scenery"));
    text.flag("Drop Shadow", true);
    text.flag("Drop Sunlight", true);
    text.flag("Drop Reflection", false);
    text.integer("Drop Shadow Quality", 10);
    text.number("Drop Shadow Contrast", 0.8);
    text.number("Drop Sunlight Brightness", 0.5);
    text.number("Drop Reflection Brightness", 0.5);
    text.number("Drop Reflection Blur", 0.0);
    text.number("Base Size", 3.0);
    text.flag("Drop Shadow Catch Spots", true);
    text.close(QStringLiteral("scenery"));
}

void camera(Text& text, long number)
{
    text.open(QStringLiteral("camera"), QStringLiteral("name=\"Camera %1\"").arg(number));
    text.triple("From", "point", 11.5 + fraction(number), -16, 1.65);
    text.triple("To", "point", 0, 0, 3.2);
    text.triple("Up", "vector", 0, 0, 1);
    text.flag("Orthographic", false);
    text.number("Field Of View", 65.4705);
    text.number("Near", 0.1);
    text.number("Far", 500.0);
    text.flag("View Fit", false);
    text.close(QStringLiteral("camera"));
}

void lights(Text& text, long number)
{
    text.open(QStringLiteral("naturalLightStudio"));
    text.flag("Enabled", true);
    text.number("Sun Azimuth", 225.2 + fraction(number));
    text.number("Sun Altitude", 60.3);
    text.close(QStringLiteral("naturalLightStudio"));
    text.open(QStringLiteral("artificialLightStudio"));
    text.flag("Enabled", false);
    text.number("Intensity Scale", 1.0);
    text.close(QStringLiteral("artificialLightStudio"));
}

void renderTarget(Text& text, long number, const char* name)
{
    text.open(QStringLiteral("renderTarget"),
              QStringLiteral("name=\"%1\" subcat=\"Image\"").arg(QLatin1String(name)));
    text.integer("Lighting Quality", 1);
    text.integer("Material Quality", 0);
    text.string("Render Quality", QStringLiteral("Progressive Preview"));
    text.number("Model Hint", 14.5, true);
    text.integer("Width", 960);
    text.integer("Height", 640);
    text.flag("Use Aspect Ratio", false);
    text.number("Aspect Ratio", 1.5);
    text.flag("Landscape", true);
    text.string("Filename", QStringLiteral("C:\\Renders\\House\\view_%1.jpg").arg(number));
    text.string("Short Filename", QStringLiteral("view_%1.jpg").arg(number));
    text.string("Output Format", QStringLiteral("JPEG"));
    text.number("Gamma", 2.2);
    text.close(QStringLiteral("renderTarget"));
}

void snapShot(Text& text, long number)
{
    text.open(QStringLiteral("snapshot"),
              QStringLiteral("ImageBorder=\"0\" desc=\"Seen from the garden &amp; the terrace\" "
                             "name=\"Snapshot%1\" thumbRegenerated=\"1\"")
                  .arg(number));
    settings(text, number);
    scenery(text);
    camera(text, number);
    lights(text, number);
    text.empty(
        QStringLiteral("scheme"),
        QStringLiteral("name=\"Summer noon\" refname=\"scheme.summer_noon\" subcat=\"Exterior\""));
    background(text, number, QString());
    text.open(QStringLiteral("foreground"), QStringLiteral("name=\"Mist\" subcat=\"Depth Cue\""));
    colour(text, "Background Colour", number);
    text.number("Near", 10.0, true);
    text.number("Far", 100.0, true);
    text.close(QStringLiteral("foreground"));
    palette(text, [](long made) { return made < 2; });
    text.open(QStringLiteral("renderTargets"));
    renderTarget(text, number, "Preview");
    renderTarget(text, number, "Print");
    text.close(QStringLiteral("renderTargets"));
    text.close(QStringLiteral("snapshot"));
}

/// A snapshot document whose collection \p fill fills; the number of parts is what it returns.
template <typename Fill>
Document snapShotDocumentOf(Fill fill)
{
    Text text;
    text.open(QStringLiteral("snapRoot"),
              QStringLiteral("name=\"SnapRoot\" type=\"snapStudio\" unitsScale=\"2.5\" "
                             "zorvane_version=\"3.1\""));
    text.open(QStringLiteral("snapshots"), QStringLiteral("name=\"Model SnapShots\""));
    const long parts = fill(text);
    text.close(QStringLiteral("snapshots"));
    text.close(QStringLiteral("snapRoot"));
    return text.take(parts);
}

/// An archive with one section; \p fill writes the preset with the given number, as long as
/// \p goOn says so.
template <typename GoOn, typename Fill>
Document archiveOf(const QString& section, GoOn goOn, Fill fill)
{
    Text text;
    const QString dir = QStringLiteral("dir");
    text.open(QStringLiteral("presets"), QStringLiteral("name=\"Presets\" type=\"Zorvane\""));
    text.open(section);
    long number = 0;
    while (goOn(text, number)) {
        if (number % s_presetsPerFolder == 0) {
            if (number > 0)
                text.close(dir);
            text.open(dir,
                      QStringLiteral("name=\"Folder %1\"").arg(number / s_presetsPerFolder + 1));
        }
        fill(text, ++number);
    }
    text.close(dir);
    text.close(section);
    text.close(QStringLiteral("presets"));
    return text.take(number);
}

} // namespace

Document snapShotDocument(long elements)
{
    return snapShotDocumentOf([elements](Text& text) {
        long number = 0;
        do
            snapShot(text, ++number);
        while (text.elements() < elements);
        return number;
    });
}

Document paletteDocument(long elements)
{
    return snapShotDocumentOf([elements](Text& text) {
        long number = 0;
        text.open(QStringLiteral("snapshot"), QStringLiteral("name=\"Snapshot1\""));
        palette(text, [&](long made) {
            number = made;
            return text.elements() < elements;
        });
        text.close(QStringLiteral("snapshot"));
        return number;
    });
}

Document camerasDocument(long elements)
{
    return snapShotDocumentOf([elements](Text& text) {
        long number = 0;
        while (number == 0 || text.elements() < elements) {
            text.open(QStringLiteral("snapshot"),
                      QStringLiteral("name=\"Snapshot%1\"").arg(++number));
            text.open(QStringLiteral("camera"), QStringLiteral("name=\"Camera\""));
            text.number("Field Of View", 20 + 40 * fraction(number));
            text.number("Near", 0.1, true);
            text.number("Far", 1000 * fraction(number), true);
            text.close(QStringLiteral("camera"));
            text.close(QStringLiteral("snapshot"));
        }
        return number;
    });
}

Document namesDocument(long elements)
{
    return snapShotDocumentOf([elements](Text& text) {
        for (long number = 1; number <= elements; ++number)
            text.empty(QStringLiteral("snapshot"),
                       QStringLiteral("name=\"Snapshot%1\"").arg(number));
        return elements;
    });
}

Document foreignNamesDocument(long elements)
{
    return snapShotDocumentOf([elements](Text& text) {
        for (long number = 0; number < elements; ++number) {
            QString name;
            for (long rest = number; name.size() < 4; rest /= 100)
                name += QChar(static_cast<ushort>(0x4E00 + rest % 100));
            text.empty(name);
        }
        return elements;
    });
}

Document archive(long presets)
{
    return archiveOf(
        QStringLiteral("backgrounds"), [presets](const Text&, long made) { return made < presets; },
        [](Text& text, long number) {
            background(text, number,
                       QStringLiteral(" cat=\"Backgrounds\" desc=\"A sky\" imgname=\"sky_%1\" "
                                      "path=\"Exterior\"")
                           .arg(number));
        });
}

Document materialArchive(long elements)
{
    return archiveOf(
        QStringLiteral("materials"),
        [elements](const Text& text, long made) { return made == 0 || text.elements() < elements; },
        [](Text& text, long number) {
            material(text, number,
                     QStringLiteral("cat=\"Materials\" desc=\"A surface\" imgname=\"material_%1\" "
                                    "path=\"Walls\"")
                         .arg(number));
        });
}

} // namespace rvopen::bench
