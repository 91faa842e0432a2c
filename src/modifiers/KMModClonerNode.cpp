#include "modifiers/KMModClonerNode.h"

#include "core/KMNodeType.h"
#include "math/Box3.h"
#include "math/Finite.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMObjectTransform.h"
#include "modifiers/KMResultCopy.h"
#include "modifiers/KMResultLimit.h"

#include <algorithm>
#include <cmath>

using KMResultCopy::Winding;
using kvm::Matrix4;
using kvm::Quaternion;
using kvm::Vector3;

namespace {

using Parameters = KMModClonerNode::Parameters;

constexpr int minCorners = 2;
constexpr double fullTurn = 2.0 * M_PI;
constexpr double radians = M_PI / 180.0;

Vector3 bounded(const Vector3 &v, const Vector3 &otherwise)
{
    return {KMResultLimit::bounded(v.x, otherwise.x), KMResultLimit::bounded(v.y, otherwise.y),
            KMResultLimit::bounded(v.z, otherwise.z)};
}

Winding windingOf(const Parameters &p)
{
    const bool mirrors = ((p.scale.x < 0.0f) != (p.scale.y < 0.0f)) != (p.scale.z < 0.0f);
    return mirrors ? Winding::Turned : Winding::Kept;
}

Matrix4 turn(const Quaternion &rotation)
{
    return rotation.toMatrix();
}

/// Full turns are taken off first: a float wouldn't keep the rest of many of them.
float angleAt(int k, float degrees)
{
    return float(std::fmod(double(k) * double(degrees), 360.0) * radians);
}

Matrix4 turnAt(int k, const Vector3 &degrees)
{
    return turn(Quaternion::fromEuler(angleAt(k, degrees.x), angleAt(k, degrees.y), angleAt(k, degrees.z)));
}

/// What is done about the origin, done about a place.
Matrix4 about(const Vector3 &place, const Matrix4 &step)
{
    return Matrix4::fromTranslation(-place) * step * Matrix4::fromTranslation(place);
}

Matrix4 scaling(const Parameters &p)
{
    return Matrix4::fromScale(p.scale);
}

// The placement of copy k in the frame of the node; `center` is that of the input.

Matrix4 placeByStep(int k, const Parameters &p, const Vector3 &)
{
    return scaling(p) * turnAt(k, p.rotate) * Matrix4::fromTranslation(p.move * float(k));
}

Matrix4 placeOnLine(int k, const Parameters &p, const Vector3 &center)
{
    const float share = p.count > 1 ? float(k) / float(p.count - 1) : 0.0f;
    return about(center, scaling(p) * turnAt(k, p.rotate)) * Matrix4::fromTranslation(p.move * share);
}

Matrix4 placeOnCircle(int k, const Parameters &p, const Vector3 &)
{
    const bool hasAxis = p.rotate != Vector3();
    if (!hasAxis && p.move == Vector3())
        return scaling(p); // no radius and no axis: there is no circle
    const Vector3 axis = hasAxis ? p.rotate : Vector3(0.0f, 1.0f, 0.0f);
    const float angle = float(fullTurn * k / p.count);
    return scaling(p) * about(p.move, turn(Quaternion::fromAxisAngle(axis, angle)));
}

Matrix4 placeInGrid(int k, const Parameters &p, const Vector3 &center)
{
    const KMModClonerNode::GridCounts counts = KMModClonerNode::gridCounts(p.count, p.move);
    const Vector3 cell(float(k % counts.x), float(k / counts.x % counts.y), float(k / counts.x / counts.y));
    const Vector3 move(p.move.x * cell.x, p.move.y * cell.y, p.move.z * cell.z);
    return about(center, scaling(p) * turnAt(k, p.rotate)) * Matrix4::fromTranslation(move);
}

Matrix4 placeOnSpiral(int k, const Parameters &p, const Vector3 &)
{
    const double degrees = double(p.rotate.length()) * k;
    const float angle = float(std::fmod(degrees, 360.0) * radians);
    const float turns = float(degrees * radians / fullTurn);
    return scaling(p) * Matrix4::fromTranslation(p.move * turns) * turn(Quaternion::fromAxisAngle(p.rotate, angle));
}

constexpr Matrix4 (*placements[])(int, const Parameters &, const Vector3 &) = {
    &placeByStep, &placeOnLine, &placeOnCircle, &placeInGrid, &placeOnSpiral,
};
static_assert(sizeof placements / sizeof *placements == KMModClonerNode::ModeCount, "a row for each mode");

/// The smallest number whose power is not below a count.
int rootAbove(int count, int power)
{
    const auto isEnough = [=](qint64 n) { return (power == 1 ? n : power == 2 ? n * n : n * n * n) >= count; };
    qint64 n = std::max(1, int(std::pow(double(count), 1.0 / power)) - 1);
    while (!isEnough(n))
        ++n;
    return int(n);
}

} // namespace

bool KMModClonerNode::Parameters::operator==(const Parameters &other) const
{
    return count == other.count && move == other.move && scale == other.scale && rotate == other.rotate
           && mode == other.mode;
}

