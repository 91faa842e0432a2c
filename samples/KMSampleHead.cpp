#include "KMSampleHead.h"

#include "KMSampleLoft.h"
#include "KMSampleShaders.h"
#include "KMSampleWeights.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int columns = 14;
constexpr int sideColumn = 8; // where the head is widest; the columns before it make the face
constexpr float widestZ = 0.6f;
constexpr float faceRoundness = 2.35f;
constexpr kvm::Vector2 uvLeft{-12.0f, 192.0f};
constexpr kvm::Vector2 uvRight{12.0f, 150.0f};
constexpr kvm::Vector2 eyeLeft{1.5f, 176.0f}; // of the white's picture
constexpr kvm::Vector2 eyeRight{7.5f, 170.0f};

/// The outline of the head at a height.
struct Outline
{
    float y, width, front, back;
};

constexpr Outline outlines[] = {
    {161.7f, 0.9f, -6.7f, 4.4f},   {162.5f, 1.8f, -7.5f, 4.7f},   {163.3f, 3.3f, -8.1f, 5.2f},
    {164.6f, 4.7f, -8.5f, 6.2f},   {166.0f, 6.15f, -8.75f, 7.2f}, {168.0f, 7.6f, -8.95f, 8.4f},
    {170.0f, 8.45f, -9.05f, 9.3f}, {173.0f, 9.1f, -9.2f, 10.2f},  {176.0f, 9.4f, -9.4f, 10.6f},
    {180.0f, 9.4f, -9.2f, 10.6f},  {183.5f, 8.7f, -8.2f, 9.8f},   {186.5f, 7.1f, -6.3f, 8.1f},
    {188.6f, 4.9f, -4.1f, 5.7f},   {189.8f, 2.4f, -1.7f, 3.1f},
};

/// A rounded hill or hollow of the face, in the front view; depths are outwards.
struct Bump
{
    float x, y, radiusX, radiusY, height;
};

constexpr Bump bumps[] = {
    {0.0f, 168.95f, 0.85f, 1.0f, 1.35f}, // tip of the nose
    {0.0f, 171.6f, 0.95f, 2.3f, 0.35f},  // its bridge
    {4.4f, 172.9f, 2.6f, 2.6f, -0.45f},  // eye
    {0.0f, 166.5f, 1.9f, 0.9f, 0.28f},   // lips
    {0.0f, 165.1f, 1.6f, 0.5f, -0.16f},  // below them
    {0.0f, 163.5f, 1.9f, 0.9f, 0.22f},   // chin
    {4.6f, 168.6f, 2.4f, 1.6f, 0.18f},   // cheek
};

/// A row of the grid: its heights in the middle of the face, at the side and behind.
struct Row
{
    float front, side, back;
};

enum RowName {
    BrowRow = 4,
    LidRow = 5,
    EyeRow = 6,
    LowerLidRow = 7,
    CheekRow = 8,
    LipRow = 10,
    LowerLipRow = 11,
    ChinRow = 12,
    HeadRows = 14
};

constexpr Row rows[HeadRows] = {
    {188.9f, 188.7f, 188.9f}, {186.2f, 186.2f, 186.6f}, {182.6f, 182.8f, 183.0f}, {179.4f, 179.8f, 179.5f},
    {177.3f, 177.6f, 176.6f}, {175.6f, 175.6f, 174.2f}, {173.2f, 173.4f, 172.0f}, {170.7f, 171.2f, 169.9f},
    {169.2f, 169.7f, 168.0f}, {168.0f, 168.6f, 166.6f}, {166.6f, 167.6f, 165.3f}, {166.4f, 166.8f, 164.3f},
    {164.5f, 165.9f, 163.3f}, {162.7f, 165.2f, 162.6f},
};

/// The neck below: the outline and how the bones share it.
struct NeckRow
{
    Row heights;
    float width, front, back;
    float head, neck; ///< shares; the rest is the upper body's
};

