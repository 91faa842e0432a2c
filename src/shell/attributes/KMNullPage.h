#pragma once

#include "shell/KMTransformEdit.h"
#include "shell/attributes/KMNodePage.h"
#include "shell/widgets/KMShownAngles.h"

#include <array>

class KMVectorField;

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
    void setNumber(KMTransformEdit::Part part, int axis, double number);

    KMNullNode *m_null;
    std::array<KMVectorField *, KMTransformEdit::PartCount> m_fields;
    KMShownAngles m_angles;
};
