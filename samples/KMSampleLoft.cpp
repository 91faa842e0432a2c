#include "KMSampleLoft.h"

#include <algorithm>
#include <cmath>

namespace {

float power(float value, float exponent)
{
    return std::copysign(std::pow(std::fabs(value), exponent), value);
}

template <class Value>
Value throughAll(const QVector<Value> &values, float t)
{
    const float place = std::clamp(t, 0.0f, 1.0f) * float(values.size() - 1);
    const int i = std::min(int(place), std::max(0, values.size() - 2));
    const float f = place - float(i);
    const auto at = [&values](int k) { return values.at(std::clamp(k, 0, values.size() - 1)); };
    const Value a = at(i - 1), b = at(i), c = at(i + 1), d = at(i + 2);
    return b + (c - a) * (0.5f * f) + (a * 2.0f - b * 5.0f + c * 4.0f - d) * (0.5f * f * f)
           + (b * 3.0f - a - c * 3.0f + d) * (0.5f * f * f * f);
}

void connectRange(KMSampleMesh &mesh, const KMSampleRing &a, const KMSampleRing &b, int count,
                  const KMSampleLoft::Look &look)
{
    for (int i = 0; i < count; ++i) {
        const int next = (i + 1) % a.size();
        const float left = look.u0 + (look.u1 - look.u0) * float(i) / float(count);
        const float right = look.u0 + (look.u1 - look.u0) * float(i + 1) / float(count);
        mesh.addFace({a.at(i), a.at(next), b.at(next), b.at(i)}, look.shader,
                     {{{left, look.v0}, {right, look.v0}, {right, look.v1}, {left, look.v1}}});
    }
}

} // namespace

QVector<kvm::Vector3> KMSampleLoft::ellipse(const kvm::Vector3 &centre, const kvm::Vector3 &a, const kvm::Vector3 &b,
                                            int count, float phase, float squareness)
{
    QVector<kvm::Vector3> points;
    for (int i = 0; i < count; ++i) {
        const float angle = 2.0f * float(M_PI) * (float(i) + phase) / float(count);
        points << centre + a * power(std::cos(angle), squareness) + b * power(std::sin(angle), squareness);
    }
    return points;
}

QVector<kvm::Vector3> KMSampleLoft::halfRing(const Level &level, int count)
{
    const float middle = 0.5f * (level.zFront + level.zBack);
    const float depth = 0.5f * (level.zBack - level.zFront);
    QVector<kvm::Vector3> points;
    for (int i = 0; i < count; ++i) {
        const float angle = float(M_PI) * float(i) / float(count - 1);
        const float c = std::cos(angle);
        const float end = c > 0.0f ? level.yFront : level.yBack;
        const bool isSeam = i == 0 || i == count - 1;
        points << kvm::Vector3(isSeam ? 0.0f : level.halfWidth * power(std::sin(angle), level.squareness),
                               level.ySide + c * c * (end - level.ySide), middle - depth * power(c, level.squareness));
    }
    return points;
}

void KMSampleLoft::connectClosed(KMSampleMesh &mesh, const KMSampleRing &a, const KMSampleRing &b, const Look &look)
{
    connectRange(mesh, a, b, a.size(), look);
}

void KMSampleLoft::connectOpen(KMSampleMesh &mesh, const KMSampleRing &a, const KMSampleRing &b, const Look &look)
{
    connectRange(mesh, a, b, a.size() - 1, look);
}

void KMSampleLoft::cap(KMSampleMesh &mesh, const KMSampleRing &ring, const Look &look)
{
    const int last = ring.size() - 1;
    const kvm::Vector2 uv{look.u0, look.v0};
    for (int i = 0; i + 1 < last - i; ++i) {
        const bool isTriangle = i + 1 == last - i - 1;
        const std::array<int, 4> corners{ring.at(i), ring.at(i + 1),
                                         isTriangle ? ring.at(last - i) : ring.at(last - i - 1),
                                         isTriangle ? -1 : ring.at(last - i)};
        mesh.addFace(corners, look.shader, {{uv, uv, uv, uv}});
    }
}

float KMSampleLoft::curve(const QVector<float> &values, float t)
{
    return throughAll(values, t);
}

kvm::Vector3 KMSampleLoft::curve(const QVector<kvm::Vector3> &points, float t)
{
    return throughAll(points, t);
}

QVector<KMSampleRing> KMSampleLoft::addStrand(KMSampleMesh &mesh, const Strand &strand, const Look &look)
{
    constexpr float step = 0.02f;
    QVector<KMSampleRing> rings;
    for (int i = 0; i <= strand.sections; ++i) {
        const float t = float(i) / float(strand.sections);
        const kvm::Vector3 place = curve(strand.path, t);
        const kvm::Vector3 way = curve(strand.path, t + step) - curve(strand.path, t - step);
        const kvm::Vector3 side = cross(way, place - strand.centre).normalized();
        const kvm::Vector3 out = cross(side, way).normalized();
        rings << mesh.addVertices(
            ellipse(place, side * curve(strand.widths, t), out * curve(strand.thicknesses, t), strand.sides));
    }
    cap(mesh, rings.first(), {look.shader, look.v0, look.v0, look.u0, look.u0});
    for (int i = 0; i < strand.sections; ++i) {
        const float height = look.v1 - look.v0;
        connectClosed(mesh, rings.at(i), rings.at(i + 1),
                      {look.shader, look.v0 + height * float(i) / float(strand.sections),
                       look.v0 + height * float(i + 1) / float(strand.sections), look.u0, look.u1});
    }
    cap(mesh, rings.last(), {look.shader, look.v1, look.v1, look.u0, look.u0});
    return rings;
}