constexpr NeckRow neckRows[] = {
    {{163.3f, 165.0f, 162.0f}, 4.3f, -5.4f, 4.3f, 0.9f, 0.1f},
    {{163.0f, 163.6f, 161.0f}, 3.3f, -2.5f, 4.2f, 0.45f, 0.55f},
    {{158.0f, 159.0f, 158.5f}, 3.3f, -2.2f, 4.4f, 0.0f, 0.6f},
    {{151.0f, 152.0f, 153.0f}, 4.4f, -3.2f, 4.6f, 0.0f, 0.0f},
};

constexpr float faceShares[sideColumn + 1] = {0.0f, 0.1f, 0.215f, 0.36f, 0.52f, 0.68f, 0.80f, 0.92f, 1.0f};

constexpr int eyeFirst = 2; // columns of the eye opening
constexpr int eyeLast = 6;
constexpr int mouthLast = 2;

constexpr kvm::Vector2 upperLid[] = {{2.2f, 173.4f}, {3.0f, 174.9f}, {4.45f, 175.55f}, {5.9f, 175.2f}, {7.0f, 174.1f}};
constexpr kvm::Vector2 eyeCorners[] = {{2.15f, 172.0f}, {7.1f, 172.8f}};
constexpr kvm::Vector2 lowerLid[] = {{2.6f, 170.9f}, {3.4f, 170.4f}, {4.5f, 170.2f}, {5.75f, 170.4f}, {6.7f, 171.2f}};
constexpr kvm::Vector2 upperLip[] = {{0.0f, 166.42f}, {0.85f, 166.46f}, {1.55f, 166.76f}};
constexpr kvm::Vector2 lowerLip[] = {{0.0f, 166.5f}, {0.85f, 166.54f}, {1.55f, 166.74f}};
constexpr kvm::Vector2 upperPalate[] = {{0.0f, 167.7f}, {1.2f, 167.6f}, {1.9f, 167.0f}};
constexpr kvm::Vector2 lowerPalate[] = {{0.0f, 165.4f}, {1.2f, 165.5f}, {1.9f, 166.4f}};

/// Smoothly through the table of outlines.
Outline outlineAt(float y)
{
    constexpr int count = int(std::size(outlines));
    int i = 0;
    while (i < count - 2 && outlines[i + 1].y < y)
        ++i;
    const Outline &a = outlines[std::max(0, i - 1)], &b = outlines[i], &c = outlines[i + 1],
                  &d = outlines[std::min(count - 1, i + 2)];
    const float span = c.y - b.y;
    const float t = std::clamp((y - b.y) / span, 0.0f, 1.0f);
    const auto through = [&](float Outline::*member) {
        const float m0 = (c.*member - a.*member) / (c.y - a.y) * span;
        const float m1 = (d.*member - b.*member) / (d.y - b.y) * span;
        return (1.0f + 2.0f * t) * (1.0f - t) * (1.0f - t) * b.*member + t * (1.0f - t) * (1.0f - t) * m0
               + t * t * (3.0f - 2.0f * t) * c.*member + t * t * (t - 1.0f) * m1;
    };
    return {y, through(&Outline::width), through(&Outline::front), through(&Outline::back)};
}

float bumpsAt(float x, float y)
{
    float sum = 0.0f;
    for (const Bump &bump : bumps) {
        const float dx = (x - bump.x) / bump.radiusX, dy = (y - bump.y) / bump.radiusY;
        sum += bump.height * std::exp(-dx * dx - dy * dy);
    }
    return sum;
}

float heightAt(const Row &row, int column)
{
    if (column <= sideColumn) {
        const float s = faceShares[column];
        return row.front + (row.side - row.front) * s * s;
    }
    return row.side + (row.back - row.side) * float(column - sideColumn) / float(columns - 1 - sideColumn);
}

kvm::Vector3 onOutline(const Outline &outline, int column, float roundness)
{
    if (column == columns - 1)
        return {0.0f, outline.y, outline.back};
    if (column <= sideColumn) {
        const float s = faceShares[column];
        return {outline.width * s, outline.y,
                widestZ - (widestZ - outline.front) * std::pow(1.0f - std::pow(s, roundness), 1.0f / roundness)};
    }
    const float angle = 0.5f * float(M_PI) * float(column - sideColumn) / float(columns - 1 - sideColumn);
    return {outline.width * std::cos(angle), outline.y, widestZ + (outline.back - widestZ) * std::sin(angle)};
}

