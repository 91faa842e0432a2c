#pragma once

#include "math/Vector2.h"
#include "math/Vector3.h"
#include "math/Vector4.h"

#include <QString>
#include <QVector>

#include <array>
#include <vector>

/// What a PMX file holds, in its order and its own units. Indices are those of the file, -1 for none, and lie in their
/// lists; those of bones in the weights of a vertex only where the weight is above 0.
struct PmxFile
{
    struct Name
    {
        QString local;
        QString universal;

        QString brief() const ///< for messages: names of damaged files may be as long as these
        {
            constexpr int most = 60;
            return local.size() <= most ? local : local.left(most) + QChar(0x2026);
        }
    };

    struct Vertex
    {
        kvm::Vector3 position;
        kvm::Vector2 uv;
        int boneCount = 0; ///< of the entries that are told
        bool isSdef = false;
        std::array<int, 4> bones{};
        std::array<float, 4> weights{};
    };

    struct Material
    {
        Name name;
        kvm::Vector4 diffuse;
        kvm::Vector3 specular;
        float power = 0.0f;
        kvm::Vector3 ambient;
        int flags = 0; ///< of Pmx::MaterialFlag
        kvm::Vector4 edgeColor;
        float edgeSize = 0.0f;
        int texture = -1;
        int sphere = -1;
        int sphereMode = 0;
        int toon = -1; ///< none where the player's own one is named
        int triangleCount = 0;
    };

    struct Link
    {
        int bone = -1;
        bool isLimited = false;
        kvm::Vector3 lower; ///< radians
        kvm::Vector3 upper;
    };

    struct Inheritance
    {
        int bone = -1;
        float ratio = 0.0f;
    };

    struct Bone
    {
        Name name;
        kvm::Vector3 position;
        int parent = -1;
        int flags = 0;           ///< of Pmx::BoneFlag
        kvm::Vector3 tailOffset; ///< none where a bone is the tail
        Inheritance rotation;
        Inheritance translation;
        kvm::Vector3 axisX;
        kvm::Vector3 axisZ;
        int ikTarget = -1;
        int ikLoop = 0;
        float ikAngle = 0.0f; ///< radians
        std::vector<Link> links;
    };

    struct Offset
    {
        int vertex;
        kvm::Vector3 offset;
    };

    struct Morph
    {
        Name name;
        int panel = 0;
        int type = 0;
        std::vector<Offset> offsets; ///< of a vertex morph; what others hold is left out
    };

    struct FrameItem
    {
        int kind; ///< of Pmx::DisplayKind
        int index;
    };

    struct Frame
    {
        Name name;
        bool isSpecial = false;
        std::vector<FrameItem> items;
    };

    struct Body
    {
        Name name;
        int bone = -1;
        int group = 0;
        quint16 mask = 0; ///< groups that it doesn't go through
        int shape = 0;
        kvm::Vector3 size;
        kvm::Vector3 position;
        kvm::Vector3 rotation; ///< radians
        float mass = 0.0f;
        float linearDamping = 0.0f;
        float angularDamping = 0.0f;
        float restitution = 0.0f;
        float friction = 0.0f;
        int mode = 0;
    };

    struct Joint
    {
        Name name;
        int bodyA = -1;
        int bodyB = -1;
        kvm::Vector3 position;
        kvm::Vector3 rotation; ///< radians
        kvm::Vector3 linearMin, linearMax;
        kvm::Vector3 angularMin, angularMax; ///< radians
        kvm::Vector3 linearSpring, angularSpring;
    };

    Name modelName;
    Name comment; ///< lines end with a line feed
    std::vector<Vertex> vertices;
    std::vector<kvm::Vector3> normals;         ///< of the vertices; none unless they were asked for
    std::vector<std::array<int, 3>> triangles; ///< in the order of the file
    QVector<QString> textures;
    std::vector<Material> materials;
    std::vector<Bone> bones;
    std::vector<Morph> morphs;
    std::vector<Frame> frames;
    std::vector<Body> bodies;
    std::vector<Joint> joints;
};
