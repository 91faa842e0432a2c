#pragma once

#include "core/KMBasicShaderNode.h"
#include "shell/attributes/KMNodePage.h"

#include <QVector>

#include <functional>

/// A basic shader: its colours, textures and outline.
class KMBasicShaderPage : public KMNodePage
{
    Q_OBJECT
public:
    explicit KMBasicShaderPage(KMBasicShaderNode *shader);

    void refresh() override;

private:
    void createColors();
    void createTextures();
    void createOutline();
    void bindColor(const QString &label, const QString &key, QColor KMBasicShader::*member);
    void bindCheck(const QString &label, const QString &key, bool KMBasicShader::*member);
    void bindChoice(const QString &label, const QString &key, const QStringList &choices, int KMBasicShader::*member);
    void bindTexture(const QString &label, const QString &key, KMBasicShader::TextureSlot slot);
    void edit(const std::function<void(KMBasicShader &)> &change); ///< one step; none when nothing changes

    KMBasicShaderNode *m_shader;
    QVector<std::function<void(const KMBasicShader &)>> m_showers; // one for each field, in their order
};
