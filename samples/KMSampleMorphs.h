#pragma once

#include "KMSampleMesh.h"

#include <QPair>
#include <QString>

struct KMSampleHead;

/// The expressions of the face.
namespace KMSampleMorphs {

struct Morph
{
    QString name;
    int panel;                               ///< of KMMorph::Panel
    QVector<QPair<int, kvm::Vector3>> moves; ///< by vertex; each once
};

/// For a mesh that is finished: both sides stand in it.
QVector<Morph> morphs(const KMSampleMesh &mesh, const KMSampleHead &head);

} // namespace KMSampleMorphs
