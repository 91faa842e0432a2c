#pragma once

#include "modifiers/KMParametricPrimitive.h"
#include "modifiers/KMPathMesh.h"

#include <QDateTime>
#include <QString>

struct KMPrimSVG
{
    QString path; ///< of the file; empty for none

    bool isInRange() const { return true; }
    qint64 faceCount() const { return 0; } // told by the file; its reader has limits
    bool operator==(const KMPrimSVG &other) const { return path == other.path; }
};

/// The shapes of an SVG drawing as a flat mesh that faces -Z, to the front view; a unit of the drawing is a unit of
/// the model. The origin of the drawing, its upper left corner, is that of the node.
class KMPrimSVGNode : public KMParametricPrimitive<KMPrimSVGNode, KMPrimSVG>
{
    Q_OBJECT
public:
    KMPrimSVGNode();

protected:
    void generate(const KMPrimSVG &parameters, KMPrimitiveBuilder &builder) override;

private:
    const KMPathMesh &areaOf(const QString &path);

    KMPathMesh m_area;
    QString m_areaPath; // what m_area was read from
    QDateTime m_areaTime;
};
