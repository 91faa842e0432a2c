#pragma once

#include "shell/attributes/KMNodePage.h"

class KMNullNode;
class KMVectorField;
struct KMTransform;

/// Anything with a transform: position, rotation in degrees about x, y and z, and scale.
class KMNullPage : public KMNodePage
{
    Q_OBJECT
public:
    explicit KMNullPage(KMNullNode *node);

    void refresh() override;

private:
    void push(const KMTransform &transform);

    KMNullNode *m_null;
    KMVectorField *m_translation;
    KMVectorField *m_rotation;
    KMVectorField *m_scale;
};