kvm::Vector3 inwards(const kvm::Vector3 &p, float depth)
{
    return {p.x, p.y, p.z + depth};
}

bool isEyeCell(int row, int column)
{
    return (row == LidRow || row == EyeRow) && column >= eyeFirst && column < eyeLast;
}

bool isMouthCell(int row, int column)
{
    return row == LipRow && column < mouthLast;
}

using Grid = QVector<KMSampleRing>;

/// The opening of the eye and of the mouth: these places of the grid stand elsewhere.
void openFace(KMSampleMesh &mesh, const Grid &grid)
{
    const auto put = [&](int row, int column, const kvm::Vector2 &place) {
        mesh.setPosition(grid.at(row).at(column), KMSampleHead::onFace(place.x, place.y));
    };
    for (int i = 0; i <= eyeLast - eyeFirst; ++i) {
        put(LidRow, eyeFirst + i, upperLid[i]);
        put(LowerLidRow, eyeFirst + i, lowerLid[i]);
    }
    put(EyeRow, eyeFirst, eyeCorners[0]);
    put(EyeRow, eyeLast, eyeCorners[1]);
    for (int i = 0; i <= mouthLast; ++i) {
        put(LipRow, i, upperLip[i]);
        put(LowerLipRow, i, lowerLip[i]);
    }
}

Grid makeGrid(KMSampleMesh &mesh)
{
    Grid grid;
    for (const Row &row : rows) {
        KMSampleRing ring;
        for (int column = 0; column < columns; ++column) {
            kvm::Vector3 p = onOutline(outlineAt(heightAt(row, column)), column, faceRoundness);
            if (column < sideColumn)
                p = KMSampleHead::onFace(p.x, p.y);
            ring << mesh.addVertex(p);
            mesh.setShares(ring.last(), {{"head", 1.0f}});
        }
        grid << ring;
    }
    for (const NeckRow &row : neckRows) {
        KMSampleRing ring;
        for (int column = 0; column < columns; ++column) {
            ring << mesh.addVertex(
                onOutline({heightAt(row.heights, column), row.width, row.front, row.back}, column, 2.0f));
            mesh.setShares(ring.last(),
                           KMSampleWeights::settled(
                               {{"head", row.head}, {"neck", row.neck}, {"upper body2", 1.0f - row.head - row.neck}}));
        }
        grid << ring;
    }
    return grid;
}

KMSampleRing slice(const KMSampleRing &row, int first, int last)
{
    return row.mid(first, last - first + 1);
}

void addHeadVertex(KMSampleMesh &mesh, KMSampleRing *ring, const kvm::Vector3 &p)
{
    ring->append(mesh.addVertex(p));
    mesh.setShares(ring->last(), {{"head", 1.0f}});
}

KMSampleRing reversed(KMSampleRing ring)
{
    std::reverse(ring.begin(), ring.end());
    return ring;
}

} // namespace

kvm::Vector3 KMSampleHead::onFace(float x, float y, float outwards)
{
    const Outline outline = outlineAt(y);
    const float s = std::min(std::fabs(x) / outline.width, 1.0f);
    const float z =
        widestZ - (widestZ - outline.front) * std::pow(1.0f - std::pow(s, faceRoundness), 1.0f / faceRoundness);
    return {x, y, z - bumpsAt(std::fabs(x), y) - outwards};
}

void KMSampleHead::build(KMSampleMesh &mesh)
{
    buildSkin(mesh);
    buildEye(mesh);
}

