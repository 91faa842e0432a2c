#pragma once

#include "KMSampleMesh.h"

/// The head with neck, eye sockets and mouth, one closed surface, and what morphs need to know of it. Only the left
/// half stands in it until the mesh is finished.
struct KMSampleHead
{
    /// Rows of an eye opening, from the inner corner to the outer one. The corners belong to both.
    struct Lids
    {
        KMSampleRing upper;
        KMSampleRing lower;
    };
    struct Lips
    {
        KMSampleRing upper; ///< from the seam to the corner
        KMSampleRing lower;
    };
    struct Strip
    {
        QVector<KMSampleRing> rings; ///< from the nose outwards
    };

    Lids lids;      ///< on the surface of the face
    Lids innerLids; ///< behind them
    Lips lips;
    Lips innerLips;
    KMSampleRing mouthFloor; ///< deep inside
    KMSampleRing underLip;   ///< skin between mouth and chin
    KMSampleRing cheek;      ///< skin below the eye
    KMSampleRing lidSkin;    ///< skin above the eye
    Strip lash;
    Strip lowerLash;
    Strip brow;
    int firstIris = 0; ///< the vertices of the iris
    int endIris = 0;

    /// The face's surface at a place of the front view.
    static kvm::Vector3 onFace(float x, float y, float outwards = 0.0f);

    void build(KMSampleMesh &mesh);

private:
    void buildSkin(KMSampleMesh &mesh);
    void buildMouth(KMSampleMesh &mesh);
    void buildEye(KMSampleMesh &mesh);
};
