// The sections of a file behind its meshes: bones, morphs, display frames and physics.

#include "formats/PmxReader.h"

#include <algorithm>

using Pmx::nameBytes;
using Pmx::vector3Bytes;

void PmxReader::readBones()
{
    const int tailBytes = std::min<int>(m_sizes.bone, vector3Bytes);
    const int leastBytes = nameBytes + vector3Bytes + m_sizes.bone + 6 + tailBytes;
    constexpr int documentBytes = 12000;
    readSection(tr("bones"), leastBytes, documentBytes, m_file.bones, &PmxReader::readBone);
    if (m_in.ok())
        checkWeights();
}

/// Parents and targets may come later, so an index is compared with what is promised.
PmxFile::Bone PmxReader::readBone()
{
    PmxFile::Bone bone;
    bone.name = readName();
    bone.position = m_in.readVector3();
    bone.parent = m_in.readIndex(m_sizes.bone, m_count);
    m_in.skip(4); // layer
    bone.flags = m_in.readU16();
    if (bone.flags & Pmx::TailIsBone)
        m_in.skip(m_sizes.bone);
    else
        bone.tailOffset = m_in.readVector3();
    if (bone.flags & Pmx::InheritsRotation)
        bone.rotation = readInheritance();
    if (bone.flags & Pmx::InheritsTranslation) {
        if (bone.flags & Pmx::InheritsRotation)
            m_in.suspectHere(
                tr("the bone %1 inherits rotation and movement, told in one record where this program looks "
                   "for two")
                    .arg(bone.name.brief()));
        bone.translation = readInheritance();
    }
    if (bone.flags & Pmx::HasFixedAxis)
        m_in.skip(vector3Bytes);
    if (bone.flags & Pmx::HasLocalAxes) {
        bone.axisX = m_in.readVector3();
        bone.axisZ = m_in.readVector3();
    }
    if (bone.flags & Pmx::HasExternalParent)
        m_in.skip(4);
    if (bone.flags & Pmx::HasIK)
        readIK(bone);
    return bone;
}

PmxFile::Inheritance PmxReader::readInheritance()
{
    PmxFile::Inheritance inheritance;
    inheritance.bone = m_in.readIndex(m_sizes.bone, m_count);
    inheritance.ratio = m_in.readF32();
    return inheritance;
}

void PmxReader::readIK(PmxFile::Bone &bone)
{
    bone.ikTarget = m_in.readIndex(m_sizes.bone, m_count);
    bone.ikLoop = m_in.readI32();
    bone.ikAngle = m_in.readF32();
    const int count = m_in.readCount(m_sizes.bone + 1);
    bone.links.reserve(size_t(count));
    for (int left = count; left > 0 && m_in.ok(); --left) {
        PmxFile::Link link;
        link.bone = m_in.readIndex(m_sizes.bone, m_count);
        link.isLimited = m_in.readU8() != 0;
        if (link.isLimited) {
            link.lower = m_in.readVector3();
            link.upper = m_in.readVector3();
        }
        bone.links.push_back(link);
    }
}

/// In a file without bones all weights name the first one all the same.
void PmxReader::checkWeights()
{
    const int boneCount = int(m_file.bones.size());
    if (m_highestBone.index < boneCount || boneCount == 0)
        return;
    m_in.enterSection(tr("vertices"));
    m_in.enterElement(m_highestBone.vertex, int(m_file.vertices.size()));
    m_in.failAt(m_highestBone.position,
                tr("The bone %1, but there are only %2").arg(m_highestBone.index).arg(boneCount));
}

void PmxReader::readMorphs()
{
    constexpr int leastBytes = nameBytes + 2 + 4;
    constexpr int documentBytes = 1500;
    readSection(tr("morphs"), leastBytes, documentBytes, m_file.morphs, &PmxReader::readMorph);
}

