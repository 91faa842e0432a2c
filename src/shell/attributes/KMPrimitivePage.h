#pragma once

#include "shell/attributes/KMNullPage.h"

class KMPrimitiveNode;

/// A primitive: its transform, its shader and, in the classes of KMPrimitivePages, its parameters.
class KMPrimitivePage : public KMNullPage
{
    Q_OBJECT
public:
    KMPrimitivePage(KMPrimitiveNode *primitive, const QString &title);

    void refresh() override;

protected:
    void addShader(); ///< the last row of a page

private:
    void fillShaders();

    KMPrimitiveNode *m_primitive;
    QComboBox *m_shader = nullptr;
};
