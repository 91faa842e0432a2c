#pragma once

#include <QCoreApplication>

class KMBoneContainer;

/// The bones that a figure for MMD is made with: 62 of them, for a figure about 200 units tall that stands with its
/// feet at y = 0, faces negative Z and lets its arms hang a little away from the body. Left is the positive side.
class KMBoneMMDTemplate
{
    Q_DECLARE_TR_FUNCTIONS(KMBoneMMDTemplate)
public:
    static constexpr int BoneCount = 62;

    /// Adds all bones with their constraints at the top of a container. Pushes commands and opens no macro. Names are
    /// translated and kept as they are, whatever bones the container has already.
    static void insertInto(KMBoneContainer *container);
};
