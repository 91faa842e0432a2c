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

/// Where a program finds the attributes of an element. The location of an attribute is its place in the list.
struct KMVertexLayout
{
    struct Attribute
    {
        int offset; ///< bytes
        int floats; ///< 0 from the last one on
    };
    int stride;
    Attribute attributes[5];
};

constexpr KMVertexLayout faceLayout = {52, {{0, 3}, {12, 3}, {24, 4}, {40, 2}, {48, 1}}};
constexpr KMVertexLayout hullLayout = {52, {{0, 3}, {12, 3}}};
constexpr KMVertexLayout litLayout = {52, {{0, 3}, {12, 3}, {24, 4}}};
constexpr KMVertexLayout lineLayout = {32, {{0, 3}, {12, 4}, {28, 1}}};
constexpr KMVertexLayout placeLayout = {32, {{0, 3}}}; // of lines in one colour
constexpr KMVertexLayout planeLayout = {32, {{0, 3}, {12, 4}}};
constexpr KMVertexLayout quadLayout = {36, {{0, 3}, {12, 4}, {28, 2}}};
