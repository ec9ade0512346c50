// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "../starter/Tables.h"
#include "StarterSupport.h"

#include <rvopen/Bump.h>
#include <rvopen/Colour.h>
#include <rvopen/Material.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/ShaderColour.h>
#include <rvopen/ShaderDiffuse.h>
#include <rvopen/ShaderMap.h>
#include <rvopen/Transparency.h>

#include <QImage>
#include <QMap>
#include <QSet>

#include <cmath>
#include <cstdlib>

/// The image files of the starter installation: that they repeat, how large what they show is, and
/// that what belongs together fits.
namespace rvopen::test {
namespace {

using starter::Row;

const double s_pi = std::acos(-1.0);

const QVector<Row>& textureRows()
{
    static const QVector<Row> rows =
        starter::readTable(QStringLiteral(RVOPEN_DATA_DIR "/../starter/tables/textures.csv"));
    return rows;
}

// By value: a compiler warns of references that come from where a temporary went in.
const Row& textureRow(QString name)
{
    name.replace('\\', '/');
    const auto row = std::find_if(textureRows().cbegin(), textureRows().cend(),
                                  [&name](const Row& each) { return each.text("file") == name; });
    if (row == textureRows().cend())
        throw std::runtime_error("there is no texture " + name.toStdString());
    return *row;
}

QImage imageOf(const QString& file)
{
    return QImage(PathToOpen(s_archives + '/' + file)).convertToFormat(QImage::Format_ARGB32);
}

/// Columns of an image, the one after the last of which is the first.
class Columns {
public:
    explicit Columns(const QImage& image)
    {
        for (int x = 0; x < image.width(); ++x) {
            std::vector<double> column;
            for (int y = 0; y < image.height(); ++y) {
                const QRgb pixel = image.pixel(x, y);
                column.push_back((qRed(pixel) + qGreen(pixel) + qBlue(pixel)) / 3.0 +
                                 qAlpha(pixel));
            }
            m_columns.push_back(column);
        }
    }

    /// How much neighbours differ where the last column meets the first, to what others differ at
    /// most: in their values, and in how these go up and down. Normals lean on both sides of a
    /// break, so that the pairs next to it count as it does.
    double seam() const
    {
        const std::size_t last = m_columns.size() - 1;
        double difference = 0;
        double unlikeness = 0;
        double greatestDifference = 1;
        // Neighbours that are nearly the same say nothing.
        double greatestUnlikeness = 0.02;
        for (std::size_t x = 0; x <= last; ++x) {
            const auto& a = m_columns[x];
            const auto& b = m_columns[x < last ? x + 1 : 0];
            const bool isAtSeam = x == 0 || x + 1 >= last;
            double& apart = isAtSeam ? difference : greatestDifference;
            apart = std::max(apart, differenceOf(a, b));
            double& strange = isAtSeam ? unlikeness : greatestUnlikeness;
            strange = std::max(strange, unlikenessOf(a, b));
        }
        return std::max(difference / greatestDifference, unlikeness / greatestUnlikeness);
    }

    /// How much of the change from column to column, all around, comes so many times.
    double repeated(int times) const
    {
        const std::size_t n = m_columns.size();
        std::vector<double> changes;
        for (std::size_t x = 0; x < n; ++x)
            changes.push_back(differenceOf(m_columns[x], m_columns[(x + 1) % n]));
        double all = 0;
        double own = 0;
        for (std::size_t k = 1; k <= n / 2; ++k) {
            double real = 0;
            double imaginary = 0;
            for (std::size_t x = 0; x < n; ++x) {
                const double angle = 2 * s_pi * double(k * x) / double(n);
                real += changes[x] * std::cos(angle);
                imaginary += changes[x] * std::sin(angle);
            }
            const double energy = real * real + imaginary * imaginary;
            all += energy;
            own += k % std::size_t(times) == 0 ? energy : 0;
        }
        return all > 0 ? own / all : 1;
    }

private:
    static double differenceOf(const std::vector<double>& a, const std::vector<double>& b)
    {
        double sum = 0;
        for (std::size_t i = 0; i < a.size(); ++i)
            sum += std::fabs(a[i] - b[i]);
        return sum / double(a.size());
    }

    /// 1 less the correlation.
    static double unlikenessOf(const std::vector<double>& a, const std::vector<double>& b)
    {
        double meanA = 0;
        double meanB = 0;
        for (std::size_t i = 0; i < a.size(); ++i) {
            meanA += a[i] / double(a.size());
            meanB += b[i] / double(a.size());
        }
        double both = 0;
        double squareA = 0;
        double squareB = 0;
        for (std::size_t i = 0; i < a.size(); ++i) {
            both += (a[i] - meanA) * (b[i] - meanB);
            squareA += (a[i] - meanA) * (a[i] - meanA);
            squareB += (b[i] - meanB) * (b[i] - meanB);
        }
        const double even = 1e-9;
        if (squareA < even || squareB < even)
            return squareA < even && squareB < even ? 0 : 1;
        return 1 - both / std::sqrt(squareA * squareB);
    }

