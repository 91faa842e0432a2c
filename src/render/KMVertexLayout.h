#pragma once

#include "math/Vector2.h"
#include "math/Vector3.h"
#include "math/Vector4.h"

#include <QColor>

// What one element of a vertex buffer holds. A buffer is an array of one of these; the programs read nothing else.

/// A corner of a face. The status is the strength of the overlay colour, 0 for the plain material.
struct KMFaceElement
{
    kvm::Vector3 vertex;
    kvm::Vector3 normal;
    kvm::Vector4 color;
    kvm::Vector2 texcoord;
    float status;
};

/// An end of a line, or a point. A status other than 0 brings it forward.
struct KMLineElement
{
    kvm::Vector3 vertex;
    kvm::Vector4 color;
    float status;
};

/// A corner of a quad with a texture.
struct KMQuadElement
{
    kvm::Vector3 vertex;
    kvm::Vector4 color;
    kvm::Vector2 texcoord;
};

static_assert(sizeof(KMFaceElement) == 52 && sizeof(KMLineElement) == 32 && sizeof(KMQuadElement) == 36,
              "no padding: the attributes lie at fixed offsets");

inline kvm::Vector4 toVector(const QColor &color)
{
    return {float(color.redF()), float(color.greenF()), float(color.blueF()), float(color.alphaF())};
}
