#pragma once

#include "core/KMBasicShaderNode.h"
#include "core/KMUndoCommand.h"

#include <QCoreApplication>

/// Sets all values of a basic shader.
class editShaderNodeCommand : public KMUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(editShaderNodeCommand)
public:
    editShaderNodeCommand(KMBasicShaderNode *shader, const KMBasicShader &values);

protected:
    void apply(Direction direction) override;

private:
    KMBasicShaderNode *m_shader;
    KMBasicShader m_before;
    KMBasicShader m_after;
};