KMModClonerNode::KMModClonerNode()
    : KMModifierNode(KMNodeType::ModCloner, tr("Cloner"))
{
}

void KMModClonerNode::setParameters(const Parameters &parameters)
{
    const Parameters defaults;
    m_parameters = parameters;
    m_parameters.count = std::max(1, m_parameters.count);
    m_parameters.move = bounded(m_parameters.move, defaults.move);
    m_parameters.scale = bounded(m_parameters.scale, defaults.scale);
    m_parameters.rotate = bounded(m_parameters.rotate, defaults.rotate);
    m_parameters.mode = std::clamp(m_parameters.mode, int(Steps), ModeCount - 1);
    refresh();
}

QStringList KMModClonerNode::modeNames()
{
    return {tr("Steps"), tr("Line"), tr("Circle"), tr("Grid"), tr("Spiral")};
}

KMModClonerNode::GridCounts KMModClonerNode::gridCounts(int count, const Vector3 &move)
{
    int cells[3] = {1, 1, 1};
    int axes = int(move.x != 0.0f) + int(move.y != 0.0f) + int(move.z != 0.0f);
    int left = count;
    for (int k = 0; k < 3; ++k) {
        if (move[k] == 0.0f)
            continue;
        cells[k] = rootAbove(left, axes--);
        left = (left - 1) / cells[k] + 1;
    }
    return {cells[0], cells[1], cells[2]};
}

void KMModClonerNode::rebuildResult(KMMeshNode &input, KMMeshNode &result)
{
    const qint64 vertices = qint64(m_parameters.count) * input.vertexCount();
    const qint64 faces = qint64(m_parameters.count) * input.faceCount();
    if (vertices == 0 || !KMResultLimit::allows(name(), vertices, faces))
        return;
    result.reserve(int(vertices), int(faces));
    m_origins.reserve(int(faces));
    m_copies = m_parameters.count;
    KMResultCopy::appendVertices(input, result, m_vertexMap);
    m_copySize = result.vertexCount();
    for (int i = m_copySize, n = m_copySize * m_copies; i < n; ++i)
        result.addVertexRaw({});
    const Winding winding = windingOf(m_parameters);
    QVector<int> faceMap;
    for (int k = 0; k < m_copies; ++k) {
        KMResultCopy::appendFaces(input, minCorners, result, m_vertexMap, faceMap, m_copySize * k, winding);
        for (int f = 0; f < faceMap.size(); ++f) {
            if (faceMap.at(f) >= 0)
                m_origins.append(f);
        }
        if (k == 0)
            m_faceMap = faceMap;
    }
    result.rebuildEdges();
    onWeightChanged();
}

bool KMModClonerNode::updateResult(const KMMeshNode &input, KMMeshNode &result)
{
    const KMTransform place = KMObjectTransform::sound(transform());
    const Matrix4 toWorld = turn(place.rotation) * Matrix4::fromTranslation(place.translation);
    const Matrix4 toNode = Matrix4::fromTranslation(-place.translation) * turn(place.rotation.conjugate());
    const Vector3 center = toNode * centerOf(input);
    const int count = qMin(m_vertexMap.size(), input.vertexCount());
    for (int k = 0; k < m_copies; ++k) {
        const Matrix4 step = placements[m_parameters.mode](k, m_parameters, center);
        // What stays in its place does so to the bit.
        const Matrix4 placement = step == Matrix4() ? step : toNode * step * toWorld;
        for (int i = 0; i < count; ++i) {
            if (const KMVertex *from = input.vertex(i))
                result.setPosition(m_copySize * k + m_vertexMap.at(i), placement * from->pos);
        }
    }
    return false;
}

/// Of the box around it.
Vector3 KMModClonerNode::centerOf(const KMMeshNode &input)
{
    kvm::Box3 box;
    for (const KMVertex *vertex : input.vertices()) {
        if (vertex && isFinite(vertex->pos))
            box.add(vertex->pos);
    }
    return box.centre();
}

void KMModClonerNode::freeTables()
{
    m_copySize = 0;
    m_copies = 0;
    m_origins.clear();
}

void KMModClonerNode::copyFaceFlags()
{
    if (const KMMeshNode *from = input())
        KMResultCopy::copyFlagsByOrigin(*from, *modMesh(), m_origins);
}

void KMModClonerNode::onWeightChanged()
{
    const KMMeshNode *from = input();
    for (int k = 0; from && k < m_copies; ++k)
        KMResultCopy::copyWeights(*from, *modMesh(), m_vertexMap, m_copySize * k);
}

void KMModClonerNode::carryWeights(const KMMeshNode &input, KMResultWeights &weights)
{
    if (!weights.begin(input))
        return;
    for (int k = 0; k < m_copies; ++k)
        weights.carry(m_vertexMap, m_copySize * k);
}

bool KMModClonerNode::takeUVs(const KMMeshNode &input, KMMeshNode &result)
{
    KMResultCopy::copyUVsByOrigin(input, result, m_origins, windingOf(m_parameters));
    return true;
}

void KMModClonerNode::onShaderChanged()
{
    if (const KMMeshNode *from = input())
        KMResultCopy::copyShadersByOrigin(*from, *modMesh(), m_origins);
}