    std::vector<std::vector<double>> m_columns;
};

/// What is laid out on a grid, whose fields all look much the same.
const QSet<QString> s_regular{"boards", "bricks",   "tiles",     "lapped",  "weave",      "twill",
                              "tartan", "knurl",    "waves",     "holes",   "mesh",       "grid",
                              "seams",  "chequers", "shuttered", "stripes", "herringbone"};

bool repeatsSideways(const QImage& image, const Row& row, const char* count)
{
    const Columns columns(image);
    if (columns.seam() > 1.22)
        return false;
    const int times = std::max(row.integer(count), 1);
    return !s_regular.contains(row.text("pattern")) || columns.repeated(times) > 0.65;
}

bool isTile(const QImage& image, const Row& row)
{
    return repeatsSideways(image, row, "columns") &&
           repeatsSideways(image.transformed(QTransform().rotate(90)), row, "rows");
}

std::vector<std::string> tiles()
{
    std::vector<std::string> files;
    for (const Row& row : textureRows()) {
        if (row.text("mode") != QLatin1String("scene"))
            files.push_back(row.text("file").toStdString());
    }
    return files;
}

class TileTest : public ::testing::TestWithParam<std::string> {};

TEST_P(TileTest, RepeatsInBothDirections)
{
    const QString file = QString::fromStdString(GetParam());
    const Row& row = textureRow(file);
    const QImage image = imageOf(file);
    ASSERT_EQ(image.size(), QSize(row.integer("size"), row.integer("size")));
    EXPECT_TRUE(isTile(image, row));
}

/// What the other test asks is not so of anything: a tenth less, and each fails it.
TEST_P(TileTest, IsNoTileWithoutATenth)
{
    const QString file = QString::fromStdString(GetParam());
    const QImage image = imageOf(file);
    const int side = image.width() * 9 / 10;
    EXPECT_FALSE(isTile(image.copy(0, 0, side, side), textureRow(file)));
}

INSTANTIATE_TEST_SUITE_P(Textures, TileTest, ::testing::ValuesIn(tiles()));

TEST(Tile, EachImageFileHasARow)
{
    QStringList files;
    for (const std::string& file : filesBelow(s_archives, {"*.png"}))
        files << QString::fromStdString(file).mid(s_archives.size() + 1);
    for (const QString& file : files)
        EXPECT_NO_THROW(textureRow(file));
    EXPECT_EQ(files.size(), textureRows().size());
}

/// Fields of a grid, or points strewn over one, one to a field. Marble and noise have no pitch.
bool hasPitch(const Row& texture)
{
    const QString pattern = texture.text("pattern");
    return s_regular.contains(pattern) ||
           QSet<QString>{"cells", "dents", "speckles", "wood"}.contains(pattern);
}

struct Pitch {
    double across;
    double down;
};

/// From one field of the pattern to the next, in scene units; infinite where all is one field.
Pitch pitchOf(ShaderMap* map)
{
    const Row& texture = textureRow(map->GetTexture());
    float width = 0;
    float height = 0;
    EXPECT_EQ(map->GetWidth(&width), 0U);
    EXPECT_EQ(map->GetHeight(&height), 0U);
    return {double(width) / texture.integer("columns"), double(height) / texture.integer("rows")};
}

ShaderMap* colourMap(Material* material)
{
    Colour* const colour = material->GetColour(0);
    return colour ? colour->GetDiffuse()->GetColour()->GetMap(0) : nullptr;
}

ShaderMap* bumpMap(Material* material)
{
    Bump* const bump = material->GetBump(0);
    return bump ? bump->GetColour()->GetMap(0) : nullptr;
}

TEST_F(StarterTest, ReliefsHaveThePitchOfTheirColours)
{
    int count = 0;
    for (const Preset& preset : presets()) {
        Material* const material = RVOpenSchema::isNodeMaterial(preset.node);
        ShaderMap* const colour = material ? colourMap(material) : nullptr;
        ShaderMap* const relief = material ? bumpMap(material) : nullptr;
        if (!colour || !relief)
            continue;
        const Row& seen = textureRow(colour->GetTexture());
        const Row& felt = textureRow(relief->GetTexture());
        if (!hasPitch(seen) || !hasPitch(felt))
            continue;
        ++count;
        const Pitch a = pitchOf(colour);
        const Pitch b = pitchOf(relief);
        EXPECT_NEAR(a.across, b.across, 1e-3 * a.across) << preset.name();
        // Boards are as long as the image, whatever runs along them.
        if (felt.text("pattern") != QLatin1String("boards")) {
            EXPECT_NEAR(a.down, b.down, 1e-3 * a.down) << preset.name();
        }
        // The same stones: those of another seed lie elsewhere.
        if (felt.text("pattern") == QLatin1String("cells")) {
            EXPECT_EQ(felt.integer("seed"), seen.integer("seed")) << preset.name();
        }
    }
    EXPECT_GE(count, 14);
}

/// The values of a channel of a map at a place of the surface.
class Sampler {
public:
    Sampler(ShaderMap* map, int shift)
        : m_image(imageOf(map->GetTexture()))
        , m_shift(shift)
    {
        map->GetWidth(&m_width);
        map->GetHeight(&m_height);
    }

