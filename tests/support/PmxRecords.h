#pragma once

#include "math/Vector2.h"
#include "math/Vector3.h"

#include <QByteArray>
#include <QPair>
#include <QStringList>
#include <QVector>

/// A PMX file read number by number as its layout says, with nothing of the program in between. Indices of 255 or
/// 65535 in the narrow widths are -1, but for vertices.
struct PmxRecords
{
    struct Vertex
    {
        kvm::Vector3 position, normal;
        kvm::Vector2 uv;
        int deform = -1;
        QVector<int> bones;
        QVector<float> weights; ///< as many as the file tells
        QVector<float> sdef;    ///< nine numbers of a spherical blend
        float edge = 0.0f;
    };
    struct Material
    {
        QString name, universal;
        QVector<float> diffuse, specular, ambient, edgeColor;
        float power, edgeSize;
        int flags, texture, sphere, sphereMode, sharedToon, toon, corners;
    };
    struct Link
    {
        int bone;
        QVector<float> limits; ///< empty or six
    };
    struct Bone
    {
        QString name, universal;
        kvm::Vector3 head, tail, axis, localX, localZ;
        int parent, layer, flags;
        int inheritTarget = -2; ///< -2 when there is no such record, as everywhere here
        float inheritRatio = 0.0f;
        int ikTarget = -2, loop = 0;
        float angle = 0.0f;
        QVector<Link> links;
    };
    struct Morph
    {
        QString name, universal;
        int panel, type;
        QVector<QPair<int, kvm::Vector3>> offsets;
    };
    struct Frame
    {
        QString name, universal;
        int special;
        QVector<QPair<int, int>> items; ///< kind and index
    };
    struct Body
    {
        QString name, universal;
        int bone, group, mask, shape, mode;
        kvm::Vector3 size, position, rotation;
        QVector<float> numbers; ///< mass, two dampings, restitution, friction
    };
    struct Joint
    {
        QString name, universal;
        int type, a, b;
        kvm::Vector3 position, rotation;
        QVector<float> numbers; ///< two linear limits, two angular ones, two springs: three each
    };

    explicit PmxRecords(const QByteArray &bytes);

    QString fault; ///< empty when the bytes were read to their end and no further
    float version = 0.0f;
    QVector<int> globals;
    QStringList texts; ///< name, universal, comment, universal
    QVector<Vertex> vertices;
    QVector<int> corners;
    QStringList textures;
    QVector<Material> materials;
    QVector<Bone> bones;
    QVector<Morph> morphs;
    QVector<Frame> frames;
    QVector<Body> bodies;
    QVector<Joint> joints;
};
