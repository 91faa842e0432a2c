#pragma once

#include "core/KMBasicShaderNode.h"
#include "core/KMChangeValueCommand.h"

#include <QCoreApplication>

/// Sets all values of a basic shader.
class editShaderNodeCommand : public changeValueCommand<KMBasicShader>
{
    Q_DECLARE_TR_FUNCTIONS(editShaderNodeCommand)
public:
    editShaderNodeCommand(KMBasicShaderNode *shader, const KMBasicShader &values);

protected:
    void write(const KMBasicShader &values) override;

private:
    KMBasicShaderNode *m_shader;
};
