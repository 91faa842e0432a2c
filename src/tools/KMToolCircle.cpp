#include "tools/KMToolCircle.h"

#include "core/KMDpi.h"
#include "core/KMSettings.h"

#include <QtMath>

#include <array>
#include <cmath>

namespace {

constexpr int points = 32;
constexpr int defaultRadius = 25;

const std::array<kvm::Vector3, points> &unitCircle()
{
    static const std::array<kvm::Vector3, points> table = [] {
        std::array<kvm::Vector3, points> circle;
        for (size_t i = 0; i < points; ++i) {
            const double angle = 2.0 * M_PI * double(i) / points;
            circle[i] = {float(std::cos(angle)), float(std::sin(angle)), 0.0f};
        }
        return circle;
    }();
    return table;
}

} // namespace

KMToolCircle::KMToolCircle(QObject *parent)
    : KMToolMesh(KMToolOverlay::Edges, parent)
    , m_radius(float(dpiScaled(defaultRadius)))
{
    setDisplayColor(DP_SEL_FRAME);
    moveTo({});
}

void KMToolCircle::moveTo(const QPointF &middle)
{
    const kvm::Vector3 at(float(middle.x()), float(middle.y()), 0.0f);
    QVector<kvm::Vector3> circle;
    for (const kvm::Vector3 &point : unitCircle())
        circle << at + point * m_radius;
    setClosedLine(circle);
}