PmxFile::Morph PmxReader::readMorph()
{
    PmxFile::Morph morph;
    morph.name = readName();
    morph.panel = m_in.readU8();
    morph.type = m_in.readU8();
    if (morph.type != Pmx::VertexMorph) {
        skipMorph(morph.type);
        return morph;
    }
    const int count = m_in.readCount(m_sizes.vertex + vector3Bytes);
    morph.offsets.reserve(size_t(count));
    for (int left = count; left > 0 && m_in.ok(); --left) {
        const int vertex = m_in.readIndex(m_sizes.vertex, int(m_file.vertices.size()));
        morph.offsets.push_back({vertex, m_in.readVector3()});
    }
    return morph;
}

/// The morph keeps its place in the list, since display frames count all of them.
void PmxReader::skipMorph(int type)
{
    if (type > Pmx::MaterialMorph)
        m_in.suspectHere(tr("a morph of the type %1 was taken for one of materials").arg(type));
    const int element = type == Pmx::GroupMorph    ? m_sizes.morph + 4
                        : type == Pmx::BoneMorph   ? m_sizes.bone + 28
                        : type <= Pmx::LastUVMorph ? m_sizes.vertex + 16
                                                   : m_sizes.material + 1 + 112;
    const qint64 count = m_in.readCount(element);
    m_in.skip(count * element);
}

void PmxReader::readFrames()
{
    constexpr int leastBytes = nameBytes + 1 + 4;
    constexpr int documentBytes = 1000;
    readSection(tr("display frames"), leastBytes, documentBytes, m_file.frames, &PmxReader::readFrame);
}

PmxFile::Frame PmxReader::readFrame()
{
    PmxFile::Frame frame;
    frame.name = readName();
    frame.isSpecial = m_in.readU8() != 0;
    const int count = m_in.readCount(1 + std::min(m_sizes.bone, m_sizes.morph));
    frame.items.reserve(size_t(count));
    for (int left = count; left > 0 && m_in.ok(); --left) {
        const int kind = m_in.readU8();
        if (kind != Pmx::DisplayedBone && kind != Pmx::DisplayedMorph)
            m_in.fail(tr("An item of the unknown kind %1").arg(kind));
        frame.items.push_back({kind, m_in.readIndex(kind == Pmx::DisplayedBone ? m_sizes.bone : m_sizes.morph)});
    }
    return frame;
}

void PmxReader::readBodies()
{
    const int leastBytes = nameBytes + m_sizes.bone + 4 + 3 * vector3Bytes + 20 + 1;
    constexpr int documentBytes = 1500;
    readSection(tr("rigid bodies"), leastBytes, documentBytes, m_file.bodies, &PmxReader::readBody);
}

PmxFile::Body PmxReader::readBody()
{
    PmxFile::Body body;
    body.name = readName();
    body.bone = m_in.readIndex(m_sizes.bone, int(m_file.bones.size()));
    body.group = m_in.readU8();
    body.mask = m_in.readU16();
    body.shape = m_in.readU8();
    body.size = m_in.readVector3();
    body.position = m_in.readVector3();
    body.rotation = m_in.readVector3();
    body.mass = m_in.readF32();
    body.linearDamping = m_in.readF32();
    body.angularDamping = m_in.readF32();
    body.restitution = m_in.readF32();
    body.friction = m_in.readF32();
    body.mode = m_in.readU8();
    return body;
}

void PmxReader::readJoints()
{
    const int leastBytes = nameBytes + 1 + 2 * m_sizes.rigid + 8 * vector3Bytes;
    constexpr int documentBytes = 1500;
    readSection(tr("joints"), leastBytes, documentBytes, m_file.joints, &PmxReader::readJoint);
}

PmxFile::Joint PmxReader::readJoint()
{
    PmxFile::Joint joint;
    joint.name = readName();
    m_in.skip(1); // type
    joint.bodyA = m_in.readIndex(m_sizes.rigid, int(m_file.bodies.size()));
    joint.bodyB = m_in.readIndex(m_sizes.rigid, int(m_file.bodies.size()));
    for (kvm::Vector3 *vector : {&joint.position, &joint.rotation, &joint.linearMin, &joint.linearMax,
                                 &joint.angularMin, &joint.angularMax, &joint.linearSpring, &joint.angularSpring})
        *vector = m_in.readVector3();
    return joint;
}
