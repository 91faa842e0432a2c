#pragma once

#include "formats/KMDStream.h"
#include "math/Finite.h"

#include <QCoreApplication>
#include <QHash>

#include <functional>
#include <vector>

class KMContainerNode;
class KMNode;

/// What the readers of bodies share for the time of one file.
struct KMDReadContext
{
    Q_DECLARE_TR_FUNCTIONS(KMDReadContext)
public:
    explicit KMDReadContext(KMDStream &stream)
        : in(stream)
    {
    }

    KMDStream &in;
    float importScale = 1.0f; ///< multiplies positions
    int shaderBase = 0;       ///< shaders in the document before: added to the indices of the file
    int shaderCount = 0;      ///< shaders in the document once the file's have come
    QHash<quint64, int> rows; ///< index of the node record by the row id of the file; its parent's for one left out

    /// By the ids of the file: nodes, and whatever else in a record has one. Objects may be named before they come, so
    /// bodies leave here what is to be bound when the last record was read.
    QHash<quint64, KMNode *> objects;
    std::vector<std::function<void()>> bindings;

    qint64 facesTaken = 0;      ///< of the shapes that the file only describes
    qint64 meshNanoseconds = 0; ///< time that the meshes took, for the log

    /// Whether a shape of so many faces may be made beside those before it; counts them when it may. A few bytes can
    /// describe millions of faces, and opening a file shall not take memory out of proportion to it. What the file has
    /// bytes of its own for is believed: whatever was saved can be read.
    bool takeFaces(qint64 faces, qint64 ownBytes = 0)
    {
        constexpr qint64 freeBytes = 40 << 20;
        constexpr qint64 bytesOfByte = 50;  // in proportion, from a file to a document
        constexpr qint64 bytesOfFace = 500; // with its share of vertices, edges and normals
        faces -= ownBytes * bytesOfByte / bytesOfFace;
        if (faces <= 0)
            return true;
        const qint64 fileBytes = in.position() + in.bytesLeft();
        if (faces > (freeBytes + fileBytes) / bytesOfFace - facesTaken)
            return false;
        facesTaken += faces;
        return true;
    }

    /// A point, moved by the import scale.
    kvm::Vector3 readPosition()
    {
        const kvm::Vector3 position = in.readVector3() * importScale;
        if (isFinite(position))
            return position;
        in.warn(tr("The scale moves a point out of all numbers; it was put at the origin"));
        return {};
    }

    /// A shader index of a face or a primitive: none below 0 and for one that the file doesn't hold.
    int shaderIndex(int inFile) const
    {
        return inFile < 0 || inFile >= shaderCount - shaderBase ? -1 : inFile + shaderBase;
    }
};
