#pragma once

#include "shell/attributes/KMNullPage.h"

class KMMeshNode;
class QLabel;

/// A mesh: its transform, the smooth angle, how much it holds and which modifiers work on it.
class KMMeshPage : public KMNullPage
{
    Q_OBJECT
public:
    explicit KMMeshPage(KMMeshNode *mesh);

    void refresh() override;

protected:
    KMTransformEdit::Reach reach() const override;

private:
    void addFrameSwitch();
    void addCounts();
    void setSmoothAngle(double degrees);
    QString modifierNames() const;

    KMMeshNode *m_mesh;
    QCheckBox *m_frameOnly;
    KMNumberField *m_smoothAngle;
    QLabel *m_vertices;
    QLabel *m_edges;
    QLabel *m_faces;
    QLabel *m_triangles;
    QLabel *m_modifiers;
};
