#pragma once

#include "core/KMContainerNode.h"
#include "math/Vector3.h"

#include <QStringList>
#include <QVector>

class KMFloatNode;
class KMTagMorph;

/// How far and where a morph takes one vertex at its full value. One without a length is never stored.
struct MorphDelta
{
    int vertex;             ///< slot in the mesh of the tag
    float length;           ///< above 0
    kvm::Vector3 direction; ///< unit vector

    kvm::Vector3 offset() const { return direction * length; }
    bool operator==(const MorphDelta &other) const
    {
        return vertex == other.vertex && length == other.length && direction == other.direction;
    }
};
Q_DECLARE_TYPEINFO(MorphDelta, Q_PRIMITIVE_TYPE);

using MorphDeltas = QVector<MorphDelta>;

/// A named set of displacements of vertices with a value, and the corner of a player's morph panel where it stands.
/// Its tag lays the displacements on the mesh, at once when value or displacements change.
class KMMorph : public KMContainerNode
{
    Q_OBJECT
public:
    enum Panel { NoPanel, LeftBottom, LeftTop, RightTop, RightBottom, PanelCount };

    KMMorph();
    ~KMMorph() override;

    float value() const; ///< as it was set; anything below 0 acts as 0, above 1 as 1
    void setValue(float value);
    float weight() const; ///< how the value acts: 0 to 1
    KMFloatNode *valueNode() const { return m_value; }

    int panel() const { return m_panel; }
    void setPanel(int panel);                ///< one out of range becomes NoPanel
    static const char *panelName(int panel); ///< "LeftBottom"; "NULL" for NoPanel
    static QStringList panelNames();

    const MorphDeltas &deltas() const { return m_deltas; }
    void setDeltas(const MorphDeltas &deltas);
    void followMesh(const MorphDeltas &deltas) { m_deltas = deltas; } ///< the same ones after a renumbering: no change

    KMTagMorph *tag() const { return m_tag; } ///< that owns it; null while none does
    void setTag(KMTagMorph *tag) { m_tag = tag; }

private:
    void onChanged();

    KMFloatNode *m_value; // owned
    int m_panel = NoPanel;
    MorphDeltas m_deltas;
    KMTagMorph *m_tag = nullptr;
};