    double at(double x, double y) const
    {
        const QRgb pixel = m_image.pixel(place(x / double(m_width), m_image.width()),
                                         place(y / double(m_height), m_image.height()));
        return (pixel >> m_shift) & 255;
    }

private:
    static int place(double repeats, int pixels)
    {
        return std::min(int((repeats - std::floor(repeats)) * pixels), pixels - 1);
    }

    QImage m_image;
    int m_shift;
    float m_width = 1;
    float m_height = 1;
};

/// Of a channel of the colour with the height, at places all over a large piece.
double correlation(ShaderMap* colour, int shift, ShaderMap* relief)
{
    const Sampler seen(colour, shift);
    const Sampler felt(relief, 0);
    float width = 0;
    colour->GetWidth(&width);
    double sums[5] = {};
    const int n = 20000;
    for (int i = 0; i < n; ++i) {
        // Points that fill a square evenly, thirteen images wide.
        const double x = 13 * double(width) * std::fmod(i * 0.7548776662466927, 1);
        const double y = 13 * double(width) * std::fmod(i * 0.5698402909980532, 1);
        const double p = seen.at(x, y);
        const double q = felt.at(x, y);
        sums[0] += p / n;
        sums[1] += q / n;
        sums[2] += p * p / n;
        sums[3] += q * q / n;
        sums[4] += p * q / n;
    }
    return (sums[4] - sums[0] * sums[1]) /
           std::sqrt((sums[2] - sums[0] * sums[0]) * (sums[3] - sums[1] * sums[1]));
}

TEST_F(StarterTest, ReliefsLieWhereTheirColoursDo)
{
    const QSet<QString> random{"noise"};
    int count = 0;
    for (const Preset& preset : presets()) {
        Material* const material = RVOpenSchema::isNodeMaterial(preset.node);
        ShaderMap* const colour = material ? colourMap(material) : nullptr;
        ShaderMap* const relief = material ? bumpMap(material) : nullptr;
        if (!colour || !relief || random.contains(textureRow(relief->GetTexture()).text("pattern")))
            continue;
        ++count;
        // Mortar may be lighter than its bricks, or as light and of another colour.
        double most = 0;
        for (const int shift : {0, 8, 16})
            most = std::max(most, std::fabs(correlation(colour, shift, relief)));
        EXPECT_GT(most, 0.15) << preset.name();
    }
    EXPECT_GE(count, 14);
}

TEST_F(StarterTest, ThreadsAreAsThickAsThreads)
{
    int count = 0;
    for (const Preset& preset : presets()) {
        Material* const material = RVOpenSchema::isNodeMaterial(preset.node);
        ShaderMap* const map = material ? colourMap(material) : nullptr;
        if (!map || !map->GetTexture().startsWith(QLatin1String("textures\\fabrics\\")))
            continue;
        const Row& texture = textureRow(map->GetTexture());
        const QString pattern = texture.text("pattern");
        double pitch = pitchOf(map).across;
        if (pattern == QLatin1String("tartan")) {
            float width = 0;
            EXPECT_EQ(map->GetWidth(&width), 0U);
            pitch = double(width) / double(texture.number("detail"));
        } else if (pattern != QLatin1String("weave") && pattern != QLatin1String("twill")) {
            continue;
        }
        ++count;
        EXPECT_GE(pitch, 0.0003) << preset.name();
        EXPECT_LE(pitch, 0.0021) << preset.name();
    }
    EXPECT_EQ(count, 7);
}

/// From one to the next, in scene units, as trades and descriptions have it.
struct Size {
    const char* preset;
    double across;
    double down;
};

class SizeTest : public StarterTest, public ::testing::WithParamInterface<Size> {};

ShaderMap* mapOf(RVOpenNode* preset)
{
    if (Material* const material = RVOpenSchema::isNodeMaterial(preset))
        return colourMap(material);
    if (Bump* const bump = RVOpenSchema::isNodeBump(preset))
        return bump->GetColour()->GetMap(0);
    if (Transparency* const transparency = RVOpenSchema::isNodeTransparency(preset))
        return transparency->GetColour()->GetMap(0);
    return RVOpenSchema::isNodeColour(preset)->GetDiffuse()->GetColour()->GetMap(0);
}

TEST_P(SizeTest, IsThatOfTheThing)
{
    ShaderMap* const map = mapOf(find(GetParam().preset));
    Pitch pitch = pitchOf(map);
    // The wires of a mesh cross the image at a slant.
    if (textureRow(map->GetTexture()).text("pattern") == QLatin1String("mesh"))
        pitch = {pitch.across / std::sqrt(2.0), pitch.down / std::sqrt(2.0)};
    EXPECT_NEAR(pitch.across, GetParam().across, 0.03 * GetParam().across);
    if (GetParam().down > 0) {
        EXPECT_NEAR(pitch.down, GetParam().down, 0.03 * GetParam().down);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Things, SizeTest,
    ::testing::Values(Size{"material.gravel", 0.012, 0.012}, Size{"bump.knurling", 0.001, 0.001},
                      Size{"material.welsh_slate", 0.25, 0.21},
                      Size{"bump.corrugated_sheet", 0.076, 0}, Size{"bump.tile_grid", 0.15, 0.15},
                      Size{"material.terracotta_tiles", 0.15, 0.15},
                      Size{"bump.standing_seams", 0.43, 0}, Size{"bump.fine_ribs", 0.002, 0},
                      Size{"transparency.chain_link", 0.05, 0.05}, Size{"bump.canvas", 0.0005, 0},
                      Size{"bump.leather_grain", 0.0014, 0.0014},
                      Size{"material.walnut_boards", 0.15, 0}, Size{"colour.chequers", 0.1, 0.1},
                      Size{"colour.graph_paper", 0.01, 0.01}, Size{"material.red_brick", 0.25, 0},
                      Size{"material.clay_tiles", 0.18, 0.145},
                      Size{"material.carbon_fibre", 0.002, 0.002}),
    [](const ::testing::TestParamInfo<Size>& size) {
        return QString(size.param.preset).replace('.', '_').toStdString();
    });

/// What a mask covers, and whether it covers the corner of its image.
struct Mask {
    const char* preset;
    double covered;
    bool coversCorner;
};

class MaskTest : public StarterTest, public ::testing::WithParamInterface<Mask> {};

TEST_P(MaskTest, CoversWhatItsGeometrySays)
{
    Transparency* const transparency = RVOpenSchema::isNodeTransparency(find(GetParam().preset));
    ShaderMap* const map = transparency->GetColour()->GetMap(0);
    int inverted = 0;
    int usesAlpha = 0;
    EXPECT_EQ(transparency->GetInvertMask(&inverted), 0U);
    EXPECT_EQ(map->GetUseAlpha(&usesAlpha), 0U);
    const QImage image = imageOf(map->GetTexture());
    const auto coverAt = [&](int x, int y) {
        const QRgb pixel = image.pixel(x, y);
        const double cover = (usesAlpha ? qAlpha(pixel) : qGray(pixel)) / 255.0;
        return inverted ? 1 - cover : cover;
    };
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            sum += coverAt(x, y);
    }
    EXPECT_NEAR(sum / (image.width() * image.height()), GetParam().covered, 0.04);
    EXPECT_EQ(coverAt(0, 0) > 0.5, GetParam().coversCorner);
}

// Round holes of the radius r leave 1 - pi r^2 of a field, wires as wide as w cover 1 - (1 - w)^2;
// the net's threads are two of eight pixels wide.
INSTANTIATE_TEST_SUITE_P(Masks, MaskTest,
                         ::testing::Values(Mask{"transparency.perforated_sheet", 0.68, true},
                                           Mask{"transparency.speaker_grille", 0.59, true},
                                           Mask{"transparency.chain_link", 0.26, true},
                                           Mask{"transparency.lattice", 0.51, true},
                                           Mask{"transparency.net", 0.44, true},
                                           Mask{"transparency.wire_mesh", 0.58, true},
                                           Mask{"transparency.louvre", 0.5, false}),
                         [](const ::testing::TestParamInfo<Mask>& mask) {
                             return QString(mask.param.preset).section('.', 1).toStdString();
                         });

} // namespace
} // namespace rvopen::test