void KMSampleHead::buildSkin(KMSampleMesh &mesh)
{
    const Grid grid = makeGrid(mesh);
    openFace(mesh, grid);
    KMSampleLoft::cap(mesh, grid.first(), {KMSampleShaders::Face});
    for (int row = 0; row + 1 < grid.size(); ++row) {
        for (int column = 0; column + 1 < columns; ++column) {
            if (isEyeCell(row, column) || isMouthCell(row, column))
                continue;
            const int shader = row < HeadRows ? KMSampleShaders::Face : KMSampleShaders::Skin;
            mesh.addFace({grid[row][column], grid[row][column + 1], grid[row + 1][column + 1], grid[row + 1][column]},
                         shader);
        }
    }
    KMSampleLoft::cap(mesh, grid.last(), {KMSampleShaders::Skin});

    lids.upper = KMSampleRing{grid[EyeRow][eyeFirst]} + slice(grid[LidRow], eyeFirst, eyeLast)
                 + KMSampleRing{grid[EyeRow][eyeLast]};
    lids.lower = KMSampleRing{grid[EyeRow][eyeFirst]} + slice(grid[LowerLidRow], eyeFirst, eyeLast)
                 + KMSampleRing{grid[EyeRow][eyeLast]};
    lidSkin = slice(grid[BrowRow], eyeFirst, eyeLast);
    cheek = slice(grid[CheekRow], eyeFirst, eyeLast);
    lips.upper = slice(grid[LipRow], 0, mouthLast);
    lips.lower = slice(grid[LowerLipRow], 0, mouthLast);
    underLip = slice(grid[ChinRow], 0, mouthLast + 1) + slice(grid[ChinRow + 1], 0, mouthLast + 1);
    buildMouth(mesh);
    mesh.projectUvs(0, uvLeft, uvRight);
}

/// A bag behind the lips.
void KMSampleHead::buildMouth(KMSampleMesh &mesh)
{
    KMSampleRing deepUpper, deepLower;
    for (int i = 0; i <= mouthLast; ++i) {
        addHeadVertex(mesh, &innerLips.upper, inwards(mesh.position(lips.upper.at(i)), 0.55f));
        addHeadVertex(mesh, &deepUpper, inwards(onFace(upperPalate[i].x, upperPalate[i].y), 2.6f));
    }
    for (int i = 0; i <= mouthLast; ++i) {
        addHeadVertex(mesh, &innerLips.lower, inwards(mesh.position(lips.lower.at(i)), 0.55f));
        addHeadVertex(mesh, &deepLower, inwards(onFace(lowerPalate[i].x, lowerPalate[i].y), 2.6f));
    }
    mouthFloor = deepLower;
    const KMSampleRing outer = lips.upper + reversed(lips.lower);
    const KMSampleRing inner = innerLips.upper + reversed(innerLips.lower);
    const KMSampleRing deep = deepUpper + reversed(deepLower);
    KMSampleLoft::connectOpen(mesh, outer, inner, {KMSampleShaders::Mouth});
    KMSampleLoft::connectOpen(mesh, inner, deep, {KMSampleShaders::Mouth});
    KMSampleLoft::connectOpen(mesh, deepUpper, deepLower, {KMSampleShaders::Mouth});
}

/// The socket goes in behind the lids and ends in the white of the eye, before which the iris hangs.
void KMSampleHead::buildEye(KMSampleMesh &mesh)
{
    constexpr float rim = 0.75f;
    const int span = eyeLast - eyeFirst;
    const int first = mesh.faces().size();
    KMSampleRing upper, lower;
    for (const int i : std::as_const(lids.upper))
        addHeadVertex(mesh, &upper, inwards(mesh.position(i), rim));
    lower << upper.first();
    for (int i = 1; i < lids.lower.size() - 1; ++i)
        addHeadVertex(mesh, &lower, inwards(mesh.position(lids.lower.at(i)), rim));
    lower << upper.last();
    innerLids = {upper, lower};
    KMSampleLoft::connectOpen(mesh, lids.upper, upper, {KMSampleShaders::Lash});
    KMSampleLoft::connectOpen(mesh, lids.lower, lower, {KMSampleShaders::Face});
    KMSampleRing middle{upper.first()};
    for (int i = 1; i < span; ++i) {
        const kvm::Vector3 p = (mesh.position(upper.at(i + 1)) + mesh.position(lower.at(i + 1))) * 0.5f;
        addHeadVertex(mesh, &middle, onFace(p.x, p.y, -rim - 0.2f));
    }
    middle << upper.last();
    KMSampleLoft::connectOpen(mesh, slice(upper, 1, span + 1), middle, {KMSampleShaders::EyeWhite});
    KMSampleLoft::connectOpen(mesh, middle, slice(lower, 1, span + 1), {KMSampleShaders::EyeWhite});
    mesh.projectUvs(first, eyeLeft, eyeRight);
}
