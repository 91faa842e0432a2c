#pragma once

#include "shell/KMTransformEdit.h"
#include "shell/attributes/KMNodePage.h"

class KMTransformFields;

/// Anything with a transform: position, rotation in degrees about x, y and z, and scale. An edit moves what lies below
/// along, vertices included.
class KMNullPage : public KMNodePage
{
    Q_OBJECT
public:
    explicit KMNullPage(KMNullNode *node);

    void refresh() override;

protected:
    virtual KMTransformEdit::Reach reach() const { return KMTransformEdit::Reach::Object; }

private:
    KMNullNode *m_null;
    KMTransformFields *m_fields;
};
